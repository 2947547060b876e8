#include "DevicePaths.h"

#include <cstdlib>

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
    else
        state = std::filesystem::temp_directory_path();
    return state / "pomwick" / "device";
}

std::filesystem::path DeviceRoot::choose(const std::optional<std::string>& rootOption) {
    if (rootOption && !rootOption->empty())
        return std::filesystem::absolute(*rootOption).lexically_normal();
    if (auto fromEnvironment = environment("POMWICK_ROOT"))
        return std::filesystem::absolute(*fromEnvironment).lexically_normal();
    return defaultRoot();
}

std::filesystem::path hostPath(std::string_view devicePath) {
    while (!devicePath.empty() && devicePath.front() == '/')
        devicePath.remove_prefix(1);
    return DeviceRoot::current() / std::filesystem::path(devicePath);
}

} // namespace pomwick
