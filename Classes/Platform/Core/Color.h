#pragma once

#include "PomwickPlatformExport.h"

namespace pomwick {

// Red, green, blue and alpha as stored: floats meant to lie in 0..1, never clamped here.
struct POMWICK_PLATFORM_EXPORT Color {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    static constexpr Color black() { return {0, 0, 0, 1}; }
    static constexpr Color white() { return {1, 1, 1, 1}; }

    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace pomwick
