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

    static void dbusSend(const QString& member, const QStringList& arguments = {}) {
        QProcess client;
        client.start("dbus-send", QStringList{"--session", "--type=method_call",
                                              "--dest=" + CenterName::preferences,
                                              "/com/velquor/pomwickpreferences",
                                              "com.velquor.pomwickpreferences." + member} +
                                      arguments);
        ASSERT_TRUE(client.waitForFinished(5000));
        ASSERT_EQ(client.exitCode(), 0) << client.readAllStandardError().toStdString();
    }

    // Keeps this process's event loop running meanwhile: the client may be calling us. Returns
    // what it printed on both channels.
    static QString run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        (void)QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 15000);
        return QString::fromUtf8(process.readAll());
    }

    // gdbus always awaits the reply; a call left unanswered would end in its own timeout.
    static QString gdbusCall(const QString& member, const QStringList& arguments = {}) {
        return run("gdbus", QStringList{"call", "--session", "--timeout", "10", "--dest",
                                        CenterName::preferences, "--object-path",
                                        "/com/velquor/pomwickpreferences", "--method",
                                        "com.velquor.pomwickpreferences." + member} +
                                arguments);
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

    // Nobody serves the renderer's center: sending neither blocks nor fails loudly.
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

TEST_F(MessagingCenterTest, AnswersCallsAwaitingAReplyAtOnceAndRefusesArguments) {
    QObject target;
    int delivered = 0;
    screen().registerForMessageName(MessageName::reloadData, &target,
                                    [&](const QString&) { ++delivered; });
    struct Call {
        const char* member;
        QStringList arguments;
        const char* answer;
        int deliveries;
    };
    const Call calls[] = {
        {"reloadData", {}, "()", 1},
        {"unknownMessage", {}, "org.freedesktop.DBus.Error.UnknownMethod", 0},
        {"reloadData", {"'x'"}, "org.freedesktop.DBus.Error.InvalidArgs", 0},
        {"reloadData", {"1", "2"}, "org.freedesktop.DBus.Error.InvalidArgs", 0},
    };
    for (const Call& call : calls) {
        delivered = 0;
        const QString answer = gdbusCall(call.member, call.arguments);
        EXPECT_TRUE(answer.contains(call.answer)) << call.member << ": " << answer.toStdString();
        EXPECT_EQ(delivered, call.deliveries) << call.member;
    }

    // One way, with arguments: dropped without an answer; the call after it still arrives.
    delivered = 0;
    dbusSend("reloadData", {"string:x"});
    EXPECT_TRUE(gdbusCall("reloadData").contains("()"));
    EXPECT_EQ(delivered, 1);
}
