#pragma once

#include "Color.h"

#include <vector>

namespace pomwick {

// The color grids' palette, the bundle's "colors_crayola.plist": the first value of its root
// dictionary lists entries whose "hash" holds a hex color; each becomes an opaque color, in the
// list's order. A missing or malformed file gives an empty palette, entries without a hex string
// are left out.
std::vector<Color> loadColorPalette();

} // namespace pomwick
