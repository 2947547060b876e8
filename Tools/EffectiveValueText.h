#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// The effective value of a setting (its default applied) as the tool prints it: booleans
// true/false, integers in decimal, floats and components with "%.9g" joined by ",", text
// verbatim, the font as "NAME SIZE" or "(none)". Nothing for an unknown key.
std::optional<std::string> effectiveValueText(std::string_view key);

} // namespace pomwick
