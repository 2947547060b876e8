// The programs under the bus faults a desktop session meets: a renderer that hangs while the bus
// starts it, and a bus that goes away under a renderer it started.
#include "ProgramRun.h"
#include "TemporaryDeviceRoot.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// A session bus of the test's own, configured like a desktop's, with a service folder and a
// start timeout long enough that nothing may wait for it.
class OwnBus {
public:
    explicit OwnBus(const QString& serviceExec) {
        QDir(folder_.path()).mkdir(QStringLiteral("services"));
        writeFile(QStringLiteral("services/com.velquor.pomwick.service"),
                  QStringLiteral("[D-BUS Service]\nName=com.velquor.pomwick\nExec=%1\n")
                      .arg(serviceExec));
        writeFile(QStringLiteral("bus.conf"),
                  QStringLiteral("<busconfig><type>session</type><listen>unix:tmpdir=%1</listen>"
                                 "<servicedir>%1/services</servicedir>"
                                 "<limit name=\"service_start_timeout\">120000</limit>"
                                 "<policy context=\"default\"><allow send_destination=\"*\"/>"
                                 "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy>"
                                 "</busconfig>")
                      .arg(folder_.path()));
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--config-file=") + path(QStringLiteral("bus.conf")),
                       QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        EXPECT_TRUE(daemon_.waitForReadyRead(10000));
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }
    ~OwnBus() {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    QString path(const QString& name) const { return folder_.path() + QLatin1Char('/') + name; }
    QProcessEnvironment environment() const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address_);
        return environment;
    }
    // Asked from a process of its own: this one stays off the bus that is about to go.
    bool serves(const QString& name) const {
        QProcess ask;
        ask.setProcessEnvironment(environment());
        ask.start(QStringLiteral("dbus-send"),
                  {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                   QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/"),
                   QStringLiteral("org.freedesktop.DBus.NameHasOwner"),
                   QStringLiteral("string:") + name});
        ask.waitForFinished();
        return ask.readAllStandardOutput().contains("boolean true");
    }
    QProcess& daemon() { return daemon_; }

private:
    void writeFile(const QString& name, const QString& text) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QTemporaryDir folder_;
    QProcess daemon_;
    QString address_;
};

} // namespace

TEST(BusFaults, TheWindowAppearsWhileTheRendererItAskedForHangsInItsStart) {
    pomwick::test::TemporaryDeviceRoot root;
    QTemporaryDir folder;
    const QString pidFile = folder.filePath(QStringLiteral("hanging.pid"));
    OwnBus bus(QStringLiteral("/bin/sh -c 'echo $$ >%1; exec sleep 600'").arg(pidFile));

    // Within a quarter of the bus's start timeout: a host that waited for the start would still
    // wait.
    const pomwick::test::ProgramRun host = pomwick::test::runProgram(
        QStringLiteral(HOST),
        {QStringLiteral("--root"), QString::fromStdString(root.path().string()),
         QStringLiteral("--smoke-test")},
        bus.environment());
    EXPECT_EQ(host.status, 0) << host.err;
    EXPECT_NE(host.out.find("smoke test passed"), std::string::npos);

    QFile pid(pidFile);
    ASSERT_TRUE(pid.open(QIODevice::ReadOnly)) << "the bus never started the hanging renderer";
    QProcess::execute(QStringLiteral("kill"), {QString::fromUtf8(pid.readAll()).trimmed()});
}

TEST(BusFaults, ARendererEndsWhenItsBusIsGone) {
    pomwick::test::TemporaryDeviceRoot root;
    OwnBus bus(QStringLiteral("/bin/false"));
    QProcess renderer;
    renderer.setProcessEnvironment(bus.environment());
    renderer.start(QStringLiteral(RENDERER),
                   {QStringLiteral("--root"), QString::fromStdString(root.path().string())});
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return bus.serves(QStringLiteral("com.velquor.pomwick")); }, 30000));

    bus.daemon().kill();
    EXPECT_TRUE(renderer.waitForFinished(30000)) << "the renderer outlived its bus";
    EXPECT_EQ(renderer.exitStatus(), QProcess::NormalExit);
}
