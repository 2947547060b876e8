#include "CollectionView.h"

#include "Appearance.h"
#include "ScrollIndicator.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QScroller>
#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {

// Sizes and spacings are lengths: anything not finite or below 0 lays out as 0.
qreal length(qreal value) {
    return std::isfinite(value) ? std::max(value, 0.0) : 0.0;
}

QMarginsF lengths(const QMarginsF& margins) {
    return {length(margins.left()), length(margins.top()), length(margins.right()),
            length(margins.bottom())};
}

std::vector<qreal> columns(qreal left, qreal width, qreal spacing, int count) {
    std::vector<qreal> edges(size_t(std::max(count, 0)));
    for (qreal& edge : edges) {
        edge = left;
        left += width + spacing;
    }
    return edges;
}

} // namespace

CollectionView::CollectionView(QWidget* parent) : ScrollingItemView(parent) {
    setAlwaysBounceVertical(false);
    // The focus ring follows the input modality from the first key on, not from the first paint.
    Appearance::showsFocusRing(this);
    new ScrollIndicator(
        this, [this] { return contentInset_.top() + contentHeight_ + contentInset_.bottom(); });
}

void CollectionView::setModel(QAbstractItemModel* model) {
    ScrollingItemView::setModel(model);
    updateGeometries();
}

void CollectionView::setFlowLayout(const FlowLayout& layout) {
    layout_ = layout;
    updateGeometries();
    viewport()->update();
}

void CollectionView::reset() {
    pressed_.reset();
    ScrollingItemView::reset();
    updateGeometries();
    viewport()->update();
}

void CollectionView::setContentOffset(QPointF offset) {
    verticalScrollBar()->setValue(qRound(offset.y() + contentInset_.top()));
}

QPointF CollectionView::contentOffset() const {
    return {0, verticalScrollBar()->value() - contentInset_.top()};
}

void CollectionView::setContentInset(const QMarginsF& inset) {
    contentInset_ = lengths(inset);
    updateGeometries();
}

void CollectionView::setAlwaysBounceVertical(bool bounce) {
    QScrollerProperties properties = QScroller::scroller(viewport())->scrollerProperties();
    properties.setScrollMetric(
        QScrollerProperties::VerticalOvershootPolicy,
        QVariant::fromValue(bounce ? QScrollerProperties::OvershootAlwaysOn
                                   : QScrollerProperties::OvershootWhenScrollable));
    QScroller::scroller(viewport())->setScrollerProperties(properties);
}

void CollectionView::setScrollEnabled(bool enabled) {
    if (enabled)
        QScroller::grabGesture(viewport(), QScroller::LeftMouseButtonGesture);
    else
        QScroller::ungrabGesture(viewport());
}

// Items fill a line while they fit beside each other at the least spacing. A full line shares
// its leftover width out between its items (a lone item is centered); the last line keeps the
// spacing of the line above so that its items stand under theirs. All items being one size,
// every full line has the same columns.
void CollectionView::layoutItems() {
    count_ = model() != nullptr ? std::max(0, model()->rowCount(rootIndex())) : 0;
    section_ = count_ > 0 ? lengths(layout_.sectionInset) : QMarginsF();
    const qreal interitem = count_ > 0 ? length(layout_.minimumInteritemSpacing) : 0;
    size_ = {length(layout_.itemSize.width()), length(layout_.itemSize.height())};
    lineStep_ = size_.height() + (count_ > 0 ? length(layout_.minimumLineSpacing) : 0);
    const qreal available =
        std::max<qreal>(0, viewport()->width() - contentInset_.left() - contentInset_.right() -
                               section_.left() - section_.right());
    int perLine = std::min(count_, 1);
    qreal used = size_.width();
    while (perLine < count_ && used + interitem + size_.width() <= available) {
        used += interitem + size_.width();
        ++perLine;
    }
    fullColumns_.clear();
    lastColumns_ = columns(section_.left(), size_.width(), interitem, perLine);
    const int lines = lineCount();
    if (lines > 1 && perLine > 1) {
        const qreal spread = (available - (used - interitem * (perLine - 1))) / (perLine - 1);
        fullColumns_ = columns(section_.left(), size_.width(), spread, perLine);
        lastColumns_ = fullColumns_;
    } else if (lines > 1) {
        fullColumns_ = {section_.left() + (available - used) / 2};
    }
    contentHeight_ = lines > 0 ? lineTop(lines - 1) + size_.height() + section_.bottom() : 0;
}

