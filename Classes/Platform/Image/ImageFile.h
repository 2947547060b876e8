#pragma once

#include "PomwickPlatformExport.h"

#include <QImage>
#include <filesystem>

namespace pomwick {

// Decodes a PNG at scale 1, as the device loads a file named without a scale suffix. Oversized
// (over 8 MiB, or over 4096 pixels a side as the image declares) or undecodable bytes give a
// null image; nothing is decoded before the size is known.
POMWICK_PLATFORM_EXPORT QImage imageWithData(const QByteArray& bytes);

// The same for a file. Missing, unreadable or non-regular files (a FIFO is never waited on)
// give a null image.
POMWICK_PLATFORM_EXPORT QImage imageWithContentsOfFile(const std::filesystem::path& path);

// The image as PNG bytes, encoded at the cheapest setting (stored, not compressed): the files
// the product writes are small, local and rewritten often. Empty when it cannot be encoded.
POMWICK_PLATFORM_EXPORT QByteArray pngData(const QImage& image);

// Writes a PNG to a unique temporary file beside the target and renames it over the target.
POMWICK_PLATFORM_EXPORT bool writePngAtomically(const QImage& image,
                                                const std::filesystem::path& path);

} // namespace pomwick
