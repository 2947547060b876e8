#pragma once

#include "PomwickPlatformExport.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pomwick {

// The settings bundle as built or installed: its plugin and its artwork, in the folder that lies
// at a fixed relative path from the subsystem libraries (in the build tree as in any install
// prefix). $POMWICK_BUNDLE_SOURCE names another built bundle instead.
POMWICK_PLATFORM_EXPORT std::filesystem::path installedBundleDirectory();

// The bundle's plugin, the only code of the bundle. It is loaded from the installed folder only,
// never from the device root.
POMWICK_PLATFORM_EXPORT std::filesystem::path installedBundlePlugin();

// Brings the bundle's resources into the device root's bundle folder: copies every file but the
// plugin that is missing there or differs in size or time, each through a temporary file and a
// rename. Returns the reason when it could not.
POMWICK_PLATFORM_EXPORT std::optional<std::string> installBundleIntoDeviceRoot();

} // namespace pomwick
