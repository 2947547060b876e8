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

// The same, for a caller that holds a lock every writer of the file takes: the temporary has one
// name, so that a temporary a killed writer left is found by the next writer's attempt to make
// its own, which then removes every stale temporary of the file; no other write looks for them.
POMWICK_PLATFORM_EXPORT std::optional<std::string>
writeFileAtomicallyInTurn(const std::filesystem::path& path, std::string_view bytes);

// Removes the temporaries that writers of the file killed mid-write left behind. Only for a
// caller that holds a lock every writer of the file takes, so that none of them is live.
POMWICK_PLATFORM_EXPORT void removeStaleTemporaries(const std::filesystem::path& path);

// Replaces the file as writeFileAtomically() does, for a file rewritten on every request, without
// making a new file each time: the bytes go into a spare file kept beside the target, which is
// then exchanged with it, so that the spare holds the previous version for the next call. The
// spare is written into only while no other process has it open (a write lease proves it) and no
// other name links to it: a reader that opened the previous version keeps it whole. Otherwise,
// or where exchanges or leases are not available, it writes a new temporary file instead.
POMWICK_PLATFORM_EXPORT std::optional<std::string>
replaceFileThroughSpare(const std::filesystem::path& path, std::string_view bytes);

} // namespace pomwick
