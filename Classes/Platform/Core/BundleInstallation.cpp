#include "BundleInstallation.h"

#include "AtomicFile.h"
#include "DevicePaths.h"

#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace pomwick {
namespace {

bool isCurrent(const fs::path& source, const fs::path& target) {
    std::error_code sourceError, targetError;
    const auto sourceSize = fs::file_size(source, sourceError);
    const auto targetSize = fs::file_size(target, targetError);
    if (sourceError || targetError || sourceSize != targetSize)
        return false;
    const auto sourceTime = fs::last_write_time(source, sourceError);
    const auto targetTime = fs::last_write_time(target, targetError);
    return !sourceError && !targetError && sourceTime == targetTime;
}

std::optional<std::string> copyAtomically(const fs::path& source, const fs::path& target) {
    std::ifstream in(source, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in.good() && !in.eof())
        return "cannot read " + source.string();
    if (auto failure = writeFileAtomically(target, bytes))
        return failure;
    // The same time as the source marks the copy as current.
    std::error_code error;
    fs::last_write_time(target, fs::last_write_time(source, error), error);
    return std::nullopt;
}

constexpr const char* pluginFileName = "PomwickPreferences.so";

// The folder of the library this code is part of.
fs::path libraryFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&installedBundleDirectory), &info) == 0 ||
        info.dli_fname == nullptr)
        return {};
    std::error_code error;
    const fs::path library = fs::canonical(info.dli_fname, error);
    return error ? fs::path() : library.parent_path();
}

} // namespace

fs::path installedBundleDirectory() {
    if (const char* source = std::getenv("POMWICK_BUNDLE_SOURCE"); source && *source)
        return source;
    return (libraryFolder() / POMWICK_BUNDLE_FROM_LIBDIR).lexically_normal();
}

fs::path installedBundlePlugin() {
    return installedBundleDirectory() / pluginFileName;
}

std::optional<std::string> installBundleIntoDeviceRoot() {
    const fs::path source = installedBundleDirectory();
    const fs::path target = hostPath(DevicePath::bundleDirectory);
    std::error_code error;
    if (!fs::is_directory(source, error))
        return "the settings bundle was not found at " + source.string() + " (build it first)";
    for (fs::recursive_directory_iterator it(source, error), end; it != end && !error;
         it.increment(error)) {
        if (!it->is_regular_file() || it->path().filename() == pluginFileName)
            continue;
        const fs::path destination = target / fs::relative(it->path(), source);
        if (isCurrent(it->path(), destination))
            continue;
        if (auto failure = copyAtomically(it->path(), destination))
            return failure;
    }
    if (error)
        return "cannot read " + source.string() + ": " + error.message();
    return std::nullopt;
}

} // namespace pomwick
