#pragma once

#include "CollectionView.h"
#include "Color.h"

#include <QPointer>
#include <QWidget>
#include <optional>
#include <vector>

namespace pomwick {

class LJColorPickerView;

// The delegate's one operation, optional: a delegate object that implements this interface is
// told of every tapped color; any other object is simply not told.
class LJColorPickerViewDelegate {
public:
    virtual ~LJColorPickerViewDelegate() = default;
    virtual void didSelectColor(LJColorPickerView* picker, const Color& color) = 0;
};

// A grid of square color swatches, a fixed number per row, sized from the view's width; reports
// the color the user taps. Every setter but selectedColor's scrolls the grid to the top and
// reloads it.
class LJColorPickerView : public QWidget, private CollectionViewDataSource {
    Q_OBJECT
public:
    static constexpr qreal selectionBorderWidth = 5.0;
    static constexpr qreal highlightedAlpha = 0.5;

    explicit LJColorPickerView(QWidget* parent = nullptr);
    ~LJColorPickerView() override;

    // Held weakly: a delegate destroyed while the grid is shown is simply no longer told.
    void setDelegate(QObject* delegate) { delegate_ = delegate; }
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

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void doInitialization();
    void setColorCell(CollectionViewCell* cell, bool selected) const;

    int numberOfItemsInSection(CollectionView* grid, int section) override;
    CollectionViewCell* cellForItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;
    QSizeF sizeForItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;
    qreal minimumInteritemSpacingForSectionAtIndex(CollectionView* grid, int section) override;
    qreal minimumLineSpacingForSectionAtIndex(CollectionView* grid, int section) override;
    QMarginsF insetForSectionAtIndex(CollectionView* grid, int section) override;
    void didHighlightItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;
    void didUnhighlightItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;
    void didSelectItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;
    void didDeselectItemAtIndexPath(CollectionView* grid, IndexPath indexPath) override;

    QPointer<QObject> delegate_;
    std::vector<Color> colors_;
    qint64 colorsPerRow_ = 0;
    double colorCellPadding_ = 0;
    bool highlightSelection_ = false;
    Color selectionBorderColor_;
    CollectionView* colorView_ = nullptr;
    std::optional<Color> selectedColor_;
};

} // namespace pomwick
