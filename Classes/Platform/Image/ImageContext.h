#pragma once

#include "MainScreen.h"
#include "PomwickPlatformExport.h"

#include <QImage>
#include <QPainter>
#include <QSizeF>
#include <memory>

namespace pomwick {

// The size of an image in points: its pixels over its scale. A null image is 0 x 0.
POMWICK_PLATFORM_EXPORT QSizeF pointSize(const QImage& image);

// An offscreen drawing context: a transparent image of ceil(points x scale) pixels and a painter
// working in points with the origin at the top left. A size that is empty or not a number gives
// an empty context, whose image() is a null image and on which nothing is drawn.
class POMWICK_PLATFORM_EXPORT ImageContext {
public:
    explicit ImageContext(QSizeF points, double scale = mainScreenScale());
    ~ImageContext();
    ImageContext(const ImageContext&) = delete;
    ImageContext& operator=(const ImageContext&) = delete;

    bool isEmpty() const { return !painter_; }
    QSizeF size() const { return points_; }
    QPainter& painter() { return *painter_; }

    // Ends drawing and hands over the result.
    QImage image();

private:
    QSizeF points_;
    QImage image_;
    std::unique_ptr<QPainter> painter_;
};

} // namespace pomwick
