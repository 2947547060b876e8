#pragma once

#include "PomwickPlatformExport.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

namespace pomwick {

// An exclusive advisory lock (flock) on a lock file, created if missing, held from construction
// until destruction: it serialises the read-modify-write cycles of one file between processes.
// Waits for the lock up to maximumWait, then gives up (a holder that long has hung). The lock
// file is never removed: removing it would let two writers hold locks on two different files.
class POMWICK_PLATFORM_EXPORT FileLock {
public:
    static constexpr std::chrono::milliseconds maximumWait{2000};

    explicit FileLock(const std::filesystem::path& lockFile);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Why the lock could not be taken (the folder cannot be written, the path is not a regular
    // file, another writer hung holding it), or nothing when it is held.
    const std::optional<std::string>& failure() const { return failure_; }

private:
    int fd_ = -1;
    std::optional<std::string> failure_;
};

} // namespace pomwick
