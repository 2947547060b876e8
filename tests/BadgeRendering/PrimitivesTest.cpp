#include "BadgeImagePrimitives.h"
#include "DevicePaths.h"
#include "ImageContext.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "QtConversions.h"
#include "Settings.h"
#include "SettingsSnapshot.h"
#include "TemporaryDeviceRoot.h"
#include "TextDrawing.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <tuple>

using namespace pomwick;

namespace {

const QColor red(255, 0, 0), blue(0, 0, 255), green(0, 255, 0);

// Every primitive draws at the main screen's scale: each test runs at 1 and 2.
class Primitives : public testing::TestWithParam<double> {
protected:
    void SetUp() override { setMainScreenScaleOverride(GetParam()); }
    void TearDown() override { setMainScreenScaleOverride(std::nullopt); }

    double scale() const { return GetParam(); }

    // An image of `size` points at the current scale, filled by the drawing function.
    template <typename Draw> QImage image(QSizeF size, Draw draw) {
        ImageContext context(size);
        draw(context.painter());
        return context.image();
    }
    QImage solid(QSizeF size, QColor color) {
        return image(size, [&](QPainter& p) { p.fillRect(QRectF(QPointF(), size), color); });
    }
    // 20 x 20 points, red in the top half only.
    QImage topHalf() {
        return image(QSizeF(20, 20), [](QPainter& p) { p.fillRect(QRectF(0, 0, 20, 10), red); });
    }

    test::TemporaryDeviceRoot root;
};

// The color at a point given in points.
QColor at(const QImage& image, double x, double y) {
    const double scale = image.devicePixelRatio();
    return image.pixelColor(int(x * scale), int(y * scale));
}

bool near(const QColor& a, const QColor& b, int tolerance = 3) {
    return std::abs(a.red() - b.red()) <= tolerance &&
           std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance &&
           std::abs(a.alpha() - b.alpha()) <= tolerance;
}

struct Sample {
    double x, y;
    QColor color;
};

// Checks the image's size in points, its scale and the color at each sample point.
void expectImage(const QImage& image, QSizeF points, double scale,
                 std::initializer_list<Sample> samples) {
    EXPECT_EQ(pointSize(image), points);
    EXPECT_EQ(image.devicePixelRatio(), scale);
    for (const Sample& sample : samples)
        EXPECT_TRUE(near(at(image, sample.x, sample.y), sample.color))
            << sample.x << "," << sample.y << ": "
            << at(image, sample.x, sample.y).name().toStdString();
}

class Composition : public testing::Test {
protected:
    void SetUp() override {
        setMainScreenScaleOverride(2.0);
        writeImage(tmpFile(PreviewFile::badgeBackground), QSize(48, 40), Qt::red);
        writeImage(bundleFile(PreviewFile::stockBadge), QSize(48, 48), Qt::blue);
    }
    void TearDown() override { setMainScreenScaleOverride(std::nullopt); }

    void writeImage(const std::filesystem::path& path, QSize pixels, QColor color) {
        QImage image(pixels, QImage::Format_ARGB32);
        image.fill(color);
        std::filesystem::create_directories(path.parent_path());
        ASSERT_TRUE(writePngAtomically(image, path));
    }

    PreviewBadge compose() { return composePreviewBadge(icon, 60); }
    QImage composedWithText(const char* text) {
        setPreferencesObjectKey(text, SettingsKey::badgeTextFieldText);
        return compose().image;
    }

    test::TemporaryDeviceRoot root;
    const QRectF icon{40, 75, 60, 60};
};

} // namespace

TEST_P(Primitives, ScalingStretchesWithoutKeepingTheAspectRatioAndAlphaFadesTheWholeImage) {
    const QImage halves = image(QSizeF(10, 10), [](QPainter& p) {
        p.fillRect(QRectF(0, 0, 5, 10), red);
        p.fillRect(QRectF(5, 0, 5, 10), blue);
    });
    const QImage scaled = scaleImageToSize(halves, QSizeF(40, 10));
    // Corner to corner: each half now spans 20 points, nothing is letterboxed.
    expectImage(scaled, QSizeF(40, 10), scale(),
                {{0.5, 0.5, red}, {15, 5, red}, {25, 5, blue}, {39.5, 9.5, blue}});

    // Alpha fades the whole image.
    EXPECT_NEAR(at(applyAlphaToImage(solid(QSizeF(8, 6), red), 0.5f), 4, 3).alpha(), 128, 2);
    EXPECT_TRUE(applyAlphaToImage(QImage(), 0.5f).isNull());
}

