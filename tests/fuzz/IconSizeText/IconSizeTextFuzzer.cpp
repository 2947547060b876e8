// Any bytes as iconSize.txt: a number (0 when there is none), within bounded time and memory.
#include "PreviewFiles.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const float number =
        pomwick::iconSizeFromText(std::string_view(reinterpret_cast<const char*>(data), size));
    if (std::isnan(number))
        std::abort();
    return 0;
}
