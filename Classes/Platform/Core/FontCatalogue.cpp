#include "FontCatalogue.h"

// Placeholder until the fontconfig catalogue lands.
namespace pomwick {
const FontCatalogue& FontCatalogue::shared() {
    static FontCatalogue catalogue;
    return catalogue;
}
std::vector<std::string> FontCatalogue::familyNames() const { return {}; }
std::vector<std::string> FontCatalogue::fontNamesForFamilyName(std::string_view) const { return {}; }
std::optional<Font> FontCatalogue::fontWithName(std::string_view, float) const { return {}; }
} // namespace pomwick
