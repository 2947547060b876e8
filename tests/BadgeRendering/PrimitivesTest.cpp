#include "BadgeImagePrimitives.h"
#include "ImageContext.h"
#include "QtConversions.h"
#include "Settings.h"
#include "TemporaryDeviceRoot.h"
#include "TextDrawing.h"

#include <gtest/gtest.h>

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

} // namespace

TEST_P(Primitives, ScalingStretchesWithoutKeepingTheAspectRatio) {
    const QImage halves = image(QSizeF(10, 10), [](QPainter& p) {
        p.fillRect(QRectF(0, 0, 5, 10), red);
        p.fillRect(QRectF(5, 0, 5, 10), blue);
    });
    const QImage scaled = scaleImageToSize(halves, QSizeF(40, 10));
    // Corner to corner: each half now spans 20 points, nothing is letterboxed.
    expectImage(scaled, QSizeF(40, 10), scale(),
                {{0.5, 0.5, red}, {15, 5, red}, {25, 5, blue}, {39.5, 9.5, blue}});
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

TEST_P(Primitives, AlphaFadesTheWholeImage) {
    const QImage faded = applyAlphaToImage(solid(QSizeF(8, 6), red), 0.5f);
    EXPECT_NEAR(at(faded, 4, 3).alpha(), 128, 2);
    EXPECT_TRUE(applyAlphaToImage(QImage(), 0.5f).isNull());
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
    const QImage cropped =
        imageByCombiningImage(solid(QSizeF(10, 10), red), solid(QSizeF(30, 30), blue));
    expectImage(cropped, QSizeF(10, 10), scale(), {{0, 0, blue}});
}

INSTANTIATE_TEST_SUITE_P(AtScale, Primitives, testing::Values(1.0, 2.0));
