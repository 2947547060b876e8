#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QProcess>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <thread>

using namespace pomwick;
using pomwick::test::SettingsRoot;

namespace {

QProcess* startWriter(const SettingsRoot& root, int count) {
    auto* writer = new QProcess;
    writer->start(SETTINGS_WRITER,
                  {QString::fromStdString(root.path().string()), QString::number(count)});
    EXPECT_TRUE(writer->waitForStarted(5000));
    return writer;
}

// The file is either of the two texts the writer stores, complete, and parses as a dictionary.
void expectWholeFile() {
    const auto dictionary = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
    ASSERT_TRUE(dictionary);
    const auto text = dictionary->lookup(SettingsKey::badgeTextFieldText);
    ASSERT_TRUE(text);
    ASSERT_TRUE(text->text == "short" || text->text == std::string(3000, 'L'));
}

} // namespace

TEST(ConcurrentWriter, AReaderNeverSeesAHalfWrittenFile) {
    SettingsRoot root;
    setPreferencesObjectKey("short", SettingsKey::badgeTextFieldText);
    std::unique_ptr<QProcess> writer(startWriter(root, 10000));
    int reads = 0;
    while (writer->state() != QProcess::NotRunning) {
        expectWholeFile();
        if (HasFatalFailure())
            break;
        ++reads;
        writer->waitForFinished(0);
    }
    writer->waitForFinished(60000);
    EXPECT_EQ(writer->exitCode(), 0);
    EXPECT_GT(reads, 10);
    expectWholeFile();
}

TEST(ConcurrentWriter, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewFile) {
    SettingsRoot root;
    setPreferencesObjectKey("short", SettingsKey::badgeTextFieldText);
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> delayMicroseconds(0, 20000);
    for (int round = 0; round < 25; ++round) {
        std::unique_ptr<QProcess> writer(startWriter(root, 0));
        std::this_thread::sleep_for(std::chrono::microseconds(delayMicroseconds(generator)));
        ::kill(static_cast<pid_t>(writer->processId()), SIGKILL);
        writer->waitForFinished(5000);
        expectWholeFile();
        if (HasFatalFailure())
            return;
    }
    // Killed writers may leave their temporaries; the settings file itself is always whole, and
    // the next write replaces it as usual.
    setPreferencesObjectKey("short", SettingsKey::badgeTextFieldText);
    EXPECT_EQ(getBadgeTextFieldText(), "short");
}
