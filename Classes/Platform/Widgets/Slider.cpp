#include "Slider.h"

#include "Appearance.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {
constexpr qreal thumbDiameter = 28;
// How far outside its bounds a release still counts as inside, as on the device.
constexpr qreal releaseSlop = 70;
} // namespace

Slider::Slider(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::PointingHandCursor);
    resize(200, int(height));
}

float Slider::clamped(float value) const {
    if (std::isnan(value))
        return minimum_;
    return std::clamp(value, minimum_, std::max(minimum_, maximum_));
}

void Slider::setMinimumValue(float minimum) {
    minimum_ = minimum;
    value_ = clamped(value_);
    update();
}

void Slider::setMaximumValue(float maximum) {
    maximum_ = maximum;
    value_ = clamped(value_);
    update();
}

void Slider::setValue(float value, bool /*animated*/) {
    const float next = clamped(value);
    if (next == value_)
        return;
    value_ = next;
    update();
}

qreal Slider::thumbCentre() const {
    const qreal span = width() - thumbDiameter;
    const float range = maximum_ - minimum_;
    const qreal fraction = range > 0 ? (value_ - minimum_) / range : 0;
    return thumbDiameter / 2 + span * fraction;
}

float Slider::valueAt(qreal x) const {
    const qreal span = std::max<qreal>(1, width() - thumbDiameter);
    const qreal fraction = std::clamp((x - thumbDiameter / 2) / span, 0.0, 1.0);
    return clamped(minimum_ + float(fraction) * (maximum_ - minimum_));
}

void Slider::track(qreal x) {
    const float next = valueAt(x);
    if (next == value_)
        return;
    value_ = next;
    update();
    emit valueChanged();
}

void Slider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.45);
    const qreal middle = height / 2;
    const qreal centre = thumbCentre();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Appearance::tint());
    painter.drawRoundedRect(QRectF(2, middle - 1.5, centre - 2, 3), 1.5, 1.5);
    painter.setBrush(QColor(182, 182, 182));
    painter.drawRoundedRect(QRectF(centre, middle - 1.5, width() - centre - 2, 3), 1.5, 1.5);
    const QRectF thumb(centre - thumbDiameter / 2, middle - thumbDiameter / 2, thumbDiameter,
                       thumbDiameter);
    painter.setBrush(QColor(0, 0, 0, 35));
    painter.drawEllipse(thumb.translated(0, 2));
    painter.setBrush(Qt::white);
    painter.setPen(QPen(QColor(0, 0, 0, 30), 0.5));
    painter.drawEllipse(thumb);
}

void Slider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    tracking_ = true;
    track(event->position().x());
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    if (tracking_)
        track(event->position().x());
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !tracking_)
        return;
    tracking_ = false;
    const QRectF inside =
        QRectF(rect()).adjusted(-releaseSlop, -releaseSlop, releaseSlop, releaseSlop);
    if (inside.contains(event->position()))
        emit touchUpInside();
    else
        emit touchUpOutside();
}

} // namespace pomwick
