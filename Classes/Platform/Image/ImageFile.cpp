#include "ImageFile.h"

#include "AtomicFile.h"
#include "RegularFile.h"

#include <QBuffer>
#include <QImageReader>

namespace pomwick {
namespace {
constexpr std::size_t maximumFileBytes = 8 * 1024 * 1024;
constexpr int maximumPixelsPerSide = 4096;
} // namespace

QImage imageWithData(const QByteArray& bytes) {
    if (bytes.isEmpty() || static_cast<std::size_t>(bytes.size()) > maximumFileBytes)
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    // PNG only, whatever the bytes look like: every image the product reads is one, and no
    // other decoder needs to see outside bytes.
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize declared = reader.size();
    if (!declared.isValid() || declared.width() > maximumPixelsPerSide ||
        declared.height() > maximumPixelsPerSide)
        return {};
    QImage image = reader.read();
    if (image.isNull())
        return {};
    image.setDevicePixelRatio(1.0);
    return image;
}

QImage imageWithContentsOfFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto bytes = readRegularFile(path, maximumFileBytes, error);
    if (!bytes)
        return {};
    return imageWithData(QByteArray::fromStdString(*bytes));
}

bool writePngAtomically(const QImage& image, const std::filesystem::path& path) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    // Uncompressed: the file is small, local, and rewritten on every preview refresh, where
    // compressing costs more than the bytes it saves.
    if (!image.save(&buffer, "PNG", 100))
        return false;
    return !writeFileAtomically(path, std::string_view(png.constData(), size_t(png.size())));
}

} // namespace pomwick
