#pragma once

#include "PomwickPlatformExport.h"
#include "ScrollingItemView.h"
#include "TableViewCell.h"

#include <QMarginsF>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace pomwick {

class CollectionView;

// A visible cell: its background fills the item's square, a border drawn inside its edge stands
// for the content view's layer border, and alpha dims the whole cell. The grid owns it.
class POMWICK_PLATFORM_EXPORT CollectionViewCell {
public:
    bool isSelected() const { return selected_; }
    void setBackgroundColor(const QColor& color) { background_ = color; }
    QColor backgroundColor() const { return background_; }
    void setBorder(const QColor& color, qreal width);
    QColor borderColor() const { return borderColor_; }
    qreal borderWidth() const { return borderWidth_; }
    void setAlpha(qreal alpha) { alpha_ = alpha; }
    qreal alpha() const { return alpha_; }
    void setAccessibleName(const QString& name) { accessibleName_ = name; }
    QString accessibleName() const { return accessibleName_; }

private:
    friend class CollectionView;
    bool selected_ = false;
    QColor background_ = Qt::transparent;
    QColor borderColor_;
    qreal borderWidth_ = 0;
    qreal alpha_ = 1;
    QString accessibleName_;
};

// What the grid asks of its data source and tells its delegate, with the flow layout's questions
// (one object here, not owned by the grid). The defaults are the flow layout's own.
class POMWICK_PLATFORM_EXPORT CollectionViewDataSource {
public:
    virtual ~CollectionViewDataSource() = default;
    virtual int numberOfItemsInSection(CollectionView* grid, int section) = 0;
    // Configure the cell that grid->dequeueReusableCell(indexPath) hands out and return it.
    virtual CollectionViewCell* cellForItemAtIndexPath(CollectionView* grid,
                                                       IndexPath indexPath) = 0;
    virtual QSizeF sizeForItemAtIndexPath(CollectionView*, IndexPath) { return {50, 50}; }
    virtual qreal minimumInteritemSpacingForSectionAtIndex(CollectionView*, int) { return 10; }
    virtual qreal minimumLineSpacingForSectionAtIndex(CollectionView*, int) { return 10; }
    virtual QMarginsF insetForSectionAtIndex(CollectionView*, int) { return {}; }
    virtual void didHighlightItemAtIndexPath(CollectionView*, IndexPath) {}
    virtual void didUnhighlightItemAtIndexPath(CollectionView*, IndexPath) {}
    virtual void didSelectItemAtIndexPath(CollectionView*, IndexPath) {}
    virtual void didDeselectItemAtIndexPath(CollectionView*, IndexPath) {}
};

// A vertically scrolling grid of one section laid out as a flow layout: items left to right in
// lines, a full line's leftover width shared out between its items, the last line keeping the
// spacing of the line above; lines separated by the line spacing. Only visible items are asked
// for their cells. Dragging scrolls kinetically and bounces; a tap highlights on press, selects on
// release; the arrow keys move the focus ring and Space or Enter select. Single selection.
class POMWICK_PLATFORM_EXPORT CollectionView : public ScrollingItemView {
    Q_OBJECT
public:
    explicit CollectionView(QWidget* parent = nullptr);
    ~CollectionView() override;

    void setDataSource(CollectionViewDataSource* dataSource);
    void reloadData();

    CollectionViewCell* dequeueReusableCell(IndexPath indexPath);
    // The cell of a visible item, or null.
    CollectionViewCell* cellForItemAtIndexPath(IndexPath indexPath) const;

    // The offset of the content's top-left corner from the view's; (0, 0) puts the content's top
    // at the view's top edge, past the top content inset.
    void setContentOffset(QPointF offset);
    QPointF contentOffset() const;
    void setContentInset(const QMarginsF& inset);
    QMarginsF contentInset() const { return contentInset_; }
    void setAlwaysBounceVertical(bool bounce);
    void setScrollEnabled(bool enabled);

    int numberOfItems() const { return int(frames_.size()); }
    // The item's frame in content coordinates, as the layout placed it.
    QRectF layoutFrameForItem(int item) const;
    std::optional<int> indexPathForSelectedItem() const;

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    class Model;
    void layoutItems();
    void selectItem(int item);
    void endHighlight();
    int itemAt(QPointF viewPoint) const;
    int lineOf(int item) const;
    QPointF contentToView() const;
    CollectionViewCell* visibleCell(int item);
    void retireHiddenCells();

    CollectionViewDataSource* dataSource_ = nullptr;
    Model* model_;
    struct Line {
        qreal top;
        qreal bottom;
        int first;
    };
    std::vector<QRectF> frames_;
    std::vector<Line> lines_;
    qreal contentHeight_ = 0;
    QMarginsF contentInset_;
    std::map<int, std::unique_ptr<CollectionViewCell>> cells_;
    std::optional<int> selected_;
    std::optional<int> highlighted_;
    // The focus ring shows while the keyboard is in use, not after a tap.
    bool keyboardFocus_ = false;
};

} // namespace pomwick
