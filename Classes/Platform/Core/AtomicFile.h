#pragma once

#include "PomwickPlatformExport.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// Why the path must not be replaced or removed: something other than a regular file is there (a
// folder, a link, a FIFO, a device), which belongs to someone else. Nothing when the path is
// free or a regular file.
POMWICK_PLATFORM_EXPORT std::optional<std::string>
whyNotReplaceable(const std::filesystem::path& path);

// Writes the bytes to a unique temporary file in the target's folder (created if missing) and
// renames it over the target: a reader sees the old file or the new one, whole, and a writer
// killed at any moment leaves one of them. Not synced to disk: these files are rewritten often
// and only have to survive the death of a process. Returns the reason on failure, leaving the
// target as it was and no temporary behind. Refuses what whyNotReplaceable() refuses.
POMWICK_PLATFORM_EXPORT std::optional<std::string>
writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// Removes the temporaries that writers of the file killed mid-write left behind. Only for a
// caller that holds a lock every writer of the file takes, so that none of them is live.
POMWICK_PLATFORM_EXPORT void removeStaleTemporaries(const std::filesystem::path& path);

} // namespace pomwick
