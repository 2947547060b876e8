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

std::string temporaryPrefix(const std::filesystem::path& path) {
    return "." + path.filename().string() + ".";
}

constexpr std::string_view temporarySuffix = "XXXXXX";

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
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        return "cannot create " + path.parent_path().string() + ": " + error.message();
    if (auto refusal = whyNotReplaceable(path))
        return refusal;

    std::string temporary =
        path.parent_path() / (temporaryPrefix(path) + std::string(temporarySuffix));
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

} // namespace pomwick
