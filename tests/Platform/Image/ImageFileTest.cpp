#include "ImageFile.h"

#include <QTemporaryDir>
#include <fstream>
#include <gtest/gtest.h>
#include <zlib.h>

using namespace pomwick;

namespace {

void put32(std::string& bytes, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>((value >> shift) & 0xff);
}

// A PNG whose header is valid and declares the given size; its pixel data is missing.
std::string pngHeaderDeclaring(uint32_t width, uint32_t height) {
    std::string chunk = "IHDR";
    put32(chunk, width);
    put32(chunk, height);
    chunk += std::string("\x08\x06\x00\x00\x00", 5);
    std::string bytes = "\x89PNG\r\n\x1a\n";
    put32(bytes, 13);
    bytes += chunk;
    put32(bytes, static_cast<uint32_t>(
                     crc32(0, reinterpret_cast<const Bytef*>(chunk.data()), chunk.size())));
    return bytes;
}

} // namespace

TEST(ImageFile, ValidFilesLoadAtScaleOneAndUnusableOnesGiveANullImageWithoutDecoding) {
    QTemporaryDir folder;
    const std::filesystem::path path = folder.filePath("image.png").toStdString();
    QImage image(6, 4, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    image.setDevicePixelRatio(2);
    ASSERT_TRUE(writePngAtomically(image, path));
    const QImage loaded = imageWithContentsOfFile(path);
    ASSERT_FALSE(loaded.isNull());
    EXPECT_EQ(loaded.size(), QSize(6, 4));
    EXPECT_EQ(loaded.devicePixelRatio(), 1.0);
    EXPECT_EQ(loaded.pixelColor(0, 0), QColor(Qt::blue));
    // The write left no temporary behind.
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"image.png"});

    std::ifstream in(path, std::ios::binary);
    const std::string validBytes{std::istreambuf_iterator<char>(in), {}};
    const std::pair<const char*, std::string> files[] = {
        {"empty", ""},
        {"truncated", validBytes.substr(0, validBytes.size() / 2)},
        {"not a PNG", "GIF89a but not really an image at all"},
        {"declares 100000 x 100000", pngHeaderDeclaring(100000, 100000)},
        {"declares 4097 x 1", pngHeaderDeclaring(4097, 1)},
    };
    for (const auto& [what, bytes] : files) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
        EXPECT_TRUE(imageWithContentsOfFile(path).isNull()) << what;
    }
    EXPECT_TRUE(imageWithContentsOfFile(folder.filePath("missing.png").toStdString()).isNull());
}
