#include "LJColorPickerView.h"

#include "ColorSwatchModel.h"
#include "QtConversions.h"

#include <algorithm>
#include <cmath>

namespace pomwick {

LJColorPickerView::LJColorPickerView(QWidget* parent) : QWidget(parent) {
    doInitialization();
}

void LJColorPickerView::doInitialization() {
    setColorsPerRow(4);
    colorCellPadding_ = 2.0;
    highlightSelection_ = true;
    selectionBorderColor_ = Color::white();

    colorView_ = new CollectionView(this);
    colorView_->setGeometry(0, 0, 0, 0);
    colorView_->setScrollEnabled(true);
    colorView_->setAlwaysBounceVertical(true);
    // The inset takes the padding of this moment and keeps it when the padding changes later.
    colorView_->setContentInset(QMarginsF(0, colorCellPadding_, 0, colorCellPadding_));
    // Owned by the grid, so that they outlive its painting.
    colors_ = new ColorSwatchModel(colorView_);
    swatches_ = new ColorSwatchDelegate(colorView_);
    colorView_->setModel(colors_);
    colorView_->setItemDelegate(swatches_);
    connect(colorView_, &CollectionView::itemSelected, this, [this](const QModelIndex& index) {
        didSelectItemAtIndexPath(colorView_, {0, index.row()});
    });
    resetColorPicker();
}

void LJColorPickerView::holdDelegate(QObject* delegate) {
    disconnect(delegateConnection_);
    delegate_ = delegate;
}

void LJColorPickerView::setColors(std::vector<Color> colors) {
    if (colors_ != nullptr)
        colors_->setColors(std::move(colors));
    resetColorPicker();
}

void LJColorPickerView::setColorsPerRow(qint64 colorsPerRow) {
    colorsPerRow_ = std::max<qint64>(colorsPerRow, 1);
    resetColorPicker();
}

void LJColorPickerView::setColorCellPadding(double padding) {
    colorCellPadding_ = padding < 0 ? 0 : padding;
    resetColorPicker();
}

void LJColorPickerView::setHighlightSelection(bool highlight) {
    highlightSelection_ = highlight;
    resetColorPicker();
}

void LJColorPickerView::setSelectionBorderColor(const Color& color) {
    selectionBorderColor_ = color;
    resetColorPicker();
}

// The grid is laid out afresh, scrolled to the top, and reset: selection and press are gone.
void LJColorPickerView::resetColorPicker() {
    if (colorView_ == nullptr)
        return;
    swatches_->setSelectionAppearance(highlightSelection_, toQColor(selectionBorderColor_));
    layoutColorView();
    colorView_->setContentOffset({0, 0});
    colorView_->reset();
}

void LJColorPickerView::resizeEvent(QResizeEvent*) {
    colorView_->setGeometry(rect());
    layoutColorView();
}

void LJColorPickerView::layoutColorView() {
    colorView_->setFlowLayout({sizeForItemAtIndexPath(colorView_, {0, 0}),
                               minimumInteritemSpacingForSectionAtIndex(colorView_, 0),
                               minimumLineSpacingForSectionAtIndex(colorView_, 0),
                               insetForSectionAtIndex(colorView_, 0)});
}

int LJColorPickerView::numberOfItemsInSection(CollectionView*, int) const {
    return colors_->rowCount();
}

// The gap total is taken in single precision and cut to whole points before it is subtracted, so
// that a total below one point (3 per row at 0.4) subtracts nothing.
QSizeF LJColorPickerView::sizeForItemAtIndexPath(CollectionView* grid, IndexPath) const {
    const float perRow = float(colorsPerRow_);
    const float gaps = std::trunc((perRow - 1) * float(colorCellPadding_));
    const float width = grid != nullptr ? float(grid->width()) : 0.0f;
    const float side = std::floor((gaps > 0 ? width - gaps : width) / perRow);
    return {side, side};
}

qreal LJColorPickerView::minimumInteritemSpacingForSectionAtIndex(CollectionView*, int) const {
    return colorCellPadding_;
}

qreal LJColorPickerView::minimumLineSpacingForSectionAtIndex(CollectionView*, int) const {
    return colorCellPadding_;
}

QMarginsF LJColorPickerView::insetForSectionAtIndex(CollectionView*, int) const {
    return {};
}

CollectionViewCell LJColorPickerView::cellForItemAtIndexPath(CollectionView* grid,
                                                             IndexPath indexPath) const {
    const QModelIndex index = grid->model()->index(indexPath.row, 0);
    return swatches_->cell(grid->itemOption(index), index);
}

// The swatch's border comes with its selection; the color is kept and reported.
void LJColorPickerView::didSelectItemAtIndexPath(CollectionView*, IndexPath indexPath) {
    const Color color = colors_->color(indexPath.row);
    selectedColor_ = color;
    emit colorPicked(color);
}

} // namespace pomwick
