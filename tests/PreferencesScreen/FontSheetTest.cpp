#include "PickerWheel.h"
#include "ScreenFixture.h"
#include "Settings.h"
#include "ViewGeometry.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTest>

using namespace pomwick;

namespace {

// The page is 375 x 623; the sheet is the 216-point picker under a 44-point bar.
class FontSheet : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        open();
        screen->view()->show();
    }
    QWidget* sheet() const { return screen->fontContainerView(); }
    // Whether a tap in the middle of the sheet reaches its wheels.
    bool takesTouches() const {
        QWidget* hit = sheet()->childAt(sheet()->rect().center());
        return hit != nullptr && hit->objectName() != "slideCover";
    }
    bool arrived() const {
        return QTest::qWaitFor([&] { return sheet() && takesTouches(); }, 3000);
    }
    bool gone(QPointer<QWidget> container, QPointer<QWidget> dimming) const {
        return QTest::qWaitFor([&] { return !container && !dimming; }, 3000);
    }
    // A wheel coming to rest on a row, as a drag or a key leaves it.
    void turn(int component, int row) {
        DQFontPicker* picker = screen->fontPicker();
        picker->selectRow(row, component, false);
        picker->didSelectRow(picker, row, component);
    }
};

} // namespace

TEST_F(FontSheet, SlidesUpBelowItsBarOverAClearTapCatcherWithTheStoredValuesChosen) {
    setPreferencesObjectKey("24", SettingsKey::badgeFontSize);
    screen->showFontPicker();
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(frame(sheet()), QRectF(0, 623, 375, 260));
    EXPECT_FALSE(takesTouches());
    EXPECT_EQ(frame(screen->doneToolbar()), QRectF(-1, 0, 377, 44));
    EXPECT_EQ(frame(screen->fontPicker()), QRectF(0, 44, 375, 216));
    EXPECT_EQ(frame(screen->dimmingView()), QRectF(0, 0, 375, 363));
    EXPECT_EQ(screen->fontPicker()->fontSize(), 24);
    EXPECT_EQ(screen->fontPicker()->color(), getBadgeFontColor());

    ASSERT_TRUE(arrived());
    EXPECT_EQ(frame(sheet()), QRectF(0, 363, 375, 260));
    // The keyboard is in the sheet, and Tab reaches Done from the wheels.
    QWidget* done = screen->doneToolbar()->findChild<QPushButton*>();
    QWidget* next = screen->fontPicker()->wheel(0);
    EXPECT_EQ(screen->view()->window()->focusWidget(), next);
    for (int stops = 0; stops < 4 && next != done;) {
        next = next->nextInFocusChain();
        stops += (next->focusPolicy() & Qt::TabFocus) && next->isVisibleTo(sheet()) ? 1 : 0;
    }
    EXPECT_EQ(next, done);
}

TEST_F(FontSheet, EveryWheelChangeStoresFontTruncatedSizeAndColorInThatOrder) {
    screen->showFontPicker();
    DQFontPicker* picker = screen->fontPicker();
    picker->setSizeList({17.9f});
    picker->setColorList({{1.0f, 128 / 255.0f, 0.0f, 1.0f}});
    picker->reloadAllComponents();
    turn(picker->sizeComponentIndex(), 0);
    EXPECT_EQ(stored("BADGE_FONT_SIZE"), "17");
    EXPECT_EQ(stored("BADGE_FONT"), "Verdana");
    turn(picker->colorComponentIndex(), 0);
    EXPECT_EQ(stored("BADGE_FONT_COLOR"), "1.000000,0.501961,0.000000,1.000000");
    EXPECT_EQ(stored("BADGE_FONT_SIZE"), "17");
}

TEST_F(FontSheet, ATapAboveTheSheetClosesItAsDoneAndEscapeDoAndTheRowShowsTheChoice) {
    const auto closeWith = [&](const std::function<void()>& action) {
        screen->showFontPicker();
        ASSERT_TRUE(arrived());
        QPointer<QWidget> container = sheet();
        QPointer<QWidget> dimming = screen->dimmingView();
        action();
        EXPECT_TRUE(gone(container, dimming));
    };
    closeWith([&] {
        screen->fontPicker()->setSizeList({31});
        screen->fontPicker()->reloadAllComponents();
        turn(screen->fontPicker()->sizeComponentIndex(), 0);
        QTest::mouseClick(screen->dimmingView(), Qt::LeftButton, {}, QPoint(100, 100));
    });
    EXPECT_EQ(stored("BADGE_FONT_SIZE"), "31");
    EXPECT_EQ(getBadgeFontSize(), 31);
    closeWith([&] { screen->doneToolbar()->findChild<QPushButton*>()->click(); });
    closeWith([&] { QTest::keyClick(screen->fontPicker()->wheel(0), Qt::Key_Escape); });
    EXPECT_EQ(screen->view()->window()->focusWidget(), screen->table());
}

TEST_F(FontSheet, OpenedTwiceOrClosedWhileSlidingOrResizedLeavesOneSheetOrNone) {
    screen->showFontPicker();
    QPointer<QWidget> first = sheet();
    screen->showFontPicker();
    EXPECT_FALSE(first);
    EXPECT_EQ(screen->view()->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly).size(), 1);

    // Closed before it arrived: it never takes taps and goes away whole.
    QPointer<QWidget> sliding = sheet();
    QPointer<QWidget> dimming = screen->dimmingView();
    screen->hideFontPicker();
    EXPECT_TRUE(gone(sliding, dimming));

    screen->showFontPicker();
    ASSERT_TRUE(arrived());
    setFrame(screen->view(), QRectF(0, 0, 500, 400));
    screen->updateUI();
    EXPECT_EQ(frame(sheet()), QRectF(0, 140, 500, 260));
    EXPECT_EQ(frame(screen->dimmingView()), QRectF(0, 0, 500, 140));
    EXPECT_EQ(frame(screen->fontPicker()).width(), 500);
}
