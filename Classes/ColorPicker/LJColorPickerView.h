#pragma once

#include "CollectionView.h"
#include "Color.h"
#include "ColorSwatchDelegate.h"
#include "TableViewCell.h"

#include <QPointer>
#include <QWidget>
#include <concepts>
#include <cstddef>
#include <optional>
#include <vector>

namespace pomwick {

class ColorSwatchModel;

// A grid of square color swatches, a fixed number per row, sized from the view's width; reports
// the color the user picks with colorPicked. Every setter but selectedColor's scrolls the grid to
// the top and reloads it.
class LJColorPickerView : public QWidget {
    Q_OBJECT
public:
    explicit LJColorPickerView(QWidget* parent = nullptr);

    // The delegate is told of every pick through its didSelectColor(picker, color), if it has
    // one; any other object is simply not told. Held weakly: a delegate destroyed while the grid
    // is shown is no longer told.
    template <std::derived_from<QObject> Delegate> void setDelegate(Delegate* delegate) {
        holdDelegate(delegate);
        if constexpr (requires(LJColorPickerView * picker, const Color& color) {
                          delegate->didSelectColor(picker, color);
                      }) {
            delegateConnection_ = connect(
                this, &LJColorPickerView::colorPicked, delegate,
                [this, delegate](const Color& color) { delegate->didSelectColor(this, color); });
        }
    }
    void setDelegate(std::nullptr_t) { holdDelegate(nullptr); }
    QObject* delegate() const { return delegate_; }

    void setColors(std::vector<Color> colors);
    qint64 colorsPerRow() const { return colorsPerRow_; }
    void setColorsPerRow(qint64 colorsPerRow);
    double colorCellPadding() const { return colorCellPadding_; }
    void setColorCellPadding(double padding);
    bool highlightSelection() const { return highlightSelection_; }
    void setHighlightSelection(bool highlight);
    Color selectionBorderColor() const { return selectionBorderColor_; }
    void setSelectionBorderColor(const Color& color);
    std::optional<Color> selectedColor() const { return selectedColor_; }
    void setSelectedColor(std::optional<Color> color) { selectedColor_ = color; }
    CollectionView* colorView() const { return colorView_; }

    void resetColorPicker();

    // The grid's questions, answered for its flow layout and its swatches.
    int numberOfItemsInSection(CollectionView* grid, int section) const;
    QSizeF sizeForItemAtIndexPath(CollectionView* grid, IndexPath indexPath) const;
    qreal minimumInteritemSpacingForSectionAtIndex(CollectionView* grid, int section) const;
    qreal minimumLineSpacingForSectionAtIndex(CollectionView* grid, int section) const;
    QMarginsF insetForSectionAtIndex(CollectionView* grid, int section) const;
    CollectionViewCell cellForItemAtIndexPath(CollectionView* grid, IndexPath indexPath) const;
    void didSelectItemAtIndexPath(CollectionView* grid, IndexPath indexPath);

signals:
    void colorPicked(const pomwick::Color& color);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void doInitialization();
    void holdDelegate(QObject* delegate);
    void layoutColorView();

    QPointer<QObject> delegate_;
    QMetaObject::Connection delegateConnection_;
    qint64 colorsPerRow_ = 0;
    double colorCellPadding_ = 0;
    bool highlightSelection_ = false;
    Color selectionBorderColor_;
    CollectionView* colorView_ = nullptr;
    ColorSwatchModel* colors_ = nullptr;
    ColorSwatchDelegate* swatches_ = nullptr;
    std::optional<Color> selectedColor_;
};

} // namespace pomwick
