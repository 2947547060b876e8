#pragma once

#include "SettingsKeys.h"
#include "SettingsTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// The settings file read and parsed once: every setting as the getter of its key would have
// given it at that moment. One operation that needs several settings (a preview composition, a
// table rebuild) reads one snapshot, so that it parses the file once and sees one version of it.
class SettingsSnapshot {
public:
    // Reads the file now; a missing or unusable file gives every default.
    SettingsSnapshot();

    SettingValue value(const Setting& setting) const;
    template <typename T> T value(std::string_view key) const {
        return std::get<T>(value(*findSetting(key)));
    }

    bool enabled() const { return value<bool>(SettingsKey::enabled); }
    bool badgeVisible() const { return value<bool>(SettingsKey::badgeVisible); }
    std::string badgeTextFieldText() const {
        return value<std::string>(SettingsKey::badgeTextFieldText);
    }
    std::optional<Font> badgeFont() const {
        return value<std::optional<Font>>(SettingsKey::badgeFont);
    }
    int32_t badgeFontSize() const { return value<int32_t>(SettingsKey::badgeFontSize); }
    Color badgeFontColor() const { return value<Color>(SettingsKey::badgeFontColor); }
    Color badgeBackgroundColor() const { return value<Color>(SettingsKey::badgeBackgroundColor); }
    Color badgeBorderColor() const { return value<Color>(SettingsKey::badgeBorderColor); }
    float badgeBorderWidth() const { return value<float>(SettingsKey::badgeBorderWidth); }
    float badgeAlpha() const { return value<float>(SettingsKey::badgeAlpha); }
    BadgeLocation badgeLocation() const { return value<BadgeLocation>(SettingsKey::badgeLocation); }

    // How many times this process has read the settings file so far: what a benchmark counts to
    // show that an operation reads it once.
    static uint64_t fileReads();

private:
    std::optional<PlistDictionary> dictionary_;
};

} // namespace pomwick
