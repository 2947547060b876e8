#include "CollectionView.h"

#include "Appearance.h"
#include "ScrollIndicator.h"

#include <QAbstractListModel>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QScrollBar>
#include <QScroller>
#include <algorithm>
#include <cmath>
#include <functional>

namespace pomwick {
namespace {

// Sizes and spacings from the delegate are lengths: anything not finite or below 0 lays out as 0.
qreal length(qreal value) {
    return std::isfinite(value) ? std::max(value, 0.0) : 0.0;
}

QMarginsF lengths(const QMarginsF& margins) {
    return {length(margins.left()), length(margins.top()), length(margins.right()),
            length(margins.bottom())};
}

} // namespace

void CollectionViewCell::setBorder(const QColor& color, qreal width) {
    borderColor_ = color;
    borderWidth_ = width;
}

// The items as assistive technology and the selection model see them: one row per item, named
// by its cell.
class CollectionView::Model : public QAbstractListModel {
public:
    explicit Model(CollectionView* grid) : QAbstractListModel(grid), grid_(grid) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : grid_->numberOfItems();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
            return {};
        CollectionViewCell* cell = grid_->visibleCell(index.row());
        return cell != nullptr ? cell->accessibleName() : QString();
    }
    void reset(const std::function<void()>& change) {
        beginResetModel();
        change();
        endResetModel();
    }

private:
    CollectionView* grid_;
};

CollectionView::CollectionView(QWidget* parent)
    : ScrollingItemView(parent), model_(new Model(this)) {
    setModel(model_);
    setAlwaysBounceVertical(false);
    new ScrollIndicator(
        this, [this] { return contentInset_.top() + contentHeight_ + contentInset_.bottom(); });
}

CollectionView::~CollectionView() = default;

void CollectionView::setDataSource(CollectionViewDataSource* dataSource) {
    dataSource_ = dataSource;
    reloadData();
}

void CollectionView::reloadData() {
    model_->reset([this] {
        cells_.clear();
        selected_.reset();
        highlighted_.reset();
        layoutItems();
    });
    updateGeometries();
    viewport()->update();
}

CollectionViewCell* CollectionView::dequeueReusableCell(IndexPath indexPath) {
    auto& cell = cells_[indexPath.row];
    cell = std::make_unique<CollectionViewCell>();
    cell->selected_ = selected_ == indexPath.row;
    return cell.get();
}

CollectionViewCell* CollectionView::cellForItemAtIndexPath(IndexPath indexPath) const {
    const auto found = cells_.find(indexPath.row);
    return found != cells_.end() ? found->second.get() : nullptr;
}

CollectionViewCell* CollectionView::visibleCell(int item) {
    if (item < 0 || item >= numberOfItems())
        return nullptr;
    if (auto* cell = cellForItemAtIndexPath({0, item}))
        return cell;
    if (dataSource_ != nullptr)
        dataSource_->cellForItemAtIndexPath(this, {0, item});
    if (cells_.find(item) == cells_.end())
        dequeueReusableCell({0, item});
    return cells_[item].get();
}

void CollectionView::setContentOffset(QPointF offset) {
    verticalScrollBar()->setValue(qRound(offset.y() + contentInset_.top()));
}

QPointF CollectionView::contentOffset() const {
    return {0, verticalScrollBar()->value() - contentInset_.top()};
}

