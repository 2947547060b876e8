#include "PrivateSessionBus.h"
#include "ProgramRun.h"
#include "TemporaryDeviceRoot.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

using namespace pomwick;
using pomwick::test::ProgramRun;
namespace fs = std::filesystem;

namespace {

bool has(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

// The host on a private bus with a fresh device root of its own.
class HostProgram : public testing::Test {
protected:
    void SetUp() override { test::PrivateSessionBus::address(); }

    static ProgramRun run(const QStringList& arguments, const QString& bundleSource = {}) {
        auto environment = QProcessEnvironment::systemEnvironment();
        if (!bundleSource.isEmpty())
            environment.insert("POMWICK_BUNDLE_SOURCE", bundleSource);
        return test::runProgram(HOST, arguments, environment);
    }

    test::TemporaryDeviceRoot root;
    const QString dir = QString::fromStdString(root.path());
};

// A session bus of the test's own, configured like a desktop's, with a service folder and a
// start timeout long enough that nothing may wait for it.
struct OwnBus {
    explicit OwnBus(const QString& serviceExec) {
        QDir(folder.path()).mkdir("services");
        writeFile("services/com.velquor.pomwick.service",
                  QString("[D-BUS Service]\nName=com.velquor.pomwick\nExec=%1\n").arg(serviceExec));
        writeFile("bus.conf",
                  QString("<busconfig><type>session</type><listen>unix:tmpdir=%1</listen>"
                          "<servicedir>%1/services</servicedir>"
                          "<limit name=\"service_start_timeout\">120000</limit>"
                          "<policy context=\"default\"><allow send_destination=\"*\"/>"
                          "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>")
                      .arg(folder.path()));
        daemon.start("dbus-daemon",
                     {"--config-file=" + path("bus.conf"), "--nofork", "--print-address"});
        EXPECT_TRUE(daemon.waitForReadyRead(10000));
        address = QString::fromUtf8(daemon.readLine()).trimmed();
    }
    ~OwnBus() {
        daemon.kill();
        daemon.waitForFinished();
    }

    QString path(const QString& name) const { return folder.path() + '/' + name; }
    QProcessEnvironment environment() const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DBUS_SESSION_BUS_ADDRESS", address);
        return environment;
    }
    // Asked from a process of its own: this one stays off the bus that is about to go.
    bool serves(const QString& name) const {
        QProcess ask;
        ask.setProcessEnvironment(environment());
        ask.start("dbus-send", {"--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                                "org.freedesktop.DBus.NameHasOwner", "string:" + name});
        ask.waitForFinished();
        return ask.readAllStandardOutput().contains("boolean true");
    }
    void writeFile(const QString& name, const QString& text) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QTemporaryDir folder;
    QProcess daemon;
    QString address;
};

} // namespace

TEST_F(HostProgram, RunsTheBuiltBundleAndNeverCodePlantedInTheDeviceRoot) {
    // A file in the device root that looks current to a copy by size and time: it must neither
    // be loaded nor matter.
    const std::string plugin = "/Library/PreferenceBundles/PomwickPreferences.bundle/"
                               "PomwickPreferences.so";
    root.writeFile(plugin, std::string(fs::file_size(BUNDLE_PLUGIN), 'x'));
    fs::last_write_time(root.at(plugin), fs::last_write_time(BUNDLE_PLUGIN));

    const ProgramRun smoke = run({"--root", dir, "--smoke-test"});
    EXPECT_EQ(smoke.status, 0) << smoke.err;
    EXPECT_TRUE(has(smoke.out, "smoke test passed"));
    EXPECT_TRUE(
        fs::exists(root.at("/Library/PreferenceBundles/PomwickPreferences.bundle/Badge.png")));
}

TEST_F(HostProgram, ABundleThatCannotLoadIsReportedNotACrash) {
    root.writeFile("/broken/PomwickPreferences.so", "not a shared library");
    const ProgramRun smoke = run({"--root", dir, "--smoke-test"}, dir + "/broken");
    EXPECT_EQ(smoke.status, 1);
    EXPECT_TRUE(has(smoke.err, "the settings bundle could not be loaded")) << smoke.err;
    EXPECT_TRUE(has(smoke.out, "smoke test failed"));
}

TEST_F(HostProgram, RefusesADeviceRootOtherUsersCanWrite) {
    fs::permissions(root.path(), fs::perms::all);
    const ProgramRun smoke = run({"--root", dir, "--smoke-test"});
    EXPECT_EQ(smoke.status, 1);
    EXPECT_TRUE(has(smoke.err, "can be written by other users")) << smoke.err;
    EXPECT_FALSE(QDir(dir + "/Library").exists());
}

TEST_F(HostProgram, ASecondStartForTheSameRootBringsTheOpenWindowForward) {
    QProcess first;
    first.start(HOST, {"--root", dir});
    // The page serves the screen's center once the window is up.
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return bus->isServiceRegistered("com.velquor.pomwickpreferences").value(); }, 30000));

    const ProgramRun second = run({"--root", dir});
    EXPECT_EQ(second.status, 0) << second.err;
    EXPECT_TRUE(has(second.out, "already open; brought it forward")) << second.out;
    QByteArray firstOutput;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            firstOutput += first.readAllStandardOutput();
            return firstOutput.contains("brought forward by another start");
        },
        30000));

    // Another root gets a window of its own, told why it cannot show a preview.
    test::TemporaryDeviceRoot otherRoot;
    const ProgramRun other =
        run({"--root", QString::fromStdString(otherRoot.path()), "--smoke-test"});
    EXPECT_EQ(other.status, 0);
    EXPECT_TRUE(has(other.err, "a settings window for another device root is open")) << other.err;

    first.terminate();
    EXPECT_TRUE(first.waitForFinished(30000));
}

// The programs under the bus faults a desktop session meets: a renderer that hangs while the bus
// starts it, and a bus that goes away under a renderer it started.
TEST(BusFaults, TheWindowAppearsWhileTheRendererItAskedForHangsInItsStart) {
    test::TemporaryDeviceRoot root;
    QTemporaryDir folder;
    const QString pidFile = folder.filePath("hanging.pid");
    OwnBus bus(QString("/bin/sh -c 'echo $$ >%1; exec sleep 600'").arg(pidFile));

    // Within a quarter of the bus's start timeout: a host that waited for the start would still
    // wait.
    const ProgramRun host = test::runProgram(
        HOST, {"--root", QString::fromStdString(root.path()), "--smoke-test"}, bus.environment());
    EXPECT_EQ(host.status, 0) << host.err;
    EXPECT_TRUE(has(host.out, "smoke test passed"));

    QFile pid(pidFile);
    ASSERT_TRUE(pid.open(QIODevice::ReadOnly)) << "the bus never started the hanging renderer";
    QProcess::execute("kill", {QString::fromUtf8(pid.readAll()).trimmed()});
}

TEST(BusFaults, ARendererEndsWhenItsBusIsGone) {
    test::TemporaryDeviceRoot root;
    OwnBus bus("/bin/false");
    QProcess renderer;
    renderer.setProcessEnvironment(bus.environment());
    renderer.start(RENDERER, {"--root", QString::fromStdString(root.path())});
    ASSERT_TRUE(QTest::qWaitFor([&] { return bus.serves("com.velquor.pomwick"); }, 30000));

    bus.daemon.kill();
    EXPECT_TRUE(renderer.waitForFinished(30000)) << "the renderer outlived its bus";
    EXPECT_EQ(renderer.exitStatus(), QProcess::NormalExit);
}
