#include "FontCatalogue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <strings.h>

using namespace pomwick;

TEST(FontCatalogue, ListsFamiliesSortedAndResolvesFaceNamesFamiliesAndConfiguredAliases) {
    const auto& catalogue = FontCatalogue::shared();
    const auto families = catalogue.familyNames();
    ASSERT_FALSE(families.empty());
    EXPECT_TRUE(std::is_sorted(families.begin(), families.end(), [](auto& a, auto& b) {
        return strcasecmp(a.c_str(), b.c_str()) < 0;
    }));
    const auto faces = catalogue.fontNamesForFamilyName("DejaVu Sans");
    EXPECT_NE(std::find(faces.begin(), faces.end(), "DejaVuSans-Bold"), faces.end());
    EXPECT_TRUE(catalogue.fontNamesForFamilyName("No Such Family").empty());

    const auto bold = catalogue.fontWithName("DejaVuSans-Bold", 17);
    ASSERT_TRUE(bold);
    EXPECT_EQ(bold->family, "DejaVu Sans");
    EXPECT_EQ(bold->style, "Bold");

    const auto family = catalogue.fontWithName("dejavu sans", 12);
    ASSERT_TRUE(family);
    EXPECT_EQ(family->family, "DejaVu Sans");

    // The product's default is drawn with an installed sans face, under its own name.
    const auto verdana = catalogue.fontWithName("Verdana", 16);
    ASSERT_TRUE(verdana);
    EXPECT_EQ(verdana->family, "DejaVu Sans");
}
