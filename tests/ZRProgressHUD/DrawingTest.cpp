// The notice's layout rules and its indicator for each mode; its panel and its two progress views
// drawn at scale 1 and 2: where color lands.
#include "ActivityIndicatorView.h"
#include "TextDrawing.h"
#include "ZRBarProgressView.h"
#include "ZRProgressHUDTestAccess.h"
#include "ZRRoundProgressView.h"

#include <QFontMetricsF>
#include <QLabel>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

using namespace pomwick;
using Access = ZRProgressHUDTestAccess;

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

// Each case drawn at scale 1 and at scale 2.
template <class Case> auto atScalesOneAndTwo(const Case& cases) {
    return testing::Combine(testing::ValuesIn(cases), testing::Values(1.0, 2.0));
}

// A notice in the mode, shown at once over a host of the size that owns it.
std::pair<std::unique_ptr<QWidget>, ZRProgressHUD*> notice(QSize size, ZRProgressHUDMode mode) {
    auto host = std::make_unique<QWidget>();
    host->resize(size);
    auto* hud = ZRProgressHUD::showHUDAddedTo(host.get(), false);
    hud->setMode(mode);
    return {std::move(host), hud};
}

// Whether the background is dimmed, a point, the alpha of black there (0..255).
using PanelCase = std::tuple<bool, QPointF, int>;
class PanelDrawing : public testing::TestWithParam<std::tuple<PanelCase, qreal>> {};

// A 100 x 60 panel (minSize) in a 300 x 100 host: at (100, 20), corners of radius 10.
TEST_P(PanelDrawing, IsARoundedTranslucentRectangleOverAnOptionalRadialDimming) {
    const auto [c, scale] = GetParam();
    const auto [dim, point, alpha] = c;
    const auto [host, hud] = notice({300, 100}, ZRProgressHUDModeTextOnly);
    hud->setMinSize({100, 60});
    hud->setDimBackground(dim);
    hud->layoutSubviews();
    const QColor pixel = pixelAt(renderAt(Access::overlay(hud), scale), point);
    EXPECT_NEAR(pixel.alpha(), alpha, 4) << point.x() << "," << point.y();
    EXPECT_LE(pixel.red(), 2);
}

// Undimmed: black at 0.8 inside the panel, nothing where the corner cuts it or beside it. Dimmed:
// past the gradient's end the corners keep 0.75; 45 points from the center is 0.45 of the way;
// the panel lies over the dimming's clear center.
const PanelCase panelCases[] = {
    {false, {150, 50}, 204}, {false, {101, 21}, 0}, {false, {102, 50}, 204}, {false, {20, 50}, 0},
    {true, {1, 1}, 191},     {true, {150, 5}, 86},  {true, {150, 50}, 204}};
INSTANTIATE_TEST_SUITE_P(Points, PanelDrawing, atScalesOneAndTwo(panelCases));

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

enum Ink { None, Faint, White, Red };

Ink inkOf(const QColor& pixel) {
    if (pixel.alpha() < 60)
        return pixel.alpha() < 8 ? None : Faint;
    if (pixel.red() > 200)
        return pixel.green() > 200 ? White : pixel.green() < 60 ? Red : None;
    return None;
}

// Ring or pie, the progress, and the ink inside the circle between twelve and three o'clock and
// between six and nine.
using RoundCase = std::tuple<bool, float, Ink, Ink>;
class RoundProgressDrawing : public testing::TestWithParam<std::tuple<RoundCase, qreal>> {};

TEST_P(RoundProgressDrawing, PutsTheWedgeOrArcWhereTheProgressSays) {
    const auto [c, scale] = GetParam();
    const auto [annular, progress, upperRight, lowerLeft] = c;
    ZRRoundProgressView view;
    view.setAnnular(annular);
    view.setProgressTintColor(Qt::red);
    view.setProgress(progress);
    ASSERT_EQ(view.size(), QSize(37, 37));
    const QImage image = renderAt(&view, scale);
    // The ring's middle line has radius 16 around (18.5, 18.5) and its inside stays clear; the
    // pie's circle, outside the wedge's radius, takes the tint.
    const qreal far = annular ? 29.8 : 26, close = annular ? 7.2 : 11;
    EXPECT_EQ(inkOf(pixelAt(image, {far, close})), upperRight) << progress;
    EXPECT_EQ(inkOf(pixelAt(image, {close, far})), lowerLeft) << progress;
    EXPECT_EQ(inkOf(pixelAt(image, {18.5, annular ? 18.5 : 1.4})), annular ? None : Red);
}

