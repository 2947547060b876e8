#include "DevicePaths.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <csignal>
#include <filesystem>
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

TEST(SettingsSetter, KeepsEveryOtherKeyIncludingValuesOfOtherKinds) {
    SettingsRoot root;
    root.writeSettings(plistXml("<dict><key>BADGE_ALPHA</key><string>0.5</string>"
                                "<key>Other</key><array><integer>7</integer></array>"
                                "<key>Count</key><integer>-3</integer></dict>"));
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    setPreferencesObjectKey("0.250000", SettingsKey::badgeAlpha);
    EXPECT_FALSE(getBadgeVisible());
    EXPECT_EQ(getBadgeAlpha(), 0.25f);
    const std::string bytes = root.settingsBytes();
    EXPECT_NE(bytes.find("<key>Other</key>"), std::string::npos);
    EXPECT_NE(bytes.find("<integer>7</integer>"), std::string::npos);
    EXPECT_NE(bytes.find("<integer>-3</integer>"), std::string::npos);
}

TEST(SettingsSetter, ReplacesAnUnreadableFileWithOneHoldingOnlyTheKey) {
    SettingsRoot root;
    root.writeSettings("\x01\x02 not a property list");
    setPreferencesObjectKey("Hi", SettingsKey::badgeTextFieldText);
    EXPECT_EQ(getBadgeTextFieldText(), "Hi");
    EXPECT_EQ(root.settingsBytes().find("not a property list"), std::string::npos);
}

TEST(SettingsSetter, CreatesTheFileAndItsFoldersAndAFailedWriteKeepsItWholeAndNoTemporary) {
    SettingsRoot root;
    setPreferencesObjectKey("0", SettingsKey::enabled);
    EXPECT_FALSE(getEnabled());
    const std::string before = root.settingsBytes();
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

TEST(SettingsSetter, RoundTripsNumbersUnderACommaDecimalLocale) {
    SettingsRoot root;
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "install locales-all";
    root.writeSettings(plistXml("<dict><key>BADGE_ALPHA</key><real>0.5</real>"
                                "<key>BADGE_FONT_SIZE</key><real>20.75</real></dict>"));
    EXPECT_EQ(getBadgeAlpha(), 0.5f);
    setPreferencesObjectKey("TRUE", SettingsKey::badgeVisible);
    EXPECT_NE(root.settingsBytes().find("<real>0.5"), std::string::npos);
    EXPECT_EQ(getBadgeFontSize(), 20);
    std::setlocale(LC_ALL, "C.UTF-8");
}

TEST(SettingsSetter, ReadsABinaryPropertyListWrittenByAnotherProgram) {
    SettingsRoot root;
    root.writeSettings(plistXml("<dict><key>ENABLED</key><string>0</string>"
                                "<key>BADGE_LOCATION</key><string>0.250000,0.750000</string>"
                                "<key>BADGE_FONT_COLOR</key><string>1,0,0,1</string></dict>"));
    const auto file = hostPath(DevicePath::preferencesFile).string();
    const std::string command = "plistutil -f bin -i '" + file + "' -o '" + file + ".bin' && mv '" +
                                file + ".bin' '" + file + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ASSERT_EQ(root.settingsBytes().rfind("bplist00", 0), 0u);
    EXPECT_FALSE(getEnabled());
    EXPECT_EQ(getBadgeLocation(), (BadgeLocation{0.25f, 0.75f}));
    EXPECT_EQ(getBadgeFontColor(), (Color{1, 0, 0, 1}));
    // The next write turns it into XML and keeps what it held.
    setPreferencesObjectKey("Hi", SettingsKey::badgeTextFieldText);
    EXPECT_EQ(root.settingsBytes().rfind("<?xml", 0), 0u);
    EXPECT_EQ(getBadgeLocation(), (BadgeLocation{0.25f, 0.75f}));
}
