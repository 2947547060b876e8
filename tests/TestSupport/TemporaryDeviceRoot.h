#pragma once

#include "DevicePaths.h"

#include <QTemporaryDir>
#include <filesystem>
#include <string>

namespace pomwick::test {

// A fresh, empty device root for one test, made current for the process and removed afterwards.
class TemporaryDeviceRoot {
public:
    TemporaryDeviceRoot();
    ~TemporaryDeviceRoot() { DeviceRoot::set(previousRoot_); }

    std::filesystem::path path() const { return directory_.path().toStdString(); }
    // The host path of a device path under this root.
    std::filesystem::path at(const std::string& devicePath) const { return hostPath(devicePath); }
    // Writes bytes to the device path, creating its folders.
    void writeFile(const std::string& devicePath, const std::string& bytes) const;
    std::string readFile(const std::string& devicePath) const;

private:
    QTemporaryDir directory_;
    std::filesystem::path previousRoot_;
};

} // namespace pomwick::test