void CollectionView::setContentInset(const QMarginsF& inset) {
    contentInset_ = lengths(inset);
    layoutItems();
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

QRectF CollectionView::layoutFrameForItem(int item) const {
    return item >= 0 && item < numberOfItems() ? frames_[item] : QRectF();
}

std::optional<int> CollectionView::indexPathForSelectedItem() const {
    return selected_;
}

// Items fill a line while they fit beside each other at the minimum spacing. A full line shares
// its leftover width out between its items (a lone item is centered); the last line keeps the
// spacing of the line above so that its items stand under theirs.
void CollectionView::layoutItems() {
    frames_.clear();
    lines_.clear();
    const int count =
        dataSource_ != nullptr ? std::max(0, dataSource_->numberOfItemsInSection(this, 0)) : 0;
    const QMarginsF section =
        count > 0 ? lengths(dataSource_->insetForSectionAtIndex(this, 0)) : QMarginsF();
    const qreal interitem =
        count > 0 ? length(dataSource_->minimumInteritemSpacingForSectionAtIndex(this, 0)) : 0;
    const qreal lineSpacing =
        count > 0 ? length(dataSource_->minimumLineSpacingForSectionAtIndex(this, 0)) : 0;
    const qreal available =
        std::max<qreal>(0, viewport()->width() - contentInset_.left() - contentInset_.right() -
                               section.left() - section.right());
    std::vector<QSizeF> sizes(count);
    for (int item = 0; item < count; ++item) {
        const QSizeF size = dataSource_->sizeForItemAtIndexPath(this, {0, item});
        sizes[item] = {length(size.width()), length(size.height())};
    }
    frames_.resize(count);
    qreal y = section.top();
    qreal spacing = interitem;
    for (int first = 0; first < count;) {
        int end = first + 1;
        qreal used = sizes[first].width();
        qreal height = sizes[first].height();
        while (end < count && used + interitem + sizes[end].width() <= available) {
            used += interitem + sizes[end].width();
            height = std::max(height, sizes[end].height());
            ++end;
        }
        const bool last = end == count;
        const int inLine = end - first;
        qreal x = section.left();
        if (!last && inLine > 1)
            spacing = (available - (used - interitem * (inLine - 1))) / (inLine - 1);
        else if (!last)
            x += (available - used) / 2;
        if (last && lines_.empty())
            spacing = interitem;
        for (int item = first; item < end; ++item) {
            const QSizeF size = sizes[item];
            frames_[item] = QRectF(QPointF(x, y + (height - size.height()) / 2), size);
            // Right to left, lines fill from the right, as text does.
            if (isRightToLeft())
                frames_[item].moveRight(available + section.left() + section.right() - x);
            x += size.width() + spacing;
        }
        lines_.push_back({y, y + height, first});
        y += height + lineSpacing;
        first = end;
    }
    contentHeight_ = lines_.empty() ? 0 : lines_.back().bottom + section.bottom();
}

void CollectionView::updateGeometries() {
    const qreal extent = contentInset_.top() + contentHeight_ + contentInset_.bottom();
    // Content shorter than the view still reaches offset (0, 0), where resets put it.
    const int top = qRound(contentInset_.top());
    verticalScrollBar()->setRange(0, std::max(top, int(std::ceil(extent)) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(20);
    QAbstractItemView::updateGeometries();
}

void CollectionView::resizeEvent(QResizeEvent* event) {
    layoutItems();
    QAbstractItemView::resizeEvent(event);
}

QPointF CollectionView::contentToView() const {
    return {contentInset_.left(), contentInset_.top() - verticalOffset()};
}

QRect CollectionView::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= numberOfItems())
        return {};
    return frames_[index.row()].translated(contentToView()).toAlignedRect();
}

int CollectionView::lineOf(int item) const {
    const auto line = std::upper_bound(lines_.begin(), lines_.end(), item,
                                       [](int i, const Line& l) { return i < l.first; });
    return int(line - lines_.begin()) - 1;
}

int CollectionView::itemAt(QPointF viewPoint) const {
    const QPointF point = viewPoint - contentToView();
    const auto line = std::lower_bound(lines_.begin(), lines_.end(), point.y(),
                                       [](const Line& l, qreal y) { return l.bottom < y; });
    if (line == lines_.end() || point.y() < line->top)
        return -1;
    const int end = line + 1 == lines_.end() ? numberOfItems() : (line + 1)->first;
    for (int item = line->first; item < end; ++item) {
        if (frames_[item].contains(point))
            return item;
    }
    return -1;
}

QModelIndex CollectionView::indexAt(const QPoint& point) const {
    const int item = itemAt(point);
    return item >= 0 ? model_->index(item, 0) : QModelIndex();
}

void CollectionView::scrollTo(const QModelIndex& index, ScrollHint) {
    if (!index.isValid() || index.row() >= numberOfItems())
        return;
    const QRect rect = visualRect(index);
    QScrollBar* bar = verticalScrollBar();
    if (rect.top() < 0)
        bar->setValue(bar->value() + rect.top());
    else if (rect.bottom() >= viewport()->height())
        bar->setValue(bar->value() + rect.bottom() + 1 - viewport()->height());
}

QModelIndex CollectionView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int count = numberOfItems();
    if (count == 0)
        return {};
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    if (current < 0)
        return model_->index(0, 0);
    const int line = lineOf(current);
    const auto itemInLine = [&](int target) {
        target = std::clamp(target, 0, int(lines_.size()) - 1);
        const int end = target + 1 < int(lines_.size()) ? lines_[target + 1].first : count;
        const qreal center = frames_[current].center().x();
        int best = lines_[target].first;
        for (int item = best; item < end; ++item) {
            if (std::abs(frames_[item].center().x() - center) <
                std::abs(frames_[best].center().x() - center))
                best = item;
        }
        return best;
    };
    const qreal lineHeight = lines_[line].bottom - lines_[line].top;
    const int linesPerPage = std::max(1, int(viewport()->height() / std::max(lineHeight, 1.0)));
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
        target = itemInLine(line - 1);
        break;
    case MoveDown:
        target = itemInLine(line + 1);
        break;
    case MovePageUp:
        target = itemInLine(line - linesPerPage);
        break;
    case MovePageDown:
        target = itemInLine(line + linesPerPage);
        break;
    case MoveHome:
        target = 0;
        break;
    case MoveEnd:
        target = count - 1;
        break;
    }
    return model_->index(std::clamp(target, 0, count - 1), 0);
}

