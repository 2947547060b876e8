#include "SegmentedControl.h"

#include "Appearance.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace pomwick {

SegmentedControl::SegmentedControl(QStringList items, QWidget* parent)
    : QWidget(parent), items_(std::move(items)), tint_(Appearance::segmentedControlTint()) {
    setCursor(Qt::PointingHandCursor);
    resize(100, 29);
}

void SegmentedControl::setSelectedSegmentIndex(int index) {
    selected_ = index;
    update();
}

void SegmentedControl::setTintColor(const QColor& colour) {
    tint_ = colour;
    update();
}

QRectF SegmentedControl::segmentRect(int index) const {
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal width = area.width() / std::max<qsizetype>(1, items_.size());
    return {area.left() + index * width, area.top(), width, area.height()};
}

void SegmentedControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(area, 4, 4);
    painter.setClipPath(outline);
    painter.setFont(Appearance::systemFont(13));
    for (int i = 0; i < items_.size(); ++i) {
        const QRectF segment = segmentRect(i);
        if (i == selected_)
            painter.fillRect(segment, tint_);
        painter.setPen(i == selected_ ? QColor(Qt::white) : tint_);
        painter.drawText(segment, Qt::AlignCenter, items_[i]);
        if (i > 0)
            painter.fillRect(QRectF(segment.left() - 0.5, area.top(), 1, area.height()), tint_);
    }
    painter.setClipping(false);
    painter.setPen(QPen(tint_, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

void SegmentedControl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint()))
        return;
    for (int i = 0; i < items_.size(); ++i) {
        if (segmentRect(i).contains(event->position()) && i != selected_) {
            setSelectedSegmentIndex(i);
            emit valueChanged();
        }
    }
}

} // namespace pomwick
