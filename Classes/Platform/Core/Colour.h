#pragma once

namespace pomwick {

// Red, green, blue and alpha as stored: floats meant to lie in 0..1, never clamped here.
struct Colour {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    static constexpr Colour black() { return {0, 0, 0, 1}; }
    static constexpr Colour white() { return {1, 1, 1, 1}; }

    friend bool operator==(const Colour&, const Colour&) = default;
};

} // namespace pomwick
