#include "DevicePaths.h"
#include "ProgramRun.h"
#include "Settings.h"
#include "TemporaryDeviceRoot.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <tuple>

using namespace pomwick;
using pomwick::test::ProgramRun;
namespace fs = std::filesystem;

namespace {

class DefaultsTool : public testing::Test {
protected:
    // The tool run on this test's root, given with --root.
    ProgramRun defaults(const QStringList& arguments) const {
        return test::runProgram(DEFAULTS_TOOL, QStringList{"--root", dir} + arguments);
    }
    // Runs each command line in turn; every one must succeed.
    void succeed(std::initializer_list<QStringList> commandLines) const {
        for (const QStringList& arguments : commandLines)
            ASSERT_EQ(defaults(arguments).status, 0) << arguments.join(' ').toStdString();
    }
    static bool settingsFileExists() { return fs::exists(hostPath(DevicePath::preferencesFile)); }

    test::TemporaryDeviceRoot root;
    const QString dir = QString::fromStdString(root.path());
};

} // namespace

TEST_F(DefaultsTool, ReadListsTheElevenDefaultsInOrderAndShowsControlCharactersEscaped) {
    const ProgramRun read = defaults({"read"});
    EXPECT_EQ(read.status, 0) << read.err;
    EXPECT_EQ(read.out, "ENABLED = true\n"
                        "BADGE_VISIBLE = true\n"
                        "BADGE_TEXT_FIELD_TEXT = \n"
                        "BADGE_FONT = Verdana 16\n"
                        "BADGE_FONT_SIZE = 16\n"
                        "BADGE_FONT_COLOR = 0,0,0,1\n"
                        "BADGE_BACKGROUND_COLOR = 1,1,1,1\n"
                        "BADGE_BORDER_COLOR = 0,0,0,1\n"
                        "BADGE_BORDER_WIDTH = 1.20000005\n"
                        "BADGE_ALPHA = 1\n"
                        "BADGE_LOCATION = 0,0\n");
    EXPECT_FALSE(settingsFileExists());

    // Another program stored an escape sequence, a tab, a backslash and a stray byte.
    root.writeFile(std::string(DevicePath::preferencesFile),
                   "<plist><dict><key>BADGE_TEXT_FIELD_TEXT</key>"
                   "<string>&#x1b;[31mred\t\\\xff</string></dict></plist>");
    EXPECT_EQ(defaults({"read", "BADGE_TEXT_FIELD_TEXT"}).out, "\\x1B[31mred\\t\\\\\\xFF\n");
}

