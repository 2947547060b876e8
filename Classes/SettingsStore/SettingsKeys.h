#pragma once

#include <string_view>

namespace pomwick::SettingsKey {

inline constexpr std::string_view enabled = "ENABLED";
inline constexpr std::string_view badgeVisible = "BADGE_VISIBLE";
inline constexpr std::string_view badgeTextFieldText = "BADGE_TEXT_FIELD_TEXT";
inline constexpr std::string_view badgeFont = "BADGE_FONT";
inline constexpr std::string_view badgeFontSize = "BADGE_FONT_SIZE";
inline constexpr std::string_view badgeFontColor = "BADGE_FONT_COLOR";
inline constexpr std::string_view badgeBackgroundColor = "BADGE_BACKGROUND_COLOR";
inline constexpr std::string_view badgeBorderColor = "BADGE_BORDER_COLOR";
inline constexpr std::string_view badgeBorderWidth = "BADGE_BORDER_WIDTH";
inline constexpr std::string_view badgeAlpha = "BADGE_ALPHA";
inline constexpr std::string_view badgeLocation = "BADGE_LOCATION";

} // namespace pomwick::SettingsKey
