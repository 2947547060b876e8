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

std::filesystem::path tmpFile(const char* fileName) {
    return hostPath(std::string(DevicePath::tmpDirectory) + fileName);
}

std::filesystem::path bundleFile(const char* fileName) {
    return hostPath(std::string(DevicePath::bundleDirectory) + fileName);
}

std::optional<float> readReportedIconSize() {
    std::ifstream file(tmpFile(PreviewFile::iconSize), std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text(iconSizeBytesRead, '\0');
    file.read(text.data(), iconSizeBytesRead);
    text.resize(static_cast<size_t>(file.gcount()));
    return floatValue(text);
}

QImage loadBadgeBackground() {
    return imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground));
}

QImage loadBundleImage(const char* fileName) {
    return imageWithContentsOfFile(bundleFile(fileName));
}

} // namespace pomwick
