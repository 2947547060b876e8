#pragma once

#include "PomwickPlatformExport.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace pomwick {

// The whole content of a regular file of at most maximumBytes, never blocking on anything else:
// a FIFO, device or socket at the path is refused at once, whether or not anyone writes to it.
// Size and bytes come from one open file, so a rename over the path meanwhile gives the old file
// or the new one, whole. Nothing on failure, with the reason in `error`:
// no_such_file_or_directory when nothing is there, invalid_argument when it is not a regular
// file, file_too_large beyond the bound, or the system's error.
POMWICK_PLATFORM_EXPORT std::optional<std::string>
readRegularFile(const std::filesystem::path& path, std::size_t maximumBytes,
                std::error_code& error);

} // namespace pomwick
