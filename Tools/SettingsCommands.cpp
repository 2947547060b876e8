#include "EffectiveValueText.h"
#include "Settings.h"
#include "ToolCommand.h"

#include <algorithm>
#include <iostream>

namespace pomwick {
namespace {

bool isKnownKey(const std::string& key) {
    return std::find(SettingsKey::all.begin(), SettingsKey::all.end(), key) !=
           SettingsKey::all.end();
}

int unknownKey(const std::string& key) {
    std::cerr << "pomwick-defaults: unknown key '" << key << "' (run 'pomwick-defaults read' "
              << "to list the keys)\n";
    return usageError;
}

int reportFailure(const std::optional<std::string>& failure) {
    if (!failure)
        return 0;
    std::cerr << "pomwick-defaults: " << *failure << "\n";
    return operationFailed;
}

int read(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        for (const std::string_view key : SettingsKey::all)
            std::cout << key << " = " << *effectiveValueText(key) << "\n";
        return 0;
    }
    const auto value = effectiveValueText(arguments[0]);
    if (!value)
        return unknownKey(arguments[0]);
    std::cout << *value << "\n";
    return 0;
}

int write(const std::vector<std::string>& arguments) {
    if (!isKnownKey(arguments[0]))
        return unknownKey(arguments[0]);
    return reportFailure(trySetPreferencesObjectKey(arguments[1], arguments[0]));
}

int remove(const std::vector<std::string>& arguments) {
    if (!isKnownKey(arguments[0]))
        return unknownKey(arguments[0]);
    return reportFailure(tryRemovePreferencesObjectKey(arguments[0]));
}

int reset(const std::vector<std::string>&) {
    return reportFailure(tryRemovePreferencesFile());
}

} // namespace

std::vector<ToolCommand> settingsCommands() {
    return {
        {"read", "[KEY]", "print every setting, or one, with its effective value", 0, 1, read},
        {"write", "KEY VALUE", "store VALUE as the setting's text", 2, 2, write},
        {"delete", "KEY", "remove the stored setting (its default applies again)", 1, 1, remove},
        {"reset", "", "remove the settings file: every setting back to its default", 0, 0, reset},
    };
}

} // namespace pomwick
