#include "PreviewFiles.h"

#include "DevicePaths.h"
#include "ImageFile.h"
#include "TextScanning.h"

#include <fstream>
#include <string>

namespace pomwick {
namespace {
// Longer files are read only this far: a number never needs more.
constexpr std::streamsize iconSizeBytesRead = 64 * 1024;
} // namespace

std::optional<float> readReportedIconSize() {
    std::ifstream file(hostPath(std::string(DevicePath::tmpDirectory) + PreviewFile::iconSize),
                       std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text(iconSizeBytesRead, '\0');
    file.read(text.data(), iconSizeBytesRead);
    text.resize(static_cast<size_t>(file.gcount()));
    return floatValue(text);
}

QImage loadBadgeBackground() {
    return imageWithContentsOfFile(
        hostPath(std::string(DevicePath::tmpDirectory) + PreviewFile::badgeBackground));
}

QImage loadBundleImage(const char* fileName) {
    return imageWithContentsOfFile(hostPath(std::string(DevicePath::bundleDirectory) + fileName));
}

} // namespace pomwick
