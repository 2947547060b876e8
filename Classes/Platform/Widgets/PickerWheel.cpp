#include "PickerWheel.h"

#include "Animations.h"
#include "Appearance.h"
#include "PickerView.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace pomwick {
namespace {

constexpr int turnDurationMs = 250;
constexpr size_t spareViews = 8;
constexpr int angleOfOneNotch = 120;

QString nameOfView(const QWidget* view) {
    if (view == nullptr)
        return {};
    if (!view->accessibleName().isEmpty())
        return view->accessibleName();
    const auto* label = qobject_cast<const QLabel*>(view);
    return label != nullptr ? label->text() : QString();
}

} // namespace

// The rows as assistive technology and keyboard search see them, named by their views.
class PickerWheel::Model : public QAbstractListModel {
public:
    explicit Model(PickerWheel* wheel) : QAbstractListModel(wheel), wheel_(wheel) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : std::max(wheel_->rows_, 0);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
            return {};
        return wheel_->rowName(index.row());
    }
    void reset(int rows) {
        beginResetModel();
        wheel_->rows_ = rows;
        endResetModel();
    }

private:
    PickerWheel* wheel_;
};

PickerWheel::PickerWheel(PickerView* picker, int component)
    : ScrollingItemView(picker), picker_(picker), component_(component), model_(new Model(this)),
      animation_(new QPropertyAnimation(this, "position", this)) {
    setModel(model_);
    animation_->setDuration(Animations::duration(turnDurationMs));
    animation_->setEasingCurve(QEasingCurve::OutCubic);
    connect(animation_, &QPropertyAnimation::finished, this, [this] {
        if (target_)
            rest(*target_, targetByUser_);
    });
    connect(QScroller::scroller(viewport()), &QScroller::stateChanged, this,
            &PickerWheel::scrollerStateChanged);
    setRowHeight(rowHeight_);
}

PickerWheel::~PickerWheel() {
    animation_->stop();
}

int PickerWheel::numberOfRows() {
    if (rows_ < 0)
        reload();
    return rows_;
}

void PickerWheel::reload() {
    PickerViewDataSource* dataSource = picker_->dataSource();
    const int rows = dataSource != nullptr
                         ? std::max(0, dataSource->numberOfRowsInComponent(picker_, component_))
                         : 0;
    retireRows(0, -1);
    model_->reset(rows);
    animation_->stop();
    target_.reset();
    selected_ = std::clamp(selected_, 0, std::max(rows - 1, 0));
    updateGeometries();
    setPosition(int(std::lround(selected_ * rowHeight_)));
    syncCurrentIndex();
    viewport()->update();
}

void PickerWheel::setRowHeight(qreal height) {
    rowHeight_ = std::isfinite(height) && height >= 1 ? height : 1;
    QScroller::scroller(viewport())->setSnapPositionsY(0, rowHeight_);
    retireRows(0, -1);
    if (rows_ >= 0) {
        updateGeometries();
        setPosition(int(std::lround(selected_ * rowHeight_)));
    }
    viewport()->update();
}

int PickerWheel::selectedRow() {
    return numberOfRows() > 0 ? selected_ : -1;
}

int PickerWheel::position() const {
    return verticalScrollBar()->value();
}

void PickerWheel::setPosition(int position) {
    verticalScrollBar()->setValue(position);
}

bool PickerWheel::isMoving() const {
    return animation_->state() == QAbstractAnimation::Running ||
           QScroller::scroller(viewport())->state() != QScroller::Inactive;
}

int PickerWheel::rowAtPosition(int position) const {
    return std::clamp(int(std::lround(position / rowHeight_)), 0, std::max(rows_ - 1, 0));
}

qreal PickerWheel::rowCenter(int row) const {
    return viewport()->height() / 2.0 + row * rowHeight_ - position();
}

void PickerWheel::moveToRow(int row, bool animated, bool byUser) {
    if (numberOfRows() == 0)
        return;
    row = std::clamp(row, 0, rows_ - 1);
    selected_ = row;
    syncCurrentIndex();
    target_ = row;
    targetByUser_ = byUser;
    animation_->stop();
    const int end = int(std::lround(row * rowHeight_));
    if (!animated || !isVisible() || position() == end) {
        setPosition(end);
        rest(row, byUser);
        return;
    }
    animation_->setStartValue(position());
    animation_->setEndValue(end);
    animation_->start();
}

void PickerWheel::rest(int row, bool byUser) {
    target_.reset();
    selected_ = row;
    syncCurrentIndex();
    viewport()->update();
    if (byUser && picker_->dataSource() != nullptr)
        picker_->dataSource()->didSelectRow(picker_, row, component_);
}

void PickerWheel::comeToRest(bool byUser) {
    moveToRow(rowAtPosition(position()), true, byUser);
}

void PickerWheel::scrollerStateChanged(QScroller::State state) {
    if (state == QScroller::Dragging) {
        dragged_ = true;
        animation_->stop();
        target_.reset();
    } else if (state == QScroller::Inactive && dragged_) {
        dragged_ = false;
        comeToRest(true);
    }
}

void PickerWheel::syncCurrentIndex() {
    if (rows_ <= 0)
        return;
    syncing_ = true;
    selectionModel()->setCurrentIndex(model_->index(selected_, 0),
                                      QItemSelectionModel::ClearAndSelect);
    syncing_ = false;
}

void PickerWheel::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    ScrollingItemView::currentChanged(current, previous);
    // Typing a row's first letters makes it current: the wheel turns to it.
    if (!syncing_ && current.isValid() && current.row() != selected_)
        moveToRow(current.row(), true, true);
}

