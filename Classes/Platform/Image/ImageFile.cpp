#include "ImageFile.h"

#include <QImageReader>
#include <QSaveFile>

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
    QSaveFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // A light compression level: the file is written on every preview refresh.
    if (!image.save(&file, "PNG", 80)) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace pomwick
