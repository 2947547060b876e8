// What selecting a row does: open an editor, restore the defaults or open an outside page.
#include "Appearance.h"
#include "ColorPalette.h"
#include "ColorPickerController.h"
#include "ColorText.h"
#include "NavigationController.h"
#include "OutsideLinks.h"
#include "PomwickPreferencesViewController.h"
#include "Settings.h"
#include "ViewGeometry.h"

#include <QDesktopServices>

namespace pomwick {
namespace {

constexpr int backgroundGridTag = 0;
constexpr int borderGridTag = 1;

} // namespace

void PomwickPreferencesViewController::didSelectRowAtIndexPath(TableView* table, IndexPath path) {
    if (path == IndexPath{1, 2})
        showFontPicker();
    else if (path == IndexPath{1, 3})
        pushColorGrid(backgroundGridTag);
    else if (path == IndexPath{1, 4})
        pushPositionEditor();
    else if (path == IndexPath{1, 5})
        pushColorGrid(borderGridTag);
    else if (path == IndexPath{2, 0})
        restoreDefaults();
    else if (path == IndexPath{3, 0})
        contactByMail();
    else if (path == IndexPath{3, 1})
        QDesktopServices::openUrl(OutsideLink::makerProfile);
    else if (path == IndexPath{3, 2})
        QDesktopServices::openUrl(OutsideLink::otherPackages);
    else if (path == IndexPath{3, 3})
        QDesktopServices::openUrl(OutsideLink::donation);
    table->deselectRowAtIndexPath(path, true);
}

void PomwickPreferencesViewController::restoreDefaults() {
    // With the file gone every setting reads its default; a file that cannot go stays as it is.
    removePreferencesFile();
    endGesture(tr("Restore Defaults"));
    showDefaultsRestored();
    mainTableView_->reloadData();
}

void PomwickPreferencesViewController::pushColorGrid(int gridTag) {
    if (navigationController() == nullptr)
        return;
    if (!masterColorsArray_)
        masterColorsArray_ = loadColorPalette();
    auto* grid = new LJColorPickerView;
    setFrame(grid, frame(view()));
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
    navigationController()->pushViewController(controller, true);
}

void PomwickPreferencesViewController::didSelectColor(LJColorPickerView* picker,
                                                      const Color& color) {
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
    endGesture(tr("Color"));
}

void PomwickPreferencesViewController::pushPositionEditor() {
    if (navigationController() == nullptr)
        return;
    auto* editor = new BadgePositionViewController;
    editor->setSender(this);
    navigationController()->pushViewController(editor, true);
}

QRectF PomwickPreferencesViewController::viewBounds() {
    return bounds(view());
}

} // namespace pomwick
