#include "ColorText.h"

#include "TextScanning.h"

namespace pomwick {

Color getUIColorFromHexString(std::string_view hex, float alpha) {
    const uint32_t value = intFromHexString(hex);
    const auto component = [value](int shift) {
        return float((value >> shift) & 0xFF) / 255.0f;
    };
    return {component(16), component(8), component(0), alpha};
}

std::string storedColorText(const Color& color) {
    return formatFloat(color.red) + "," + formatFloat(color.green) + "," + formatFloat(color.blue) +
           "," + formatFloat(color.alpha);
}

} // namespace pomwick
