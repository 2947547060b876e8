#include "FontCatalogue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <strings.h>

using namespace pomwick;

TEST(FontCatalogue, ListsFamiliesSortedAndResolvesFaceNamesFamiliesAndConfiguredAliases) {
    const auto& catalogue = FontCatalogue::shared();
    const auto families = catalogue.familyNames();
    ASSERT_FALSE(families.empty());
    EXPECT_TRUE(std::ranges::is_sorted(
        families, [](auto& a, auto& b) { return strcasecmp(a.c_str(), b.c_str()) < 0; }));
    const auto faces = catalogue.fontNamesForFamilyName("DejaVu Sans");
    EXPECT_NE(std::find(faces.begin(), faces.end(), "DejaVuSans-Bold"), faces.end());
    EXPECT_TRUE(catalogue.fontNamesForFamilyName("No Such Family").empty());

    // By face name, by family in any case, and the product's default, which is drawn with an
    // installed sans face under its own name.
    for (const auto& [name, style] :
         {std::pair{"DejaVuSans-Bold", "Bold"}, {"dejavu sans", "Book"}, {"Verdana", "Book"}}) {
        const auto font = catalogue.fontWithName(name, 17);
        ASSERT_TRUE(font) << name;
        EXPECT_EQ(font->family, "DejaVu Sans") << name;
        EXPECT_EQ(font->style, style) << name;
    }
}
