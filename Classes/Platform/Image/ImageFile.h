#pragma once

#include <QImage>
#include <filesystem>

namespace pomwick {

// Loads an image file at scale 1, as the device loads a file named without a scale suffix.
// Missing, unreadable, oversized (over 8 MiB, or over 4096 pixels a side as the file declares)
// or undecodable files give a null image; nothing is decoded before the size is known.
QImage imageWithContentsOfFile(const std::filesystem::path& path);

// Writes a PNG to a unique temporary file beside the target and renames it over the target.
bool writePngAtomically(const QImage& image, const std::filesystem::path& path);

} // namespace pomwick
