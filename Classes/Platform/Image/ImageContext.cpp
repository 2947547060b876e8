#include "ImageContext.h"

#include <cmath>

namespace pomwick {
namespace {

// Beyond this many pixels a side, raster drawing is cropped rather than allocated.
constexpr double maximumPixelsPerSide = 16384;

int pixels(double points, double scale) {
    return static_cast<int>(std::min(std::ceil(points * scale), maximumPixelsPerSide));
}

bool drawable(QSizeF points, double scale) {
    return std::isfinite(points.width()) && std::isfinite(points.height()) &&
           points.width() * scale > 0 && points.height() * scale > 0 && std::isfinite(scale) &&
           scale > 0;
}

} // namespace

QSizeF pointSize(const QImage& image) {
    return image.isNull() ? QSizeF(0, 0) : image.deviceIndependentSize();
}

ImageContext::ImageContext(QSizeF points, double scale) : points_(points) {
    if (!drawable(points, scale))
        return;
    image_ = QImage(pixels(points.width(), scale), pixels(points.height(), scale),
                    QImage::Format_ARGB32_Premultiplied);
    if (image_.isNull())
        return;
    image_.setDevicePixelRatio(scale);
    image_.fill(Qt::transparent);
    painter_ = std::make_unique<QPainter>(&image_);
    painter_->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                             QPainter::TextAntialiasing);
}

ImageContext::~ImageContext() = default;

QImage ImageContext::image() {
    painter_.reset();
    return image_;
}

} // namespace pomwick
