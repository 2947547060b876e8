#pragma once

#include "Colour.h"

#include <vector>

namespace pomwick {

// The colour grids' palette, the bundle's "colors_crayola.plist": the first value of its root
// dictionary lists entries whose "hash" holds a hex colour; each becomes an opaque colour, in the
// list's order. A missing or malformed file gives an empty palette, entries without a hex string
// are left out.
std::vector<Colour> loadColourPalette();

} // namespace pomwick
