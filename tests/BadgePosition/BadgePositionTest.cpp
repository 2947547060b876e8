#include "BadgePositionViewController.h"
#include "BundleInstallation.h"
#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "TemporaryDeviceRoot.h"
#include "ViewGeometry.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

using namespace pomwick;

namespace {

// The page that pushes the editor, as far as the editor sees it.
struct FakeSender : BadgePositionSender {
    FakeSender() { badge.fill(Qt::red); }
    QSizeF size{320, 480};
    float icon = 60;
    QImage badge{30, 24, QImage::Format_ARGB32_Premultiplied};
    QRectF viewBounds() override { return {QPointF(0, 0), size}; }
    float iconSize() const override { return icon; }
    QImage finalBadgeImage() const override { return badge; }
};

class BadgePosition : public testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(installBundleIntoDeviceRoot()); }

    BadgePositionViewController& open() {
        editor = std::make_unique<BadgePositionViewController>();
        editor->setSender(&sender);
        editor->view()->show();
        return *editor;
    }
    // A press, moves and a release on the page, given in the square's coordinates.
    void drag(std::initializer_list<QPointF> points) {
        QWidget* page = editor->view();
        const auto onPage = [&](QPointF p) {
            return editor->innerView()->mapTo(page, p.toPoint());
        };
        QTest::mousePress(page, Qt::LeftButton, {}, onPage(*points.begin()));
        for (auto point = points.begin() + 1; point != points.end(); ++point)
            QTest::mouseMove(page, onPage(*point));
        QTest::mouseRelease(page, Qt::LeftButton, {}, onPage(*(points.end() - 1)));
    }
    std::string storedLocation() const {
        const auto file = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
        const auto value = file ? file->lookup("BADGE_LOCATION") : std::nullopt;
        return value ? value->text : "(none)";
    }
    QRectF badge() const { return editor->badgeFrame(); }

    test::TemporaryDeviceRoot root;
    FakeSender sender;
    std::unique_ptr<BadgePositionViewController> editor;
};

} // namespace

TEST_F(BadgePosition, SquareOfThreeIconsTruncatedIconBadgeAtStoredFractionsHintAtATenthOfTheWidth) {
    sender.icon = 60.5f;
    setPreferencesObjectKey("0.5,-0.25", "BADGE_LOCATION");
    open();
    EXPECT_EQ(editor->title(), "Set Position");
    EXPECT_EQ(
        std::tuple(editor->innerFrame(), editor->iconFrame(), badge()),
        std::tuple(QRectF(69, 149, 181.5, 181.5), QRectF(60, 60, 60, 60), QRectF(90, 45, 30, 24)));
    // Placed on whole points, the half rounded up.
    EXPECT_EQ(editor->innerView()->geometry(), QRect(69, 149, 182, 182));
    EXPECT_FALSE(editor->iconImageView()->pixmap().isNull());
    const QRectF hint = frame(editor->infoTextView());
    EXPECT_EQ(hint, QRectF(-1, 32, 322, hint.height()));
    EXPECT_EQ(editor->infoTextView()->text(), "Drag the badge bubble \nto your desired location.");

    // A landscape window: the square is centered again, the hint still at a tenth of the width.
    setFrame(editor->view(), QRectF(0, 0, 480, 320));
    editor->viewDidLayoutSubviews();
    EXPECT_EQ(
        std::tuple(editor->innerFrame().topLeft(), frame(editor->infoTextView()).top(), badge()),
        std::tuple(QPointF(149, 69), 48, QRectF(90, 45, 30, 24)));
}

TEST_F(BadgePosition, OnlyADragFromTheBadgeMovesItNeverOutOfTheSquareAndItsPlaceIsRestored) {
    open();
    // A touch beside the badge moves nothing, but the place is still stored.
    drag({{150, 150}, {140, 140}});
    EXPECT_EQ(std::tuple(badge(), storedLocation()),
              std::tuple(QRectF(60, 60, 30, 24), "0.000000,0.000000"));
    // 100 points to the right would carry the badge's right edge past 180: no move at all.
    drag({{70, 70}, {170, 70}, {160, 70}, {150, 80}});
    EXPECT_EQ(badge(), QRectF(40, 70, 30, 24));
    // Edges may touch: the badge goes right up to the square's edge.
    drag({{50, 80}, {10, 66}});
    EXPECT_EQ(badge(), QRectF(0, 56, 30, 24));
    // Left of and below the icon's corner: a negative and a positive fraction of the icon.
    drag({{10, 66}, {20, 75}, {25, 80}});
    EXPECT_EQ(std::tuple(badge(), storedLocation()),
              std::tuple(QRectF(15, 70, 30, 24), "-0.750000,0.166667"));

    // Six decimals stored give back the place the badge was left at.
    const QRect placed = editor->badgeImageView()->geometry();
    open();
    EXPECT_EQ(editor->badgeImageView()->geometry(), placed);
}

TEST_F(BadgePosition, ABadgeWiderThanTheSquareDragsInwardAndAlongButNoFurtherOut) {
    sender.badge = QImage(200, 24, QImage::Format_ARGB32_Premultiplied);
    open();
    EXPECT_EQ(badge(), QRectF(60, 60, 200, 24));
    drag({{70, 70}, {20, 70}, {0, 70}, {-5, 70}, {25, 70}});
    EXPECT_EQ(badge(), QRectF(-15, 60, 200, 24)) << "in, along, not back out on the right";
    drag({{0, 70}, {0, 200}, {-40, 70}});
    EXPECT_EQ(badge(), QRectF(-15, 60, 200, 24)) << "never out below nor further out left";
    EXPECT_EQ(storedLocation(), "-1.250000,0.000000");
}

TEST_F(BadgePosition, TheBadgeWearsARingOnlyForTheKeyboardAndArrowKeysNudgeItOnePoint) {
    open();
    QApplication::setActiveWindow(editor->view());
    const auto ringed = [&] {
        // Just left of the badge's left edge, in the square: white, or the ring's tint.
        const QColor pixel = editor->innerView()->grab().toImage().pixelColor(58, 72);
        return pixel.blue() > 200 && pixel.red() < 60;
    };
    editor->view()->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ringed());
    editor->view()->clearFocus();
    editor->view()->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(ringed());

    QWidget* page = editor->view();
    for (Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Up})
        QTest::keyPress(page, key);
    EXPECT_EQ(storedLocation(), "(none)");
    QTest::keyRelease(page, Qt::Key_Up);
    EXPECT_EQ(std::tuple(badge(), storedLocation(), page->focusPolicy()),
              std::tuple(QRectF(58, 59, 30, 24), "-0.033333,-0.016667", Qt::StrongFocus));
}

TEST_F(BadgePosition, NoIconSizeGivesAnEmptyEditorThatKeepsTheStoredPlace) {
    setPreferencesObjectKey("0.3,0.4", "BADGE_LOCATION");
    sender.icon = 0;
    open();
    drag({{1, 1}, {5, 5}});
    EXPECT_EQ(storedLocation(), "0.3,0.4");
}
