#include "LJColorPickerView.h"

#include "ColorDescription.h"
#include "QtConversions.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace pomwick {

LJColorPickerView::LJColorPickerView(QWidget* parent) : QWidget(parent) {
    doInitialization();
}

LJColorPickerView::~LJColorPickerView() {
    // The grid asks its data source while it is torn down; it must not find this one half gone.
    colorView_->setDataSource(nullptr);
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
    colorView_->setDataSource(this);
}

void LJColorPickerView::setColors(std::vector<Color> colors) {
    colors_ = std::move(colors);
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

void LJColorPickerView::resetColorPicker() {
    if (colorView_ == nullptr)
        return;
    colorView_->setContentOffset({0, 0});
    colorView_->reloadData();
}

void LJColorPickerView::resizeEvent(QResizeEvent*) {
    colorView_->setGeometry(rect());
}

void LJColorPickerView::setColorCell(CollectionViewCell* cell, bool selected) const {
    if (cell == nullptr)
        return;
    if (selected && highlightSelection_)
        cell->setBorder(toQColor(selectionBorderColor_), selectionBorderWidth);
    else
        cell->setBorder(QColor(), 0);
}

int LJColorPickerView::numberOfItemsInSection(CollectionView*, int) {
    return int(std::min<size_t>(colors_.size(), INT_MAX));
}

CollectionViewCell* LJColorPickerView::cellForItemAtIndexPath(CollectionView* grid,
                                                              IndexPath indexPath) {
    CollectionViewCell* cell = grid->dequeueReusableCell(indexPath);
    setColorCell(cell, cell->isSelected());
    const Color& color = colors_[size_t(indexPath.row)];
    cell->setBackgroundColor(toQColor(color));
    cell->setAccessibleName(describeColor(color));
    return cell;
}

// The gap total is taken in single precision and cut to whole points before it is subtracted, so
// that a total below one point (3 per row at 0.4) subtracts nothing.
QSizeF LJColorPickerView::sizeForItemAtIndexPath(CollectionView* grid, IndexPath) {
    const float perRow = float(colorsPerRow_);
    const float gaps = std::trunc((perRow - 1) * float(colorCellPadding_));
    const float width = grid != nullptr ? float(grid->width()) : 0.0f;
    const float side = std::floor((gaps > 0 ? width - gaps : width) / perRow);
    return {side, side};
}

qreal LJColorPickerView::minimumInteritemSpacingForSectionAtIndex(CollectionView*, int) {
    return colorCellPadding_;
}

qreal LJColorPickerView::minimumLineSpacingForSectionAtIndex(CollectionView*, int) {
    return colorCellPadding_;
}

QMarginsF LJColorPickerView::insetForSectionAtIndex(CollectionView*, int) {
    return {};
}

void LJColorPickerView::didHighlightItemAtIndexPath(CollectionView*, IndexPath indexPath) {
    if (auto* cell = colorView_->cellForItemAtIndexPath(indexPath))
        cell->setAlpha(highlightedAlpha);
}

void LJColorPickerView::didUnhighlightItemAtIndexPath(CollectionView*, IndexPath indexPath) {
    if (auto* cell = colorView_->cellForItemAtIndexPath(indexPath))
        cell->setAlpha(1.0);
}

void LJColorPickerView::didSelectItemAtIndexPath(CollectionView*, IndexPath indexPath) {
    setColorCell(colorView_->cellForItemAtIndexPath(indexPath), true);
    const Color color = colors_[size_t(indexPath.row)];
    selectedColor_ = color;
    if (auto* delegate = dynamic_cast<LJColorPickerViewDelegate*>(delegate_.data()))
        delegate->didSelectColor(this, color);
}

void LJColorPickerView::didDeselectItemAtIndexPath(CollectionView*, IndexPath indexPath) {
    setColorCell(colorView_->cellForItemAtIndexPath(indexPath), false);
}

} // namespace pomwick
