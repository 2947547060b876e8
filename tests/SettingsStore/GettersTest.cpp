#include "Settings.h"
#include "SettingsFile.h"

#include <gtest/gtest.h>

using namespace pomwick;
using pomwick::test::SettingsRoot;
using pomwick::test::stringsPlist;

TEST(SettingsGetters, NoFileOrAnEmptyDictionaryGivesEveryDefault) {
    SettingsRoot root;
    pomwick::test::expectEveryDefault();
    root.writeSettings(stringsPlist({}));
    pomwick::test::expectEveryDefault();
}

TEST(SettingsGetters, BooleansFollowTheStoredTextAndEmptyMeansTrue) {
    SettingsRoot root;
    const std::pair<const char*, bool> cases[] = {
        {"1", true}, {"0", false},  {"TRUE", true},     {"FALSE", false},
        {"", true},  {"yes", true}, {"garbage", false}, {"  -01", true}};
    for (const auto& [text, expected] : cases) {
        root.writeSettings(stringsPlist({{"ENABLED", text}, {"BADGE_VISIBLE", text}}));
        EXPECT_EQ(getEnabled(), expected) << text;
        EXPECT_EQ(getBadgeVisible(), expected) << text;
    }
}

TEST(SettingsGetters, NumbersTakeTheLeadingValueWithoutClamping) {
    SettingsRoot root;
    root.writeSettings(stringsPlist(
        {{"BADGE_FONT_SIZE", "12.7"}, {"BADGE_BORDER_WIDTH", "5.5x"}, {"BADGE_ALPHA", "-0.25"}}));
    EXPECT_EQ(getBadgeFontSize(), 12);
    EXPECT_EQ(getBadgeBorderWidth(), 5.5f);
    EXPECT_EQ(getBadgeAlpha(), -0.25f);

    root.writeSettings(stringsPlist(
        {{"BADGE_FONT_SIZE", "abc"}, {"BADGE_BORDER_WIDTH", "abc"}, {"BADGE_ALPHA", "abc"}}));
    EXPECT_EQ(getBadgeFontSize(), 0);
    EXPECT_EQ(getBadgeBorderWidth(), 0.0f);
    EXPECT_EQ(getBadgeAlpha(), 0.0f);

    root.writeSettings(
        stringsPlist({{"BADGE_FONT_SIZE", ""}, {"BADGE_BORDER_WIDTH", ""}, {"BADGE_ALPHA", ""}}));
    EXPECT_EQ(getBadgeFontSize(), 16);
    EXPECT_EQ(getBadgeBorderWidth(), 1.2f);
    EXPECT_EQ(getBadgeAlpha(), 1.0f);
}

TEST(SettingsGetters, ColoursReadFourPartsAndIgnoreExtras) {
    SettingsRoot root;
    root.writeSettings(stringsPlist({{"BADGE_BORDER_COLOR", "0.1,0.2,0.3,0.4,0.9"},
                                     {"BADGE_FONT_COLOR", "1.000000,0.501961,x,2"},
                                     {"BADGE_BACKGROUND_COLOR", "0.5,0.5"}}));
    EXPECT_EQ(getBadgeBorderColor(), (Colour{0.1f, 0.2f, 0.3f, 0.4f}));
    // Parts that are no number read 0; nothing is clamped.
    EXPECT_EQ(getBadgeFontColor(), (Colour{1.0f, 0.501961f, 0.0f, 2.0f}));
    // The writers never store fewer than four parts: such a value gives the default.
    EXPECT_EQ(getBadgeBackgroundColor(), Colour::white());
}

TEST(SettingsGetters, LocationNeedsExactlyTwoParts) {
    SettingsRoot root;
    const std::pair<const char*, BadgeLocation> cases[] = {
        {"0.250000,0.750000", {0.25f, 0.75f}},
        {"0.5", {}},
        {"0.1,0.2,0.3", {}},
        {"", {}},
        {"-1.5,abc", {-1.5f, 0}},
    };
    for (const auto& [text, expected] : cases) {
        root.writeSettings(stringsPlist({{"BADGE_LOCATION", text}}));
        EXPECT_EQ(getBadgeLocation(), expected) << text;
    }
}

TEST(SettingsGetters, FontIsLookedUpAtTheStoredSize) {
    SettingsRoot root;
    root.writeSettings(
        stringsPlist({{"BADGE_FONT", "DejaVuSans-Bold"}, {"BADGE_FONT_SIZE", "22"}}));
    auto font = getBadgeFont();
    ASSERT_TRUE(font);
    EXPECT_EQ(font->name, "DejaVuSans-Bold");
    EXPECT_EQ(font->size, 22);

    // A stored name without a face is no font at all, not the default.
    root.writeSettings(stringsPlist({{"BADGE_FONT", "Qwertyfont"}}));
    EXPECT_FALSE(getBadgeFont());
    root.writeSettings(stringsPlist({{"BADGE_FONT", ""}}));
    EXPECT_FALSE(getBadgeFont());
}

TEST(SettingsGetters, TextIsReturnedAsStored) {
    SettingsRoot root;
    root.writeSettings(
        stringsPlist({{"BADGE_TEXT_FIELD_TEXT", "  Alert:@ &amp; \xF0\x9F\x98\x80 "}}));
    EXPECT_EQ(getBadgeTextFieldText(), "  Alert:@ & \xF0\x9F\x98\x80 ");
}
