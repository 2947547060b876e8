#pragma once

#include "Color.h"

#include <string>
#include <string_view>

namespace pomwick {

// A palette color from hex text such as "#EFDECD", scanned as intFromHexString does: bits 16-23,
// 8-15 and 0-7 of the value are red, green and blue over 255. Higher bits are ignored, so
// "#AARRGGBB" reads as RRGGBB, and text that scans to nothing is black.
Color getUIColorFromHexString(std::string_view hex, float alpha);

// A color as the settings store it: "%f,%f,%f,%f" of red, green, blue and alpha.
std::string storedColorText(const Color& color);

} // namespace pomwick
