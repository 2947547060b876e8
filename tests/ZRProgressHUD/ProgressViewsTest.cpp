// The two progress views drawn at scale 1 and 2: where color lands for each progress value.
#include "HUDTestSupport.h"
#include "ZRBarProgressView.h"
#include "ZRRoundProgressView.h"

#include <gtest/gtest.h>
#include <limits>

using namespace pomwick;
using pomwick::test::pixelAt;
using pomwick::test::renderAt;

namespace {

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
    Ink outline;    // the pie's circle, outside the wedge's radius
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
    if (c.annular) {
        // The ring's middle line has radius 16 around (18.5, 18.5); its inside stays clear.
        EXPECT_EQ(inkOf(pixelAt(image, {29.8, 7.2})), c.upperRight) << c.progress;
        EXPECT_EQ(inkOf(pixelAt(image, {7.2, 29.8})), c.lowerLeft) << c.progress;
        EXPECT_EQ(inkOf(pixelAt(image, {18.5, 18.5})), Ink::None);
    } else {
        EXPECT_EQ(inkOf(pixelAt(image, {18.5, 1.4})), c.outline);
        EXPECT_EQ(inkOf(pixelAt(image, {26, 11})), c.upperRight) << c.progress;
        EXPECT_EQ(inkOf(pixelAt(image, {11, 26})), c.lowerLeft) << c.progress;
    }
}

// The pie's wedge is white whatever the tint, which only colors the outline.
INSTANTIATE_TEST_SUITE_P(
    PieAndRing, RoundProgressDrawing,
    testing::Combine(testing::Values(RoundCase{false, 0, Ink::Red, Ink::Faint, Ink::Faint},
                                     RoundCase{false, 0.25f, Ink::Red, Ink::White, Ink::Faint},
                                     RoundCase{false, 1, Ink::Red, Ink::White, Ink::White},
                                     RoundCase{true, 0, Ink::None, Ink::Faint, Ink::Faint},
                                     RoundCase{true, 0.25f, Ink::None, Ink::Red, Ink::Faint},
                                     RoundCase{true, 1, Ink::None, Ink::Red, Ink::Red},
                                     // Out of range: a second turn is the whole circle, and a
                                     // value that is no number draws no wedge.
                                     RoundCase{false, 2, Ink::Red, Ink::White, Ink::White},
                                     RoundCase{false, std::numeric_limits<float>::quiet_NaN(),
                                               Ink::Red, Ink::Faint, Ink::Faint}),
                     testing::Values(1.0, 2.0)));

struct BarCase {
    float progress;
    bool leftCap;  // (6, 10): inside the left cap
    bool middle;   // (50, 10)
    bool pastHalf; // (70, 10)
    bool rightCap; // (114, 10): inside the right cap
};

class BarProgressDrawing : public testing::TestWithParam<std::tuple<BarCase, qreal>> {};

TEST_P(BarProgressDrawing, FillsFromTheLeftWithRoundEnds) {
    const auto [c, scale] = GetParam();
    ZRBarProgressView view;
    view.setProgressColor(Qt::red);
    view.setProgress(c.progress);
    ASSERT_EQ(view.size(), QSize(120, 20));
    const QImage image = renderAt(&view, scale);
    const auto filled = [&](QPointF point) {
        return inkOf(pixelAt(image, point)) == Ink::Red;
    };
    EXPECT_EQ(filled({6, 10}), c.leftCap) << c.progress;
    EXPECT_EQ(filled({50, 10}), c.middle) << c.progress;
    EXPECT_EQ(filled({70, 10}), c.pastHalf) << c.progress;
    EXPECT_EQ(filled({114, 10}), c.rightCap) << c.progress;
    // The outline is drawn whatever the progress; the remaining part is clear.
    EXPECT_EQ(inkOf(pixelAt(image, {60, 2})), Ink::White);
    EXPECT_EQ(inkOf(pixelAt(image, {2, 2})), Ink::None);
}

INSTANTIATE_TEST_SUITE_P(
    Values, BarProgressDrawing,
    testing::Combine(testing::Values(BarCase{0, false, false, false, false},
                                     // However little, the whole left cap shows.
                                     BarCase{0.001f, true, false, false, false},
                                     BarCase{0.5f, true, true, false, false},
                                     // At 1.0 the arccosine is no number: the cap closes.
                                     BarCase{1, true, true, true, true},
                                     BarCase{-1, false, false, false, false},
                                     BarCase{2, true, true, true, true},
                                     BarCase{std::numeric_limits<float>::quiet_NaN(), false, false,
                                             false, false}),
                     testing::Values(1.0, 2.0)));

} // namespace
