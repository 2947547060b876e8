#include "ScrollingItemView.h"

#include <QScrollBar>
#include <QScroller>

namespace pomwick {

ScrollingItemView::ScrollingItemView(QWidget* parent) : QListView(parent) {
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    QScroller::grabGesture(viewport(), QScroller::LeftMouseButtonGesture);
    QScrollerProperties properties = QScroller::scroller(viewport())->scrollerProperties();
    // A press reaches the item at once; the scroller still takes over once it turns to a drag.
    properties.setScrollMetric(QScrollerProperties::MousePressEventDelay, 0);
    properties.setScrollMetric(QScrollerProperties::HorizontalOvershootPolicy,
                               QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff));
    QScroller::scroller(viewport())->setScrollerProperties(properties);
}

void ScrollingItemView::doItemsLayout() {
    // The list view's own layout is skipped: the subclass places every item.
    QAbstractItemView::doItemsLayout();
}

int ScrollingItemView::verticalOffset() const {
    return verticalScrollBar()->value();
}

QRegion ScrollingItemView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QModelIndex& index : selection.indexes())
        region += visualRect(index);
    return region;
}

QItemSelectionModel::SelectionFlags ScrollingItemView::selectionCommand(const QModelIndex&,
                                                                        const QEvent*) const {
    return QItemSelectionModel::NoUpdate;
}

void ScrollingItemView::scrollContentsBy(int, int) {
    viewport()->update();
}

} // namespace pomwick
