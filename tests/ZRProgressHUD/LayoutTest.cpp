// The notice's layout rules and its panel drawing, at scale 1 and 2.
#include "HUDTestSupport.h"
#include "TextDrawing.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"
#include "ZRRoundProgressView.h"

#include <QFontMetricsF>
#include <QLabel>
#include <cmath>
#include <gtest/gtest.h>

using namespace pomwick;
using pomwick::test::pixelAt;
using pomwick::test::renderAt;

namespace {

struct Host {
    explicit Host(QSize size) { view.resize(size); }
    ZRProgressHUD* notice(int mode) {
        auto* hud = ZRProgressHUD::showHUDAddedTo(&view, false);
        hud->setMode(mode);
        return hud;
    }
    QWidget view;
};

// A part's frame in the notice's bounds: parts sit in the panel.
QRectF inNotice(const QWidget* part) {
    return frame(part).translated(frame(part->parentWidget()).topLeft());
}

TEST(NoticeLayout, StacksIndicatorLabelAndDetailsWithPaddingInACenteredPanel) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeSpinner);
    hud->setLabelText("Loading");
    hud->setDetailsLabelText("Please wait");
    hud->layoutSubviews();
    const QSizeF label = sizeWithAttributes("Loading", hud->labelFont());
    const qreal detailsHeight = QFontMetricsF(hud->detailsLabelFont()).height();
    const qreal contentHeight = 37 + 4 + label.height() + 4 + detailsHeight;
    EXPECT_DOUBLE_EQ(hud->panelSize().height(), contentHeight + 40);
    const qreal widest = std::max({37.0, label.width(), inNotice(hud->detailsLabel()).width()});
    EXPECT_DOUBLE_EQ(hud->panelSize().width(), widest + 40);
    const qreal top = std::round((480 - hud->panelSize().height()) / 2) + 20;
    EXPECT_EQ(inNotice(hud->indicator()), QRectF(std::round((320 - 37) / 2.0), top, 37, 37));
    EXPECT_DOUBLE_EQ(inNotice(hud->label()).top(), top + 37 + 4);
    EXPECT_DOUBLE_EQ(inNotice(hud->detailsLabel()).top(), top + 37 + 4 + label.height() + 4);
    EXPECT_EQ(frame(hud), QRectF(0, 0, 320, 480)); // it covers its host
}

TEST(NoticeLayout, TextOnlyWithOnlyDetailsAddsNoPadding) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeTextOnly);
    hud->setDetailsLabelText("Only details");
    hud->layoutSubviews();
    EXPECT_EQ(hud->indicator(), nullptr);
    EXPECT_DOUBLE_EQ(hud->panelSize().height(), inNotice(hud->detailsLabel()).height() + 40);
}

TEST(NoticeLayout, CutsLongTextsToTheRoomLeft) {
    Host host({320, 240});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeTextOnly);
    hud->setLabelText(QString(300, 'W'));
    // Ten thousand characters wrap within W - 4m and keep only the whole lines that fit.
    hud->setDetailsLabelText(QString("word ").repeated(2000));
    hud->layoutSubviews();
    EXPECT_DOUBLE_EQ(inNotice(hud->label()).width(), 320 - 80);
    const QRectF details = inNotice(hud->detailsLabel());
    EXPECT_LE(details.width(), 240);
    const qreal room = 240 - sizeWithAttributes("X", hud->labelFont()).height() - 4 - 80;
    EXPECT_LE(details.height(), room);
    EXPECT_GT(details.height(), room - QFontMetricsF(hud->detailsLabelFont()).lineSpacing());
}

// Square grows the short side to the long one, unless the host has no room for it.
TEST(NoticeLayout, SquareGrowsTheShortSideOnlyWhenItFits) {
    for (const auto& [size, grows] : {std::pair{QSize(320, 480), true}, {QSize(320, 120), false}}) {
        Host host(size);
        ZRProgressHUD* hud = host.notice(ZRProgressHUDModeTextOnly);
        hud->setLabelText("A wide label");
        hud->layoutSubviews();
        const QSizeF plain = hud->panelSize();
        hud->setSquare(true);
        hud->layoutSubviews();
        EXPECT_DOUBLE_EQ(hud->panelSize().width(), plain.width());
        EXPECT_DOUBLE_EQ(hud->panelSize().height(), grows ? plain.width() : plain.height());
    }
}