TEST_P(Primitives, BorderCentersTheImageOnItsEnlargedAndMirroredSilhouette) {
    setPreferencesObjectKey("1.500000", SettingsKey::badgeBorderWidth);
    const QImage bordered = addBorderToImage(solid(QSizeF(20, 20), red), Color{0, 0, 1, 1});
    expectImage(bordered, QSizeF(30, 30), scale(),
                {{1, 1, blue}, {28.5, 28.5, blue}, {15, 15, red}, {5.5, 15, red}, {4, 15, blue}});

    // Only the top half is opaque: the silhouette ends up in the bottom half. Outside it the
    // stretched copy of the image is left as it was drawn.
    setPreferencesObjectKey("2.000000", SettingsKey::badgeBorderWidth);
    expectImage(addBorderToImage(topHalf(), Color{0, 0, 1, 1}), QSizeF(40, 40), scale(),
                {{20, 30, blue}, {20, 5, red}});
}

TEST_P(Primitives, TextImagesAreAsWideAsTheTextAndAsHighAsTheFlagSays) {
    const Font font{"Verdana", 40, "DejaVu Sans", "Book", {}};
    EXPECT_EQ(pointSize(makeImageFromText("12", font, Color{0, 1, 0, 1}, false)).height(), 19);

    const QImage measured = makeImageFromText("12", font, Color{0, 1, 0, 1}, true);
    const QSizeF size = sizeWithAttributes("12", toQFont(font));
    EXPECT_NEAR(pointSize(measured).width(), size.width(), 1.0 / scale());
    EXPECT_NEAR(pointSize(measured).height(), float(size.height()), 1.0 / scale());

    // Transparent around the glyphs, the text color where they are.
    EXPECT_EQ(at(measured, 0, 0).alpha(), 0);
    bool textColorFound = false;
    for (int y = 0; y < measured.height(); ++y)
        for (int x = 0; x < measured.width(); ++x)
            textColorFound |= near(measured.pixelColor(x, y), green, 10);
    EXPECT_TRUE(textColorFound);
    EXPECT_EQ(pointSize(makeImageFromText("", font, Color{}, true)).width(), 0);
}

// Only the shape takes the color, upright; the outline darkens its edge.
TEST_P(Primitives, FillFlattensTheShapeAndShowsTheInnerHalfOfABlackOutline) {
    const QImage filled = fillImageWithColor(topHalf(), Color{0, 0, 1, 1});
    expectImage(filled, QSizeF(20, 20), scale(), {{10, 2, blue}, {10, 8, blue}});
    EXPECT_EQ(at(filled, 10, 15).alpha(), 0);
    const QColor edge = at(filled, 10, 0);
    EXPECT_LT(edge.blue(), 200);
    EXPECT_EQ(edge.alpha(), 255);
}

TEST_P(Primitives, CombiningCentersTheSecondWithRoundedOffsets) {
    const QImage combined =
        imageByCombiningImage(solid(QSizeF(30, 24), red), solid(QSizeF(9, 15), blue));
    // (30 - 9) / 2 = 10.5 rounds to 11; (24 - 15) / 2 = 4.5 rounds to 5.
    expectImage(combined, QSizeF(30, 24), scale(),
                {{11, 5, blue}, {19.9, 19.9, blue}, {10.9, 5, red}, {11, 4.9, red}, {20, 5, red}});
    // A larger second image is cropped to the first's size.
    expectImage(imageByCombiningImage(solid(QSizeF(10, 10), red), solid(QSizeF(30, 30), blue)),
                QSizeF(10, 10), scale(), {{0, 0, blue}});
}

INSTANTIATE_TEST_SUITE_P(AtScale, Primitives, testing::Values(1.0, 2.0));

TEST_F(Composition, TheTextShowsTheBadgeNumberOneAndTheOpacityFadesOnlyIt) {
    const QImage atSigns = composedWithText("@@");
    ASSERT_FALSE(atSigns.isNull());
    EXPECT_EQ(atSigns, composedWithText("11"));
    EXPECT_EQ(composedWithText(""), composedWithText("1"));
    EXPECT_NE(composedWithText("New"), composedWithText("1"));

    // The opacity fades the text, not the background.
    const QImage opaque = composedWithText("88");
    setPreferencesObjectKey("0.000000", SettingsKey::badgeAlpha);
    const QImage faded = compose().image;
    EXPECT_NE(faded, opaque);
    // Only the red background is left, fully opaque.
    for (const QPoint pixel : {QPoint(2, 24), QPoint(faded.width() / 2, faded.height() / 2)})
        EXPECT_EQ(faded.pixelColor(pixel), QColor(Qt::red));
}

