#include "PreviewComposition.h"

#include "BadgeImagePrimitives.h"
#include "DisplayedText.h"
#include "ImageContext.h"
#include "PreviewFiles.h"
#include "SettingsSnapshot.h"

#include <algorithm>

namespace pomwick {
namespace {

QImage composedBadge(const SettingsSnapshot& settings) {
    const QImage background = loadBadgeBackground();
    const QSizeF size = pointSize(background);
    // A missing background is 0 x 0: the target width is then not a number and nothing results.
    const QImage scaled = scaleImageToSize(
        background, QSizeF(previewBadgeHeight / size.height() * size.width(), previewBadgeHeight));
    // The text stays off the round ends, where it would cover the border.
    const double textRoom = std::max(0.0, pointSize(scaled).width() - previewEndsRoom);
    const QImage text =
        applyAlphaToImage(makeImageFromText(previewBadgeText(settings), settings.badgeFont(),
                                            settings.badgeFontColor(), true, textRoom),
                          settings.badgeAlpha());
    return imageByCombiningImage(scaled, text);
}

} // namespace

QString previewBadgeText() {
    return previewBadgeText(SettingsSnapshot());
}

QString previewBadgeText(const SettingsSnapshot& settings) {
    const QString stored = QString::fromStdString(settings.badgeTextFieldText());
    return stored.isEmpty() ? QStringLiteral("1")
                            : stored.left(qsizetype(displayedLength(QStringView(stored).utf16())))
                                  .replace('@', '1');
}

PreviewBadge composePreviewBadge(const QRectF& iconFrame, float iconSize) {
    // Every setting as the file holds it now, read once for the whole badge.
    const SettingsSnapshot settings;
    if (!settings.enabled()) {
        return {scaleImageToSize(loadBundleImage(PreviewFile::stockBadge),
                                 QSizeF(previewBadgeHeight, previewBadgeHeight)),
                QRectF(iconFrame.x() + iconSize - 12, iconFrame.y() - 12, 24, 24)};
    }
    const BadgeLocation location = settings.badgeLocation();
    const double anchorX = iconFrame.x() + location.x * iconFrame.width();
    const double anchorY = iconFrame.y() + location.y * iconFrame.height();
    if (!settings.badgeVisible())
        return {QImage(), std::nullopt};
    const QImage combined = composedBadge(settings);
    return {combined, QRectF(QPointF(anchorX, anchorY), pointSize(combined))};
}

QImage renderPreviewPicture(float iconSize) {
    const double margin = previewBadgeHeight;
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
