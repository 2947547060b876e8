#include "FileLock.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pomwick {

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
    } else {
        int result;
        while ((result = ::flock(fd_, LOCK_EX)) != 0 && errno == EINTR) {
        }
        if (result != 0)
            failure_ = "cannot lock " + lockFile.string() + ": " + std::strerror(errno);
    }
}

FileLock::~FileLock() {
    // Closing releases the lock.
    if (fd_ >= 0)
        ::close(fd_);
}

} // namespace pomwick
