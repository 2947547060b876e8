#include "ImageFile.h"

#include "AtomicFile.h"
#include "RegularFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <csetjmp>
#include <mutex>
#include <png.h>

namespace pomwick {
namespace {
constexpr std::size_t maximumFileBytes = 8 * 1024 * 1024;
constexpr int maximumPixelsPerSide = 4096;

void appendToBuffer(png_structp png, png_bytep data, size_t length) {
    static_cast<QByteArray*>(png_get_io_ptr(png))
        ->append(reinterpret_cast<const char*>(data), qsizetype(length));
}

void flushNothing(png_structp) {}

// Stored and unfiltered: for the small files the product rewrites often, zlib's compression and
// libpng's choice of row filters (which Qt's writer cannot turn off) cost more than the bytes
// they save. libpng reports errors by a long jump, so nothing in this frame has a destructor.
bool encodeStoredPng(const QImage& rgba, QByteArray& out) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_set_write_fn(png, &out, appendToBuffer, flushNothing);
    png_set_IHDR(png, info, png_uint_32(rgba.width()), png_uint_32(rgba.height()), 8,
                 PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (rgba.dotsPerMeterX() > 0 && rgba.dotsPerMeterY() > 0)
        png_set_pHYs(png, info, png_uint_32(rgba.dotsPerMeterX()),
                     png_uint_32(rgba.dotsPerMeterY()), PNG_RESOLUTION_METER);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(png, 0);
    png_write_info(png, info);
    for (int y = 0; y < rgba.height(); ++y)
        png_write_row(png, rgba.constScanLine(y));
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

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
        // A copy of its own: the caller may lend bytes it frees afterwards (fromRawData).
        lastBytes = QByteArray(bytes.constData(), bytes.size());
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
    if (image.isNull())
        return {};
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    QByteArray png;
    if (!encodeStoredPng(rgba, png))
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
