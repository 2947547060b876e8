#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

struct HostRun {
    int status;
    QString out;
    QString err;
};

HostRun runHost(const QStringList& arguments, const QString& bundleSource = {}) {
    QProcess host;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    if (!bundleSource.isEmpty())
        environment.insert("POMWICK_BUNDLE_SOURCE", bundleSource);
    host.setProcessEnvironment(environment);
    host.start(HOST, arguments);
    EXPECT_TRUE(host.waitForFinished(30000));
    return {host.exitStatus() == QProcess::NormalExit ? host.exitCode() : -1,
            QString::fromUtf8(host.readAllStandardOutput()),
            QString::fromUtf8(host.readAllStandardError())};
}

} // namespace

TEST(HostProgram, LoadsTheBundleFromTheDeviceRootAndOpensItsPage) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    const HostRun run = runHost({"--root", QString::fromStdString(root.path()), "--smoke-test"});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("smoke test passed"));
    EXPECT_TRUE(QFile::exists(QString::fromStdString(
        (root.path() / "Library/PreferenceBundles/PomwickPreferences.bundle/PomwickPreferences.so")
            .string())));
}

TEST(HostProgram, ABundleThatCannotLoadIsReportedNotACrash) {
    test::TemporaryDeviceRoot root;
    QTemporaryDir brokenBundle;
    QFile plugin(brokenBundle.filePath("PomwickPreferences.so"));
    ASSERT_TRUE(plugin.open(QIODevice::WriteOnly));
    plugin.write("not a shared library");
    plugin.close();
    const HostRun run = runHost({"--root", QString::fromStdString(root.path()), "--smoke-test"},
                                brokenBundle.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains("the settings bundle could not be loaded"))
        << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("smoke test failed"));

    const HostRun wrong = runHost({"--frobnicate"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_TRUE(wrong.err.contains("unknown argument"));
}
