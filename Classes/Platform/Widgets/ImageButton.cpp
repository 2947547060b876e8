#include "ImageButton.h"

#include "Appearance.h"

#include <QPainter>

namespace pomwick {

ImageButton::ImageButton(const QImage& image, QSize size, QWidget* parent)
    : QAbstractButton(parent), image_(image) {
    setFixedSize(size);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void ImageButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (isDown())
        painter.setOpacity(0.4);
    painter.drawImage(QRectF(rect()), image_);
    if (Appearance::showsFocusRing(this))
        Appearance::drawFocusRing(painter, QRectF(rect()), width() / 2.0);
}

} // namespace pomwick
