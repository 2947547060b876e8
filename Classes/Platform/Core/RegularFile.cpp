#include "RegularFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pomwick {
namespace {

class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

std::error_code lastError() {
    return {errno, std::generic_category()};
}

} // namespace

std::optional<std::string> readRegularFile(const std::filesystem::path& path,
                                           std::size_t maximumBytes, std::error_code& error) {
    // Non-blocking: opening a FIFO for reading would otherwise wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.get() < 0) {
        error = lastError();
        return std::nullopt;
    }
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        error = lastError();
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        error = std::make_error_code(std::errc::invalid_argument);
        return std::nullopt;
    }
    if (status.st_size < 0 || static_cast<std::uintmax_t>(status.st_size) > maximumBytes) {
        error = std::make_error_code(std::errc::file_too_large);
        return std::nullopt;
    }
    // Reads to the end, one byte past the bound at most: the file may grow while it is read.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) {
            if (bytes.size() > maximumBytes)
                break;
            bytes.resize(std::min(maximumBytes + 1, bytes.size() * 2));
        }
        const ssize_t got = ::read(file.get(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            error = lastError();
            return std::nullopt;
        }
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    if (filled > maximumBytes) {
        error = std::make_error_code(std::errc::file_too_large);
        return std::nullopt;
    }
    bytes.resize(filled);
    error.clear();
    return bytes;
}

} // namespace pomwick
