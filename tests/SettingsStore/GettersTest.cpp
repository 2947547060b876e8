#include "Settings.h"
#include "SettingsFile.h"

#include <gtest/gtest.h>

using namespace pomwick;
using pomwick::test::SettingsRoot;
using pomwick::test::stringsPlist;

// Without a file at all, the tool's test checks every default by hand.
TEST(SettingsGetters, AnEmptyDictionaryGivesEveryDefault) {
    SettingsRoot root;
    root.writeSettings(stringsPlist({}));
    pomwick::test::expectEveryDefault();
}

// What each getter makes of stored text, as the tool prints it. The scanning rules themselves
// (signs, zeros, exponents) are TextScanning's; these rows are the getters' own decisions.
TEST(SettingsGetters, EachKeyParsesItsStoredText) {
    SettingsRoot root;
    const struct {
        const char* key;
        const char* stored;
        const char* expected;
    } cases[] = {
        {"ENABLED", "0", "false"},
        {"ENABLED", "", "true"}, // empty is missing
        {"BADGE_VISIBLE", "FALSE", "false"},
        {"BADGE_FONT_SIZE", "12.7", "12"},
        {"BADGE_FONT_SIZE", "", "16"},
        {"BADGE_BORDER_WIDTH", "5.5x", "5.5"},
        {"BADGE_BORDER_WIDTH", "", "1.20000005"},
        {"BADGE_ALPHA", "-0.25", "-0.25"}, // never clamped
        {"BADGE_BORDER_COLOR", "0.25,0.5,0.75,0.5,0.9", "0.25,0.5,0.75,0.5"},
        {"BADGE_FONT_COLOR", "1,x,0.5,2", "1,0,0.5,2"},
        {"BADGE_BACKGROUND_COLOR", "0.5,0.5", "1,1,1,1"}, // fewer than four parts: the default
        {"BADGE_LOCATION", "0.250000,0.750000", "0.25,0.75"},
        {"BADGE_LOCATION", "0.5", "0,0"},
        {"BADGE_LOCATION", "0.1,0.2,0.3", "0,0"},
        {"BADGE_LOCATION", "-1.5,abc", "-1.5,0"},
        {"BADGE_FONT", "Qwertyfont", "(none)"}, // a name without a face is no font, not the default
        {"BADGE_FONT", "", "(none)"},
        {"BADGE_TEXT_FIELD_TEXT", "  Alert:@ &amp; \xF0\x9F\x98\x80 ",
         "  Alert:@ & \xF0\x9F\x98\x80 "},
    };
    for (const auto& [key, stored, expected] : cases) {
        root.writeSettings(stringsPlist({{key, stored}}));
        EXPECT_EQ(printedValue(effectiveValue(*findSetting(key))), expected)
            << key << " = '" << stored << "'";
    }
    root.writeSettings(stringsPlist({{"BADGE_LOCATION", "0.5,0.25"},
                                     {"BADGE_ALPHA", "0.5"},
                                     {"BADGE_FONT", "DejaVuSans-Bold"},
                                     {"BADGE_FONT_SIZE", "22"}}));
    EXPECT_EQ(getBadgeLocation(), (BadgeLocation{0.5f, 0.25f}));
    EXPECT_EQ(getBadgeAlpha(), 0.5f);
    // The font is looked up at the stored size.
    EXPECT_EQ(printedValue(effectiveValue(*findSetting("BADGE_FONT"))), "DejaVuSans-Bold 22");
}
