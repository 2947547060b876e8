#include "ImageContext.h"

#include "QtConversions.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(ImageContext, IsTransparentAtTheScaleWithCeiledPixels) {
    for (const double scale : {1.0, 2.0, 3.0}) {
        ImageContext context(QSizeF(10.5, 3), scale);
        context.painter().fillRect(QRectF(0, 0, 1, 1), Qt::red);
        const QImage image = context.image();
        EXPECT_EQ(image.size(), QSize(int(std::ceil(10.5 * scale)), int(3 * scale)));
        EXPECT_EQ(image.devicePixelRatio(), scale);
        // Points, not pixels: a 1-point square covers scale x scale pixels at the top left.
        EXPECT_EQ(image.pixelColor(int(scale) - 1, int(scale) - 1), QColor(Qt::red));
        EXPECT_EQ(image.pixelColor(int(scale), 0).alpha(), 0);
        EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1).alpha(), 0);
    }
}

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
