#pragma once

#include "SettingsKeys.h"
#include "SettingsTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pomwick {

// The settings file is the only state: every getter reads and parses it afresh, and gives its
// key's default when the file, the key or a usable value is missing.
bool getEnabled();
bool getBadgeVisible();
std::string getBadgeTextFieldText();
// Nothing when a stored font name has no face; "Verdana" at the stored size when nothing is stored.
std::optional<Font> getBadgeFont();
int32_t getBadgeFontSize();
Color getBadgeFontColor();
Color getBadgeBackgroundColor();
Color getBadgeBorderColor();
float getBadgeBorderWidth();
float getBadgeAlpha();
BadgeLocation getBadgeLocation();

// Stores the text under the key, keeping every other key; a failed write is ignored. Writers in
// any process take turns (a lock file beside the settings file), so none loses another's key.
// Text that is not valid UTF-8 or holds U+0000 is not stored.
void setPreferencesObjectKey(std::string_view value, std::string_view key);

// The same write, for callers that must tell the user why it failed: the reason, or nothing.
std::optional<std::string> trySetPreferencesObjectKey(std::string_view value, std::string_view key);

// Stores several keys in one write, keeping every other key: readers see all of them or none.
std::optional<std::string>
trySetPreferencesObjects(const std::vector<std::pair<std::string, std::string>>& keysAndValues);

// Removes one key, keeping the others; the reason on failure, nothing when it worked.
std::optional<std::string> tryRemovePreferencesObjectKey(std::string_view key);

// The settings file's exact bytes, or nothing when there is no file: what undo puts back, keys
// this version does not know included.
using SettingsFileContent = std::optional<std::string>;
SettingsFileContent readSettingsFileContent();
// Puts back content read earlier (nothing: removes the file), under the lock every writer takes
// and as atomically as a setter writes. The reason on failure, nothing when it worked.
std::optional<std::string> tryRestoreSettingsFileContent(const SettingsFileContent& content);
// What this process's last write left in the file, or nothing before its first write: tells the
// process's own writes from another writer's when the file changes.
std::optional<SettingsFileContent> settingsWrittenByThisProcess();

// Removes the settings file, bringing every setting back to its default; a failure is ignored.
void removePreferencesFile();
// The same, with the reason when a file that exists could not be removed.
std::optional<std::string> tryRemovePreferencesFile();

} // namespace pomwick
