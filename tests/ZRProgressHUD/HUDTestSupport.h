#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

namespace pomwick::test {

// The widget drawn (with its children) on a transparent image at the given scale.
inline QImage renderAt(QWidget* widget, qreal scale) {
    QImage image(widget->size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// The pixel under a point given in points.
inline QColor pixelAt(const QImage& image, QPointF point) {
    const qreal scale = image.devicePixelRatio();
    return image.pixelColor(int(point.x() * scale), int(point.y() * scale));
}

} // namespace pomwick::test
