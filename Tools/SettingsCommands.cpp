#include "Settings.h"
#include "ToolCommand.h"

#include <iostream>

namespace pomwick {
namespace {

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
        for (const Setting& setting : settingsTable)
            std::cout << setting.key << " = " << printedValue(effectiveValue(setting)) << "\n";
        return 0;
    }
    const Setting* setting = findSetting(arguments[0]);
    if (setting == nullptr)
        return unknownKey(arguments[0]);
    std::cout << printedValue(effectiveValue(*setting)) << "\n";
    return 0;
}

int write(const std::vector<std::string>& arguments) {
    if (findSetting(arguments[0]) == nullptr)
        return unknownKey(arguments[0]);
    return reportFailure(trySetPreferencesObjectKey(arguments[1], arguments[0]));
}

int remove(const std::vector<std::string>& arguments) {
    if (findSetting(arguments[0]) == nullptr)
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
