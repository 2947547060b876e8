#include "TemporaryDeviceRoot.h"

#include "DevicePaths.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pomwick::test {

TemporaryDeviceRoot::TemporaryDeviceRoot() : previousRoot_(DeviceRoot::current()) {
    if (!directory_.isValid())
        throw std::runtime_error("cannot create a temporary device root");
    DeviceRoot::set(directory_.path().toStdString());
}

void TemporaryDeviceRoot::writeFile(const std::string& devicePath, const std::string& bytes) const {
    const auto target = at(devicePath);
    std::filesystem::create_directories(target.parent_path());
    std::ofstream(target, std::ios::binary | std::ios::trunc) << bytes;
}

std::string TemporaryDeviceRoot::readFile(const std::string& devicePath) const {
    std::ifstream in(at(devicePath), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace pomwick::test
