#include "PickerWheel.h"

#include "Animations.h"
#include "Appearance.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace pomwick {
namespace {

constexpr int turnDurationMs = 250;
constexpr int angleOfOneNotch = 120;

} // namespace

PickerWheel::PickerWheel(QWidget* parent) : ScrollingItemView(parent) {
    connect(scroller(), &QScroller::stateChanged, this, &PickerWheel::scrollerStateChanged);
    setRowHeight(rowHeight_);
}

QScroller* PickerWheel::scroller() const {
    return QScroller::scroller(viewport());
}

int PickerWheel::rows() const {
    return model() != nullptr ? model()->rowCount() : 0;
}

void PickerWheel::reset() {
    ScrollingItemView::reset();
    // A turn under way belongs to rows that are gone.
    dragged_ = false;
    target_.reset();
    scroller()->stop();
    selected_ = std::clamp(selected_, 0, std::max(rows() - 1, 0));
    updateGeometries();
    setPosition(int(std::lround(selected_ * rowHeight_)));
    syncCurrentIndex();
    viewport()->update();
}

void PickerWheel::setRowHeight(qreal height) {
    rowHeight_ = std::isfinite(height) && height >= 1 ? height : 1;
    scroller()->setSnapPositionsY(0, rowHeight_);
    updateGeometries();
    setPosition(int(std::lround(selected_ * rowHeight_)));
    viewport()->update();
}

int PickerWheel::selectedRow() const {
    return rows() > 0 ? selected_ : -1;
}

int PickerWheel::position() const {
    return verticalScrollBar()->value();
}

void PickerWheel::setPosition(int position) {
    verticalScrollBar()->setValue(position);
}

int PickerWheel::rowAtPosition(int position) const {
    return std::clamp(int(std::lround(position / rowHeight_)), 0, std::max(rows() - 1, 0));
}

void PickerWheel::moveToRow(int row, bool animated, bool byUser) {
    const int count = rows();
    if (count == 0)
        return;
    row = std::clamp(row, 0, count - 1);
    selected_ = row;
    syncCurrentIndex();
    // This turn takes over from a drag's or an earlier turn's, which then report nothing.
    dragged_ = false;
    target_.reset();
    const int end = int(std::lround(row * rowHeight_));
    const int duration = animated && isVisible() ? Animations::duration(turnDurationMs) : 0;
    if (duration > 0 && position() != end) {
        target_ = row;
        targetByUser_ = byUser;
        scroller()->scrollTo(QPointF(0, end), duration);
        // A scroller held by a press turns once it is let go; one that did not start is done.
        if (scroller()->state() != QScroller::Inactive)
            return;
        target_.reset();
    }
    scroller()->stop();
    setPosition(end);
    rest(row, byUser);
}

void PickerWheel::rest(int row, bool byUser) {
    selected_ = row;
    syncCurrentIndex();
    viewport()->update();
    if (byUser)
        emit rowPicked(row);
}

void PickerWheel::scrollerStateChanged(QScroller::State state) {
    if (state == QScroller::Dragging) {
        dragged_ = true;
        target_.reset();
    } else if (state == QScroller::Inactive) {
        // The scroller has snapped a drag to a row (to within a pixel) or finished a turn.
        if (std::exchange(dragged_, false)) {
            moveToRow(rowAtPosition(position()), false, true);
        } else if (const std::optional<int> row = std::exchange(target_, std::nullopt)) {
            setPosition(int(std::lround(*row * rowHeight_)));
            rest(*row, targetByUser_);
        }
    }
}

void PickerWheel::syncCurrentIndex() {
    if (rows() <= 0)
        return;
    syncing_ = true;
    selectionModel()->setCurrentIndex(model()->index(selected_, 0),
                                      QItemSelectionModel::ClearAndSelect);
    syncing_ = false;
}

void PickerWheel::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    ScrollingItemView::currentChanged(current, previous);
    // Typing a row's first letters makes it current: the wheel turns to it.
    if (!syncing_ && current.isValid() && current.row() != selected_)
        moveToRow(current.row(), true, true);
}

