// Any bytes as the settings file: the reader gives a dictionary or nothing, within bounded time
// and memory, and every key's value in what it read can be looked up.
#include "PlistDictionary.h"
#include "SettingsTable.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace pomwick;
    const auto dictionary =
        PlistDictionary::fromBytes(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!dictionary)
        return 0;
    for (const Setting& setting : settingsTable)
        (void)printedValue(setting.parse(dictionary->lookup(setting.key), setting.defaultValue));
    return 0;
}
