#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "SettingsFile.h"

#include <QByteArray>
#include <QProcess>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <tuple>
#include <unistd.h>

using namespace pomwick;
namespace binary = pomwick::test::binary;
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

} // namespace

// What each getter makes of stored text, as the tool prints it. How numbers are scanned is
// TextScanning's; these rows are the getters' own decisions: empty text is missing, the alpha is
// never clamped, a color of fewer than four parts is the default, and a font name without a face
// is no font, not the default.
TEST(SettingsGetters, EachKeyParsesItsStoredText) {
    SettingsRoot root;
    const char* text = "  Alert:@ & \xF0\x9F\x98\x80 ";
    const struct {
        const char* key;
        const char* stored;
        const char* expected;
    } cases[] = {{"ENABLED", "", "true"},
                 {"BADGE_VISIBLE", "FALSE", "false"},
                 {"BADGE_FONT_SIZE", "12.7", "12"},
                 {"BADGE_ALPHA", "-0.25", "-0.25"},
                 {"BADGE_BORDER_COLOR", "0.25,x,0.75,2,0.9", "0.25,0,0.75,2"},
                 {"BADGE_BACKGROUND_COLOR", "0.5,0.5", "1,1,1,1"},
                 {"BADGE_LOCATION", "0.250000,0.750000", "0.25,0.75"},
                 {"BADGE_LOCATION", "0.5", "0,0"},
                 {"BADGE_LOCATION", "0.1,0.2,0.3", "0,0"},
                 {"BADGE_FONT", "Qwertyfont", "(none)"},
                 {"BADGE_FONT", "", "(none)"},
                 {"BADGE_TEXT_FIELD_TEXT", text, text}};
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
TEST(SettingsSetter, KeepsOtherKeysUnderACommaLocaleReplacesAnUnreadableFileAndFailsWhole) {
    SettingsRoot root;
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "install locales-all";
    root.writeSettings(plistXml("<dict><key>BADGE_ALPHA</key><real>0.5</real>"
                                "<key>BADGE_FONT_SIZE</key><real>20.75</real>"
                                "<key>Other</key><array><integer>7</integer></array>"
                                "<key>Count</key><integer>-3</integer></dict>"));
    EXPECT_EQ(std::tuple(getBadgeAlpha(), getBadgeFontSize()), std::tuple(0.5f, 20));
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    EXPECT_FALSE(getBadgeVisible());
    const std::string bytes = root.settingsBytes();
    for (const char* kept :
         {"<real>0.5", "<key>Other</key>", "<integer>7</integer>", "<integer>-3</integer>"})
        EXPECT_NE(bytes.find(kept), std::string::npos) << kept;
    std::setlocale(LC_ALL, "C.UTF-8");

    // An unreadable file is replaced; a failed write keeps the file whole and leaves no temporary.
    root.writeSettings("\x01\x02 not a property list");
    setPreferencesObjectKey("0", SettingsKey::enabled);
    EXPECT_FALSE(getEnabled());
    const std::string before = root.settingsBytes();
    EXPECT_EQ(before.find("not a property list"), std::string::npos);
    {
        const FileSizeLimit limit(before.size() + 16);
        ASSERT_TRUE(
            trySetPreferencesObjectKey(std::string(4096, 'x'), SettingsKey::badgeTextFieldText));
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
TEST(ConcurrentWriter, KilledWritersTemporariesGoAndAHungWriterDelaysButNeverHangsOthers) {
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

    // A writer that hangs holding the lock delays the others but never hangs them.
    setPreferencesObjectKey("1", SettingsKey::enabled);
    // flock locks belong to an open file: this one conflicts with the setter's own.
    const int held = ::open(root.at(stale + "lock").c_str(), O_RDWR);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    const auto failure = trySetPreferencesObjectKey("0", SettingsKey::enabled);
    ::close(held);
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->find("held by another writer"), std::string::npos) << *failure;
    EXPECT_TRUE(getEnabled());
    EXPECT_FALSE(trySetPreferencesObjectKey("0", SettingsKey::enabled));
    EXPECT_FALSE(getEnabled());
}

// Deep nesting and entities are refused before parsing, and shared references never expand into
// memory; a crash, a hang or a runaway allocation fails the test. Smaller cycles and chains are
// among the reader's fuzz seeds.
TEST(BadSettingsFile, UnusableOrHostileFilesGiveEveryDefault) {
    SettingsRoot root;
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
        // 4 MB of "&amp;" took a naive reader 35 s of CPU.
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

TEST(BadSettingsFile, TextXmlCannotCarryIsNeverWrittenRawAndOtherKindsGiveTheDefault) {
    SettingsRoot root;
    // Text that is no UTF-8, or holds a NUL, is refused and nothing is written.
    for (const std::string& refused : {std::string("\xff\xc3\x28"), std::string("a\0b", 3)})
        EXPECT_TRUE(trySetPreferencesObjectKey(refused, SettingsKey::badgeTextFieldText));
    EXPECT_FALSE(std::filesystem::exists(hostPath(DevicePath::preferencesFile)));

    // A control character is kept whole, in the binary format, which carries it.
    const std::string control = "a\tb\001c\033d";
    ASSERT_FALSE(trySetPreferencesObjectKey(control, SettingsKey::badgeTextFieldText));
    EXPECT_EQ(std::tuple(root.settingsBytes().substr(0, 8), getBadgeTextFieldText()),
              std::tuple("bplist00", control));

    // Invalid UTF-8 that another program stored cannot go into either format: it becomes U+FFFD.
    root.writeSettings(plistXml("<dict><key>Other</key><string>a\xff\xfe</string></dict>"));
    ASSERT_FALSE(trySetPreferencesObjectKey("Hi", SettingsKey::badgeTextFieldText));
    EXPECT_NE(root.settingsBytes().find("<string>a\xef\xbf\xbd\xef\xbf\xbd</string>"),
              std::string::npos);
    EXPECT_EQ(getBadgeTextFieldText(), "Hi");

    // Values of other kinds give the default, but numbers answer as numbers.
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
    EXPECT_EQ(std::tuple(getEnabled(), getBadgeAlpha()), std::tuple(false, 0.0f));
    root.writeSettings(everyKeyHolding("<real>1e300</real>"));
    EXPECT_EQ(getBadgeFontSize(), 2147483647);
    root.writeSettings(everyKeyHolding("<true/>"));
    EXPECT_EQ(std::tuple(getEnabled(), getBadgeFontSize()), std::tuple(true, 1));
}
