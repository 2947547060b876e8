#pragma once

#include "Font.h"
#include "PomwickPlatformExport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pomwick {

// The installed fonts, as fontconfig lists them, in the shape the device's font API has: a list
// of family names and, for each family, the names of its faces.
//
// A name resolves to a face when it is the PostScript name, the full name or the family name of
// an installed face (case-insensitive), or when fontconfig's configuration substitutes it (an
// alias such as "Helvetica" -> "Nimbus Sans", or the product's default "Verdana", which the bundle
// maps onto a similar installed sans face). Any other name has no face.
class POMWICK_PLATFORM_EXPORT FontCatalogue {
public:
    static const FontCatalogue& shared();

    // Family names in the catalogue's order (sorted, case-insensitively, as the device lists them).
    std::vector<std::string> familyNames() const;
    // PostScript names of every face of the family, in the catalogue's order.
    std::vector<std::string> fontNamesForFamilyName(std::string_view family) const;

    // The face that `name` resolves to at `size`, or nothing when no face of that name exists.
    std::optional<Font> fontWithName(std::string_view name, float size) const;
};

} // namespace pomwick
