#include "PrivateSessionBus.h"
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

namespace {

struct HostRun {
    int status;
    QString out;
    QString err;
};

QProcessEnvironment hostEnvironment(const QString& bundleSource = {}) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    if (!bundleSource.isEmpty())
        environment.insert("POMWICK_BUNDLE_SOURCE", bundleSource);
    return environment;
}

HostRun runHost(const QStringList& arguments, const QString& bundleSource = {}) {
    QProcess host;
    host.setProcessEnvironment(hostEnvironment(bundleSource));
    host.start(HOST, arguments);
    EXPECT_TRUE(host.waitForFinished(30000));
    return {host.exitStatus() == QProcess::NormalExit ? host.exitCode() : -1,
            QString::fromUtf8(host.readAllStandardOutput()),
            QString::fromUtf8(host.readAllStandardError())};
}

QString rootArgument(const test::TemporaryDeviceRoot& root) {
    return QString::fromStdString(root.path().string());
}

} // namespace

TEST(HostProgram, RunsTheBuiltBundleAndNeverCodePlantedInTheDeviceRoot) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    // A file in the device root that looks current to a copy by size and time: it must neither
    // be loaded nor matter.
    namespace fs = std::filesystem;
    const fs::path planted =
        root.at("/Library/PreferenceBundles/PomwickPreferences.bundle/PomwickPreferences.so");
    root.writeFile("/Library/PreferenceBundles/PomwickPreferences.bundle/PomwickPreferences.so",
                   std::string(fs::file_size(BUNDLE_PLUGIN), 'x'));
    fs::last_write_time(planted, fs::last_write_time(BUNDLE_PLUGIN));

    const HostRun run = runHost({"--root", rootArgument(root), "--smoke-test"});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("smoke test passed"));
    EXPECT_TRUE(
        fs::exists(root.at("/Library/PreferenceBundles/PomwickPreferences.bundle/Badge.png")));
}

TEST(HostProgram, ABundleThatCannotLoadIsReportedNotACrash) {
    test::TemporaryDeviceRoot root;
    QTemporaryDir brokenBundle;
    QFile plugin(brokenBundle.filePath("PomwickPreferences.so"));
    ASSERT_TRUE(plugin.open(QIODevice::WriteOnly));
    plugin.write("not a shared library");
    plugin.close();
    const HostRun run =
        runHost({"--root", rootArgument(root), "--smoke-test"}, brokenBundle.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains("the settings bundle could not be loaded"))
        << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("smoke test failed"));

    const HostRun wrong = runHost({"--frobnicate"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_TRUE(wrong.err.contains("unknown argument"));
}

TEST(HostProgram, RefusesADeviceRootOtherUsersCanWrite) {
    test::TemporaryDeviceRoot root;
    QFile::setPermissions(rootArgument(root), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                  QFileDevice::ExeOwner | QFileDevice::WriteOther |
                                                  QFileDevice::ReadOther | QFileDevice::ExeOther);
    const HostRun run = runHost({"--root", rootArgument(root), "--smoke-test"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains("can be written by other users")) << run.err.toStdString();
    EXPECT_FALSE(QDir(rootArgument(root) + "/Library").exists());
}

TEST(HostProgram, ASecondStartForTheSameRootBringsTheOpenWindowForward) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    QProcess first;
    first.setProcessEnvironment(hostEnvironment());
    first.start(HOST, {"--root", rootArgument(root)});
    // The page serves the screen's center once the window is up.
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return bus->isServiceRegistered("com.velquor.pomwickpreferences").value(); }, 30000));

    const HostRun second = runHost({"--root", rootArgument(root)});
    EXPECT_EQ(second.status, 0) << second.err.toStdString();
    EXPECT_TRUE(second.out.contains("already open; brought it forward"))
        << second.out.toStdString();
    QByteArray firstOutput;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            firstOutput += first.readAllStandardOutput();
            return firstOutput.contains("brought forward by another start");
        },
        30000));

    // Another root gets a window of its own, told why it cannot show a preview.
    test::TemporaryDeviceRoot otherRoot;
    const HostRun other = runHost({"--root", rootArgument(otherRoot), "--smoke-test"});
    EXPECT_EQ(other.status, 0);
    EXPECT_TRUE(other.err.contains("a settings window for another device root is open"))
        << other.err.toStdString();

    first.terminate();
    EXPECT_TRUE(first.waitForFinished(30000));
}
