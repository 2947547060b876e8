#include "ImageFile.h"

#include "ImageContext.h"
#include "QtConversions.h"

#include <QTemporaryDir>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(ImageFile, ValidFilesLoadAtScaleOneAndUnusableOnesGiveANullImage) {
    QTemporaryDir folder;
    const std::filesystem::path path = folder.filePath("image.png").toStdString();
    QImage image(6, 4, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    image.setDevicePixelRatio(2);
    ASSERT_TRUE(writePngAtomically(image, path));
    const QImage loaded = imageWithContentsOfFile(path);
    EXPECT_EQ(loaded.size(), QSize(6, 4));
    EXPECT_EQ(loaded.devicePixelRatio(), 1.0);
    EXPECT_EQ(loaded.pixelColor(0, 0), QColor(Qt::blue));
    // The write left no temporary behind.
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"image.png"});
    // A reader that opened the old picture keeps it whole: the new one is renamed over it, not
    // written into it (a hard link stands for the reader's open file).
    const std::filesystem::path reader = folder.filePath("reader.png").toStdString();
    std::filesystem::create_hard_link(path, reader);
    ASSERT_TRUE(writePngAtomically(image.scaled(8, 8), path));
    EXPECT_EQ(imageWithContentsOfFile(reader).size(), QSize(6, 4));

    std::ifstream in(path, std::ios::binary);
    const std::string validBytes{std::istreambuf_iterator<char>(in), {}};
    // Truncated, and not a PNG at all.
    for (const std::string& bytes : {validBytes.substr(0, validBytes.size() / 2),
                                     std::string("GIF89a but not really an image at all")}) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
        EXPECT_TRUE(imageWithContentsOfFile(path).isNull()) << bytes.size() << " bytes";
    }
    // Whole and valid, but wider than any image the product draws: never decoded.
    ASSERT_TRUE(writePngAtomically(image.scaled(4097, 1), path));
    EXPECT_TRUE(imageWithContentsOfFile(path).isNull());
    EXPECT_TRUE(imageWithContentsOfFile(folder.filePath("missing.png").toStdString()).isNull());
}

TEST(ImageContext, EmptyOrMeaninglessSizesGiveANullImageAndColorsClampOnlyWhenDrawn) {
    for (const QSizeF size :
         {QSizeF(0, 10), QSizeF(10, 0), QSizeF(-1, 5), QSizeF(NAN, 24), QSizeF(INFINITY, 24)}) {
        ImageContext context(size, 2);
        EXPECT_TRUE(context.isEmpty());
        EXPECT_TRUE(context.image().isNull());
    }

    // Colors are clamped only at the drawing boundary.
    EXPECT_EQ(toQColor({2, -1, NAN, 0.5f}), QColor::fromRgbF(1, 0, 0, 0.5f));
    const QFont sized = toQFont(Font{"Verdana", 16, "DejaVu Sans", "Book", {}});
    EXPECT_EQ(sized.pixelSize(), 16);
    EXPECT_EQ(sized.family(), "DejaVu Sans");
    EXPECT_EQ(toQFont(std::nullopt).pixelSize(), 17);
    EXPECT_EQ(toQFont(Font{"x", 0, {}, {}, {}}).pixelSize(), 1);
}
