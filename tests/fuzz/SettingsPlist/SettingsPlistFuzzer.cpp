// Any bytes as the settings file: the reader gives a dictionary or nothing, within bounded time
// and memory; every setting can be read from what it gave, and what the writer makes of it reads
// back.
#include "PlistDictionary.h"
#include "SettingsTable.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace pomwick;
    const auto dictionary =
        PlistDictionary::fromBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!dictionary)
        return 0;
    for (const Setting& setting : settingsTable)
        (void)printedValue(setting.parse(dictionary->lookup(setting.key), setting.defaultValue));
    const auto bytes = dictionary->encoded();
    if (!bytes || !PlistDictionary::fromBytes(*bytes))
        __builtin_trap();
    return 0;
}