// Every setting of one composition comes from one reading of the settings file.
TEST_F(Composition, TheBadgeIs24PointsHighAtTheStoredLocationAndItsTextStaysOffItsEnds) {
    const uint64_t readsBefore = SettingsSnapshot::fileReads();
    const PreviewBadge origin = compose();
    EXPECT_EQ(SettingsSnapshot::fileReads() - readsBefore, 1u);
    // 28.8 points wide, held in whole pixels at scale 2, as an image context does.
    EXPECT_EQ(pointSize(origin.image), QSizeF(std::ceil(24.0 / 40 * 48 * 2) / 2, 24));
    EXPECT_EQ(origin.frame, QRectF(QPointF(40, 75), pointSize(origin.image)));

    setPreferencesObjectKey("1.000000,1.000000", SettingsKey::badgeLocation);
    EXPECT_EQ(compose().frame->topLeft(), QPointF(100, 135));
    setPreferencesObjectKey("0.500000,-0.250000", SettingsKey::badgeLocation);
    EXPECT_EQ(compose().frame->topLeft(), QPointF(70, 60));

    // The widest background the renderer draws, with a text wider still: the text keeps off the
    // round ends, where the border is.
    writeImage(tmpFile(PreviewFile::badgeBackground), QSize(16 * 48, 48), Qt::red);
    const QImage badge = composedWithText(std::string(100, 'W').c_str());
    ASSERT_EQ(pointSize(badge), QSizeF(16 * 24, 24));
    const int ends = int(previewEndsRoom); // half the room at each end, in pixels at scale 2
    for (int y = 0; y < badge.height(); ++y)
        for (const int x : {0, ends - 1, badge.width() - ends, badge.width() - 1})
            ASSERT_EQ(badge.pixelColor(x, y), QColor(Qt::red)) << x << "," << y;
    EXPECT_NE(badge.pixelColor(ends + 4, 24), QColor(Qt::red));
}

TEST_F(Composition, SwitchedOffShowsTheStockBadgeHiddenOrWithoutABackgroundNone) {
    setPreferencesObjectKey("0", SettingsKey::enabled);
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    setPreferencesObjectKey("0.500000,0.500000", SettingsKey::badgeLocation);
    const PreviewBadge stock = compose();
    EXPECT_EQ(std::tuple(stock.frame, pointSize(stock.image), stock.image.pixelColor(24, 24)),
              std::tuple(QRectF(40 + 60 - 12, 75 - 12, 24, 24), QSizeF(24, 24), QColor(Qt::blue)));

    setPreferencesObjectKey("1", SettingsKey::enabled);
    const PreviewBadge hidden = compose();
    EXPECT_EQ(std::tuple(hidden.image.isNull(), hidden.frame.has_value()), std::tuple(true, false));

    // Unreadable images are the image loader's own test; a missing one leaves nothing to scale.
    setPreferencesObjectKey("TRUE", SettingsKey::badgeVisible);
    const std::filesystem::path background = tmpFile(PreviewFile::badgeBackground);
    std::filesystem::remove(background);
    EXPECT_TRUE(compose().image.isNull());
    ASSERT_EQ(::mkfifo(background.c_str(), 0644), 0);
    EXPECT_TRUE(compose().image.isNull());
}

// How the leading number itself is read is the text scanner's own test.
TEST(ReportedIconSize, TakesTheLeadingFloatOfTheWholeFileReadAsUtf8Text) {
    test::TemporaryDeviceRoot root;
    EXPECT_FALSE(readReportedIconSize());
    const std::string file = std::string(DevicePath::tmpDirectory) + PreviewFile::iconSize;
    // A megabyte of spaces before the number is read; four are too many.
    const std::pair<std::string, float> cases[] = {{"60.5\n", 60.5f},
                                                   {std::string(1 << 20, ' ') + "7", 7},
                                                   {"\u2003\u00a042", 42},
                                                   {"6\xff", 0},
                                                   {std::string(4 << 20, ' ') + "7", 0}};
    for (const auto& [text, expected] : cases) {
        root.writeFile(file, text);
        EXPECT_EQ(readReportedIconSize(), expected) << text.substr(0, 10);
    }
    // Anything but a regular file is there, and holds no number; a FIFO is not waited on.
    std::filesystem::remove(hostPath(file));
    ASSERT_EQ(::mkfifo(hostPath(file).c_str(), 0644), 0);
    EXPECT_EQ(readReportedIconSize(), 0.0f);
}
