#include "ux/ux_image.h"

#include <gtest/gtest.h>

TEST(UXImage, HasPixelsOnlyWhereTheirNumberIsRight)
{
    EXPECT_EQ(UXImage(2, 1, {1, 2}).getSize(), UXSize(2, 1));
    EXPECT_EQ(UXImage(2, 1, {1, 2}).getPixels()[1], 2U);
    for (const UXImage& image :
         {UXImage(2, 2, {1, 2}), UXImage(-1, -2, {1, 2}), UXImage(0, 0, {}), UXImage()}) {
        EXPECT_EQ(image.getSize(), UXSize());
        EXPECT_EQ(image.getPixels(), nullptr);
    }
    const UXImage original(1, 1, {7});
    EXPECT_EQ(UXImage(original).getPixels(), original.getPixels());
}
