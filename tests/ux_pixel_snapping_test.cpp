#include "ux/ux_pixel_snapping.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/** How far value is from the next whole number. */
double fraction(double value) { return std::abs(value - std::round(value)); }

double right(const UXDoubleRect& rect) { return rect.x + rect.width; }

} // namespace

TEST(UXPixelSnapping, EdgesLieOnWholePixelsAndStayWithinHalfAPixel)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0, -1.5}) {
        for (const double offset : {0.0, 0.3, -7.5, 1000.77}) {
            SCOPED_TRACE(testing::Message() << scale << " " << offset);
            const UXTransform toDevice{scale, 0, 0, std::abs(scale), offset, -offset};
            for (double x = -3; x < 3; x += 0.37) {
                const UXDoubleRect rect{x, x, 4.3, 3.1};
                const UXDoubleRect snapped = uxSnapRect(rect, toDevice);
                const UXDoublePoint low = toDevice.apply(snapped.x, snapped.y);
                const UXDoublePoint high = toDevice.apply(right(snapped), snapped.y + snapped.height);
                EXPECT_LT(fraction(low.x) + fraction(low.y) + fraction(high.x) + fraction(high.y), 1e-9);
                EXPECT_LE(std::abs(snapped.x - x) * std::abs(scale), 0.5 + 1e-9);
                EXPECT_LE(std::abs(right(snapped) - right(rect)) * std::abs(scale), 0.5 + 1e-9);

                const UXDoubleRect again = uxSnapRect(snapped, toDevice);
                EXPECT_NEAR(again.x, snapped.x, 1e-9);
                EXPECT_NEAR(again.width, snapped.width, 1e-9);

                const UXDoubleRect neighbour = uxSnapRect({right(rect), x, 2, 2}, toDevice);
                EXPECT_NEAR(neighbour.x, right(snapped), 1e-9);
            }
        }
    }
}

TEST(UXPixelSnapping, NothingVisibleVanishes)
{
    const UXTransform toDevice = UXTransform{}.scaled(1.25, 1.25);
    const UXDoubleRect thin = uxSnapRect({10.1, 20, 0.001, 40}, toDevice);
    EXPECT_NEAR(thin.width * 1.25, 1, 1e-9);
    EXPECT_EQ(uxSnapRect({10, 20, 0, 40}, toDevice).width, 0);
}

TEST(UXPixelSnapping, LinesAreAWholeNumberOfPixelsThick)
{
    struct Case {
        const char* name;
        double scale, position, thickness, deviceStart, devicePixels;
    };
    const Case cases[] = {
        {"through the middle of a pixel", 1, 10.5, 1, 10, 1},
        {"between two pixels", 1, 10, 1, 9, 1},
        {"hair line", 2, 10.25, 0, 20, 1},
        {"one unit at 1.25", 1.25, 10, 1, 12, 1},
        {"one unit at 1.5", 1.5, 10, 1, 14, 2},
        {"one unit at 2", 2, 10, 1, 19, 2},
        {"three units", 1, 10.5, 3, 9, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXTransform toDevice = UXTransform{}.scaled(c.scale, c.scale);
        const UXDoubleRect across = uxSnapHorizontalLine(c.position, 0, 100, c.thickness, toDevice);
        EXPECT_NEAR(across.y * c.scale, c.deviceStart, 1e-9);
        EXPECT_NEAR(across.height * c.scale, c.devicePixels, 1e-9);
        const UXDoubleRect down = uxSnapVerticalLine(c.position, 100, 0, c.thickness, toDevice);
        EXPECT_NEAR(down.x * c.scale, c.deviceStart, 1e-9);
        EXPECT_NEAR(down.width * c.scale, c.devicePixels, 1e-9);
        EXPECT_EQ(down.height, 100);
    }
}

TEST(UXTransform, MapsBackAndAppliesTheInnerMapFirst)
{
    const UXTransform map = UXTransform{}.translated(10, 20).rotated(90).scaled(2, 3);
    EXPECT_EQ(map.apply(1, 1), UXDoublePoint(7, 22));
    const UXDoublePoint back = map.inverted().apply(7, 22);
    EXPECT_NEAR(back.x, 1, 1e-12);
    EXPECT_NEAR(back.y, 1, 1e-12);
    for (const UXTransform& flat : {UXTransform{}.scaled(0, 1), UXTransform{NAN, 0, 0, 1, 0, 0}}) {
        EXPECT_FALSE(flat.isInvertible());
        EXPECT_EQ(flat.inverted(), UXTransform{});
    }
}
