#pragma once

#include "Color.h"
#include "Font.h"

#include <QImage>
#include <QSizeF>
#include <QString>
#include <optional>

namespace pomwick {

// The drawing primitives of badge images. Each draws into a fresh transparent context at the
// main screen's scale; a null input counts as a 0 x 0 image.

// The image stretched to exactly the target size; the aspect ratio is not kept.
QImage scaleImageToSize(const QImage& image, QSizeF size);

// The image centered on its silhouette enlarged by the stored border factor and filled with the
// color. A factor of exactly 1.0 returns the very same image. The silhouette comes from the
// image's alpha applied without a flip, so it is mirrored vertically (the badge shapes it serves
// are symmetric).
QImage addBorderToImage(const QImage& image, const Color& color);
// The same with the factor given, for a caller that has read the settings already.
QImage addBorderToImage(const QImage& image, const Color& color, float factor);

// The image drawn with the given opacity.
QImage applyAlphaToImage(const QImage& image, float alpha);

// One line of text, as wide as it measures and as high as the font's line (heightFlag true) or
// exactly 19 points (false), drawn as a label draws it.
QImage makeImageFromText(const QString& text, const std::optional<Font>& font, const Color& color,
                         bool heightFlag);
// The same at most maxWidth points wide: a wider text is cut at its tail with an ellipsis, as a
// label too narrow for it shows it.
QImage makeImageFromText(const QString& text, const std::optional<Font>& font, const Color& color,
                         bool heightFlag, double maxWidth);

// The image's shape filled with the color; the rectangle is filled and stroked, so where the
// shape reaches the image's edge the inner half of a 1-point black outline shows.
QImage fillImageWithColor(const QImage& image, const Color& color);

// The second image centered over the first, offsets rounded half away from zero to whole points.
QImage imageByCombiningImage(const QImage& first, const QImage& second);

} // namespace pomwick