TEST(NoticeLayout, MinSizeEnlargesThePanelButNotWhereTheContentSits) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeSpinner);
    hud->setLabelText("Loading");
    hud->layoutSubviews();
    const QRectF label = inNotice(hud->label());
    hud->setMinSize({250, 300});
    hud->layoutSubviews();
    EXPECT_EQ(hud->panelSize(), QSizeF(250, 300));
    EXPECT_EQ(inNotice(hud->label()), label);
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
    Host host({300, 100});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeTextOnly);
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
                                     PanelCase{true, {1, 1}, 191}, PanelCase{true, {20, 50}, 191},
                                     // 45 points from the center: 0.45 of the way.
                                     PanelCase{true, {150, 5}, 86},
                                     // The panel over the dimming's clear center.
                                     PanelCase{true, {150, 50}, 204}),
                     testing::Values(1.0, 2.0)));

struct IndicatorCase {
    std::vector<int> modes; // set in turn
    const char* indicatorClass;
    QSize size;
    bool annular;
};

class Indicators : public testing::TestWithParam<IndicatorCase> {};

TEST_P(Indicators, FollowTheModeWithTheirOwnDefaultFrames) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeSpinner);
    for (const int mode : GetParam().modes)
        hud->setMode(mode);
    QWidget* indicator = hud->indicator();
    if (GetParam().indicatorClass == nullptr) {
        EXPECT_EQ(indicator, nullptr);
        return;
    }
    ASSERT_NE(indicator, nullptr);
    EXPECT_STREQ(indicator->metaObject()->className(), GetParam().indicatorClass);
    EXPECT_EQ(indicator->size(), GetParam().size);
    if (auto* round = qobject_cast<ZRRoundProgressView*>(indicator)) {
        EXPECT_EQ(round->isAnnular(), GetParam().annular);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Modes, Indicators,
    testing::Values(IndicatorCase{{}, "pomwick::ActivityIndicatorView", {37, 37}, false},
                    IndicatorCase{{1}, "pomwick::ZRRoundProgressView", {37, 37}, false},
                    IndicatorCase{{2}, "pomwick::ZRBarProgressView", {120, 20}, false},
                    IndicatorCase{{3}, "pomwick::ZRRoundProgressView", {37, 37}, true},
                    // From the ring back to the pie the view is kept, and stays a ring.
                    IndicatorCase{{3, 1}, "pomwick::ZRRoundProgressView", {37, 37}, true},
                    IndicatorCase{{1, 3, 0, 1}, "pomwick::ZRRoundProgressView", {37, 37}, false},
                    IndicatorCase{{4}, nullptr, {}, false}, // custom view mode without a view
                    IndicatorCase{{5}, nullptr, {}, false}));

TEST(NoticeIndicators, ProgressReachesOnlyAnIndicatorThatHasOne) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeRoundProgress);
    auto* round = qobject_cast<ZRRoundProgressView*>(hud->indicator());
    hud->setProgress(0.4f);
    EXPECT_FLOAT_EQ(round->progress(), 0.4f);

    auto* image = new QLabel;
    image->resize(50, 50);
    hud->setCustomView(image);
    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(hud->indicator(), image);
    EXPECT_EQ(image->parentWidget(), hud->panel());
    hud->setProgress(0.9f); // a label has no progress: nothing happens
    EXPECT_FLOAT_EQ(hud->progress(), 0.9f);
    hud->setMode(ZRProgressHUDModeTextOnly);
    EXPECT_TRUE(image->isHidden()); // kept, as the custom view, for later
    EXPECT_EQ(hud->customView(), image);
}

} // namespace
