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
MessagingCenter& screen() {
    return MessagingCenter::centerNamed(CenterName::preferences);
}

// Calls a method of the screen's center (a member of its interface, or a full name) and returns
// what the client printed. Keeps this process's event loop running meanwhile: when the client
// awaits the reply, this process gives it.
QString send(const QString& method, const QStringList& arguments = {}, bool awaitReply = false) {
    QProcess client;
    client.setProcessChannelMode(QProcess::MergedChannels);
    client.start(
        "dbus-send",
        QStringList{"--session", awaitReply ? "--print-reply" : "--type=method_call",
                    "--dest=" + CenterName::preferences, "/com/velquor/pomwickpreferences",
                    method.contains('.') ? method : "com.velquor.pomwickpreferences." + method} +
            arguments);
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.state() == QProcess::NotRunning; }, 15000));
    return QString::fromUtf8(client.readAll());
}

} // namespace

TEST(MessagingCenterTest, DeliversToTheLatestLiveTargetInOrderAnswersAndRefusesArguments) {
    test::PrivateSessionBus::address();
    ASSERT_TRUE(screen().runServerOnCurrentThread());
    QStringList received;
    bool onMainThread = false;
    auto doomed = std::make_unique<QObject>();
    screen().registerForMessageName(MessageName::badgeSavedToTmp, doomed.get(),
                                    [&](const QString&) { received << "to a destroyed target"; });
    doomed.reset();
    // Answered, as every declared message is, but handed to nobody.
    EXPECT_TRUE(send("badgeSavedToTmp", {}, true).contains("method return"));

    QObject target;
    screen().registerForMessageName(MessageName::reloadData, &target,
                                    [&](const QString&) { received << "replaced"; });
    for (const QString& name : {MessageName::badgeSavedToTmp, MessageName::reloadData})
        screen().registerForMessageName(name, &target, [&](const QString& message) {
            received << message;
            onMainThread = QThread::currentThread() == QCoreApplication::instance()->thread();
        });
    // Separate senders are separate connections, with no order between them: one at a time.
    send("reloadData");
    ASSERT_TRUE(QTest::qWaitFor([&] { return received.size() == 1; }, 5000));
    send("badgeSavedToTmp");
    ASSERT_TRUE(QTest::qWaitFor([&] { return received.size() == 2; }, 5000));
    EXPECT_EQ(received, (QStringList{"reloadData", "badgeSavedToTmp"}));
    EXPECT_TRUE(onMainThread);

    // Calls awaiting a reply are answered at once; calls with arguments are refused.
    int delivered = 0;
    screen().registerForMessageName(MessageName::reloadData, &target,
                                    [&](const QString&) { ++delivered; });
    EXPECT_TRUE(send("reloadData", {}, true).contains("method return"));
    EXPECT_EQ(delivered, 1);
    EXPECT_TRUE(send("unknownMessage", {}, true).contains("DBus.Error.UnknownMethod"));
    EXPECT_TRUE(send("reloadData", {"string:x"}, true).contains("DBus.Error.UnknownMethod"));
    // The renderer's message is not the screen's to answer.
    EXPECT_TRUE(send("saveBadgeImages", {}, true).contains("DBus.Error.UnknownMethod"));
    // One way, with arguments: dropped without an answer; the call after it still arrives.
    send("reloadData", {"string:x"});
    EXPECT_TRUE(send("reloadData", {}, true).contains("method return"));
    EXPECT_EQ(delivered, 2);

    // Tools that list the interface see one-way methods, and only this center's.
    const QString xml = send("org.freedesktop.DBus.Introspectable.Introspect", {}, true);
    EXPECT_TRUE(xml.contains("<interface name=\"com.velquor.pomwickpreferences\">"))
        << xml.toStdString();
    EXPECT_EQ(xml.count("<interface name=\"com.velquor."), 1);
    EXPECT_TRUE(xml.contains("<method name=\"badgeSavedToTmp\">"));
    EXPECT_EQ(xml.count("\"org.freedesktop.DBus.Method.NoReply\""), 2);
}
