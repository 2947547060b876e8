#include "Settings.h"
#include "SettingsFile.h"

#include <gtest/gtest.h>
#include <random>

using namespace pomwick;
using pomwick::test::plistXml;
using pomwick::test::SettingsRoot;

namespace {

std::string randomBytes(size_t size, unsigned seed) {
    std::mt19937 generator(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator());
    return bytes;
}

// Every key holding the same kind of value.
std::string everyKeyHolding(const std::string& valueXml) {
    std::string body = "<dict>";
    for (const auto key : SettingsKey::all)
        body += "<key>" + std::string(key) + "</key>" + valueXml;
    return plistXml(body + "</dict>");
}

} // namespace

TEST(BadSettingsFile, UnusableFilesGiveEveryDefault) {
    SettingsRoot root;
    const std::string valid = everyKeyHolding("<string>0</string>");
    const std::pair<std::string, std::string> files[] = {
        {"empty", ""},
        {"random bytes", randomBytes(4096, 1)},
        {"truncated XML", valid.substr(0, valid.size() / 2)},
        {"array root", plistXml("<array><string>0</string></array>")},
        {"string root", plistXml("<string>ENABLED</string>")},
        {"binary signature then junk", "bplist00" + randomBytes(200, 2)},
        {"unterminated tags", "<?xml version=\"1.0\"?><plist><dict><key>ENABLED<key><string>"},
        {"50 MiB of junk", randomBytes(50 * 1024 * 1024, 3)},
    };
    for (const auto& [what, bytes] : files) {
        root.writeSettings(bytes);
        SCOPED_TRACE(what);
        pomwick::test::expectEveryDefault();
    }
}

TEST(BadSettingsFile, ValuesOfTheWrongKindGiveTheDefault) {
    SettingsRoot root;
    for (const char* value :
         {"<date>2020-01-01T00:00:00Z</date>", "<data>AAEC</data>",
          "<array><string>1</string></array>", "<dict><key>a</key><string>0</string></dict>"}) {
        root.writeSettings(everyKeyHolding(value));
        SCOPED_TRACE(value);
        pomwick::test::expectEveryDefault();
    }
}

TEST(BadSettingsFile, NumbersAnswerAsNumbers) {
    SettingsRoot root;
    root.writeSettings(everyKeyHolding("<integer>0</integer>"));
    EXPECT_FALSE(getEnabled());
    EXPECT_FALSE(getBadgeVisible());
    EXPECT_EQ(getBadgeFontSize(), 0);
    EXPECT_EQ(getBadgeAlpha(), 0.0f);
    // Kinds that only strings answer keep their defaults.
    EXPECT_EQ(getBadgeTextFieldText(), "");
    EXPECT_EQ(getBadgeBorderColor(), Colour::black());
    EXPECT_EQ(getBadgeLocation(), BadgeLocation{});

    root.writeSettings(everyKeyHolding("<real>1e300</real>"));
    EXPECT_EQ(getBadgeFontSize(), 2147483647);
    root.writeSettings(everyKeyHolding("<true/>"));
    EXPECT_TRUE(getEnabled());
    EXPECT_EQ(getBadgeFontSize(), 1);
}

TEST(BadSettingsFile, InvalidUtf8IsCarriedWithoutHarm) {
    SettingsRoot root;
    root.writeSettings(plistXml("<dict><key>BADGE_TEXT_FIELD_TEXT</key><string>\xff\xfe@\xc3"
                                "</string><key>BADGE_FONT</key><string>\xff\xfe</string></dict>"));
    (void)getBadgeTextFieldText();
    EXPECT_FALSE(getBadgeFont());
    setPreferencesObjectKey("\xff\xc3\x28", SettingsKey::badgeAlpha);
    EXPECT_EQ(getBadgeAlpha(), 0.0f);
}
