#include "PreviewFiles.h"

#include "DevicePaths.h"
#include "ImageFile.h"
#include "RegularFile.h"
#include "TextScanning.h"

#include <QStringDecoder>
#include <string>

namespace pomwick {
namespace {
// Bigger files are refused: a number never needs that much room, however it is padded.
constexpr std::size_t iconSizeMaximumBytes = 4 * 1024 * 1024;
} // namespace

std::filesystem::path tmpFile(const char* fileName) {
    return hostPath(std::string(DevicePath::tmpDirectory) + fileName);
}

std::filesystem::path bundleFile(const char* fileName) {
    return hostPath(std::string(DevicePath::bundleDirectory) + fileName);
}

float iconSizeFromText(std::string_view bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    if (utf8.hasError())
        return 0;
    return floatValue(text.trimmed().toStdString());
}

std::optional<float> readReportedIconSize() {
    std::error_code error;
    const auto bytes = readRegularFile(tmpFile(PreviewFile::iconSize), iconSizeMaximumBytes, error);
    if (error == std::errc::no_such_file_or_directory)
        return std::nullopt;
    // A file that is there but cannot be read as text holds no number.
    return bytes ? iconSizeFromText(*bytes) : 0.0f;
}

QImage loadBadgeBackground() {
    return imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground));
}

QImage loadBundleImage(const char* fileName) {
    return imageWithContentsOfFile(bundleFile(fileName));
}

} // namespace pomwick
