#include "Animations.h"
#include "PickerWheel.h"
#include "ScreenFixture.h"
#include "Settings.h"
#include "Slider.h"
#include "ViewGeometry.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTest>

using namespace pomwick;

namespace {

// The page on screen, 375 x 623: its row controls and the font sheet, the 216-point picker under a
// 44-point bar.
class RowControls : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        open();
        screen->view()->show();
    }
    TextField* field() const { return control<TextField>(1, 1); }
    QString storedText() const { return QString::fromStdString(stored("BADGE_TEXT_FIELD_TEXT")); }
    // Drags the slider's thumb from its left end to x, then lets go at the release point.
    void drag(Slider* slider, int x, QPoint release) {
        QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(0, 15));
        QTest::mouseMove(slider, QPoint(x, 15));
        QTest::mouseRelease(slider, Qt::LeftButton, {}, release);
    }
    QWidget* sheet() const { return screen->fontContainerView(); }
    // Whether a tap in the middle of the sheet reaches its wheels.
    bool takesTouches() const {
        QWidget* hit = sheet()->childAt(sheet()->rect().center());
        return hit != nullptr && screen->fontPicker()->view()->isAncestorOf(hit);
    }
    // A wheel coming to rest on a row, as a drag or a key leaves it.
    void turn(int component, int row) {
        DQFontPicker* picker = screen->fontPicker();
        picker->selectRow(row, component, false);
        picker->didSelectRow(picker->view(), row, component);
    }
};
using FontSheet = RowControls;

} // namespace

TEST_F(RowControls, SlidersStoreWhileMovingAndTheAlphaLabelFollows) {
    Slider* alphaSlider = control<Slider>(1, 7);
    drag(alphaSlider, -50, QPoint(-50, 15));
    EXPECT_EQ(stored("BADGE_ALPHA"), "0.000000");
    EXPECT_EQ(text(1, 7), "Alpha: 0%");
    drag(alphaSlider, alphaSlider->width() + 50, QPoint(alphaSlider->width(), 15));
    EXPECT_EQ(stored("BADGE_ALPHA"), "1.000000");
    EXPECT_EQ(text(1, 7), "Alpha: 100%");

    Slider* border = control<Slider>(1, 6);
    drag(border, border->width(), QPoint(border->width(), 15));
    EXPECT_EQ(stored("BADGE_BORDER_WIDTH"), "2.000000");
    EXPECT_EQ(text(1, 6), "Border Width:");
}

TEST_F(RowControls, AnyTextAndEveryEditIsStoredReturnTrimsAndTheInfoButtonShowsOneTip) {
    const QString any = "😀 @ 👍🏽 שלום @ مرحبا";
    field()->insert(any);
    EXPECT_EQ(storedText(), any);
    screen->reloadTableData();
    EXPECT_EQ(field()->text(), any);

    // A character typed again after a run of the same is stored once more, not lost or doubled.
    field()->setFocus();
    field()->clear();
    QTest::keyClicks(field(), "Hi!!");
    QTest::keyClicks(field(), "!");
    EXPECT_EQ(storedText(), "Hi!!!");
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(storedText(), "Hi!!");

    // Return trims every Unicode space and the tab, and nothing else.
    const std::pair<QString, QString> trimmed[] = {
        {"   ", ""},
        {QString::fromUtf8("\t\u00A0\u3000Hi\u2003 \u202F"), "Hi"},
        {QString::fromUtf8("\u200BHi\n"), QString::fromUtf8("\u200BHi\n")},
    };
    for (const auto& [typed, kept] : trimmed) {
        field()->setFocus();
        field()->selectAll();
        field()->insert(typed);
        QTest::keyClick(field(), Qt::Key_Return);
        EXPECT_EQ(storedText(), kept);
        EXPECT_EQ(field()->text(), kept);
    }

    // The info button shows one tip, however often clicked.
    for (int click = 0; click < 3; ++click)
        QTest::mouseClick(field()->rightView(), Qt::LeftButton);
    expectAlert("Tip", "Substitute the \"@\" symbol for the badge number. For example, typing "
                       "the text \"Alert:@\" will display \"Alert:1\" if the badge number is 1.");
}

TEST_F(FontSheet, SlidesUpBelowItsBarOverAClearTapCatcherWithTheStoredValuesChosen) {
    setPreferencesObjectKey("24", SettingsKey::badgeFontSize);
    {
        Animations::ScaleOverride realLengths(1); // caught where its slide starts
        screen->showFontPicker();
        ASSERT_NE(sheet(), nullptr);
        EXPECT_EQ(frame(sheet()), QRectF(0, 623, 375, 260));
        EXPECT_FALSE(takesTouches());
        EXPECT_EQ(frame(screen->doneToolbar()), QRectF(-1, 0, 377, 44));
        EXPECT_EQ(frame(screen->fontPicker()->view()), QRectF(0, 44, 375, 216));
        EXPECT_EQ(frame(screen->dimmingView()), QRectF(0, 0, 375, 363));
        EXPECT_EQ(screen->fontPicker()->fontSize(), 24);
        EXPECT_EQ(screen->fontPicker()->color(), getBadgeFontColor());
    }
    // Opened again with the switch at zero, the new sheet is where the slide ends, at once.
    screen->showFontPicker();
    ASSERT_TRUE(takesTouches());
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

TEST_F(FontSheet, EveryWheelChangeStoresAndOpenedTwiceClosedEarlyOrResizedItStaysOneSheet) {
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

    QPointer<QWidget> first = sheet();
    screen->showFontPicker();
    EXPECT_FALSE(first);
    EXPECT_EQ(screen->view()->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly).size(), 1);

    // Closed before it arrived: it never takes taps and goes away whole.
    QPointer<QWidget> sliding = sheet();
    QPointer<QWidget> dimming = screen->dimmingView();
    screen->hideFontPicker();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sliding && !dimming; }));

    screen->showFontPicker();
    ASSERT_TRUE(takesTouches());
    setFrame(screen->view(), QRectF(0, 0, 500, 400));
    screen->updateUI();
    EXPECT_EQ(frame(sheet()), QRectF(0, 140, 500, 260));
    EXPECT_EQ(frame(screen->dimmingView()), QRectF(0, 0, 500, 140));
    EXPECT_EQ(frame(screen->fontPicker()->view()).width(), 500);
    // Done closes it whole; Escape and taps above it are for the real window's tests.
    sliding = sheet();
    dimming = screen->dimmingView();
    screen->doneToolbar()->findChild<QPushButton*>()->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sliding && !dimming; }));
}
