#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QProcess>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>

using namespace pomwick;
using pomwick::test::SettingsRoot;

namespace {

class ConcurrentWriter : public testing::Test {
protected:
    std::unique_ptr<QProcess> startWriter(int count, const QString& keyPrefix = {}) const {
        auto writer = std::make_unique<QProcess>();
        QStringList arguments{QString::fromStdString(root.path().string()), QString::number(count)};
        if (!keyPrefix.isEmpty())
            arguments << keyPrefix;
        writer->start(SETTINGS_WRITER, arguments);
        EXPECT_TRUE(writer->waitForStarted(5000));
        return writer;
    }
    SettingsRoot root;
};

// The file is either of the two texts the writer stores, complete, and parses as a dictionary.
void expectWholeFile() {
    const auto dictionary = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
    ASSERT_TRUE(dictionary);
    const auto text = dictionary->lookup(SettingsKey::badgeTextFieldText);
    ASSERT_TRUE(text);
    ASSERT_TRUE(text->text == "short" || text->text == std::string(3000, 'L'));
}

} // namespace

TEST_F(ConcurrentWriter, AReaderNeverSeesAHalfWrittenFile) {
    setPreferencesObjectKey("short", SettingsKey::badgeTextFieldText);
    const auto writer = startWriter(10000);
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

TEST_F(ConcurrentWriter, TwoWritersAtOnceNeverLoseEachOthersKeys) {
    constexpr int keysEach = 150;
    const auto first = startWriter(keysEach, "FIRST_");
    const auto second = startWriter(keysEach, "SECOND_");
    ASSERT_TRUE(first->waitForFinished(60000) && second->waitForFinished(60000));
    const auto dictionary = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
    ASSERT_TRUE(dictionary);
    int lost = 0;
    for (int i = 0; i < keysEach; ++i)
        for (const char* prefix : {"FIRST_", "SECOND_"})
            lost += dictionary->lookup(prefix + std::to_string(i)) ? 0 : 1;
    EXPECT_EQ(lost, 0);
}

// A process looks for them on its first write, and later only when a writer finds one in the
// place of its own temporary.
TEST_F(ConcurrentWriter, TemporariesOfKilledWritersAreRemovedAtTheNextWrite) {
    const std::string folder = "/var/mobile/Library/Preferences/";
    const std::string stale = folder + ".com.velquor.pomwickpreferences.plist.";
    root.writeFile(stale + "Ab3xY9", "left by a killed writer");
    root.writeFile(stale + "kept", "not ours");
    root.writeFile(folder + "other.plist.Ab3xY9", "not ours");
    setPreferencesObjectKey("1", SettingsKey::enabled);
    const std::vector<std::string> cleaned{
        ".com.velquor.pomwickpreferences.plist.kept", ".com.velquor.pomwickpreferences.plist.lock",
        "com.velquor.pomwickpreferences.plist", "other.plist.Ab3xY9"};
    EXPECT_EQ(root.preferencesFiles(), cleaned);
    root.writeFile(stale + "Zq7Wm2", "left by a killed writer of another process");
    root.writeFile(stale + "change", "left by a killed writer of this process");
    setPreferencesObjectKey("0", SettingsKey::enabled);
    EXPECT_EQ(root.preferencesFiles(), cleaned);
    EXPECT_FALSE(getEnabled());
}

TEST_F(ConcurrentWriter, AWriterThatHangsHoldingTheLockDelaysOthersButNeverHangsThem) {
    setPreferencesObjectKey("1", SettingsKey::enabled);
    // flock locks belong to an open file: this one conflicts with the setter's own.
    const auto lockFile =
        root.at("/var/mobile/Library/Preferences/.com.velquor.pomwickpreferences.plist.lock");
    const int held = ::open(lockFile.c_str(), O_RDWR);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    const auto failure = trySetPreferencesObjectKey("0", SettingsKey::enabled);
    ::close(held);
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->find("held by another writer"), std::string::npos) << *failure;
    EXPECT_TRUE(getEnabled());
    EXPECT_FALSE(trySetPreferencesObjectKey("0", SettingsKey::enabled));
    EXPECT_FALSE(getEnabled());
}
