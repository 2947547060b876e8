#include "BadgeImagePrimitives.h"

#include "ImageContext.h"
#include "QtConversions.h"
#include "Settings.h"
#include "TextDrawing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pomwick {
namespace {

// Keeps what is drawn on `layer` only where `mask` is opaque: a clip to the mask's alpha,
// stretched over the whole layer, optionally mirrored vertically.
void clipToMask(QImage& layer, const QImage& mask, bool mirrored) {
    QPainter painter(&layer);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    const QSizeF size = pointSize(layer);
    if (mirrored) {
        painter.translate(0, size.height());
        painter.scale(1, -1);
    }
    painter.drawImage(QRectF(QPointF(0, 0), size), mask);
}

} // namespace

QImage scaleImageToSize(const QImage& image, QSizeF size) {
    ImageContext context(size);
    if (context.isEmpty())
        return context.image();
    context.painter().drawImage(QRectF(QPointF(0, 0), size), image);
    return context.image();
}

QImage addBorderToImage(const QImage& image, const Color& color) {
    return addBorderToImage(image, color, getBadgeBorderWidth());
}

QImage addBorderToImage(const QImage& image, const Color& color, float factor) {
    if (factor == 1.0f)
        return image;
    const QSizeF size = pointSize(image);
    const double width = double(factor) * size.width();
    const double height = double(factor) * size.height();
    const double scale = mainScreenScale();
    ImageContext context(QSizeF(width, height), scale);
    if (context.isEmpty())
        return context.image();
    context.painter().drawImage(QRectF(0, 0, width, height), image);

    // What is drawn inside the mask's clip goes through a layer, then over the stretched copy.
    QImage clipped = ImageContext(context.size(), scale).image();
    {
        QPainter painter(&clipped);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.fillRect(QRectF(0, 0, width, height), toQColor(color));
        const float x = float(double(factor) * size.width() * 0.5 - size.width() * 0.5);
        const float y = float(double(factor) * size.height() * 0.5 - size.height() * 0.5);
        painter.drawImage(QRectF(x, y, size.width(), size.height()), image);
    }
    clipToMask(clipped, image, /*mirrored=*/true);
    context.painter().drawImage(QPointF(0, 0), clipped);
    return context.image();
}

QImage applyAlphaToImage(const QImage& image, float alpha) {
    const QSizeF size = pointSize(image);
    ImageContext context(size);
    if (context.isEmpty())
        return context.image();
    context.painter().setOpacity(double(alpha));
    context.painter().drawImage(QRectF(QPointF(0, 0), size), image);
    return context.image();
}

QImage makeImageFromText(const QString& text, const std::optional<Font>& font, const Color& color,
                         bool heightFlag) {
    return makeImageFromText(text, font, color, heightFlag,
                             std::numeric_limits<double>::infinity());
}

QImage makeImageFromText(const QString& text, const std::optional<Font>& font, const Color& color,
                         bool heightFlag, double maxWidth) {
    const QFont qfont = toQFont(font);
    const QSizeF measured = sizeWithAttributes(text, qfont);
    const double width = std::min(measured.width(), maxWidth);
    const double height = heightFlag ? double(float(measured.height())) : 19.0;
    ImageContext context(QSizeF(width, height));
    if (context.isEmpty())
        return context.image();
    drawLabelText(context.painter(), text, qfont, toQColor(color), QRectF(0, 0, width, height));
    return context.image();
}

QImage fillImageWithColor(const QImage& image, const Color& color) {
    const QSizeF size = pointSize(image);
    ImageContext context(size);
    if (context.isEmpty())
        return context.image();
    QPainter& painter = context.painter();
    painter.drawImage(QRectF(QPointF(0, 0), size), image);
    // Fill and stroke: the default stroke is black and 1 point wide, centered on the edge.
    painter.setPen(QPen(Qt::black, 1.0));
    painter.setBrush(toQColor(color));
    painter.drawRect(QRectF(QPointF(0, 0), size));
    QImage result = context.image();
    // Drawn in the flipped space where images stand upright: the mask is not mirrored.
    clipToMask(result, image, /*mirrored=*/false);
    return result;
}

QImage imageByCombiningImage(const QImage& first, const QImage& second) {
    const QSizeF firstSize = pointSize(first);
    const QSizeF secondSize = pointSize(second);
    ImageContext context(firstSize);
    if (context.isEmpty())
        return context.image();
    context.painter().drawImage(QPointF(0, 0), first);
    const float x = std::round(float((firstSize.width() - secondSize.width()) * 0.5));
    const float y = std::round(float((firstSize.height() - secondSize.height()) * 0.5));
    context.painter().drawImage(QPointF(x, y), second);
    return context.image();
}

} // namespace pomwick
