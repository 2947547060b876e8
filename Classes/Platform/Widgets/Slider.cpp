#include "Slider.h"

#include "Appearance.h"

#include <QAbstractSlider>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {
constexpr qreal thumbDiameter = 28;
} // namespace

Slider::Slider(QWidget* parent) : QWidget(parent), positions_(new QAbstractSlider(this)) {
    // Never shown: it only holds the position the keys and assistive tools step.
    positions_->setVisible(false);
    positions_->setOrientation(Qt::Horizontal);
    positions_->setRange(0, steps);
    positions_->setSingleStep(1);
    positions_->setPageStep(steps / 10);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    resize(200, int(height));
    connect(positions_, &QAbstractSlider::valueChanged, this, &Slider::stepped);
    connect(positions_, &QAbstractSlider::sliderReleased, this, &Slider::sliderReleased);
}

bool Slider::isSliderDown() const {
    return positions_->isSliderDown();
}

float Slider::clamped(float value) const {
    if (std::isnan(value))
        return minimum_;
    return std::clamp(value, minimum_, std::max(minimum_, maximum_));
}

// The float value is the truth; Qt's integer position follows it for keys and assistive tools.
void Slider::assign(float value) {
    const float next = clamped(value);
    const bool changed = next != value_;
    value_ = next;
    const float range = maximum_ - minimum_;
    assigning_ = true;
    positions_->setValue(range > 0 ? int(std::lround((value_ - minimum_) / range * steps)) : 0);
    assigning_ = false;
    if (!changed)
        return;
    update();
    emit valueChanged(value_);
}

void Slider::stepped(int position) {
    if (assigning_ || isSliderDown())
        return;
    const float next = clamped(minimum_ + float(position) / steps * (maximum_ - minimum_));
    if (next == value_)
        return;
    assign(next);
    emit sliderReleased();
}

void Slider::stepTo(int position) {
    positions_->setValue(position);
}

void Slider::setMinimumValue(float minimum) {
    minimum_ = minimum;
    assign(value_);
    update();
}

void Slider::setMaximumValue(float maximum) {
    maximum_ = maximum;
    assign(value_);
    update();
}

void Slider::setValue(float value, bool /*animated*/) {
    assign(value);
}

qreal Slider::thumbCenter() const {
    const qreal span = width() - thumbDiameter;
    const float range = maximum_ - minimum_;
    const qreal fraction = range > 0 ? (value_ - minimum_) / range : 0;
    return thumbDiameter / 2 + span * fraction;
}

float Slider::valueAt(qreal x) const {
    if (isRightToLeft())
        x = width() - x;
    const qreal span = std::max<qreal>(1, width() - thumbDiameter);
    const qreal fraction = std::clamp((x - thumbDiameter / 2) / span, 0.0, 1.0);
    return clamped(minimum_ + float(fraction) * (maximum_ - minimum_));
}

void Slider::track(qreal x) {
    const float next = valueAt(x);
    assign(next);
}

void Slider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.45);
    // Right to left, the minimum is at the right end and the filled track grows leftwards.
    if (isRightToLeft())
        painter.setTransform(QTransform(-1, 0, 0, 1, width(), 0));
    const qreal middle = height / 2;
    const qreal center = thumbCenter();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Appearance::tint());
    painter.drawRoundedRect(QRectF(2, middle - 1.5, center - 2, 3), 1.5, 1.5);
    painter.setBrush(Appearance::sliderTrack());
    painter.drawRoundedRect(QRectF(center, middle - 1.5, width() - center - 2, 3), 1.5, 1.5);
    const QRectF thumb(center - thumbDiameter / 2, middle - thumbDiameter / 2, thumbDiameter,
                       thumbDiameter);
    painter.setBrush(QColor(0, 0, 0, 35));
    painter.drawEllipse(thumb.translated(0, 2));
    painter.setBrush(Qt::white);
    painter.setPen(QPen(QColor(0, 0, 0, 30), 0.5));
    painter.drawEllipse(thumb);
    if (Appearance::showsFocusRing(this))
        Appearance::drawFocusRing(painter, thumb.adjusted(-1, -1, 1, 1), thumbDiameter / 2 + 1);
}

void Slider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    positions_->setSliderDown(true);
    track(event->position().x());
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown())
        track(event->position().x());
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isSliderDown())
        return;
    positions_->setSliderDown(false);
}

// Qt's slider keys, on the position a step moves.
void Slider::keyPressEvent(QKeyEvent* event) {
    using Action = QAbstractSlider::SliderAction;
    const bool mirrored = isRightToLeft();
    Action action = QAbstractSlider::SliderNoAction;
    switch (event->key()) {
    case Qt::Key_Left:
        action = mirrored ? Action::SliderSingleStepAdd : Action::SliderSingleStepSub;
        break;
    case Qt::Key_Right:
        action = mirrored ? Action::SliderSingleStepSub : Action::SliderSingleStepAdd;
        break;
    case Qt::Key_Up:
        action = Action::SliderSingleStepAdd;
        break;
    case Qt::Key_Down:
        action = Action::SliderSingleStepSub;
        break;
    case Qt::Key_PageUp:
        action = Action::SliderPageStepAdd;
        break;
    case Qt::Key_PageDown:
        action = Action::SliderPageStepSub;
        break;
    case Qt::Key_Home:
        action = Action::SliderToMinimum;
        break;
    case Qt::Key_End:
        action = Action::SliderToMaximum;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    positions_->triggerAction(action);
    event->accept();
}

void Slider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace pomwick
