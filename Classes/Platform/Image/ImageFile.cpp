#include "ImageFile.h"

#include "AtomicFile.h"
#include "RegularFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <mutex>

namespace pomwick {
namespace {
constexpr std::size_t maximumFileBytes = 8 * 1024 * 1024;
constexpr int maximumPixelsPerSide = 4096;

// A PNG signature, then chunks (length, type, data, CRC) up to IEND, each within the bytes. The
// decoder reserves what a chunk declares before reading it: unchecked, a file of a few hundred
// bytes could make it reserve half a gigabyte.
bool chunksFitIn(const QByteArray& bytes) {
    constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n", 8);
    if (!bytes.startsWith(signature))
        return false;
    constexpr qsizetype framing = 12;
    for (qsizetype at = signature.size(); at + framing <= bytes.size();) {
        const quint32 length = qFromBigEndian<quint32>(bytes.constData() + at);
        if (length > quint64(bytes.size() - at - framing))
            return false;
        if (QByteArrayView(bytes.constData() + at + 4, 4) == "IEND")
            return true;
        at += framing + qsizetype(length);
    }
    return false;
}

QImage decoded(const QByteArray& bytes) {
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

} // namespace

QImage imageWithData(const QByteArray& bytes) {
    if (static_cast<std::size_t>(bytes.size()) > maximumFileBytes || !chunksFitIn(bytes))
        return {};
    // The renderer writes the same picture again for as long as the settings stay the same, and
    // the preview reads it on every refresh: the same bytes as last time give the same image.
    static std::mutex guard;
    static QByteArray lastBytes;
    static QImage lastImage;
    const std::lock_guard<std::mutex> lock(guard);
    if (bytes != lastBytes) {
        lastImage = decoded(bytes);
        lastBytes = bytes;
    }
    return lastImage;
}

QImage imageWithContentsOfFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto bytes = readRegularFile(path, maximumFileBytes, error);
    if (!bytes)
        return {};
    return imageWithData(QByteArray::fromStdString(*bytes));
}

QByteArray pngData(const QImage& image) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    // Quality 100 is zlib's level 0: compressing costs more than the bytes it saves.
    if (!image.save(&buffer, "PNG", 100))
        return {};
    return png;
}

bool writePngAtomically(const QImage& image, const std::filesystem::path& path) {
    const QByteArray png = pngData(image);
    if (png.isEmpty())
        return false;
    return !writeFileAtomically(path, std::string_view(png.constData(), size_t(png.size())));
}

} // namespace pomwick