void CollectionView::selectItem(int item) {
    const QPointer<CollectionView> alive(this);
    if (selected_ && *selected_ != item) {
        const int previous = *selected_;
        selected_.reset();
        if (auto* cell = cellForItemAtIndexPath({0, previous}))
            cell->selected_ = false;
        if (dataSource_ != nullptr)
            dataSource_->didDeselectItemAtIndexPath(this, {0, previous});
        if (!alive)
            return;
    }
    selected_ = item;
    if (auto* cell = cellForItemAtIndexPath({0, item}))
        cell->selected_ = true;
    const QModelIndex index = model_->index(item, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    viewport()->update();
    if (dataSource_ != nullptr)
        dataSource_->didSelectItemAtIndexPath(this, {0, item});
}

void CollectionView::endHighlight() {
    if (!highlighted_)
        return;
    const int item = *highlighted_;
    highlighted_.reset();
    if (dataSource_ != nullptr)
        dataSource_->didUnhighlightItemAtIndexPath(this, {0, item});
    viewport()->update();
}

void CollectionView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    keyboardFocus_ = false;
    endHighlight();
    const int item = itemAt(event->position());
    if (item < 0)
        return;
    highlighted_ = item;
    visibleCell(item);
    if (dataSource_ != nullptr)
        dataSource_->didHighlightItemAtIndexPath(this, {0, item});
    viewport()->update();
}

void CollectionView::mouseMoveEvent(QMouseEvent* event) {
    if (highlighted_ && itemAt(event->position()) != *highlighted_)
        endHighlight();
}

void CollectionView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !highlighted_)
        return;
    const int item = *highlighted_;
    const QPointer<CollectionView> alive(this);
    endHighlight();
    if (alive && itemAt(event->position()) == item)
        selectItem(item);
}

void CollectionView::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second tap of a quick pair is a tap like the first.
    mousePressEvent(event);
}

void CollectionView::keyPressEvent(QKeyEvent* event) {
    keyboardFocus_ = true;
    const bool selectKey = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                           event->key() == Qt::Key_Enter;
    if (selectKey && currentIndex().isValid()) {
        selectItem(currentIndex().row());
        return;
    }
    ScrollingItemView::keyPressEvent(event);
}

void CollectionView::focusInEvent(QFocusEvent* event) {
    keyboardFocus_ =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    ScrollingItemView::focusInEvent(event);
}

void CollectionView::retireHiddenCells() {
    const QRectF shown = QRectF(viewport()->rect()).translated(-contentToView());
    std::erase_if(cells_, [&](const auto& entry) {
        return entry.first != highlighted_ && !frames_[entry.first].intersects(shown);
    });
}

void CollectionView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QPointF origin = contentToView();
    const QRectF dirty = QRectF(event->rect()).translated(-origin);
    const auto firstLine = std::lower_bound(lines_.begin(), lines_.end(), dirty.top(),
                                            [](const Line& l, qreal y) { return l.bottom < y; });
    for (auto line = firstLine; line != lines_.end() && line->top <= dirty.bottom(); ++line) {
        const int end = line + 1 == lines_.end() ? numberOfItems() : (line + 1)->first;
        for (int item = line->first; item < end; ++item) {
            CollectionViewCell* cell = visibleCell(item);
            const QRectF rect = frames_[item].translated(origin);
            painter.setOpacity(std::clamp(cell->alpha(), 0.0, 1.0));
            painter.fillRect(rect, cell->backgroundColor());
            const qreal border =
                std::min({cell->borderWidth(), rect.width() / 2, rect.height() / 2});
            if (border > 0 && cell->borderColor().isValid()) {
                QPainterPath ring;
                ring.addRect(rect);
                ring.addRect(rect.adjusted(border, border, -border, -border));
                painter.fillPath(ring, cell->borderColor());
            }
        }
    }
    painter.setOpacity(1);
    if (hasFocus() && keyboardFocus_ && currentIndex().isValid() &&
        currentIndex().row() < numberOfItems())
        Appearance::drawFocusRing(painter, frames_[currentIndex().row()].translated(origin), 0);
    retireHiddenCells();
}

} // namespace pomwick
