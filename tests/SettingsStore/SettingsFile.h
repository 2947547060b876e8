#pragma once

#include "TemporaryDeviceRoot.h"

#include <string>
#include <utility>
#include <vector>

namespace pomwick::test {

// A settings property list as another program would write it: raw XML around the given body.
std::string plistXml(const std::string& dictionaryBody);
// <dict> of string values.
std::string stringsPlist(const std::vector<std::pair<std::string, std::string>>& entries);

// Every getter gives its key's default.
void expectEveryDefault();

// A fresh device root that holds the given settings file bytes.
class SettingsRoot : public TemporaryDeviceRoot {
public:
    void writeSettings(const std::string& bytes) const;
    std::string settingsBytes() const;
};

} // namespace pomwick::test