TEST_F(DefaultsTool, WritesReachTheGettersDeleteAndResetUndoThemAndAStyleComesBackWhole) {
    succeed({{"write", "ENABLED", "No"}, {"write", "BADGE_TEXT_FIELD_TEXT", " @@ x "}});
    // The edges of each range, and a negative value that is no option.
    succeed({{"write", "BADGE_ALPHA", "0"},
             {"write", "BADGE_BORDER_WIDTH", "2"},
             {"write", "BADGE_LOCATION", "-1,2"},
             {"write", "BADGE_FONT_COLOR", "1,0,0.5,1"}});
    EXPECT_EQ(std::tuple(getEnabled(), getBadgeTextFieldText(), getBadgeAlpha(), getBadgeLocation(),
                         getBadgeBorderWidth(), getBadgeFontColor()),
              std::tuple(false, " @@ x ", 0.0f, BadgeLocation{-1, 2}, 2.0f, Color{1, 0, 0.5f, 1}));
    // As given, for people who mean it.
    ASSERT_EQ(defaults({"write", "--raw", "BADGE_ALPHA", "-1"}).status, 0);
    EXPECT_EQ(getBadgeAlpha(), -1.0f);

    ASSERT_EQ(defaults({"delete", "ENABLED"}).status, 0);
    EXPECT_EQ(std::tuple(getEnabled(), getBadgeTextFieldText()), std::tuple(true, " @@ x "));
    ASSERT_EQ(defaults({"reset"}).status, 0);
    EXPECT_FALSE(settingsFileExists());
    EXPECT_EQ(defaults({"reset"}).status, 0);

    // An exported style comes back whole, and a bad one is refused whole.
    const QString style = dir + "/style.plist", again = dir + "/again.plist";
    succeed({{"write", "BADGE_TEXT_FIELD_TEXT", "Hi\t@"},
             {"write", "BADGE_ALPHA", "0.25"},
             {"write", "BADGE_LOCATION", "-0.5,1.5"},
             {"export", style}});
    const std::string before = defaults({"read"}).out;
    succeed({{"reset"}, {"import", style}});
    EXPECT_EQ(defaults({"read"}).out, before);
    ASSERT_EQ(defaults({"export", again}).status, 0);
    EXPECT_EQ(root.readFile("/style.plist"), root.readFile("/again.plist"));

    // One value the window could not have stored, after good ones: nothing is written.
    std::string bad = root.readFile("/style.plist");
    const auto at = bad.find("0.25");
    ASSERT_NE(at, std::string::npos);
    root.writeFile("/bad.plist", bad.replace(at, 4, "1.25"));
    ASSERT_EQ(defaults({"reset"}).status, 0);
    const ProgramRun refused = defaults({"import", dir + "/bad.plist"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("BADGE_ALPHA: '1.25' is not a number from 0 to 1"),
              std::string::npos)
        << refused.err;
    EXPECT_FALSE(settingsFileExists());
}

TEST_F(DefaultsTool, BadCommandLinesAndValuesTheWindowCouldNotStoreSayWhatIsWrongAndWriteNothing) {
    // Command lines split at spaces, and a text too long to store.
    QList<QStringList> bad;
    for (const char* line :
         {"write NOT_A_KEY 1", "read NOT_A_KEY", "write ENABLED", "write ENABLED 1 2",
          "write --raw ENABLED", "frobnicate", "reset now", "", "write ENABLED maybe",
          "write BADGE_ALPHA -1", "write BADGE_ALPHA 1.0001", "write BADGE_BORDER_WIDTH 0.99",
          "write BADGE_FONT_SIZE 16.5", "write BADGE_FONT_SIZE 25", "write BADGE_FONT NoSuchFace",
          "write BADGE_FONT_COLOR 0,0,0", "write BADGE_FONT_COLOR 0,0,0,1.5",
          "write BADGE_LOCATION 0.5,nan", "write BADGE_LOCATION 0.5,0.5,0"})
        bad.append(QString(line).split(' ', Qt::SkipEmptyParts));
    bad.append({"write", "BADGE_TEXT_FIELD_TEXT", QString(32768, 'x')});
    for (const QStringList& arguments : bad) {
        const auto [status, out, err] = defaults(arguments);
        EXPECT_EQ(std::tuple(status, out, err.find("pomwick-defaults: ") != std::string::npos,
                             std::count(err.begin(), err.end(), '\n')),
                  std::tuple(2, "", true, 1))
            << arguments.join(' ').toStdString() << ": " << err;
    }
    EXPECT_FALSE(settingsFileExists());
}

TEST_F(DefaultsTool, OnlyARegularFileAtTheSettingsPathIsReadOrReplaced) {
    const auto path = hostPath(DevicePath::preferencesFile);
    fs::create_directories(path.parent_path());
    for (const std::string what : {"FIFO", "link"}) {
        SCOPED_TRACE(what);
        if (what == "FIFO")
            ASSERT_EQ(::mkfifo(path.c_str(), 0644), 0);
        else
            fs::create_symlink(root.path() / "elsewhere", path);
        const auto type = fs::symlink_status(path).type();
        // Reading neither hangs nor fails: the defaults apply.
        const ProgramRun read = defaults({"read", "ENABLED"});
        EXPECT_EQ(std::tuple(read.status, read.out), std::tuple(0, "true\n"));
        for (const QStringList& change : {QStringList{"write", "ENABLED", "0"},
                                          QStringList{"delete", "ENABLED"}, QStringList{"reset"}}) {
            const ProgramRun refused = defaults(change);
            EXPECT_EQ(refused.status, 1) << change.join(' ').toStdString();
            EXPECT_NE(refused.err.find(path.string() + " is not a regular file"), std::string::npos)
                << refused.err;
        }
        EXPECT_EQ(fs::symlink_status(path).type(), type);
        fs::remove(path);
    }
}