// The pie's wedge is white whatever the tint, which only colors the outline. A value that is no
// number draws no wedge.
const RoundCase roundCases[] = {{false, 0, Faint, Faint},  {false, 0.25f, White, Faint},
                                {false, 1, White, White},  {true, 0, Faint, Faint},
                                {true, 0.25f, Red, Faint}, {true, 1, Red, Red},
                                {false, NAN, Faint, Faint}};
INSTANTIATE_TEST_SUITE_P(PieAndRing, RoundProgressDrawing, atScalesOneAndTwo(roundCases));

// The progress, and '#' where filled at x = 6 (in the left cap), 50, 70, 114 (right cap).
using BarCase = std::tuple<float, const char*>;
class BarProgressDrawing : public testing::TestWithParam<std::tuple<BarCase, qreal>> {};

TEST_P(BarProgressDrawing, FillsFromTheLeftWithRoundEnds) {
    const auto [c, scale] = GetParam();
    const auto [progress, filled] = c;
    ZRBarProgressView view;
    view.setProgressColor(Qt::red);
    view.setProgress(progress);
    ASSERT_EQ(view.size(), QSize(120, 20));
    const QImage image = renderAt(&view, scale);
    const qreal xs[] = {6, 50, 70, 114};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(inkOf(pixelAt(image, {xs[i], 10})) == Red, filled[i] == '#')
            << progress << " at " << xs[i];
    // The outline is drawn whatever the progress; the remaining part is clear.
    EXPECT_EQ(inkOf(pixelAt(image, {60, 2})), White);
    EXPECT_EQ(inkOf(pixelAt(image, {2, 2})), None);
}

// However little the progress, the whole left cap shows. At 1.0 the arccosine is no number: the
// cap closes.
const BarCase barCases[] = {
    {0, "...."}, {0.001f, "#..."}, {0.5f, "##.."}, {1, "####"}, {NAN, "...."}};
INSTANTIATE_TEST_SUITE_P(Values, BarProgressDrawing, atScalesOneAndTwo(barCases));

TEST(NoticeLayout, StacksIndicatorLabelAndDetailsWithPaddingInACenteredPanel) {
    const auto [host, hud] = notice({320, 480}, ZRProgressHUDModeSpinner);
    hud->setLabelText("Loading");
    hud->setDetailsLabelText("Please wait");
    hud->layoutSubviews();
    const auto& frames = Access::frames(hud);
    const QSizeF label = sizeWithAttributes("Loading", hud->labelFont());
    const qreal detailsHeight = QFontMetricsF(hud->detailsLabelFont()).height();
    EXPECT_DOUBLE_EQ(hud->size().height(), 37 + 4 + label.height() + 4 + detailsHeight + 40);
    const qreal widest = std::max({37.0, label.width(), frames.details.width()});
    EXPECT_DOUBLE_EQ(hud->size().width(), widest + 40);
    const qreal top = std::round((480 - hud->size().height()) / 2) + 20;
    EXPECT_EQ(frames.indicator, QRectF(std::round((320 - 37) / 2.0), top, 37, 37));
    EXPECT_DOUBLE_EQ(frames.label.top(), top + 37 + 4);
    EXPECT_DOUBLE_EQ(frames.details.top(), top + 37 + 4 + label.height() + 4);
    // It covers its host.
    EXPECT_EQ(Access::overlay(hud)->geometry(), QRect(0, 0, 320, 480));

    // A minimum size enlarges the panel, not where the content sits.
    const QRectF labelFrame = frames.label;
    hud->setMinSize({250, 300});
    hud->layoutSubviews();
    EXPECT_EQ(hud->size(), QSizeF(250, 300));
    EXPECT_EQ(frames.label, labelFrame);
}

