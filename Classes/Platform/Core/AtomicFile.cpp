#include "AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pomwick {
namespace {

std::string systemError(const std::string& what, const std::filesystem::path& path) {
    return what + " " + path.string() + ": " + std::strerror(errno);
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

// Swaps the new file in and removes the old one. An exchange, rather than a rename over the
// target, spares ext4 the flush it forces on every rename that replaces a file (about 100 us a
// write here); a reader still sees the old file or the new one, whole. A new target, or a file
// system without exchanges, takes a plain rename.
bool replaceWith(const std::string& temporary, const std::filesystem::path& target) {
    if (::renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0) {
        // The temporary now holds the old file; the new one is in place whatever happens to it.
        ::unlink(temporary.c_str());
        return true;
    }
    return ::rename(temporary.c_str(), target.c_str()) == 0;
}

} // namespace

std::optional<std::string> writeFileAtomically(const std::filesystem::path& path,
                                               std::string_view bytes) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        return "cannot create " + path.parent_path().string() + ": " + error.message();

    std::string temporary = path.parent_path() / ("." + path.filename().string() + ".XXXXXX");
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        return systemError("cannot write in", path.parent_path());
    bool written = writeAll(fd, bytes) && ::fchmod(fd, 0644) == 0;
    std::string reason = written ? "" : systemError("cannot write", temporary);
    if (::close(fd) != 0 && written) {
        written = false;
        reason = systemError("cannot write", temporary);
    }
    if (written && !replaceWith(temporary, path)) {
        written = false;
        reason = systemError("cannot replace", path);
    }
    if (!written)
        ::unlink(temporary.c_str());
    return written ? std::nullopt : std::optional<std::string>(reason);
}

} // namespace pomwick