int CollectionView::lineCount() const {
    const int perLine = int(lastColumns_.size());
    return perLine > 0 ? (count_ + perLine - 1) / perLine : 0;
}

qreal CollectionView::lineTop(int line) const {
    return section_.top() + line * lineStep_;
}

QRectF CollectionView::layoutFrameForItem(int item) const {
    if (item < 0 || item >= count_)
        return {};
    const int perLine = int(lastColumns_.size());
    const int line = item / perLine;
    const auto& left = line + 1 < lineCount() ? fullColumns_ : lastColumns_;
    QRectF frame(QPointF(left[size_t(item % perLine)], lineTop(line)), size_);
    // Right to left, lines fill from the right, as text does.
    if (isRightToLeft())
        frame.moveRight(viewport()->width() - contentInset_.left() - contentInset_.right() -
                        frame.left());
    return frame;
}

std::optional<int> CollectionView::indexPathForSelectedItem() const {
    if (selectionModel() == nullptr || !selectionModel()->hasSelection())
        return std::nullopt;
    return selectionModel()->selectedIndexes().constFirst().row();
}

void CollectionView::updateGeometries() {
    layoutItems();
    const qreal extent = contentInset_.top() + contentHeight_ + contentInset_.bottom();
    // Content shorter than the view still reaches offset (0, 0), where resets put it.
    const int top = qRound(contentInset_.top());
    verticalScrollBar()->setRange(0, std::max(top, int(std::ceil(extent)) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(20);
    QAbstractItemView::updateGeometries();
}

void CollectionView::resizeEvent(QResizeEvent* event) {
    // The list view's own resizing would lay its items out again, after its own fashion.
    QAbstractItemView::resizeEvent(event);
}

QPointF CollectionView::contentToView() const {
    return {contentInset_.left(), contentInset_.top() - verticalOffset()};
}

QRect CollectionView::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= count_)
        return {};
    return layoutFrameForItem(index.row()).translated(contentToView()).toAlignedRect();
}

QStyleOptionViewItem CollectionView::itemOption(const QModelIndex& index) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    applyState(option, index);
    return option;
}

void CollectionView::applyState(QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int item = index.isValid() ? index.row() : -1;
    option.rect = layoutFrameForItem(item).translated(contentToView()).toRect();
    option.state &= ~(QStyle::State_Selected | QStyle::State_Sunken | QStyle::State_HasFocus);
    if (selectionModel() != nullptr && selectionModel()->isSelected(index))
        option.state |= QStyle::State_Selected;
    if (item >= 0 && pressed_ == item)
        option.state |= QStyle::State_Sunken;
    if (Appearance::showsFocusRing(this) && item >= 0 && index == currentIndex())
        option.state |= QStyle::State_HasFocus;
}

int CollectionView::itemAt(QPointF viewPoint) const {
    const QPointF point = viewPoint - contentToView();
    if (lineStep_ <= 0 || size_.height() <= 0)
        return -1;
    const qreal line = std::floor((point.y() - section_.top()) / lineStep_);
    if (line < 0 || line >= lineCount())
        return -1;
    const int first = int(line) * int(lastColumns_.size());
    const int end = std::min(count_, first + int(lastColumns_.size()));
    for (int item = first; item < end; ++item) {
        if (layoutFrameForItem(item).contains(point))
            return item;
    }
    return -1;
}

QModelIndex CollectionView::indexAt(const QPoint& point) const {
    const int item = itemAt(point);
    return item >= 0 ? model()->index(item, 0, rootIndex()) : QModelIndex();
}

void CollectionView::scrollTo(const QModelIndex& index, ScrollHint) {
    if (!index.isValid() || index.row() >= count_)
        return;
    const QRect rect = visualRect(index);
    QScrollBar* bar = verticalScrollBar();
    if (rect.top() < 0)
        bar->setValue(bar->value() + rect.top());
    else if (rect.bottom() >= viewport()->height())
        bar->setValue(bar->value() + rect.bottom() + 1 - viewport()->height());
}

