// The color grids and the position editor that rows push.
#include "RowEditors.h"

#include "Appearance.h"
#include "ColorPalette.h"
#include "ColorPickerController.h"
#include "ColorText.h"
#include "NavigationController.h"
#include "PomwickPreferencesViewController.h"
#include "Settings.h"
#include "ViewGeometry.h"

namespace pomwick {

RowEditors::RowEditors(PomwickPreferencesViewController* page) : QObject(page), page_(page) {}

void RowEditors::pushColorGrid(int gridTag) {
    NavigationController* navigation = page_->navigationController();
    if (navigation == nullptr)
        return;
    if (!masterColorsArray_)
        masterColorsArray_ = loadColorPalette();
    auto* grid = new LJColorPickerView;
    setFrame(grid, frame(page_->view()));
    grid->setDelegate(this);
    setTag(grid, gridTag);
    grid->setColorsPerRow(5);
    grid->setColorCellPadding(2.0);
    grid->setHighlightSelection(true);
    grid->setSelectionBorderColor(Color::white());
    grid->setColors(*masterColorsArray_);
    setBackgroundColor(grid, Appearance::cellBackground);
    grid->setAccessibleName(gridTag == backgroundGridTag ? tr("Background colors")
                                                         : tr("Border colors"));

    auto* controller = new ColorPickerController;
    controller->setView(grid);
    controller->setTitle(tr("Select Color"));
    navigation->pushViewController(controller, true);
}

void RowEditors::didSelectColor(LJColorPickerView* picker, const Color& color) {
    switch (tag(picker)) {
    case backgroundGridTag:
        setPreferencesObjectKey(storedColorText(color), SettingsKey::badgeBackgroundColor);
        break;
    case borderGridTag:
        setPreferencesObjectKey(storedColorText(color), SettingsKey::badgeBorderColor);
        break;
    default:
        return;
    }
    emit colorChosen();
}

void RowEditors::pushPositionEditor() {
    NavigationController* navigation = page_->navigationController();
    if (navigation == nullptr)
        return;
    auto* editor = new BadgePositionViewController;
    editor->setSender(this);
    navigation->pushViewController(editor, true);
}

QRectF RowEditors::viewBounds() {
    return bounds(page_->view());
}

float RowEditors::iconSize() const {
    return page_->iconSize();
}

QImage RowEditors::finalBadgeImage() const {
    return page_->finalBadgeImage();
}

} // namespace pomwick
