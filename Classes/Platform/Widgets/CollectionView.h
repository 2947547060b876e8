#pragma once

#include "PomwickPlatformExport.h"
#include "ScrollingItemView.h"

#include <QMarginsF>
#include <QSizeF>
#include <QStyleOptionViewItem>
#include <optional>
#include <vector>

namespace pomwick {

// The flow layout's measures: one size for every item, the least gaps between items across and
// between lines down, and the section's inset around them all.
struct FlowLayout {
    QSizeF itemSize{50, 50};
    qreal minimumInteritemSpacing = 10;
    qreal minimumLineSpacing = 10;
    QMarginsF sectionInset;
};

// A vertically scrolling grid over the rows of a list model, laid out as a flow layout: items left
// to right in lines, a full line's leftover width shared out between its items, the last line
// keeping the spacing of the line above; lines separated by the line spacing. The item delegate
// paints each item with its state: selected, sunken while pressed, focused while the keyboard
// steers. Dragging scrolls kinetically and bounces; a tap presses on press and selects on
// release; the arrow keys move the current item and Space or Return select it. Single selection;
// itemSelected reports every selection, of the selected item again too.
class POMWICK_PLATFORM_EXPORT CollectionView : public ScrollingItemView {
    Q_OBJECT
public:
    explicit CollectionView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    void setFlowLayout(const FlowLayout& layout);
    FlowLayout flowLayout() const { return layout_; }

    // The offset of the content's top-left corner from the view's; (0, 0) puts the content's top
    // at the view's top edge, past the top content inset.
    void setContentOffset(QPointF offset);
    QPointF contentOffset() const;
    void setContentInset(const QMarginsF& inset);
    QMarginsF contentInset() const { return contentInset_; }
    void setAlwaysBounceVertical(bool bounce);
    void setScrollEnabled(bool enabled);

    int numberOfItems() const { return count_; }
    // The item's frame in content coordinates, as the layout placed it.
    QRectF layoutFrameForItem(int item) const;
    std::optional<int> indexPathForSelectedItem() const;
    // What the item delegate paints the item with: its place in the viewport and its state.
    QStyleOptionViewItem itemOption(const QModelIndex& index) const;

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void reset() override;

signals:
    void itemSelected(const QModelIndex& index);

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

private:
    void layoutItems();
    void selectItem(int item);
    void setPressed(std::optional<int> item);
    void applyState(QStyleOptionViewItem& option, const QModelIndex& index) const;
    int itemAt(QPointF viewPoint) const;
    int itemInLine(int line, qreal centerX) const;
    int lineCount() const;
    qreal lineTop(int line) const;
    QPointF contentToView() const;

    FlowLayout layout_;
    QMarginsF contentInset_;
    // The layout of the moment, all items being one size: the columns' left edges in a full
    // line and in the last line, and the lines' step down.
    int count_ = 0;
    QSizeF size_;
    qreal lineStep_ = 0;
    QMarginsF section_;
    std::vector<qreal> fullColumns_;
    std::vector<qreal> lastColumns_;
    qreal contentHeight_ = 0;
    std::optional<int> pressed_;
};

} // namespace pomwick