// The item of the line whose center stands nearest the given one, the line clamped to the grid.
int CollectionView::itemInLine(int line, qreal centerX) const {
    const int perLine = int(lastColumns_.size());
    line = std::clamp(line, 0, lineCount() - 1);
    const int end = std::min(count_, (line + 1) * perLine);
    int best = line * perLine;
    for (int item = best; item < end; ++item) {
        if (std::abs(layoutFrameForItem(item).center().x() - centerX) <
            std::abs(layoutFrameForItem(best).center().x() - centerX))
            best = item;
    }
    return best;
}

QModelIndex CollectionView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    if (count_ == 0)
        return {};
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    if (current < 0 || current >= count_)
        return model()->index(0, 0, rootIndex());
    const int line = current / int(lastColumns_.size());
    const qreal center = layoutFrameForItem(current).center().x();
    const int linesPerPage = std::max(1, int(viewport()->height() / std::max(size_.height(), 1.0)));
    int target = current;
    switch (action) {
    case MovePrevious:
        target = current - 1;
        break;
    case MoveNext:
        target = current + 1;
        break;
    case MoveLeft: // the item after this one is on its left, right to left
    case MoveRight:
        target = current + ((action == MoveRight) != isRightToLeft() ? 1 : -1);
        break;
    case MoveUp:
        target = itemInLine(line - 1, center);
        break;
    case MoveDown:
        target = itemInLine(line + 1, center);
        break;
    case MovePageUp:
        target = itemInLine(line - linesPerPage, center);
        break;
    case MovePageDown:
        target = itemInLine(line + linesPerPage, center);
        break;
    case MoveHome:
        target = 0;
        break;
    case MoveEnd:
        target = count_ - 1;
        break;
    }
    return model()->index(std::clamp(target, 0, count_ - 1), 0, rootIndex());
}

void CollectionView::selectItem(int item) {
    const QModelIndex index = model()->index(item, 0, rootIndex());
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    viewport()->update();
    emit itemSelected(index);
}

void CollectionView::setPressed(std::optional<int> item) {
    if (pressed_ == item)
        return;
    pressed_ = item;
    viewport()->update();
}

void CollectionView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int item = itemAt(event->position());
    setPressed(item >= 0 ? std::optional(item) : std::nullopt);
}

void CollectionView::mouseMoveEvent(QMouseEvent* event) {
    if (pressed_ && itemAt(event->position()) != *pressed_)
        setPressed(std::nullopt);
}

void CollectionView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    const int item = *pressed_;
    setPressed(std::nullopt);
    // A drag that the scroller took over ends with a release far outside: no selection.
    if (itemAt(event->position()) == item)
        selectItem(item);
}

void CollectionView::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second tap of a quick pair is a tap like the first.
    mousePressEvent(event);
}

void CollectionView::keyPressEvent(QKeyEvent* event) {
    const bool selectKey = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                           event->key() == Qt::Key_Enter;
    if (selectKey && currentIndex().isValid() && currentIndex().row() < count_) {
        selectItem(currentIndex().row());
        return;
    }
    ScrollingItemView::keyPressEvent(event);
}

void CollectionView::paintEvent(QPaintEvent* event) {
    const int lines = lineCount();
    if (lines == 0 || lineStep_ <= 0)
        return;
    QPainter painter(viewport());
    const QRectF dirty = QRectF(event->rect()).translated(-contentToView());
    // The lines that reach into the dirty rectangle, the bounds clamped before they become ints.
    const auto clamped = [&](qreal line) {
        return int(std::clamp<qreal>(line, 0, lines - 1));
    };
    const int first =
        clamped(std::ceil((dirty.top() - size_.height() - section_.top()) / lineStep_));
    const int last = clamped(std::floor((dirty.bottom() - section_.top()) / lineStep_));
    const int perLine = int(lastColumns_.size());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QAbstractItemDelegate* delegate = itemDelegate();
    for (int item = first * perLine; item < std::min(count_, (last + 1) * perLine); ++item) {
        const QModelIndex index = model()->index(item, 0, rootIndex());
        applyState(option, index);
        delegate->paint(&painter, option, index);
    }
}

} // namespace pomwick
