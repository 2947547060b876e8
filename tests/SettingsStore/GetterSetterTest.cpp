#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QProcess>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace pomwick;
using pomwick::test::plistXml;
using pomwick::test::SettingsRoot;

namespace {

// Limits the size of files this process may write, so that a write fails even for root.
struct FileSizeLimit {
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &previous); }
    rlimit previous{};
};

} // namespace

// What each getter makes of stored text, as the tool prints it. How numbers are scanned is
// TextScanning's; these rows are the getters' own decisions.
TEST(SettingsGetters, EachKeyParsesItsStoredText) {
    SettingsRoot root;
    const struct {
        const char* key;
        const char* stored;
        const char* expected;
    } cases[] = {
        {"ENABLED", "", "true"}, // empty is missing
        {"BADGE_VISIBLE", "FALSE", "false"},
        {"BADGE_FONT_SIZE", "12.7", "12"},
        {"BADGE_ALPHA", "-0.25", "-0.25"}, // never clamped
        {"BADGE_BORDER_COLOR", "0.25,x,0.75,2,0.9", "0.25,0,0.75,2"},
        {"BADGE_BACKGROUND_COLOR", "0.5,0.5", "1,1,1,1"}, // fewer than four parts: the default
        {"BADGE_LOCATION", "0.250000,0.750000", "0.25,0.75"},
        {"BADGE_LOCATION", "0.5", "0,0"},
        {"BADGE_LOCATION", "0.1,0.2,0.3", "0,0"},
        {"BADGE_FONT", "Qwertyfont", "(none)"}, // a name without a face is no font, not the default
        {"BADGE_FONT", "", "(none)"},
        {"BADGE_TEXT_FIELD_TEXT", "  Alert:@ & \xF0\x9F\x98\x80 ", "  Alert:@ & \xF0\x9F\x98\x80 "},
    };
    for (const auto& [key, stored, expected] : cases) {
        setPreferencesObjectKey(stored, key);
        EXPECT_EQ(printedValue(effectiveValue(*findSetting(key))), expected)
            << key << " = '" << stored << "'";
    }
    // The font is looked up at the stored size.
    setPreferencesObjectKey("22", SettingsKey::badgeFontSize);
    setPreferencesObjectKey("DejaVuSans-Bold", SettingsKey::badgeFont);
    EXPECT_EQ(printedValue(effectiveValue(*findSetting("BADGE_FONT"))), "DejaVuSans-Bold 22");
}

// Another program's keys and kinds survive a write; numbers read and write alike in a locale
// whose decimal separator is a comma.
TEST(SettingsSetter, KeepsEveryOtherKeyAsItWasUnderACommaDecimalLocale) {
    SettingsRoot root;
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "install locales-all";
    root.writeSettings(plistXml("<dict><key>BADGE_ALPHA</key><real>0.5</real>"
                                "<key>BADGE_FONT_SIZE</key><real>20.75</real>"
                                "<key>Other</key><array><integer>7</integer></array>"
                                "<key>Count</key><integer>-3</integer></dict>"));
    EXPECT_EQ(getBadgeAlpha(), 0.5f);
    EXPECT_EQ(getBadgeFontSize(), 20);
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    EXPECT_FALSE(getBadgeVisible());
    const std::string bytes = root.settingsBytes();
    for (const char* kept :
         {"<real>0.5", "<key>Other</key>", "<integer>7</integer>", "<integer>-3</integer>"})
        EXPECT_NE(bytes.find(kept), std::string::npos) << kept;
    std::setlocale(LC_ALL, "C.UTF-8");
}

TEST(SettingsSetter, ReplacesAnUnreadableFileAndAFailedWriteKeepsItWholeAndNoTemporary) {
    SettingsRoot root;
    root.writeSettings("\x01\x02 not a property list");
    setPreferencesObjectKey("0", SettingsKey::enabled);
    EXPECT_FALSE(getEnabled());
    const std::string before = root.settingsBytes();
    EXPECT_EQ(before.find("not a property list"), std::string::npos);
    {
        const FileSizeLimit limit(before.size() + 16);
        const auto failure =
            trySetPreferencesObjectKey(std::string(4096, 'x'), SettingsKey::badgeTextFieldText);
        ASSERT_TRUE(failure);
    }
    EXPECT_EQ(root.settingsBytes(), before);
    EXPECT_EQ(root.preferencesFiles(),
              (std::vector<std::string>{".com.velquor.pomwickpreferences.plist.lock",
                                        "com.velquor.pomwickpreferences.plist"}));
}

TEST(ConcurrentWriter, TwoWritersAtOnceNeverLoseEachOthersKeys) {
    SettingsRoot root;
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
TEST(ConcurrentWriter, TemporariesOfKilledWritersAreRemovedAtTheNextWrite) {
    SettingsRoot root;
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

TEST(ConcurrentWriter, AWriterThatHangsHoldingTheLockDelaysOthersButNeverHangsThem) {
    SettingsRoot root;
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
