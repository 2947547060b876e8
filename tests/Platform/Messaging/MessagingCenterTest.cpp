#include "MessagingCenter.h"

#include "MessageNames.h"
#include "PrivateSessionBus.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

// Messages come from independent D-Bus clients in other processes, so that ordering and one-way
// delivery are what the bus does, not QtDBus's same-process shortcut.
class MessagingCenterTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        test::PrivateSessionBus::address();
        ASSERT_TRUE(
            MessagingCenter::centerNamed(CenterName::preferences).runServerOnCurrentThread());
    }

    static MessagingCenter& screen() {
        return MessagingCenter::centerNamed(CenterName::preferences);
    }

    static void dbusSend(const QString& member) {
        QProcess client;
        client.start("dbus-send",
                     {"--session", "--type=method_call", "--dest=" + CenterName::preferences,
                      "/com/velquor/pomwickpreferences",
                      "com.velquor.pomwickpreferences." + member});
        ASSERT_TRUE(client.waitForFinished(5000));
        ASSERT_EQ(client.exitCode(), 0) << client.readAllStandardError().toStdString();
    }

    // Keeps this process's event loop running meanwhile: the client may be calling us.
    static QString run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        (void)QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 5000);
        return QString::fromUtf8(process.readAllStandardOutput());
    }
};

} // namespace

TEST_F(MessagingCenterTest, DeliversMessagesFromOtherProcessesOnTheMainThread) {
    QObject target;
    QStringList received;
    bool onMainThread = false;
    for (const QString& name : {MessageName::badgeSavedToTmp, MessageName::reloadData}) {
        screen().registerForMessageName(name, &target, [&](const QString& message) {
            received << message;
            onMainThread = QThread::currentThread() == QCoreApplication::instance()->thread();
        });
    }
    EXPECT_TRUE(screen().doesServerExist());
    // Separate senders are separate connections, with no order between them: one at a time.
    dbusSend("reloadData");
    ASSERT_TRUE(QTest::qWaitFor([&] { return received.size() == 1; }, 5000));
    dbusSend("unknownMessage");
    dbusSend("badgeSavedToTmp");
    ASSERT_TRUE(QTest::qWaitFor([&] { return received.size() == 2; }, 5000));
    EXPECT_EQ(received, (QStringList{"reloadData", "badgeSavedToTmp"}));
    EXPECT_TRUE(onMainThread);
}

TEST_F(MessagingCenterTest, SkipsDestroyedTargetsAndKeepsOnlyTheLatestRegistration) {
    int first = 0, second = 0, gone = 0;
    auto doomed = std::make_unique<QObject>();
    QObject survivor;
    screen().registerForMessageName(MessageName::badgeSavedToTmp, doomed.get(),
                                    [&](const QString&) { ++gone; });
    doomed.reset();
    dbusSend("badgeSavedToTmp");
    screen().registerForMessageName(MessageName::reloadData, &survivor,
                                    [&](const QString&) { ++first; });
    screen().registerForMessageName(MessageName::reloadData, &survivor,
                                    [&](const QString&) { ++second; });
    dbusSend("reloadData");
    ASSERT_TRUE(QTest::qWaitFor([&] { return second == 1; }, 5000));
    EXPECT_EQ(first, 0);
    EXPECT_EQ(gone, 0);
}

TEST_F(MessagingCenterTest, SendsOneWayCallsThatAnIndependentMonitorSees) {
    QProcess monitor;
    monitor.start("dbus-monitor", {"--session", "interface='com.velquor.pomwick'"});
    ASSERT_TRUE(monitor.waitForStarted(5000));
    // The monitor announces itself (NameAcquired) once it is listening.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return monitor.bytesAvailable() > 0 || monitor.waitForReadyRead(50); }, 5000));

    // Nobody serves the renderer's centre: sending neither blocks nor fails loudly.
    const MessagingCenter& renderer = MessagingCenter::centerNamed(CenterName::renderer);
    EXPECT_FALSE(renderer.doesServerExist());
    for (int i = 0; i < 3; ++i)
        renderer.sendMessageName(MessageName::saveBadgeImages);

    QByteArray seen;
    (void)QTest::qWaitFor(
        [&] {
            seen += monitor.readAll();
            return seen.count("member=saveBadgeImages") >= 3;
        },
        5000);
    monitor.kill();
    monitor.waitForFinished();
    EXPECT_EQ(seen.count("member=saveBadgeImages"), 3) << seen.toStdString();
    EXPECT_TRUE(seen.contains("method call"));
    EXPECT_TRUE(seen.contains("path=/com/velquor/pomwick; interface=com.velquor.pomwick"));
}

TEST_F(MessagingCenterTest, AnswersIntrospectionWithTheDeclaredOneWayInterface) {
    const QString xml = run("gdbus", {"introspect", "--session", "--dest", CenterName::preferences,
                                      "--object-path", "/com/velquor/pomwickpreferences"});
    EXPECT_TRUE(xml.contains("interface com.velquor.pomwickpreferences")) << xml.toStdString();
    EXPECT_TRUE(xml.contains("badgeSavedToTmp();"));
    EXPECT_TRUE(xml.contains("reloadData();"));
    EXPECT_TRUE(xml.contains("org.freedesktop.DBus.Method.NoReply(\"true\")"));
}
