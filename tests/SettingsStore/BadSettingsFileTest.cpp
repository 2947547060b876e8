#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QByteArray>
#include <filesystem>
#include <gtest/gtest.h>

using namespace pomwick;
namespace binary = pomwick::test::binary;
using pomwick::test::plistXml;
using pomwick::test::SettingsRoot;

namespace {

// Every key holding the same kind of value.
std::string everyKeyHolding(const std::string& valueXml) {
    std::string body = "<dict>";
    for (const Setting& setting : settingsTable)
        body += "<key>" + std::string(setting.key) + "</key>" + valueXml;
    return plistXml(body + "</dict>");
}

std::string repeated(const char* text, qsizetype times) {
    return QByteArray(text).repeated(times).toStdString();
}

class BadSettingsFile : public testing::Test {
protected:
    SettingsRoot root;
};

} // namespace

// Deep nesting and entities are refused before parsing, and shared references never expand into
// memory; a crash, a hang or a runaway allocation fails the test. Smaller cycles and chains are
// among the reader's fuzz seeds.
TEST_F(BadSettingsFile, UnusableOrHostileFilesGiveEveryDefault) {
    const std::string valid = everyKeyHolding("<string>0</string>");
    std::vector<std::string> chain;
    for (uint32_t i = 1; i < 100000; ++i)
        chain.push_back(binary::array({i}));
    chain.push_back(binary::array({}));
    // A dictionary that would read if its one megabyte were not referred to 2,000 times.
    const std::string gigabyte =
        binary::plist({binary::dictionary({{1, 2}, {3, 4}}), binary::text("ENABLED"),
                       binary::text("0"), binary::text("BADGE_FONT"),
                       binary::array(std::vector<uint32_t>(2000, 5)), binary::data(1 << 20)});
    const std::pair<const char*, std::string> files[] = {
        {"empty", ""},
        {"truncated XML", valid.substr(0, valid.size() / 2)},
        {"array root", plistXml("<array><string>0</string></array>")},
        {"binary signature then junk", "bplist00" + std::string(200, '\xa5')},
        {"50 MiB of junk", std::string(50 * 1024 * 1024, '\xa5')},
        {"XML, 180,000 arrays deep",
         plistXml(repeated("<array>", 180000) + repeated("</array>", 180000))},
        {"binary, 100,000 arrays deep", binary::plist(chain)},
        {"one megabyte, 2,000 times", gigabyte},
        // 4 MB of "&amp;" took libplist 35 s of CPU.
        {"800,000 entities", plistXml("<dict><key>BADGE_TEXT_FIELD_TEXT</key><string>" +
                                      repeated("&amp;", 800000) + "</string></dict>")},
    };
    for (const auto& [what, bytes] : files) {
        SCOPED_TRACE(what);
        root.writeSettings(bytes);
        pomwick::test::expectEveryDefault();
    }
    root.writeSettings(plistXml("<dict><key>BADGE_TEXT_FIELD_TEXT</key><string>" +
                                repeated("&lt;&amp;&gt;", 100) + "</string></dict>"));
    EXPECT_EQ(getBadgeTextFieldText(), repeated("<&>", 100));
}

TEST_F(BadSettingsFile, ValuesOfOtherKindsGiveTheDefaultButNumbersAnswerAsNumbers) {
    for (const char* value :
         {"<date>2020-01-01T00:00:00Z</date>", "<data>AAEC</data>",
          "<array><string>1</string></array>", "<dict><key>a</key><string>0</string></dict>"}) {
        root.writeSettings(everyKeyHolding(value));
        SCOPED_TRACE(value);
        pomwick::test::expectEveryDefault(SettingsKey::badgeFont);
        // A font name that is there but no text is looked up, and finds no face.
        EXPECT_FALSE(getBadgeFont());
    }
    // Numbers, as other programs store them, answer as numbers.
    root.writeSettings(everyKeyHolding("<integer>0</integer>"));
    EXPECT_FALSE(getEnabled());
    EXPECT_EQ(getBadgeAlpha(), 0.0f);
    root.writeSettings(everyKeyHolding("<real>1e300</real>"));
    EXPECT_EQ(getBadgeFontSize(), 2147483647);
    root.writeSettings(everyKeyHolding("<true/>"));
    EXPECT_TRUE(getEnabled());
    EXPECT_EQ(getBadgeFontSize(), 1);
}

TEST_F(BadSettingsFile, TextXmlCannotCarryIsNeverWrittenRawIntoXml) {
    // Text that is no UTF-8, or holds a NUL, is refused and nothing is written.
    for (const std::string& refused : {std::string("\xff\xc3\x28"), std::string("a\0b", 3)})
        EXPECT_TRUE(trySetPreferencesObjectKey(refused, SettingsKey::badgeTextFieldText));
    EXPECT_FALSE(std::filesystem::exists(hostPath(DevicePath::preferencesFile)));

    // A control character is kept whole, in the binary format, which carries it.
    const std::string control = "a\tb\x01"
                                "c\x1b"
                                "d";
    ASSERT_FALSE(trySetPreferencesObjectKey(control, SettingsKey::badgeTextFieldText));
    EXPECT_EQ(root.settingsBytes().rfind("bplist00", 0), 0u);
    EXPECT_EQ(getBadgeTextFieldText(), control);

    // Invalid UTF-8 that another program stored cannot go into either format: it becomes U+FFFD.
    root.writeSettings(plistXml("<dict><key>Other</key><string>a\xff\xfe</string></dict>"));
    ASSERT_FALSE(trySetPreferencesObjectKey("Hi", SettingsKey::badgeTextFieldText));
    EXPECT_NE(root.settingsBytes().find("<string>a\xef\xbf\xbd\xef\xbf\xbd</string>"),
              std::string::npos);
    EXPECT_EQ(getBadgeTextFieldText(), "Hi");
}
