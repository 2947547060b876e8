#include "ScreenFixture.h"
#include "SegmentedControl.h"
#include "Settings.h"
#include "Slider.h"
#include "Switch.h"
#include "ViewGeometry.h"

#include <QTest>

using namespace pomwick;

namespace {

class RowControls : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        open();
        screen->view()->show();
    }
    TextField* field() const { return control<TextField>(1, 1); }
    // Drags the slider's thumb from its left end to x, then lets go at the release point.
    void drag(Slider* slider, int x, QPoint release) {
        QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(0, 15));
        QTest::mouseMove(slider, QPoint(x, 15));
        QTest::mouseRelease(slider, Qt::LeftButton, {}, release);
    }
};

} // namespace

TEST_F(RowControls, TheSwitchAndTheVisibilityControlStoreTheirTextsAndRebuild) {
    QTest::mouseClick(control<Switch>(0, 0), Qt::LeftButton);
    EXPECT_EQ(stored("ENABLED"), "0");
    EXPECT_EQ(alpha(cell(1, 3)->textLabel()), 0.6);
    QTest::mouseClick(control<Switch>(0, 0), Qt::LeftButton);
    EXPECT_EQ(stored("ENABLED"), "1");
    EXPECT_EQ(alpha(cell(1, 3)->textLabel()), 1.0);

    SegmentedControl* visibility = control<SegmentedControl>(1, 0);
    QTest::mouseClick(visibility, Qt::LeftButton, {}, QPoint(20, 15));
    EXPECT_EQ(stored("BADGE_VISIBLE"), "FALSE");
    EXPECT_EQ(control<SegmentedControl>(1, 0)->selectedSegmentIndex(), 0);
    QTest::mouseClick(control<SegmentedControl>(1, 0), Qt::LeftButton, {}, QPoint(80, 15));
    EXPECT_EQ(stored("BADGE_VISIBLE"), "TRUE");
}

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

    // Only the two known tags store anything.
    Slider stray;
    setTag(&stray, 5);
    stray.setValue(0.5f, false);
    setPreferencesObjectKey("x", SettingsKey::badgeAlpha);
    screen->sliderValueChanged(&stray);
    EXPECT_EQ(stored("BADGE_ALPHA"), "x");
}

TEST_F(RowControls, TypingStoresEveryEditAndReturnStoresItTrimmed) {
    field()->setFocus();
    QTest::keyClicks(field(), "  Hi ");
    EXPECT_EQ(stored("BADGE_TEXT_FIELD_TEXT"), "  Hi ");
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(stored("BADGE_TEXT_FIELD_TEXT"), "  Hi");
    QTest::keyClick(field(), Qt::Key_Space);
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(stored("BADGE_TEXT_FIELD_TEXT"), "Hi");
    EXPECT_EQ(field()->text(), "Hi");

    // A character typed again after a run of the same is stored once more, not lost or doubled.
    field()->setFocus();
    field()->selectAll();
    QTest::keyClicks(field(), "Hi!!");
    QTest::keyClicks(field(), "!");
    EXPECT_EQ(stored("BADGE_TEXT_FIELD_TEXT"), "Hi!!!");

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
        EXPECT_EQ(QString::fromStdString(stored("BADGE_TEXT_FIELD_TEXT")), kept);
    }
}

TEST_F(RowControls, AnyTextIsStoredAndShownWithoutLoss) {
    const QString texts[] = {
        QString::fromUtf8("\xF0\x9F\x98\x80 @ \xF0\x9F\x91\x8D\xF0\x9F\x8F\xBD"),
        QString::fromUtf8(
            "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D @ \xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7"),
        QString(40000, 'x') + "@",
        QString("a\tb\x01"
                "c\x1b"
                "d"),
    };
    for (const QString& typed : texts) {
        field()->clear();
        field()->insert(typed);
        EXPECT_EQ(QString::fromStdString(stored("BADGE_TEXT_FIELD_TEXT")), typed);
        screen->reloadTableData();
        EXPECT_EQ(field()->text(), typed);
    }
}

TEST_F(RowControls, TheInfoButtonShowsTheTip) {
    QTest::mouseClick(field()->rightView(), Qt::LeftButton);
    QMessageBox* tip = expectAlert(
        "Tip", "Substitute the \"@\" symbol for the badge number. For example, typing "
               "the text \"Alert:@\" will display \"Alert:1\" if the badge number is 1.");
    ASSERT_NE(tip, nullptr);
    tip->close();
}
