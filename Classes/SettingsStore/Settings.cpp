#include "Settings.h"

#include "AtomicFile.h"
#include "DevicePaths.h"
#include "FileLock.h"
#include "PlistDictionary.h"
#include "RegularFile.h"
#include "XmlText.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <set>

namespace pomwick {
namespace {

std::filesystem::path preferencesPath() {
    return hostPath(DevicePath::preferencesFile);
}

// Beside the settings file, hidden like the temporaries.
std::filesystem::path lockPath(const std::filesystem::path& path) {
    return path.parent_path() / ("." + path.filename().string() + ".lock");
}

template <typename T> T getValue(std::string_view key) {
    return std::get<T>(effectiveValue(*findSetting(key)));
}

std::mutex lastWriteGuard;
std::optional<SettingsFileContent> lastWrite;

void rememberWrite(const SettingsFileContent& content) {
    const std::lock_guard<std::mutex> lock(lastWriteGuard);
    lastWrite = content;
}

// Under the writers' lock: the bytes in place of the file, or no file at all.
std::optional<std::string> replaceInTurn(const std::filesystem::path& path,
                                         const SettingsFileContent& content) {
    std::optional<std::string> failure;
    if (!content) {
        std::error_code error;
        std::filesystem::remove(path, error);
        if (error)
            failure = "cannot remove " + path.string() + ": " + error.message();
    } else if (content->size() > PlistDictionary::maximumFileSize) {
        // A file that could not be read back would lose every setting at the next write.
        failure = "the settings would not fit in the largest file that is read";
    } else {
        failure = writeFileAtomicallyInTurn(path, *content);
    }
    if (!failure)
        rememberWrite(content);
    return failure;
}

// Whether this process writes the file for the first time.
bool firstWriteOf(const std::filesystem::path& path) {
    static std::mutex guard;
    static std::set<std::filesystem::path> written;
    const std::lock_guard<std::mutex> lock(guard);
    return written.insert(path).second;
}

// One write of the settings file at a time, across processes: without the lock two writers
// read the same old file and the last rename drops the other's key. Temporaries that killed
// writers left are removed while no other writer can be writing one: on this process's first
// write, and whenever a writer finds one where it makes its own.
std::optional<std::string>
writeInTurn(const std::function<std::optional<std::string>(const std::filesystem::path&)>& write) {
    const std::filesystem::path path = preferencesPath();
    const FileLock lock(lockPath(path));
    if (lock.failure())
        return lock.failure();
    if (auto refusal = whyNotReplaceable(path))
        return refusal;
    if (firstWriteOf(path))
        removeStaleTemporaries(path);
    return write(path);
}

std::optional<std::string> changeSettingsFile(const std::function<bool(PlistDictionary&)>& change) {
    return writeInTurn([&](const std::filesystem::path& path) -> std::optional<std::string> {
        // An unreadable file is replaced by one that holds only the change.
        PlistDictionary dictionary =
            PlistDictionary::readFromFile(path).value_or(PlistDictionary());
        if (!change(dictionary))
            return std::nullopt;
        const auto bytes = dictionary.encoded();
        if (!bytes)
            return std::string("cannot encode the settings as a property list");
        return replaceInTurn(path, bytes);
    });
}

} // namespace

bool getEnabled() {
    return getValue<bool>(SettingsKey::enabled);
}

bool getBadgeVisible() {
    return getValue<bool>(SettingsKey::badgeVisible);
}

std::string getBadgeTextFieldText() {
    return getValue<std::string>(SettingsKey::badgeTextFieldText);
}

std::optional<Font> getBadgeFont() {
    return getValue<std::optional<Font>>(SettingsKey::badgeFont);
}

int32_t getBadgeFontSize() {
    return getValue<int32_t>(SettingsKey::badgeFontSize);
}

Color getBadgeFontColor() {
    return getValue<Color>(SettingsKey::badgeFontColor);
}

Color getBadgeBackgroundColor() {
    return getValue<Color>(SettingsKey::badgeBackgroundColor);
}

Color getBadgeBorderColor() {
    return getValue<Color>(SettingsKey::badgeBorderColor);
}

float getBadgeBorderWidth() {
    return getValue<float>(SettingsKey::badgeBorderWidth);
}

float getBadgeAlpha() {
    return getValue<float>(SettingsKey::badgeAlpha);
}

BadgeLocation getBadgeLocation() {
    return getValue<BadgeLocation>(SettingsKey::badgeLocation);
}

std::optional<std::string> trySetPreferencesObjectKey(std::string_view value,
                                                      std::string_view key) {
    if (auto problem = whyNotPlistText(value))
        return problem;
    return changeSettingsFile([&](PlistDictionary& dictionary) {
        dictionary.setString(key, value);
        return true;
    });
}

std::optional<std::string>
trySetPreferencesObjects(const std::vector<std::pair<std::string, std::string>>& keysAndValues) {
    for (const auto& [key, value] : keysAndValues)
        if (auto problem = whyNotPlistText(value))
            return key + ": " + *problem;
    return changeSettingsFile([&](PlistDictionary& dictionary) {
        for (const auto& [key, value] : keysAndValues)
            dictionary.setString(key, value);
        return true;
    });
}

void setPreferencesObjectKey(std::string_view value, std::string_view key) {
    trySetPreferencesObjectKey(value, key);
}

std::optional<std::string> tryRemovePreferencesObjectKey(std::string_view key) {
    return changeSettingsFile([&](PlistDictionary& dictionary) { return dictionary.remove(key); });
}

std::optional<std::string> tryRemovePreferencesFile() {
    const std::filesystem::path path = preferencesPath();
    if (auto refusal = whyNotReplaceable(path))
        return refusal;
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        return std::nullopt;
    const FileLock lock(lockPath(path));
    return replaceInTurn(path, std::nullopt);
}

SettingsFileContent readSettingsFileContent() {
    std::error_code error;
    return readRegularFile(preferencesPath(), PlistDictionary::maximumFileSize, error);
}

std::optional<std::string> tryRestoreSettingsFileContent(const SettingsFileContent& content) {
    return writeInTurn(
        [&](const std::filesystem::path& path) { return replaceInTurn(path, content); });
}

std::optional<SettingsFileContent> settingsWrittenByThisProcess() {
    const std::lock_guard<std::mutex> lock(lastWriteGuard);
    return lastWrite;
}

void removePreferencesFile() {
    tryRemovePreferencesFile();
}

} // namespace pomwick
