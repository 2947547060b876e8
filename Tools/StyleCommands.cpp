// A style to keep or give away: the eleven settings in a property list of their own.
#include "AtomicFile.h"
#include "PlistDictionary.h"
#include "Settings.h"
#include "StorableValue.h"
#include "ToolCommand.h"

#include <iostream>

namespace pomwick {
namespace {

int fail(const std::string& problem) {
    std::cerr << "pomwick-defaults: " << problem << "\n";
    return operationFailed;
}

// The text under which `write` stores the value: the face's name alone for the font, the text
// as it is (not escaped for a terminal), everything else as `read` prints it.
std::optional<std::string> storableText(const SettingValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* font = std::get_if<std::optional<Font>>(&value))
        return *font ? std::optional((*font)->name) : std::nullopt;
    return printedValue(value);
}

int exportStyle(const std::vector<std::string>& arguments) {
    const std::filesystem::path file = std::filesystem::absolute(arguments[0]);
    PlistDictionary style;
    for (const Setting& setting : settingsTable)
        if (const auto text = storableText(effectiveValue(setting)))
            style.setString(setting.key, *text);
    const auto bytes = style.encoded();
    if (!bytes)
        return fail("cannot encode the settings");
    if (const auto failure = writeFileAtomically(file, *bytes))
        return fail(*failure);
    return 0;
}

// Every key checked as `write` checks it before anything is stored; the first bad one refuses
// the whole file.
int importStyle(const std::vector<std::string>& arguments) {
    const auto style = PlistDictionary::readFromFile(std::filesystem::absolute(arguments[0]));
    if (!style)
        return fail(arguments[0] + " is not a settings property list");
    std::vector<std::pair<std::string, std::string>> values;
    for (const std::string& key : style->keys()) {
        const Setting* setting = findSetting(key);
        if (setting == nullptr)
            return fail(arguments[0] + ": unknown key '" + key + "'");
        const auto stored = style->lookup(key);
        if (!stored || stored->kind != StoredValue::Kind::String)
            return fail(arguments[0] + ": " + key + " is not text");
        if (const auto problem = whyNotStorable(*setting, stored->text))
            return fail(arguments[0] + ": " + key + ": " + *problem);
        values.emplace_back(key, stored->text);
    }
    if (const auto failure = trySetPreferencesObjects(values))
        return fail(*failure);
    return 0;
}

} // namespace

std::vector<ToolCommand> styleCommands() {
    return {
        {"export", "FILE", "write the eleven settings to FILE, a style to keep or share", 1, 1,
         exportStyle},
        {"import", "FILE", "store every setting FILE holds, if each could have been written", 1, 1,
         importStyle},
    };
}

} // namespace pomwick
