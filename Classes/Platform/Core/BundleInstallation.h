#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pomwick {

// Brings the settings bundle (plugin and resources) into the device root's bundle folder: copies
// every file that is missing there or differs in size or time, each through a temporary file and
// a rename. Returns the reason when it could not.
std::optional<std::string> installBundleIntoDeviceRoot();

} // namespace pomwick
