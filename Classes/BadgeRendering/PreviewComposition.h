#pragma once

#include <QImage>
#include <QRectF>
#include <QString>
#include <optional>

namespace pomwick {

class SettingsSnapshot;

// The preview badge's height in points, and the room for its round ends beside the text at that
// height: one character of the default font (about 10 points wide) stays within a round badge.
constexpr double previewBadgeHeight = 24;
constexpr double previewEndsRoom = 12;

// The preview badge as the header shows it after the renderer reported a fresh background.
struct PreviewBadge {
    QImage image;                // null: no badge is shown
    std::optional<QRectF> frame; // nothing: the badge view keeps the frame it had
};

// The text the preview badge shows: the start of the stored text that a view shows, with "@" as
// 1, or 1 when none is stored.
QString previewBadgeText();
QString previewBadgeText(const SettingsSnapshot& settings);

// Composes the preview badge from the settings, the renderer's background file and the sample
// icon's frame: the stored text ("@" shown as 1) in the stored font, color and opacity, centered
// on the background scaled to 24 points high, its top-left corner at the stored location; a text
// wider than the background less its round ends is cut at its tail with an ellipsis. With
// the tweak switched off, the bundle's stock badge, 24 x 24, centered on the icon's top-right
// corner.
PreviewBadge composePreviewBadge(const QRectF& iconFrame, float iconSize);

// The header's picture for tools: the sample icon at iconSize points with the badge over it,
// with room around it for a badge that lies partly outside the icon.
QImage renderPreviewPicture(float iconSize);

} // namespace pomwick
