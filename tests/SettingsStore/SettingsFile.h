#pragma once

#include "TemporaryDeviceRoot.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pomwick::test {

// A settings property list as another program would write it: raw XML around the given body.
std::string plistXml(const std::string& dictionaryBody);

// Binary property lists, object by object (references are object numbers; object 0 is the root).
namespace binary {
std::string array(const std::vector<uint32_t>& references);
std::string dictionary(const std::vector<std::pair<uint32_t, uint32_t>>& entries);
std::string text(const std::string& ascii);
std::string data(size_t size);
std::string plist(const std::vector<std::string>& objects);
} // namespace binary

// Every getter gives its key's default, but for the one excepted.
void expectEveryDefault(std::string_view except = {});

// A fresh device root that holds the given settings file bytes.
class SettingsRoot : public TemporaryDeviceRoot {
public:
    void writeSettings(const std::string& bytes) const;
    std::string settingsBytes() const;
    // The names in the settings file's folder, sorted.
    std::vector<std::string> preferencesFiles() const;
};

} // namespace pomwick::test
