#include "Settings.h"
#include "SettingsFile.h"

#include <clocale>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

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
