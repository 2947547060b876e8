#pragma once

#include "Color.h"
#include "Font.h"
#include "PlistDictionary.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace pomwick {

// The badge's top-left corner relative to the icon's, in fractions of the icon's width and
// height; not clamped to 0..1.
struct BadgeLocation {
    float x = 0;
    float y = 0;
    friend bool operator==(const BadgeLocation&, const BadgeLocation&) = default;
};

using SettingValue =
    std::variant<bool, int32_t, float, std::string, std::optional<Font>, Color, BadgeLocation>;

// One setting: its key, its default, and how its getter makes a value of what the file holds
// under the key (nothing when the file, the dictionary or the key is missing). The font's parse
// looks names up at the size of the fallback it is given, which a snapshot makes the stored size.
struct Setting {
    std::string_view key;
    SettingValue defaultValue;
    SettingValue (*parse)(const std::optional<StoredValue>& stored, const SettingValue& fallback);
};

// Every setting, in the order in which they are listed to the user.
extern const std::array<Setting, 11> settingsTable;

// The row of a key; nothing for a key that is not a setting.
const Setting* findSetting(std::string_view key);

// The setting's value as its getter gives it: the file read afresh, the default applied.
SettingValue effectiveValue(const Setting& setting);

// A value as people read it: true/false, integers in decimal, floats with "%.9g", colors and
// locations as components joined by ",", the font as "NAME SIZE" or "(none)", and text with its
// control characters, backslashes and invalid bytes escaped (\n, \t, \\, \x01, \u0085, \xFF).
std::string printedValue(const SettingValue& value);

} // namespace pomwick