TEST(NoticeLayout, CutsLongTextsToTheRoomLeft) {
    const auto [host, hud] = notice({320, 240}, ZRProgressHUDModeTextOnly);
    hud->setLabelText(QString(300, 'W'));
    // Ten thousand characters wrap within W - 4m and keep only the whole lines that fit.
    hud->setDetailsLabelText(QString("word ").repeated(2000));
    hud->layoutSubviews();
    const auto& frames = Access::frames(hud);
    EXPECT_DOUBLE_EQ(frames.label.width(), 320 - 80);
    EXPECT_LE(frames.details.width(), 240);
    const qreal room = 240 - sizeWithAttributes("X", hud->labelFont()).height() - 4 - 80;
    EXPECT_LE(frames.details.height(), room);
    EXPECT_GT(frames.details.height(), room - QFontMetricsF(hud->detailsLabelFont()).lineSpacing());
}

// Square grows the short side to the long one, unless the host has no room for it.
TEST(NoticeLayout, SquareGrowsTheShortSideOnlyWhenItFits) {
    for (const auto& [size, grows] : {std::pair{QSize(320, 480), true}, {QSize(320, 120), false}}) {
        const auto [host, hud] = notice(size, ZRProgressHUDModeTextOnly);
        hud->setLabelText("A wide label");
        hud->layoutSubviews();
        const QSizeF plain = hud->size();
        hud->setSquare(true);
        hud->layoutSubviews();
        EXPECT_DOUBLE_EQ(hud->size().width(), plain.width());
        EXPECT_DOUBLE_EQ(hud->size().height(), grows ? plain.width() : plain.height());
    }
}

TEST(NoticeIndicators, FollowTheModeKeepARingARingAndACustomViewAndTakeProgressOnlyWhenTheyShowIt) {
    const struct {
        std::vector<int> modes; // set in turn
        const char* indicatorClass;
        bool annular;
    } cases[] = {{{}, "pomwick::ActivityIndicatorView", false},
                 {{1}, "pomwick::ZRRoundProgressView", false},
                 {{2}, "pomwick::ZRBarProgressView", false},
                 {{3}, "pomwick::ZRRoundProgressView", true},
                 // From the ring back to the pie the view is kept, and stays a ring.
                 {{3, 1}, "pomwick::ZRRoundProgressView", true},
                 {{1, 3, 0, 1}, "pomwick::ZRRoundProgressView", false}};
    for (const auto& [modes, indicatorClass, annular] : cases) {
        const auto [host, hud] = notice({320, 480}, ZRProgressHUDModeSpinner);
        for (const int mode : modes)
            hud->setMode(ZRProgressHUDMode(mode));
        const QWidget* indicator = Access::indicator(hud);
        ASSERT_NE(indicator, nullptr);
        EXPECT_STREQ(indicator->metaObject()->className(), indicatorClass) << modes.size();
        EXPECT_EQ(indicator->property("annular").toBool(), annular) << modes.size();
    }

    const auto [host, hud] = notice({320, 480}, ZRProgressHUDModeRoundProgress);
    hud->setProgress(0.4f);
    EXPECT_FLOAT_EQ(Access::indicator(hud)->property("progress").toFloat(), 0.4f);

    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(Access::indicator(hud), nullptr); // none given yet
    auto* image = new QLabel;
    image->resize(50, 50);
    hud->setCustomView(image);
    EXPECT_EQ(Access::indicator(hud), image);
    EXPECT_EQ(image->parentWidget(), Access::overlay(hud));
    hud->setProgress(0.9f); // a label has no progress: nothing happens
    EXPECT_FLOAT_EQ(hud->progress(), 0.9f);
    hud->setMode(ZRProgressHUDModeTextOnly);
    EXPECT_EQ(Access::indicator(hud), nullptr);
    EXPECT_EQ(hud->customView(), image); // kept, as the custom view, for later
    // Text only, with only details: no padding above them.
    hud->setDetailsLabelText("Only details");
    hud->layoutSubviews();
    EXPECT_DOUBLE_EQ(hud->size().height(), Access::frames(hud).details.height() + 40);
}

} // namespace
