#include "EffectiveValueText.h"

#include "Settings.h"

#include <charconv>
#include <functional>
#include <map>

namespace pomwick {
namespace {

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

std::string text(bool value) {
    return value ? "true" : "false";
}

std::string text(const Colour& colour) {
    return joined({colour.red, colour.green, colour.blue, colour.alpha});
}

std::string text(const std::optional<Font>& font) {
    return font ? font->name + " " + shortest(font->size) : "(none)";
}

const std::map<std::string_view, std::function<std::string()>>& formatters() {
    static const std::map<std::string_view, std::function<std::string()>> table = {
        {SettingsKey::enabled,
         [] {
             return text(getEnabled());
         }},
        {SettingsKey::badgeVisible,
         [] {
             return text(getBadgeVisible());
         }},
        {SettingsKey::badgeTextFieldText,
         [] {
             return getBadgeTextFieldText();
         }},
        {SettingsKey::badgeFont,
         [] {
             return text(getBadgeFont());
         }},
        {SettingsKey::badgeFontSize,
         [] {
             return std::to_string(getBadgeFontSize());
         }},
        {SettingsKey::badgeFontColor,
         [] {
             return text(getBadgeFontColor());
         }},
        {SettingsKey::badgeBackgroundColor,
         [] {
             return text(getBadgeBackgroundColor());
         }},
        {SettingsKey::badgeBorderColor,
         [] {
             return text(getBadgeBorderColor());
         }},
        {SettingsKey::badgeBorderWidth,
         [] {
             return shortest(getBadgeBorderWidth());
         }},
        {SettingsKey::badgeAlpha,
         [] {
             return shortest(getBadgeAlpha());
         }},
        {SettingsKey::badgeLocation,
         [] {
             const BadgeLocation location = getBadgeLocation();
             return joined({location.x, location.y});
         }},
    };
    return table;
}

} // namespace

std::optional<std::string> effectiveValueText(std::string_view key) {
    const auto found = formatters().find(key);
    if (found == formatters().end())
        return std::nullopt;
    return found->second();
}

} // namespace pomwick