QString PickerWheel::rowName(int row) {
    if (const auto found = cache_.find(row); found != cache_.end())
        return nameOfView(found->second.view.get());
    const std::unique_ptr<QWidget> view(makeRowView(row));
    return nameOfView(view.get());
}

QWidget* PickerWheel::makeRowView(int row) {
    PickerViewDataSource* dataSource = picker_->dataSource();
    if (dataSource == nullptr)
        return nullptr;
    std::unique_ptr<QWidget> spare;
    if (!spare_.empty()) {
        spare = std::move(spare_.back());
        spare_.pop_back();
    }
    QWidget* view = dataSource->viewForRow(picker_, row, component_, spare.get());
    if (view == spare.get())
        spare.release();
    return view;
}

const PickerWheel::Row& PickerWheel::rowAt(int row) {
    auto found = cache_.find(row);
    if (found != cache_.end())
        return found->second;
    Row made{std::unique_ptr<QWidget>(makeRowView(row)), {}};
    if (made.view != nullptr && !made.view->size().isEmpty()) {
        const qreal scale = devicePixelRatioF();
        made.image = QPixmap(made.view->size() * scale);
        made.image.setDevicePixelRatio(scale);
        made.image.fill(Qt::transparent);
        const QWidget::RenderFlags flags =
            made.view->autoFillBackground()
                ? QWidget::RenderFlags(QWidget::DrawWindowBackground | QWidget::DrawChildren)
                : QWidget::RenderFlags(QWidget::DrawChildren);
        made.view->render(&made.image, {}, {}, flags);
    }
    return cache_.emplace(row, std::move(made)).first->second;
}

// Rows outside first..last give their views back for reuse.
void PickerWheel::retireRows(int first, int last) {
    for (auto entry = cache_.begin(); entry != cache_.end();) {
        if (entry->first >= first && entry->first <= last) {
            ++entry;
            continue;
        }
        if (entry->second.view != nullptr && spare_.size() < spareViews)
            spare_.push_back(std::move(entry->second.view));
        entry = cache_.erase(entry);
    }
}

void PickerWheel::updateGeometries() {
    const int last = std::max(rows_ - 1, 0);
    verticalScrollBar()->setRange(0, int(std::lround(last * rowHeight_)));
    verticalScrollBar()->setSingleStep(int(std::lround(rowHeight_)));
    QAbstractItemView::updateGeometries();
}

void PickerWheel::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    retireRows(0, -1);
}

void PickerWheel::showEvent(QShowEvent* event) {
    ScrollingItemView::showEvent(event);
    numberOfRows();
}

QRect PickerWheel::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rows_)
        return {};
    const qreal center = rowCenter(index.row());
    return QRectF(0, center - rowHeight_ / 2, viewport()->width(), rowHeight_).toAlignedRect();
}

void PickerWheel::scrollTo(const QModelIndex&, ScrollHint) {
    // The wheel turns only to rest on a row; nothing else scrolls it.
}

QModelIndex PickerWheel::indexAt(const QPoint& point) const {
    if (rows_ <= 0)
        return {};
    const int row =
        int(std::floor((point.y() - viewport()->height() / 2.0 + position()) / rowHeight_ + 0.5));
    return row >= 0 && row < rows_ ? model_->index(row, 0) : QModelIndex();
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
    const int row = std::clamp(from - notches, 0, std::max(numberOfRows() - 1, 0));
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
        row = numberOfRows() - 1;
        break;
    default:
        ScrollingItemView::keyPressEvent(event);
        return;
    }
    row = std::clamp(row, 0, std::max(numberOfRows() - 1, 0));
    if (row != from)
        moveToRow(row, true, true);
    event->accept();
}

// Rows turn on a cylinder whose radius is half the wheel's height: a row's offset from the
// middle is an angle, drawn at the sine of it and squeezed by its cosine, fading as it turns away.
void PickerWheel::paintEvent(QPaintEvent*) {
    const int rows = numberOfRows();
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const qreal middle = viewport()->height() / 2.0;
    const qreal radius = std::max(middle, rowHeight_);
    const qreal reach = radius * std::numbers::pi / 2;
    const int first = std::max(0, int(std::floor((position() - reach) / rowHeight_)));
    const int last = std::min(rows - 1, int(std::ceil((position() + reach) / rowHeight_)));
    for (int row = first; row <= last; ++row) {
        const qreal angle = (rowCenter(row) - middle) / radius;
        if (std::abs(angle) >= std::numbers::pi / 2)
            continue;
        const Row& made = rowAt(row);
        if (made.image.isNull())
            continue;
        const qreal turn = std::cos(angle);
        const QSizeF size = made.image.deviceIndependentSize();
        painter.save();
        painter.setOpacity(0.12 + 0.88 * turn * turn * turn);
        painter.translate(viewport()->width() / 2.0, middle + radius * std::sin(angle));
        painter.scale(1, turn);
        painter.drawPixmap(QPointF(-size.width() / 2, -size.height() / 2), made.image);
        painter.restore();
    }
    retireRows(first, last);
    if (Appearance::showsFocusRing(this)) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Appearance::tint(), 2));
        painter.setBrush(Qt::NoBrush);
        const QRectF band(1, middle - rowHeight_ / 2 + 1, viewport()->width() - 2, rowHeight_ - 2);
        painter.drawRoundedRect(band, 6, 6);
    }
}

} // namespace pomwick
