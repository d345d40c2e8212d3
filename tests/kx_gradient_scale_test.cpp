#include "kx_gradient_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(KXGradientScale, Colors)
{
    constexpr double greatest = (std::numeric_limits<double>::max)();
    struct Case {
        const char* name;
        double least, most, middle;
        int classes;
        double value;
        int red; // from 0 over 100 to 200
    };
    const Case cases[] = {
        {"an end", 0, 10, 5, 0, 0, 0},
        {"the other", 0, 10, 5, 0, 10, 200},
        {"between", 0, 10, 5, 0, 2.5, 50},
        {"below", 0, 10, 5, 0, -3, 0},
        {"infinite", 0, 10, 5, 0, INFINITY, 200},
        {"a middle value", -1, 9, 0, 0, 0, 100},
        {"beyond it", -1, 9, 0, 0, 4.5, 150},
        {"a middle outside is halfway", 10, 20, 0, 0, 15, 100},
        {"one value", 4, 4, 4, 0, 4, 100},
        {"all numbers", -greatest, greatest, 0, 0, greatest / 2, 150},
        {"the first class", 0, 10, 5, 5, 1.9, 0},
        {"the second", 0, 10, 5, 5, 2, 50},
        {"the last holds the end", 0, 10, 5, 5, 10, 200},
        {"one class", 0, 10, 5, 1, 9, 100},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const KXGradientScale scale{c.least,     c.most,      c.middle, {0, 0, 0},
                                    {100, 0, 0}, {200, 0, 0}, c.classes};
        EXPECT_EQ(scale.obtainColor(c.value), UXColor(c.red, 0, 0));
        EXPECT_EQ(scale.obtainColor(NAN).alpha, 0);
    }
    const KXGradientScale scale{0, 1, 0, {}, {}, {}, 4};
    EXPECT_EQ(scale.obtainClassBounds(), (std::vector<double>{0, 0.25, 0.5, 0.75, 1}));
    EXPECT_TRUE(KXGradientScale().obtainClassBounds().empty());
}
