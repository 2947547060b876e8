// The notice's layout rules, and its indicator for each mode.
#include "TextDrawing.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QFontMetricsF>
#include <QLabel>
#include <cmath>
#include <gtest/gtest.h>

using namespace pomwick;

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
    EXPECT_DOUBLE_EQ(hud->panelSize().height(), 37 + 4 + label.height() + 4 + detailsHeight + 40);
    const qreal widest = std::max({37.0, label.width(), inNotice(hud->detailsLabel()).width()});
    EXPECT_DOUBLE_EQ(hud->panelSize().width(), widest + 40);
    const qreal top = std::round((480 - hud->panelSize().height()) / 2) + 20;
    EXPECT_EQ(inNotice(hud->indicator()), QRectF(std::round((320 - 37) / 2.0), top, 37, 37));
    EXPECT_DOUBLE_EQ(inNotice(hud->label()).top(), top + 37 + 4);
    EXPECT_DOUBLE_EQ(inNotice(hud->detailsLabel()).top(), top + 37 + 4 + label.height() + 4);
    EXPECT_EQ(frame(hud), QRectF(0, 0, 320, 480)); // it covers its host

    // A minimum size enlarges the panel, not where the content sits.
    const QRectF labelFrame = inNotice(hud->label());
    hud->setMinSize({250, 300});
    hud->layoutSubviews();
    EXPECT_EQ(hud->panelSize(), QSizeF(250, 300));
    EXPECT_EQ(inNotice(hud->label()), labelFrame);
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

TEST(NoticeIndicators, FollowTheModeAndKeepARingARing) {
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
        Host host({320, 480});
        ZRProgressHUD* hud = host.notice(ZRProgressHUDModeSpinner);
        for (const int mode : modes)
            hud->setMode(mode);
        ASSERT_NE(hud->indicator(), nullptr);
        EXPECT_STREQ(hud->indicator()->metaObject()->className(), indicatorClass) << modes.size();
        EXPECT_EQ(hud->indicator()->property("annular").toBool(), annular) << modes.size();
    }
}

TEST(NoticeIndicators,
     ProgressReachesOnlyAnIndicatorThatHasOneACustomViewIsKeptAndTextOnlyHasNone) {
    Host host({320, 480});
    ZRProgressHUD* hud = host.notice(ZRProgressHUDModeRoundProgress);
    hud->setProgress(0.4f);
    EXPECT_FLOAT_EQ(hud->indicator()->property("progress").toFloat(), 0.4f);

    hud->setMode(ZRProgressHUDModeCustomView);
    EXPECT_EQ(hud->indicator(), nullptr); // none given yet
    auto* image = new QLabel;
    image->resize(50, 50);
    hud->setCustomView(image);
    EXPECT_EQ(hud->indicator(), image);
    EXPECT_EQ(image->parentWidget(), hud->panel());
    hud->setProgress(0.9f); // a label has no progress: nothing happens
    EXPECT_FLOAT_EQ(hud->progress(), 0.9f);
    hud->setMode(ZRProgressHUDModeTextOnly);
    EXPECT_TRUE(image->isHidden()); // kept, as the custom view, for later
    EXPECT_EQ(hud->customView(), image);
    // Text only, with only details: no padding above them.
    hud->setDetailsLabelText("Only details");
    hud->layoutSubviews();
    EXPECT_EQ(hud->indicator(), nullptr);
    EXPECT_DOUBLE_EQ(hud->panelSize().height(), inNotice(hud->detailsLabel()).height() + 40);
}

} // namespace
