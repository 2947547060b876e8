#include "SettingsFile.h"

#include "DevicePaths.h"
#include "Settings.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace pomwick::test {

std::string plistXml(const std::string& dictionaryBody) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" +
           dictionaryBody + "\n</plist>\n";
}

namespace {

std::string bigEndian(uint64_t value, int size) {
    std::string bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
    return bytes;
}

// A marker with its count as a 4-byte integer object after it.
std::string marker(char kind, size_t count) {
    return std::string(1, static_cast<char>(kind << 4 | 0xF)) + '\x12' + bigEndian(count, 4);
}

} // namespace

namespace binary {

std::string array(const std::vector<uint32_t>& references) {
    std::string bytes = marker(0xA, references.size());
    for (const uint32_t reference : references)
        bytes += bigEndian(reference, 4);
    return bytes;
}

std::string dictionary(const std::vector<std::pair<uint32_t, uint32_t>>& entries) {
    std::string bytes = marker(0xD, entries.size());
    for (const auto& entry : entries)
        bytes += bigEndian(entry.first, 4);
    for (const auto& entry : entries)
        bytes += bigEndian(entry.second, 4);
    return bytes;
}

std::string text(const std::string& ascii) {
    return marker(0x5, ascii.size()) + ascii;
}

std::string data(size_t size) {
    return marker(0x4, size) + std::string(size, 'x');
}

std::string plist(const std::vector<std::string>& objects) {
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(bytes.size(), 8);
        bytes += object;
    }
    const size_t tableOffset = bytes.size();
    // Offsets of 8 bytes, references of 4, the object count, the root (0), the table's offset.
    return bytes + table + std::string(6, '\0') + '\x08' + '\x04' + bigEndian(objects.size(), 8) +
           bigEndian(0, 8) + bigEndian(tableOffset, 8);
}

} // namespace binary

// The expected defaults are the table's; the tool's test spells them out once more, by hand.
void expectEveryDefault(std::string_view except) {
    for (const Setting& setting : settingsTable)
        if (setting.key != except) {
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

std::vector<std::string> SettingsRoot::preferencesFiles() const {
    std::vector<std::string> names;
    for (const auto& entry :
         std::filesystem::directory_iterator(hostPath(DevicePath::preferencesFile).parent_path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace pomwick::test
