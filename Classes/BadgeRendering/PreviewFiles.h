#pragma once

#include <QImage>
#include <filesystem>
#include <optional>
#include <string_view>

namespace pomwick {

// What the renderer leaves in the device's /tmp/ and the bundle's stock artwork.
namespace PreviewFile {
inline constexpr const char* badgeBackground = "badgeBackground.png";
inline constexpr const char* iconSize = "iconSize.txt";
inline constexpr const char* stockBadge = "Badge.png";
inline constexpr const char* sampleIcon = "Cydia_Icon.png";
inline constexpr const char* palette = "colors_crayola.plist";
} // namespace PreviewFile

// Host paths of a file in the device's /tmp/ and in the settings bundle's folder.
std::filesystem::path tmpFile(const char* fileName);
std::filesystem::path bundleFile(const char* fileName);

// The icon size the renderer reported: the leading float of iconSize.txt, or nothing when the
// file does not exist. A file that cannot be read whole as UTF-8 text (not a regular file, over
// a few MiB, invalid UTF-8) reads as 0; a FIFO is never waited on.
std::optional<float> readReportedIconSize();
// The leading decimal number of iconSize.txt's bytes, after any white space; 0 when they are not
// UTF-8 or hold no number.
float iconSizeFromText(std::string_view bytes);

// The badge background the renderer drew last; a null image when missing or unusable.
QImage loadBadgeBackground();

// An image of the settings bundle's folder, loaded at scale 1.
QImage loadBundleImage(const char* fileName);

} // namespace pomwick
