#include "Switch.h"

#include "Appearance.h"

#include <QPainter>

namespace pomwick {

Switch::Switch(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    resize(size);
    connect(this, &QAbstractButton::clicked, this, &Switch::valueChanged);
}

void Switch::setOn(bool on, bool /*animated*/) {
    setChecked(on);
}

void Switch::setOnTintColor(const QColor& color) {
    if (color == onTint_)
        return;
    onTint_ = color;
    update();
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.5);
    // Right to left, a switch that is on has its knob at the left.
    if (isRightToLeft())
        painter.setTransform(QTransform(-1, 0, 0, 1, width(), 0));
    const QRectF track = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = track.height() / 2;
    painter.setPen(isOn() ? Qt::NoPen : QPen(Appearance::switchRim(), 1.5));
    painter.setBrush(isOn() ? onTint_ : Appearance::cellBackground());
    painter.drawRoundedRect(track, radius, radius);
    const qreal knob = track.height() - 4;
    const QRectF thumb(isOn() ? track.right() - knob - 2 : track.left() + 2, track.top() + 2, knob,
                       knob);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawEllipse(thumb.translated(0, 1.5));
    painter.setBrush(Qt::white);
    painter.setPen(QPen(QColor(0, 0, 0, 25), 0.5));
    painter.drawEllipse(thumb);
    if (Appearance::showsFocusRing(this))
        Appearance::drawFocusRing(painter, track, radius);
}

} // namespace pomwick
