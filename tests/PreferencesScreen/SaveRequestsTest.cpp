#include "PreferencesScreenTestAccess.h"
#include "ScreenFixture.h"
#include "Slider.h"
#include "Switch.h"
#include "ViewGeometry.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

using namespace pomwick;

namespace {

using Access = PreferencesScreenTestAccess;

// Counts, with dbus-monitor (not our code), the requests for a fresh preview on the bus.
class SaveRequests : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        monitor.start("dbus-monitor", {"--session", "interface='com.velquor.pomwick'"});
        ASSERT_TRUE(monitor.waitForStarted(5000));
        ASSERT_TRUE(QTest::qWaitFor([&] { return monitor.waitForReadyRead(50); }, 5000));
        seen = monitor.readAll();
    }
    void TearDown() override {
        monitor.kill();
        monitor.waitForFinished();
        ScreenFixture::TearDown();
    }
    // Waits until the monitor has seen `expected` requests in all, or a little longer.
    qsizetype requests(qsizetype expected) {
        (void)QTest::qWaitFor(
            [&] {
                seen += monitor.readAll();
                return seen.count("member=saveBadgeImages") >= expected;
            },
            3000);
        QTest::qWait(150);
        seen += monitor.readAll();
        return seen.count("member=saveBadgeImages");
    }

    // Runs a client to its end while this process keeps serving the screen's center.
    static QString run(const QString& program, const QStringList& arguments) {
        QProcess client;
        client.setProcessChannelMode(QProcess::MergedChannels);
        client.start(program, arguments);
        (void)QTest::qWaitFor([&] { return client.state() == QProcess::NotRunning; }, 60000);
        return QString::fromUtf8(client.readAll());
    }

    QProcess monitor;
    QByteArray seen;
};

} // namespace

TEST_F(SaveRequests, OnePerSectionPerReloadOneMorePerRebuildOnePerReleaseAndOneRefreshPerBurst) {
    open();
    EXPECT_EQ(requests(4), 4);
    screen->reloadTableData();
    EXPECT_EQ(requests(9), 9);

    screen->view()->show();
    Slider* alphaSlider = control<Slider>(1, 7);
    QTest::mousePress(alphaSlider, Qt::LeftButton, {}, QPoint(10, 15));
    for (int x = 20; x < alphaSlider->width(); x += 20)
        QTest::mouseMove(alphaSlider, QPoint(x, 15));
    EXPECT_EQ(requests(10), 9);
    QTest::mouseRelease(alphaSlider, Qt::LeftButton, {}, QPoint(alphaSlider->width() - 5, 15));
    EXPECT_EQ(requests(10), 10);

    Slider* border = control<Slider>(1, 6);
    QTest::mousePress(border, Qt::LeftButton, {}, QPoint(10, 15));
    QTest::mouseMove(border, QPoint(60, 15));
    QTest::mouseRelease(border, Qt::LeftButton, {}, QPoint(60, 400));
    EXPECT_EQ(requests(11), 11);

    // The switch rebuilds once: four for the sections and one of its own.
    QTest::mouseClick(control<Switch>(0, 0), Qt::LeftButton);
    EXPECT_EQ(requests(17), 16);

    // Each refresh ("reloadData") rebuilds and re-lays the table out: four requests, and one more
    // after it. A burst of them costs one refresh per turn, not one each.
    const QStringList center = {"--dest",        "com.velquor.pomwickpreferences",
                                "--object-path", "/com/velquor/pomwickpreferences",
                                "--method",      "com.velquor.pomwickpreferences.reloadData"};
    EXPECT_EQ(run("gdbus", QStringList{"call", "--session"} + center), "()\n");
    EXPECT_EQ(requests(21), 21);
    EXPECT_EQ(frame(screen->table()), bounds(screen->view()));
    const int bursts = 2000;
    run(MESSAGE_FLOOD, {"com.velquor.pomwickpreferences", QString::number(bursts), "reloadData",
                        "badgeSavedToTmp"});
    // Answered after every message of the flood has been handled.
    EXPECT_EQ(run("gdbus", QStringList{"call", "--session"} + center), "()\n");
    const qsizetype refreshes = (requests(26) - 21) / 5;
    EXPECT_GE(refreshes, 1);
    EXPECT_LT(refreshes, bursts / 10);
}

// Another program's change shows at once for one request and is one step; undoing it, one more.
TEST_F(SaveRequests, AnotherProgramsChangeShowsForOneRequestAndIsOneStep) {
    open();
    EXPECT_EQ(requests(4), 4);
    QElapsedTimer sinceWrite;
    sinceWrite.start();
    run(DEFAULTS_TOOL,
        {"--root", QString::fromStdString(root.path().string()), "write", "BADGE_ALPHA", "0.5"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return text(1, 7) == "Alpha: 50%"; }, 5000));
    RecordProperty("shownAfterMillisecondsToolStartIncluded", int(sinceWrite.elapsed()));
    EXPECT_EQ(requests(5), 5);
    Access::undo(screen.get());
    EXPECT_EQ(requests(6), 6);
    EXPECT_EQ(Access::undoStack(screen.get())->count(), 1) << "its own write is no other program's";
}
