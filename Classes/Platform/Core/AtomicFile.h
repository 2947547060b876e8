#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// Writes the bytes to a unique temporary file in the target's folder (created if missing) and
// renames it over the target: a reader sees the old file or the new one, whole, and a writer
// killed at any moment leaves one of them. Not synced to disk: these files are rewritten often
// and only have to survive the death of a process. Returns the reason on failure, leaving the
// target as it was and no temporary behind.
std::optional<std::string> writeFileAtomically(const std::filesystem::path& path,
                                               std::string_view bytes);

} // namespace pomwick
