#include "StorableValue.h"

#include "FontCatalogue.h"
#include "SettingsKeys.h"
#include "TextScanning.h"
#include "XmlText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace pomwick {
namespace {

// The whole text a finite number in the C locale's notation.
std::optional<double> strictNumber(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() ||
        !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<std::string> outside(std::string_view text, double low, double high,
                                   const std::string& what) {
    const auto number = strictNumber(text);
    if (!number || *number < low || *number > high)
        return "'" + std::string(text) + "' is not " + what;
    return std::nullopt;
}

std::optional<std::string> components(std::string_view text, size_t count, double low, double high,
                                      const std::string& what) {
    const auto parts = componentsSeparatedBy(text, ',');
    if (parts.size() != count ||
        std::any_of(parts.begin(), parts.end(), [&](std::string_view part) {
            const auto number = strictNumber(part);
            return !number || *number < low || *number > high;
        }))
        return "'" + std::string(text) + "' is not " + what;
    return std::nullopt;
}

constexpr size_t longestText = 32767; // what the text field accepts

size_t codePoints(std::string_view text) {
    size_t count = 0;
    for (size_t at = 0; at < text.size(); ++count)
        if (!nextCodePoint(text, at))
            ++at;
    return count;
}

} // namespace

std::optional<std::string> whyNotStorable(const Setting& setting, std::string_view text) {
    const std::string_view key = setting.key;
    if (key == SettingsKey::enabled || key == SettingsKey::badgeVisible) {
        std::string word(text);
        std::transform(word.begin(), word.end(), word.begin(),
                       [](unsigned char c) { return char(std::tolower(c)); });
        for (const char* accepted : {"true", "false", "yes", "no", "1", "0"})
            if (word == accepted)
                return std::nullopt;
        return "'" + std::string(text) + "' is not true, false, yes, no, 1 or 0";
    }
    if (key == SettingsKey::badgeTextFieldText)
        return codePoints(text) > longestText
                   ? std::optional<std::string>("the text is longer than 32767 characters")
                   : std::nullopt;
    if (key == SettingsKey::badgeFont)
        return FontCatalogue::shared().fontWithName(text, 16)
                   ? std::nullopt
                   : std::optional<std::string>("no font face is named '" + std::string(text) +
                                                "'");
    if (key == SettingsKey::badgeFontSize) {
        const auto number = strictNumber(text);
        if (!number || *number != std::trunc(*number) || *number < 8 || *number > 24)
            return "'" + std::string(text) + "' is not a whole number of points from 8 to 24";
        return std::nullopt;
    }
    if (key == SettingsKey::badgeBorderWidth)
        return outside(text, 1, 2, "a number from 1 to 2");
    if (key == SettingsKey::badgeAlpha)
        return outside(text, 0, 1, "a number from 0 to 1");
    if (key == SettingsKey::badgeLocation)
        return components(text, 2, -1, 2, "two numbers X,Y from -1 to 2");
    // The three colors.
    return components(text, 4, 0, 1, "four numbers R,G,B,A from 0 to 1");
}

} // namespace pomwick
