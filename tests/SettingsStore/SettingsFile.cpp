#include "SettingsFile.h"

#include "DevicePaths.h"
#include "Settings.h"

#include <gtest/gtest.h>

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

namespace {

void appendBigEndian(std::string& bytes, uint64_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

} // namespace

std::string binaryPlistOfArrays(const std::vector<std::vector<uint32_t>>& references) {
    std::string bytes = "bplist00";
    std::vector<uint64_t> offsets;
    for (const auto& children : references) {
        offsets.push_back(bytes.size());
        bytes += '\xAF'; // an array whose length follows as a 4-byte integer
        bytes += '\x12';
        appendBigEndian(bytes, children.size(), 4);
        for (const uint32_t child : children)
            appendBigEndian(bytes, child, 4);
    }
    const uint64_t table = bytes.size();
    for (const uint64_t offset : offsets)
        appendBigEndian(bytes, offset, 8);
    bytes += std::string(6, '\0');
    bytes += '\x08'; // offset size
    bytes += '\x04'; // reference size
    appendBigEndian(bytes, references.size(), 8);
    appendBigEndian(bytes, 0, 8); // the root
    appendBigEndian(bytes, table, 8);
    return bytes;
}

// The expected defaults are the table's; the tool's test spells them out once more, by hand.
void expectEveryDefault(std::string_view except) {
    for (const Setting& setting : settingsTable) {
        if (setting.key == except)
            continue;
        EXPECT_EQ(printedValue(effectiveValue(setting)), printedValue(setting.defaultValue))
            << setting.key;
    }
}

void SettingsRoot::writeSettings(const std::string& bytes) const {
    writeFile(std::string(DevicePath::preferencesFile), bytes);
}

std::string SettingsRoot::settingsBytes() const {
    return readFile(std::string(DevicePath::preferencesFile));
}

} // namespace pomwick::test
