#include "ImageContext.h"

#include "QtConversions.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(ImageContext, EmptyOrMeaninglessSizesGiveANullImage) {
    for (const QSizeF size :
         {QSizeF(0, 10), QSizeF(10, 0), QSizeF(-1, 5), QSizeF(NAN, 24), QSizeF(INFINITY, 24)}) {
        ImageContext context(size, 2);
        EXPECT_TRUE(context.isEmpty());
        EXPECT_TRUE(context.image().isNull());
    }
}

TEST(QtConversions, ColorsAreClampedOnlyAtTheDrawingBoundary) {
    EXPECT_EQ(toQColor({2, -1, NAN, 0.5f}), QColor::fromRgbF(1, 0, 0, 0.5f));
    const QFont sized = toQFont(Font{"Verdana", 16, "DejaVu Sans", "Book", {}});
    EXPECT_EQ(sized.pixelSize(), 16);
    EXPECT_EQ(sized.family(), "DejaVu Sans");
    EXPECT_EQ(toQFont(std::nullopt).pixelSize(), 17);
    EXPECT_EQ(toQFont(Font{"x", 0, {}, {}, {}}).pixelSize(), 1);
}
