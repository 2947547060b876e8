#include "RowGeometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace pomwick;

TEST(RowGeometry, PercentagesTruncateTheFloatProductAndSaturate) {
    EXPECT_EQ(RowGeometry::wholePercent(1.0f), 100);
    EXPECT_EQ(RowGeometry::wholePercent(-0.159f), -15);
    EXPECT_EQ(RowGeometry::wholePercent(NAN), 0);
    EXPECT_EQ(RowGeometry::wholePercent(1e30f), std::numeric_limits<int>::max());
    EXPECT_EQ(RowGeometry::wholePercent(-1e30f), std::numeric_limits<int>::min());
}
