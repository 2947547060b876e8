#include "BadgeBackgroundRenderer.h"

#include "AtomicFile.h"
#include "BadgeImagePrimitives.h"
#include "ImageContext.h"
#include "ImageFile.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "QtConversions.h"
#include "SettingsSnapshot.h"
#include "TextDrawing.h"

#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {

// The widest background, 16 heights: a text of a thousand characters or a font of size 500 would
// otherwise ask for an image thousands of points wide on every request. The preview cuts such a
// text short of the badge's ends.
constexpr double widestPreviewWidth = 16 * previewBadgeHeight;

double previewWidth(const BackgroundSettings& settings) {
    const double text = sizeWithAttributes(settings.text, toQFont(settings.font)).width();
    return std::min(text + previewEndsRoom, widestPreviewWidth);
}

// The round badge widened to the preview width (in points at the preview's height): its left and
// right halves as they are, its middle column stretched between them.
QImage stretchedToWidth(const QImage& badge, double previewWidth) {
    const QSizeF size = pointSize(badge);
    if (badge.isNull() || size.height() <= 0)
        return badge;
    const double width = std::ceil(size.height() / previewBadgeHeight * previewWidth);
    if (width <= size.width())
        return badge;
    ImageContext context(QSizeF(width, size.height()));
    if (context.isEmpty())
        return badge;
    QPainter& painter = context.painter();
    const double halfWidth = size.width() / 2, halfPixels = badge.width() / 2.0;
    const double height = size.height(), pixels = badge.height();
    painter.drawImage(QRectF(0, 0, halfWidth, height), badge, QRectF(0, 0, halfPixels, pixels));
    painter.drawImage(QRectF(width - halfWidth, 0, halfWidth, height), badge,
                      QRectF(halfPixels, 0, badge.width() - halfPixels, pixels));
    painter.drawImage(QRectF(halfWidth, 0, width - 2 * halfWidth, height), badge,
                      QRectF(std::floor(halfPixels), 0, 1, pixels));
    return context.image();
}

} // namespace

BackgroundSettings::BackgroundSettings(const SettingsSnapshot& settings)
    : fill(settings.badgeBackgroundColor()), border(settings.badgeBorderColor()),
      borderWidth(settings.badgeBorderWidth()), text(previewBadgeText(settings)),
      font(settings.badgeFont()) {}

QImage drawBadgeBackground(const QImage& silhouette, const BackgroundSettings& settings) {
    const QImage filled = fillImageWithColor(silhouette, settings.fill);
    // Bordered before it is widened, so that the border is as thick along the pill as at its ends.
    return stretchedToWidth(addBorderToImage(filled, settings.border, settings.borderWidth),
                            previewWidth(settings));
}

BadgeBackgroundRenderer::BadgeBackgroundRenderer()
    : silhouette_(loadBundleImage(PreviewFile::stockBadge)) {
    pending_.setSingleShot(true);
    pending_.setInterval(0);
    connect(&pending_, &QTimer::timeout, this, &BadgeBackgroundRenderer::render);
}

void BadgeBackgroundRenderer::requestRender() {
    pending_.start();
}

void BadgeBackgroundRenderer::render() {
    const BackgroundSettings wanted{SettingsSnapshot()};
    if (wanted != drawnFor_) {
        const QByteArray png = pngData(drawBadgeBackground(silhouette_, wanted));
        png_.assign(png.constData(), size_t(png.size()));
        drawnFor_ = wanted;
    }
    // Written on every request all the same: the screen reads the file it is told of, whoever
    // else changed or removed it meanwhile.
    replaceFileThroughSpare(tmpFile(PreviewFile::badgeBackground), png_);
    MessagingCenter::centerNamed(CenterName::preferences)
        .sendMessageName(MessageName::badgeSavedToTmp);
}

} // namespace pomwick
