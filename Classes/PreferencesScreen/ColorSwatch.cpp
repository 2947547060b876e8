#include "ColorSwatch.h"

#include "Appearance.h"

#include <QPainter>

namespace pomwick {

ColorSwatch::ColorSwatch(const QColor& color, QWidget* parent) : QWidget(parent), color_(color) {}

void ColorSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Corner radius of half the side, whole points: a circle, clipped to it, with a 1-point rim.
    const qreal radius = width() / 2;
    painter.setPen(QPen(Appearance::outline(), 1.0));
    painter.setBrush(color_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace pomwick
