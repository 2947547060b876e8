#include "Settings.h"
#include "StorableValue.h"
#include "ToolCommand.h"

#include <iostream>

namespace pomwick {
namespace {

int unknownKey(const std::string& key) {
    std::cerr << "pomwick-defaults: unknown key '" << key << "' (run 'pomwick-defaults read' "
              << "to list the keys)\n";
    return usageError;
}

int usage(const std::string& problem) {
    std::cerr << "pomwick-defaults: " << problem << " (see 'pomwick-defaults --help')\n";
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

// write [--raw] KEY VALUE: the value checked against its key, or with --raw stored as given.
int write(const std::vector<std::string>& arguments) {
    const bool raw = arguments[0] == "--raw";
    if (arguments.size() != (raw ? 3u : 2u))
        return usage(raw ? "'write --raw' needs KEY VALUE" : "too many arguments for 'write'");
    const std::string& key = arguments[raw ? 1 : 0];
    const std::string& value = arguments[raw ? 2 : 1];
    const Setting* setting = findSetting(key);
    if (setting == nullptr)
        return unknownKey(key);
    if (!raw)
        if (const auto problem = whyNotStorable(*setting, value))
            return usage(key + ": " + *problem + " (--raw stores it as given)");
    return reportFailure(trySetPreferencesObjectKey(value, key));
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
        {"write", "[--raw] KEY VALUE",
         "store VALUE as the setting's text, if the window could have stored it", 2, 3, write},
        {"delete", "KEY", "remove the stored setting (its default applies again)", 1, 1, remove},
        {"reset", "", "remove the settings file: every setting back to its default", 0, 0, reset},
    };
}

} // namespace pomwick
