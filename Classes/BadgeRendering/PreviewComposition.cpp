#include "PreviewComposition.h"

#include "BadgeImagePrimitives.h"
#include "DisplayedText.h"
#include "ImageContext.h"
#include "PreviewFiles.h"
#include "Settings.h"

namespace pomwick {
namespace {

constexpr double badgeHeight = 24;

QImage composedBadge() {
    const QImage background = loadBadgeBackground();
    const QSizeF size = pointSize(background);
    // A missing background is 0 x 0: the target width is then not a number and nothing results.
    const QImage scaled = scaleImageToSize(
        background, QSizeF(badgeHeight / size.height() * size.width(), badgeHeight));
    const QImage text = applyAlphaToImage(
        makeImageFromText(previewBadgeText(), getBadgeFont(), getBadgeFontColor(), true),
        getBadgeAlpha());
    return imageByCombiningImage(scaled, text);
}

} // namespace

QString previewBadgeText() {
    const QString stored = QString::fromStdString(getBadgeTextFieldText());
    return stored.isEmpty() ? QStringLiteral("1")
                            : stored.left(qsizetype(displayedLength(QStringView(stored).utf16())))
                                  .replace('@', '1');
}

PreviewBadge composePreviewBadge(const QRectF& iconFrame, float iconSize) {
    if (!getEnabled()) {
        return {scaleImageToSize(loadBundleImage(PreviewFile::stockBadge),
                                 QSizeF(badgeHeight, badgeHeight)),
                QRectF(iconFrame.x() + iconSize - 12, iconFrame.y() - 12, 24, 24)};
    }
    const BadgeLocation location = getBadgeLocation();
    const double anchorX = iconFrame.x() + location.x * iconFrame.width();
    const double anchorY = iconFrame.y() + location.y * iconFrame.height();
    if (!getBadgeVisible())
        return {QImage(), std::nullopt};
    const QImage combined = composedBadge();
    return {combined, QRectF(QPointF(anchorX, anchorY), pointSize(combined))};
}

QImage renderPreviewPicture(float iconSize) {
    const double margin = badgeHeight;
    const QRectF iconFrame(margin, margin, iconSize, iconSize);
    const PreviewBadge badge = composePreviewBadge(iconFrame, iconSize);
    ImageContext context(QSizeF(iconSize + 2 * margin, iconSize + 2 * margin));
    if (context.isEmpty())
        return context.image();
    context.painter().drawImage(iconFrame, loadBundleImage(PreviewFile::sampleIcon));
    if (badge.frame && !badge.image.isNull())
        context.painter().drawImage(*badge.frame, badge.image);
    return context.image();
}

} // namespace pomwick
