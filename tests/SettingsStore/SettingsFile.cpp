#include "SettingsFile.h"

#include "DevicePaths.h"

namespace pomwick::test {

std::string plistXml(const std::string& dictionaryBody) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" +
           dictionaryBody + "\n</plist>\n";
}

std::string stringsPlist(const std::vector<std::pair<std::string, std::string>>& entries) {
    std::string body = "<dict>";
    for (const auto& [key, value] : entries)
        body += "<key>" + key + "</key><string>" + value + "</string>";
    return plistXml(body + "</dict>");
}

void SettingsRoot::writeSettings(const std::string& bytes) const {
    writeFile(std::string(DevicePath::preferencesFile), bytes);
}

std::string SettingsRoot::settingsBytes() const {
    return readFile(std::string(DevicePath::preferencesFile));
}

} // namespace pomwick::test
