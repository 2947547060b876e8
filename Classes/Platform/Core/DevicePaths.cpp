#include "DevicePaths.h"

#include <cstdlib>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pomwick {
namespace {

std::filesystem::path& currentRoot() {
    static std::filesystem::path root = DeviceRoot::defaultRoot();
    return root;
}

std::optional<std::string> environment(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0')
        return std::nullopt;
    return std::string(value);
}

// The root itself must be ours; the folders above it may also be the system's.
bool ownedByUs(const struct stat& status, bool isRoot) {
    return status.st_uid == geteuid() || (!isRoot && status.st_uid == 0);
}

// A group counts as others unless it is the user's own private group, which only the user is in
// (the usual set-up, where new folders are group-writable).
bool writableByOthers(const struct stat& status) {
    if (status.st_mode & S_IWOTH)
        return true;
    if (!(status.st_mode & S_IWGRP))
        return false;
    const group* owners = getgrgid(status.st_gid);
    const passwd* user = getpwuid(geteuid());
    const bool privateGroup = owners && user && user->pw_gid == status.st_gid && owners->gr_name &&
                              user->pw_name && std::string_view(owners->gr_name) == user->pw_name &&
                              (owners->gr_mem == nullptr || owners->gr_mem[0] == nullptr);
    return !privateGroup;
}

} // namespace

const std::filesystem::path& DeviceRoot::current() {
    return currentRoot();
}

void DeviceRoot::set(const std::filesystem::path& root) {
    currentRoot() = std::filesystem::absolute(root).lexically_normal();
}

std::filesystem::path DeviceRoot::defaultRoot() {
    std::filesystem::path state;
    if (auto xdg = environment("XDG_STATE_HOME"))
        state = *xdg;
    else if (auto home = environment("HOME"))
        state = std::filesystem::path(*home) / ".local" / "state";
    else if (const passwd* user = getpwuid(geteuid()); user && user->pw_dir && *user->pw_dir)
        state = std::filesystem::path(user->pw_dir) / ".local" / "state";
    else
        return {};
    return state / "pomwick" / "device";
}

std::filesystem::path DeviceRoot::choose(const std::optional<std::string>& rootOption) {
    if (rootOption && !rootOption->empty())
        return std::filesystem::absolute(*rootOption).lexically_normal();
    if (auto fromEnvironment = environment("POMWICK_ROOT"))
        return std::filesystem::absolute(*fromEnvironment).lexically_normal();
    return defaultRoot();
}

std::optional<std::string> DeviceRoot::refusal(const std::filesystem::path& root) {
    if (root.empty())
        return "there is no device root: the user has no home folder (set HOME, XDG_STATE_HOME, "
               "POMWICK_ROOT or --root)";
    const std::filesystem::path absolute = std::filesystem::absolute(root).lexically_normal();
    std::error_code error;
    if (std::filesystem::exists(absolute, error) && !std::filesystem::is_directory(absolute, error))
        return "the device root " + absolute.string() + " is not a folder";
    for (std::filesystem::path folder = absolute;; folder = folder.parent_path()) {
        struct stat status {};
        if (::stat(folder.c_str(), &status) == 0) {
            const bool isRoot = folder == absolute;
            if (!ownedByUs(status, isRoot))
                return "the device root " + absolute.string() + " is unsafe: " + folder.string() +
                       " belongs to another user";
            if (writableByOthers(status) && (isRoot || !(status.st_mode & S_ISVTX)))
                return "the device root " + absolute.string() + " is unsafe: " + folder.string() +
                       " can be written by other users";
        }
        if (folder == folder.parent_path())
            return std::nullopt;
    }
}

std::optional<std::string> DeviceRoot::select(const std::optional<std::string>& rootOption) {
    const std::filesystem::path root = choose(rootOption);
    if (auto refused = refusal(root))
        return refused;
    set(root);
    return std::nullopt;
}

std::filesystem::path hostPath(std::string_view devicePath) {
    while (!devicePath.empty() && devicePath.front() == '/')
        devicePath.remove_prefix(1);
    return DeviceRoot::current() / std::filesystem::path(devicePath);
}

} // namespace pomwick
