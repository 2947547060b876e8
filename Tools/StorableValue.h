#pragma once

#include "SettingsTable.h"

#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// Why `text` is not a value the settings window could have stored under the setting, or
// nothing: a switch's word, a number within its control's range, a face the font picker lists,
// four color components from 0 to 1, a position within the editor's square.
std::optional<std::string> whyNotStorable(const Setting& setting, std::string_view text);

} // namespace pomwick
