#include "../ZRProgressHUD/ZRProgressHUDTestAccess.h"
#include "DevicePaths.h"
#include "LJColorPickerView.h"
#include "PreferencesScreenTestAccess.h"
#include "RendererProcess.h"
#include "ScreenFixture.h"
#include "SegmentedControl.h"
#include "Settings.h"
#include "Slider.h"
#include "Switch.h"
#include "UndoNoticeTestAccess.h"
#include "ViewGeometry.h"

#include <QAbstractButton>
#include <QTest>

namespace pomwick {

namespace {

using Access = PreferencesScreenTestAccess;

class History : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        // A key this version does not know must come back with every undo too.
        root.writeFile(std::string(DevicePath::tmpDirectory) + "iconSize.txt", "60");
        root.writeFile(std::string(DevicePath::preferencesFile),
                       R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)"
                       "<key>FROM_A_LATER_VERSION</key><string>kept</string></dict></plist>");
        open();
        screen->view()->show();
        // Shortcuts go to the active window only.
        screen->view()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(screen->view()));
    }
    void keys(QKeySequence::StandardKey key, int times) {
        for (int i = 0; i < times; ++i)
            QTest::keySequence(screen->view(), QKeySequence(key));
    }
};

} // namespace

TEST_F(History, EveryKindOfChangeIsOneStepAndUndoPutsBackTheExactFile) {
    const SettingsFileContent start = readSettingsFileContent();

    TextField* field = control<TextField>(1, 1);
    field->setFocus();
    QTest::keyClicks(field, "Hi@");
    QTest::keyClick(field, Qt::Key_Return);
    Slider* alpha = control<Slider>(1, 7);
    QTest::mousePress(alpha, Qt::LeftButton, {}, QPoint(0, 15));
    for (int x = 10; x < 100; x += 10)
        QTest::mouseMove(alpha, QPoint(x, 15));
    QTest::mouseRelease(alpha, Qt::LeftButton, {}, QPoint(100, 15));
    LJColorPickerView grid;
    setTag(&grid, 1);
    screen->didSelectColor(&grid, Color{0, 0, 1, 1});
    // Hiding the badge or switching the tweak off dims the rows above: they come last.
    QTest::mouseClick(control<SegmentedControl>(1, 0)->segment(0), Qt::LeftButton);
    QTest::mouseClick(control<Switch>(0, 0), Qt::LeftButton);
    // The whole drag and every letter typed are one step each.
    EXPECT_EQ(Access::undoStack(screen.get())->count(), 5);
    const SettingsFileContent beforeRestore = readSettingsFileContent();

    screen->table()->selectRowAtIndexPath({2, 0});
    EXPECT_FALSE(readSettingsFileContent());
    EXPECT_EQ(text(1, 7), "Alpha: 100%") << "the defaults at once";
    UndoNotice* notice = Access::undoNotice(screen.get());
    ASSERT_TRUE(notice && notice->isVisible());
    screen->view()->grab().save("defaults-restored.png");
    QTest::mouseClick(UndoNoticeTestAccess::undoButton(notice), Qt::LeftButton);
    EXPECT_EQ(readSettingsFileContent(), beforeRestore);
    EXPECT_FALSE(notice->isVisible());
    EXPECT_EQ(control<TextField>(1, 1)->text(), "Hi@");

    keys(QKeySequence::Undo, 5);
    EXPECT_EQ(readSettingsFileContent(), start);
    EXPECT_TRUE(control<Switch>(0, 0)->isOn());

    QTest::keySequence(screen->view(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    EXPECT_EQ(stored("BADGE_TEXT_FIELD_TEXT"), "Hi@");
    keys(QKeySequence::Redo, 5);
    EXPECT_FALSE(readSettingsFileContent());
    EXPECT_EQ(text(1, 7), "Alpha: 100%");

    // A later change ends the notice's offer: its button would take back the wrong step.
    screen->table()->selectRowAtIndexPath({2, 0});
    QTest::mouseClick(control<Switch>(0, 0), Qt::LeftButton);
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(History, WithoutTheRendererThePreviewSaysSoUntilRespringBringsItBack) {
    EXPECT_FALSE(Access::unavailableLabel(screen.get())) << "a starting renderer's grace time";
    ASSERT_TRUE(ZRProgressHUDTestAccess::fire(*Access::absence(screen.get())));
    QLabel* unavailable = Access::unavailableLabel(screen.get());
    ASSERT_TRUE(unavailable && unavailable->isVisible());
    // Left in the build tree for people to look at.
    screen->view()->grab().save("preview-unavailable.png");
    EXPECT_LE(frame(unavailable).bottom(), frame(screen->tableHeaderView()).height());

    screen->respring();
    // The renderer's supervisor brings it back; the page asks it for the preview it waits for.
    test::RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !screen->finalBadgeImage().isNull(); }, 5000));
    EXPECT_FALSE(unavailable->isVisible());
}

} // namespace pomwick
