#include "AtomicFile.h"

#include <cerrno>
#include <csignal>
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

std::string temporaryPrefix(const std::filesystem::path& path) {
    return "." + path.filename().string() + ".";
}

// mkstemp's pattern; the one name of writers that take turns has as many letters, so that the
// search for stale temporaries finds it too.
constexpr std::string_view temporarySuffix = "XXXXXX";
constexpr std::string_view turnSuffix = "change";

std::optional<std::string> prepareFolder(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        return "cannot create " + path.parent_path().string() + ": " + error.message();
    return whyNotReplaceable(path);
}

// Fills the temporary, open as fd, closes it and puts it in the target's place; removes it when
// that fails.
std::optional<std::string> fillAndPutInPlace(int fd, const std::string& temporary,
                                             const std::filesystem::path& path,
                                             std::string_view bytes) {
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

// Beside the target, hidden like the temporaries but never taken for a stale one.
std::string sparePath(const std::filesystem::path& path) {
    return path.parent_path() / (temporaryPrefix(path) + "spare");
}

// Writes the bytes into the spare in place, only when no other process has it open and it has no
// other name, so that nobody can be reading it. A write lease is granted only to the one process
// that has the file open, and while it is held, opening the file waits or, without waiting,
// fails: nobody starts reading the spare half written either.
bool fillSpare(const std::string& spare, std::string_view bytes) {
    const int fd = ::open(
        spare.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0644);
    if (fd < 0)
        return false;
    struct stat status {};
    // Someone opening the spare breaks the lease and signals this process, with SIGIO unless told
    // otherwise, which would end it: SIGURG is ignored unless handled.
    bool filled = ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
                  ::fcntl(fd, F_SETSIG, SIGURG) == 0 && ::fcntl(fd, F_SETLEASE, F_WRLCK) == 0;
    if (filled) {
        filled = ((status.st_mode & 07777) == 0644 || ::fchmod(fd, 0644) == 0) &&
                 writeAll(fd, bytes) && ::ftruncate(fd, off_t(bytes.size())) == 0;
        ::fcntl(fd, F_SETLEASE, F_UNLCK);
    }
    return ::close(fd) == 0 && filled;
}

} // namespace

std::optional<std::string> whyNotReplaceable(const std::filesystem::path& path) {
    std::error_code error;
    const auto type = std::filesystem::symlink_status(path, error).type();
    if (type == std::filesystem::file_type::not_found ||
        type == std::filesystem::file_type::regular)
        return std::nullopt;
    return path.string() + " is not a regular file; leaving it as it is";
}

std::optional<std::string> writeFileAtomically(const std::filesystem::path& path,
                                               std::string_view bytes) {
    if (auto refusal = prepareFolder(path))
        return refusal;
    std::string temporary =
        path.parent_path() / (temporaryPrefix(path) + std::string(temporarySuffix));
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        return systemError("cannot write in", path.parent_path());
    return fillAndPutInPlace(fd, temporary, path, bytes);
}

std::optional<std::string> writeFileAtomicallyInTurn(const std::filesystem::path& path,
                                                     std::string_view bytes) {
    if (auto refusal = prepareFolder(path))
        return refusal;
    const std::string temporary =
        path.parent_path() / (temporaryPrefix(path) + std::string(turnSuffix));
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY;
    int fd = ::open(temporary.c_str(), flags, 0600);
    if (fd < 0 && errno == EEXIST) {
        removeStaleTemporaries(path);
        fd = ::open(temporary.c_str(), flags, 0600);
    }
    // Something that is no temporary of ours holds the name: a unique one will do.
    if (fd < 0)
        return writeFileAtomically(path, bytes);
    return fillAndPutInPlace(fd, temporary, path, bytes);
}

void removeStaleTemporaries(const std::filesystem::path& path) {
    const std::string prefix = temporaryPrefix(path);
    constexpr std::string_view randomCharacters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::error_code error;
    for (std::filesystem::directory_iterator entry(path.parent_path(), error), end;
         !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const bool ours =
            name.size() == prefix.size() + temporarySuffix.size() && name.starts_with(prefix) &&
            name.find_first_not_of(randomCharacters, prefix.size()) == std::string::npos;
        std::error_code ignored;
        if (ours && entry->is_regular_file(ignored))
            std::filesystem::remove(entry->path(), ignored);
    }
}

std::optional<std::string> replaceFileThroughSpare(const std::filesystem::path& path,
                                                   std::string_view bytes) {
    if (auto refusal = whyNotReplaceable(path))
        return refusal;
    const std::string spare = sparePath(path);
    if (fillSpare(spare, bytes)) {
        if (::renameat2(AT_FDCWD, spare.c_str(), AT_FDCWD, path.c_str(), RENAME_EXCHANGE) == 0)
            return std::nullopt;
        // No target yet: the spare becomes it, and the next call makes a new spare.
        if (errno == ENOENT && ::rename(spare.c_str(), path.c_str()) == 0)
            return std::nullopt;
    }
    return writeFileAtomically(path, bytes);
}

} // namespace pomwick
