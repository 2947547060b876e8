#include "ColourText.h"

#include "TextScanning.h"

namespace pomwick {

Colour getUIColorFromHexString(std::string_view hex, float alpha) {
    const uint32_t value = intFromHexString(hex);
    const auto component = [value](int shift) {
        return float((value >> shift) & 0xFF) / 255.0f;
    };
    return {component(16), component(8), component(0), alpha};
}

std::string storedColourText(const Colour& colour) {
    return formatFloat(colour.red) + "," + formatFloat(colour.green) + "," +
           formatFloat(colour.blue) + "," + formatFloat(colour.alpha);
}

} // namespace pomwick