void PickerWheel::updateGeometries() {
    const int last = std::max(rows() - 1, 0);
    verticalScrollBar()->setRange(0, int(std::lround(last * rowHeight_)));
    verticalScrollBar()->setSingleStep(int(std::lround(rowHeight_)));
    QAbstractItemView::updateGeometries();
}

QRect PickerWheel::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rows())
        return {};
    const qreal center = viewport()->height() / 2.0 + index.row() * rowHeight_ - position();
    return QRectF(0, center - rowHeight_ / 2, viewport()->width(), rowHeight_).toAlignedRect();
}

void PickerWheel::scrollTo(const QModelIndex&, ScrollHint) {
    // The wheel turns only to rest on a row; nothing else scrolls it.
}

QModelIndex PickerWheel::indexAt(const QPoint& point) const {
    const int row =
        int(std::floor((point.y() - viewport()->height() / 2.0 + position()) / rowHeight_ + 0.5));
    return row >= 0 && row < rows() ? model()->index(row, 0) : QModelIndex();
}

QModelIndex PickerWheel::moveCursor(CursorAction, Qt::KeyboardModifiers) {
    return currentIndex();
}

void PickerWheel::mousePressEvent(QMouseEvent* event) {
    pressedRow_ = indexAt(event->position().toPoint()).row();
}

void PickerWheel::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PickerWheel::mouseReleaseEvent(QMouseEvent* event) {
    const int row = indexAt(event->position().toPoint()).row();
    const std::optional<int> pressed = std::exchange(pressedRow_, std::nullopt);
    // A tap on another row turns the wheel to it; the end of a drag is the scroller's.
    if (event->button() == Qt::LeftButton && row >= 0 && pressed == row && row != selected_ &&
        !dragged_)
        moveToRow(row, true, true);
}

void PickerWheel::wheelEvent(QWheelEvent* event) {
    wheelAngle_ += event->angleDelta().y();
    const int notches = wheelAngle_ / angleOfOneNotch;
    wheelAngle_ -= notches * angleOfOneNotch;
    const int from = target_.value_or(selected_);
    const int row = std::clamp(from - notches, 0, std::max(rows() - 1, 0));
    if (notches != 0 && row != from)
        moveToRow(row, true, true);
    event->accept();
}

void PickerWheel::keyPressEvent(QKeyEvent* event) {
    const int from = target_.value_or(selected_);
    const int page = std::max(1, int(viewport()->height() / rowHeight_) - 1);
    int row = from;
    switch (event->key()) {
    case Qt::Key_Up:
        row = from - 1;
        break;
    case Qt::Key_Down:
        row = from + 1;
        break;
    case Qt::Key_PageUp:
        row = from - page;
        break;
    case Qt::Key_PageDown:
        row = from + page;
        break;
    case Qt::Key_Home:
        row = 0;
        break;
    case Qt::Key_End:
        row = rows() - 1;
        break;
    default:
        ScrollingItemView::keyPressEvent(event);
        return;
    }
    row = std::clamp(row, 0, std::max(rows() - 1, 0));
    if (row != from)
        moveToRow(row, true, true);
    event->accept();
}

// Only the rows within a quarter turn of the middle are painted: the rest face away.
void PickerWheel::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const qreal middle = viewport()->height() / 2.0;
    const qreal reach = std::max(middle, rowHeight_) * std::numbers::pi / 2;
    const int first = std::max(0, int(std::floor((position() - reach) / rowHeight_)));
    const int last = std::min(rows() - 1, int(std::ceil((position() + reach) / rowHeight_)));
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = model()->index(row, 0);
        option.rect = visualRect(index);
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
    if (Appearance::showsFocusRing(this)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Appearance::tint(), 2));
        painter.setBrush(Qt::NoBrush);
        const QRectF band(1, middle - rowHeight_ / 2 + 1, viewport()->width() - 2, rowHeight_ - 2);
        painter.drawRoundedRect(band, 6, 6);
    }
}

} // namespace pomwick
