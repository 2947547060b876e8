// The notice's panel and its two progress views drawn at scale 1 and 2: where color lands.
#include "ActivityIndicatorView.h"
#include "ZRBarProgressView.h"
#include "ZRProgressHUD.h"
#include "ZRRoundProgressView.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace pomwick;

namespace {

// The widget drawn (with its children) on a transparent image at the given scale.
QImage renderAt(QWidget* widget, qreal scale) {
    QImage image(widget->size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// The pixel under a point given in points.
QColor pixelAt(const QImage& image, QPointF point) {
    const qreal scale = image.devicePixelRatio();
    return image.pixelColor(int(point.x() * scale), int(point.y() * scale));
}

struct PanelCase {
    bool dim;
    QPointF point;
    int alpha; // of black, 0..255
};

class PanelDrawing : public testing::TestWithParam<std::tuple<PanelCase, qreal>> {};

// A 100 x 60 panel (minSize) in a 300 x 100 host: at (100, 20), corners of radius 10.
TEST_P(PanelDrawing, IsARoundedTranslucentRectangleOverAnOptionalRadialDimming) {
    const auto [c, scale] = GetParam();
    QWidget host;
    host.resize(300, 100);
    ZRProgressHUD* hud = ZRProgressHUD::showHUDAddedTo(&host, false);
    hud->setMode(ZRProgressHUDModeTextOnly);
    hud->setMinSize({100, 60});
    hud->setDimBackground(c.dim);
    hud->layoutSubviews();
    const QColor pixel = pixelAt(renderAt(hud, scale), c.point);
    EXPECT_NEAR(pixel.alpha(), c.alpha, 4) << c.point.x() << "," << c.point.y();
    EXPECT_LE(pixel.red(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Points, PanelDrawing,
    testing::Combine(testing::Values(PanelCase{false, {150, 50}, 204}, // black at 0.8
                                     PanelCase{false, {101, 21}, 0},   // cut by the corner
                                     PanelCase{false, {102, 50}, 204},
                                     PanelCase{false, {20, 50}, 0},
                                     // Past the gradient's end, the corners keep 0.75.
                                     PanelCase{true, {1, 1}, 191},
                                     // 45 points from the center: 0.45 of the way.
                                     PanelCase{true, {150, 5}, 86},
                                     // The panel over the dimming's clear center.
                                     PanelCase{true, {150, 50}, 204}),
                     testing::Values(1.0, 2.0)));

// Twelve spokes, one every 30 degrees from twelve o'clock, with nothing between them.
TEST(SpinnerDrawing, HasTwelveSpokes) {
    ActivityIndicatorView spinner;
    const QImage image = renderAt(&spinner, 2);
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const qreal angle = qDegreesToRadians(qreal(degrees));
        const QPointF point(18.5 + 13 * std::sin(angle), 18.5 - 13 * std::cos(angle));
        EXPECT_EQ(pixelAt(image, point).alpha() > 30, degrees % 30 == 0) << degrees;
    }
}

enum class Ink { None, Faint, White, Red };

Ink inkOf(const QColor& pixel) {
    if (pixel.alpha() < 8)
        return Ink::None;
    if (pixel.alpha() < 60)
        return Ink::Faint;
    if (pixel.red() > 200 && pixel.green() > 200)
        return Ink::White;
    if (pixel.red() > 200 && pixel.green() < 60)
        return Ink::Red;
    return Ink::None;
}

struct RoundCase {
    bool annular;
    float progress;
    Ink upperRight; // inside, between twelve and three o'clock
    Ink lowerLeft;  // inside, between six and nine o'clock
};

class RoundProgressDrawing : public testing::TestWithParam<std::tuple<RoundCase, qreal>> {};

TEST_P(RoundProgressDrawing, PutsTheWedgeOrArcWhereTheProgressSays) {
    const auto [c, scale] = GetParam();
    ZRRoundProgressView view;
    view.setAnnular(c.annular);
    view.setProgressTintColor(Qt::red);
    view.setProgress(c.progress);
    ASSERT_EQ(view.size(), QSize(37, 37));
    const QImage image = renderAt(&view, scale);
    // The ring's middle line has radius 16 around (18.5, 18.5) and its inside stays clear; the
    // pie's circle, outside the wedge's radius, takes the tint.
    const qreal far = c.annular ? 29.8 : 26, close = c.annular ? 7.2 : 11;
    EXPECT_EQ(inkOf(pixelAt(image, {far, close})), c.upperRight) << c.progress;
    EXPECT_EQ(inkOf(pixelAt(image, {close, far})), c.lowerLeft) << c.progress;
    EXPECT_EQ(inkOf(pixelAt(image, {18.5, c.annular ? 18.5 : 1.4})),
              c.annular ? Ink::None : Ink::Red);
}

// The pie's wedge is white whatever the tint, which only colors the outline. A value that is no
// number draws no wedge.
INSTANTIATE_TEST_SUITE_P(
    PieAndRing, RoundProgressDrawing,
    testing::Combine(testing::Values(RoundCase{false, 0, Ink::Faint, Ink::Faint},
                                     RoundCase{false, 0.25f, Ink::White, Ink::Faint},
                                     RoundCase{false, 1, Ink::White, Ink::White},
                                     RoundCase{true, 0, Ink::Faint, Ink::Faint},
                                     RoundCase{true, 0.25f, Ink::Red, Ink::Faint},
                                     RoundCase{true, 1, Ink::Red, Ink::Red},
                                     RoundCase{false, std::numeric_limits<float>::quiet_NaN(),
                                               Ink::Faint, Ink::Faint}),
                     testing::Values(1.0, 2.0)));

struct BarCase {
    float progress;
    const char* filled; // '#' where filled at x = 6 (in the left cap), 50, 70, 114 (right cap)
};

class BarProgressDrawing : public testing::TestWithParam<std::tuple<BarCase, qreal>> {};

TEST_P(BarProgressDrawing, FillsFromTheLeftWithRoundEnds) {
    const auto [c, scale] = GetParam();
    ZRBarProgressView view;
    view.setProgressColor(Qt::red);
    view.setProgress(c.progress);
    ASSERT_EQ(view.size(), QSize(120, 20));
    const QImage image = renderAt(&view, scale);
    const qreal xs[] = {6, 50, 70, 114};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(inkOf(pixelAt(image, {xs[i], 10})) == Ink::Red, c.filled[i] == '#')
            << c.progress << " at " << xs[i];
    // The outline is drawn whatever the progress; the remaining part is clear.
    EXPECT_EQ(inkOf(pixelAt(image, {60, 2})), Ink::White);
    EXPECT_EQ(inkOf(pixelAt(image, {2, 2})), Ink::None);
}

INSTANTIATE_TEST_SUITE_P(
    Values, BarProgressDrawing,
    testing::Combine(testing::Values(BarCase{0, "...."},
                                     // However little, the whole left cap shows.
                                     BarCase{0.001f, "#..."}, BarCase{0.5f, "##.."},
                                     // At 1.0 the arccosine is no number: the cap closes.
                                     BarCase{1, "####"},
                                     BarCase{std::numeric_limits<float>::quiet_NaN(), "...."}),
                     testing::Values(1.0, 2.0)));

} // namespace
