#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QProcess>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

using namespace pomwick;
using pomwick::test::SettingsRoot;

namespace {

class ConcurrentWriter : public testing::Test {
protected:
    SettingsRoot root;
};

} // namespace

TEST_F(ConcurrentWriter, TwoWritersAtOnceNeverLoseEachOthersKeys) {
    constexpr int keysEach = 150;
    const char* prefixes[] = {"FIRST_", "SECOND_"};
    QProcess writers[2];
    for (int w = 0; w < 2; ++w)
        writers[w].start(SETTINGS_WRITER, {QString::fromStdString(root.path().string()),
                                           QString::number(keysEach), prefixes[w]});
    ASSERT_TRUE(writers[0].waitForFinished(60000) && writers[1].waitForFinished(60000));
    const auto dictionary = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
    ASSERT_TRUE(dictionary);
    int lost = 0;
    for (int i = 0; i < keysEach; ++i)
        for (const char* prefix : prefixes)
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
