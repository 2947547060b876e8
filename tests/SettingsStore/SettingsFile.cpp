#include "SettingsFile.h"

#include "DevicePaths.h"
#include "Settings.h"

#include <gtest/gtest.h>

namespace pomwick::test {

std::string plistXml(const std::string& dictionaryBody) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" +
           dictionaryBody + "\n</plist>\n";
}

std::string stringsPlist(const std::vector<std::pair<std::string, std::string>>& entries) {
    std::string body = "<dict>";
    for (const auto& [key, value] : entries)
        body += "<key>" + key + "</key><string>" + value + "</string>";
    return plistXml(body + "</dict>");
}

void expectEveryDefault() {
    EXPECT_TRUE(getEnabled());
    EXPECT_TRUE(getBadgeVisible());
    EXPECT_EQ(getBadgeTextFieldText(), "");
    const auto font = getBadgeFont();
    ASSERT_TRUE(font);
    EXPECT_EQ(font->name, "Verdana");
    EXPECT_EQ(font->size, 16);
    EXPECT_EQ(getBadgeFontSize(), 16);
    EXPECT_EQ(getBadgeFontColor(), Colour::black());
    EXPECT_EQ(getBadgeBackgroundColor(), Colour::white());
    EXPECT_EQ(getBadgeBorderColor(), Colour::black());
    EXPECT_EQ(getBadgeBorderWidth(), 1.2f);
    EXPECT_EQ(getBadgeAlpha(), 1.0f);
    EXPECT_EQ(getBadgeLocation(), BadgeLocation{});
}

void SettingsRoot::writeSettings(const std::string& bytes) const {
    writeFile(std::string(DevicePath::preferencesFile), bytes);
}

std::string SettingsRoot::settingsBytes() const {
    return readFile(std::string(DevicePath::preferencesFile));
}

} // namespace pomwick::test
