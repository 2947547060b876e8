#include "PrivateSessionBus.h"
#include "ProgramRun.h"
#include "TemporaryDeviceRoot.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QProcess>
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
