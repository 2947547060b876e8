#include "SettingsTable.h"

#include "FontCatalogue.h"
#include "SettingsKeys.h"
#include "SettingsSnapshot.h"
#include "TextScanning.h"
#include "XmlText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace pomwick {
namespace {

using Kind = StoredValue::Kind;

bool isMissingOrEmpty(const std::optional<StoredValue>& stored) {
    return !stored || stored->kind == Kind::Other ||
           (stored->kind == Kind::String && stored->text.empty());
}

int32_t saturatedInt(double number) {
    if (std::isnan(number))
        return 0;
    if (number >= 2147483647.0)
        return 2147483647;
    if (number <= -2147483648.0)
        return -2147483647 - 1;
    return static_cast<int32_t>(number);
}

// Numbers, booleans and dates of other programs answer as numbers, as they do on the device.
SettingValue parseBoolean(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    if (isMissingOrEmpty(stored))
        return fallback;
    return stored->kind == Kind::Number ? stored->number != 0 : boolValue(stored->text);
}

SettingValue parseInteger(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    if (isMissingOrEmpty(stored))
        return fallback;
    return stored->kind == Kind::Number ? saturatedInt(stored->number) : intValue(stored->text);
}

SettingValue parseFloat(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    if (isMissingOrEmpty(stored))
        return fallback;
    return stored->kind == Kind::Number ? static_cast<float>(stored->number)
                                        : floatValue(stored->text);
}

SettingValue parseText(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    return stored && stored->kind == Kind::String ? SettingValue(stored->text) : fallback;
}

// A stored name is looked up even when it is empty or not text at all, and then gives no font;
// only a missing key gives the default name. Either way at the size the fallback carries, which
// is the stored font size.
SettingValue parseFont(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    const Font& face = *std::get<std::optional<Font>>(fallback);
    if (stored) {
        if (stored->kind != Kind::String)
            return std::optional<Font>();
        return FontCatalogue::shared().fontWithName(stored->text, face.size);
    }
    // The default is a font even where no face of that name can be found.
    return FontCatalogue::shared().fontWithName(face.name, face.size).value_or(face);
}

// Parts that are no number read 0; the writers always store four parts, so fewer is a
// malformed value and gives the default. Parts after the fourth are ignored.
SettingValue parseColor(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    if (!stored || stored->kind != Kind::String)
        return fallback;
    const auto parts = componentsSeparatedBy(stored->text, ',');
    if (parts.size() < 4)
        return fallback;
    return Color{floatValue(parts[0]), floatValue(parts[1]), floatValue(parts[2]),
                 floatValue(parts[3])};
}

SettingValue parseLocation(const std::optional<StoredValue>& stored, const SettingValue& fallback) {
    if (isMissingOrEmpty(stored) || stored->kind != Kind::String)
        return fallback;
    const auto parts = componentsSeparatedBy(stored->text, ',');
    if (parts.size() != 2)
        return fallback;
    return BadgeLocation{floatValue(parts[0]), floatValue(parts[1])};
}

std::string shortest(double value) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 9).ptr;
    return std::string(buffer, end);
}

std::string joined(std::initializer_list<float> components) {
    std::string text;
    for (const float component : components)
        text += (text.empty() ? "" : ",") + shortest(component);
    return text;
}

// Text on a terminal: control characters would move the cursor or change colors.
std::string escaped(std::string_view text) {
    std::string shown;
    for (size_t at = 0; at < text.size();) {
        const size_t start = at;
        const auto c = nextCodePoint(text, at);
        char code[16];
        if (!c)
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(text[start]));
        else if (*c == '\\')
            std::snprintf(code, sizeof code, "\\\\");
        else if (*c == '\n')
            std::snprintf(code, sizeof code, "\\n");
        else if (*c == '\t')
            std::snprintf(code, sizeof code, "\\t");
        else if (*c < 0x20 || *c == 0x7F)
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(*c));
        else if (*c >= 0x80 && *c < 0xA0)
            std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(*c));
        else {
            shown.append(text.substr(start, at - start));
            continue;
        }
        shown += code;
    }
    return shown;
}

struct Printer {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int32_t value) const { return std::to_string(value); }
    std::string operator()(float value) const { return shortest(value); }
    std::string operator()(const std::string& text) const { return escaped(text); }
    std::string operator()(const std::optional<Font>& font) const {
        return font ? escaped(font->name) + " " + shortest(font->size) : "(none)";
    }
    std::string operator()(const Color& color) const {
        return joined({color.red, color.green, color.blue, color.alpha});
    }
    std::string operator()(const BadgeLocation& location) const {
        return joined({location.x, location.y});
    }
};

} // namespace

const std::array<Setting, 11> settingsTable = {{
    {SettingsKey::enabled, true, parseBoolean},
    {SettingsKey::badgeVisible, true, parseBoolean},
    {SettingsKey::badgeTextFieldText, std::string(), parseText},
    {SettingsKey::badgeFont, std::optional<Font>(Font{"Verdana", 16, {}, {}, {}}), parseFont},
    {SettingsKey::badgeFontSize, int32_t{16}, parseInteger},
    {SettingsKey::badgeFontColor, Color::black(), parseColor},
    {SettingsKey::badgeBackgroundColor, Color::white(), parseColor},
    {SettingsKey::badgeBorderColor, Color::black(), parseColor},
    {SettingsKey::badgeBorderWidth, 1.2f, parseFloat},
    {SettingsKey::badgeAlpha, 1.0f, parseFloat},
    {SettingsKey::badgeLocation, BadgeLocation{}, parseLocation},
}};

const Setting* findSetting(std::string_view key) {
    const auto found = std::find_if(settingsTable.begin(), settingsTable.end(),
                                    [&](const Setting& setting) { return setting.key == key; });
    return found != settingsTable.end() ? &*found : nullptr;
}

SettingValue effectiveValue(const Setting& setting) {
    // Every getter reads the file afresh: there is no cache by design.
    return SettingsSnapshot().value(setting);
}

std::string printedValue(const SettingValue& value) {
    return std::visit(Printer{}, value);
}

} // namespace pomwick
