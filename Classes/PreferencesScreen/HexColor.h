#pragma once

#include "Colour.h"

#include <string_view>

namespace pomwick {

// A palette colour from hex text such as "#EFDECD", scanned as intFromHexString does: bits 16-23,
// 8-15 and 0-7 of the value are red, green and blue over 255. Higher bits are ignored, so
// "#AARRGGBB" reads as RRGGBB, and text that scans to nothing is black.
Colour getUIColorFromHexString(std::string_view hex, float alpha);

} // namespace pomwick
