#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pomwick {

// An exclusive advisory lock (flock) on a lock file, created if missing, held from construction
// until destruction: it serialises the read-modify-write cycles of one file between processes.
// Waits for the lock; the lock file is never removed (removing it would let two writers hold
// locks on two different files).
class FileLock {
public:
    explicit FileLock(const std::filesystem::path& lockFile);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // Why the lock could not be taken (the folder cannot be written, the path is not a regular
    // file), or nothing when it is held.
    const std::optional<std::string>& failure() const { return failure_; }

private:
    int fd_ = -1;
    std::optional<std::string> failure_;
};

} // namespace pomwick
