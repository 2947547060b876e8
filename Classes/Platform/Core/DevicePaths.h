#pragma once

#include "PomwickPlatformExport.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pomwick {

// Absolute paths of the device ("/var/mobile/...", "/Library/...", "/tmp/") live under one device
// root: a folder laid out like the device's file system. hostPath() is the only place that turns
// a device path into a path on this machine.
namespace DevicePath {
inline constexpr std::string_view preferencesFile =
    "/var/mobile/Library/Preferences/com.velquor.pomwickpreferences.plist";
inline constexpr std::string_view bundleDirectory =
    "/Library/PreferenceBundles/PomwickPreferences.bundle/";
inline constexpr std::string_view tmpDirectory = "/tmp/";
} // namespace DevicePath

class POMWICK_PLATFORM_EXPORT DeviceRoot {
public:
    // The root in force for this process; the per-user default until set() is called.
    static const std::filesystem::path& current();
    static void set(const std::filesystem::path& root);

    // $XDG_STATE_HOME/pomwick/device, or ~/.local/state/pomwick/device with the home folder
    // from $HOME or else the password database: needs no root rights, and never lies in a shared
    // folder. Empty when the user has no home folder at all.
    static std::filesystem::path defaultRoot();

    // The root a program runs on: its --root option, else $POMWICK_ROOT, else defaultRoot().
    static std::filesystem::path choose(const std::optional<std::string>& rootOption);

    // Why the root must not be used, or nothing. Another user must not be able to change what
    // the programs read there: the root (where it exists) is ours and writable by no one else,
    // and every folder above it is ours or root's and writable by no one else unless sticky
    // (as /tmp is), so nobody can swap the root itself.
    static std::optional<std::string> refusal(const std::filesystem::path& root);

    // choose() and set() for a program's start; the refusal when the chosen root is unsafe.
    static std::optional<std::string> select(const std::optional<std::string>& rootOption);
};

// The host path of a device path under the current root. A relative device path is taken from
// the device's "/".
POMWICK_PLATFORM_EXPORT std::filesystem::path hostPath(std::string_view devicePath);

} // namespace pomwick
