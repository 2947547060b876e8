#include "Settings.h"

#include "DevicePaths.h"
#include "FontCatalogue.h"
#include "PlistDictionary.h"
#include "TextScanning.h"

#include <cmath>
#include <filesystem>

namespace pomwick {
namespace {

constexpr bool defaultEnabled = true;
constexpr bool defaultBadgeVisible = true;
constexpr std::string_view defaultFontName = "Verdana";
constexpr int32_t defaultFontSize = 16;
constexpr float defaultBorderWidth = 1.2f;
constexpr float defaultAlpha = 1.0f;

std::filesystem::path preferencesPath() {
    return hostPath(DevicePath::preferencesFile);
}

// The common start of every getter: the file, read afresh, and the key's value in it.
std::optional<StoredValue> storedValue(std::string_view key) {
    const auto dictionary = PlistDictionary::readFromFile(preferencesPath());
    if (!dictionary)
        return std::nullopt;
    return dictionary->lookup(key);
}

bool isMissingOrEmpty(const std::optional<StoredValue>& value) {
    return !value || (value->kind == StoredValue::Kind::String && value->text.empty());
}

bool readBoolean(std::string_view key, bool fallback) {
    const auto value = storedValue(key);
    if (isMissingOrEmpty(value) || value->kind == StoredValue::Kind::Other)
        return fallback;
    return value->kind == StoredValue::Kind::Number ? value->number != 0 : boolValue(value->text);
}

float readFloat(std::string_view key, float fallback) {
    const auto value = storedValue(key);
    if (isMissingOrEmpty(value) || value->kind == StoredValue::Kind::Other)
        return fallback;
    return value->kind == StoredValue::Kind::Number ? static_cast<float>(value->number)
                                                    : floatValue(value->text);
}

std::optional<std::string> readString(std::string_view key) {
    const auto value = storedValue(key);
    if (!value || value->kind != StoredValue::Kind::String)
        return std::nullopt;
    return value->text;
}

Colour readColour(std::string_view key, Colour fallback) {
    const auto text = readString(key);
    if (!text)
        return fallback;
    const auto parts = componentsSeparatedBy(*text, ',');
    // The writers always store four parts; a malformed value gives the default.
    if (parts.size() < 4)
        return fallback;
    return {floatValue(parts[0]), floatValue(parts[1]), floatValue(parts[2]), floatValue(parts[3])};
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

} // namespace

bool getEnabled() {
    return readBoolean(SettingsKey::enabled, defaultEnabled);
}

bool getBadgeVisible() {
    return readBoolean(SettingsKey::badgeVisible, defaultBadgeVisible);
}

std::string getBadgeTextFieldText() {
    return readString(SettingsKey::badgeTextFieldText).value_or("");
}

int32_t getBadgeFontSize() {
    const auto value = storedValue(SettingsKey::badgeFontSize);
    if (isMissingOrEmpty(value) || value->kind == StoredValue::Kind::Other)
        return defaultFontSize;
    return value->kind == StoredValue::Kind::Number ? saturatedInt(value->number)
                                                    : intValue(value->text);
}

std::optional<Font> getBadgeFont() {
    const auto size = static_cast<float>(getBadgeFontSize());
    if (const auto name = readString(SettingsKey::badgeFont))
        return FontCatalogue::shared().fontWithName(*name, size);
    // The default is a font even where no face of that name can be found.
    return FontCatalogue::shared()
        .fontWithName(defaultFontName, size)
        .value_or(Font{std::string(defaultFontName), size, {}, {}, {}});
}

Colour getBadgeFontColor() {
    return readColour(SettingsKey::badgeFontColor, Colour::black());
}

Colour getBadgeBackgroundColor() {
    return readColour(SettingsKey::badgeBackgroundColor, Colour::white());
}

Colour getBadgeBorderColor() {
    return readColour(SettingsKey::badgeBorderColor, Colour::black());
}

float getBadgeBorderWidth() {
    return readFloat(SettingsKey::badgeBorderWidth, defaultBorderWidth);
}

float getBadgeAlpha() {
    return readFloat(SettingsKey::badgeAlpha, defaultAlpha);
}

BadgeLocation getBadgeLocation() {
    const auto text = readString(SettingsKey::badgeLocation);
    if (!text || text->empty())
        return {};
    const auto parts = componentsSeparatedBy(*text, ',');
    if (parts.size() != 2)
        return {};
    return {floatValue(parts[0]), floatValue(parts[1])};
}

std::optional<std::string> trySetPreferencesObjectKey(std::string_view value,
                                                      std::string_view key) {
    // An unreadable file is replaced by one that holds only this key.
    PlistDictionary dictionary =
        PlistDictionary::readFromFile(preferencesPath()).value_or(PlistDictionary());
    dictionary.setString(key, value);
    return dictionary.writeAtomically(preferencesPath());
}

void setPreferencesObjectKey(std::string_view value, std::string_view key) {
    trySetPreferencesObjectKey(value, key);
}

std::optional<std::string> tryRemovePreferencesObjectKey(std::string_view key) {
    auto dictionary = PlistDictionary::readFromFile(preferencesPath());
    if (!dictionary)
        return std::nullopt;
    dictionary->remove(key);
    return dictionary->writeAtomically(preferencesPath());
}

std::optional<std::string> tryRemovePreferencesFile() {
    std::error_code error;
    std::filesystem::remove(preferencesPath(), error);
    if (error)
        return "cannot remove " + preferencesPath().string() + ": " + error.message();
    return std::nullopt;
}

void removePreferencesFile() {
    tryRemovePreferencesFile();
}

} // namespace pomwick
