#include "FileLock.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pomwick {
namespace {

// Writers hold the lock for well under a millisecond; one that holds it longer has hung, and
// waiting for it without end would hang the caller too. Polls with a growing pause, since flock
// has no timed wait.
bool lockWithin(int fd, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    auto pause = std::chrono::microseconds(50);
    for (;;) {
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
            return true;
        if (errno != EWOULDBLOCK && errno != EINTR)
            return false;
        if (std::chrono::steady_clock::now() >= deadline) {
            errno = EWOULDBLOCK;
            return false;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::microseconds(20000));
    }
}

} // namespace

FileLock::FileLock(const std::filesystem::path& lockFile) {
    std::error_code error;
    std::filesystem::create_directories(lockFile.parent_path(), error);
    // Not waiting on open and not following links: whatever sits at the path must be our file.
    fd_ = ::open(lockFile.c_str(),
                 O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0644);
    struct stat status {};
    if (fd_ < 0 || ::fstat(fd_, &status) != 0) {
        failure_ = "cannot lock " + lockFile.string() + ": " + std::strerror(errno);
    } else if (!S_ISREG(status.st_mode)) {
        failure_ = lockFile.string() + " is not a regular file; cannot lock it";
    } else if (!lockWithin(fd_, maximumWait)) {
        failure_ = errno == EWOULDBLOCK
                       ? lockFile.string() + " is held by another writer that does not let go"
                       : "cannot lock " + lockFile.string() + ": " + std::strerror(errno);
    }
}

FileLock::~FileLock() {
    // Closing releases the lock.
    if (fd_ >= 0)
        ::close(fd_);
}

} // namespace pomwick
