#include "ImageFile.h"

#include "AtomicFile.h"

#include <QBuffer>
#include <QImageReader>

namespace pomwick {
namespace {
constexpr qint64 maximumFileBytes = 8 * 1024 * 1024;
constexpr int maximumPixelsPerSide = 4096;
} // namespace

QImage imageWithContentsOfFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(path, error);
    if (error || bytes == 0 || bytes > static_cast<std::uintmax_t>(maximumFileBytes))
        return {};
    QImageReader reader(QString::fromStdString(path.string()));
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
