#include "ux/ux_color_functions.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(UXColorFunctions, KnownColoursInBothModels)
{
    struct Case {
        const char* name;
        UXColor color;
        double hue, hslSaturation, lightness, hsvSaturation, value;
    };
    const Case cases[] = {
        {"black", {0, 0, 0}, 0, 0, 0, 0, 0},
        {"white", {255, 255, 255}, 0, 0, 1, 0, 1},
        {"red", {255, 0, 0}, 0, 1, 0.5, 1, 1},
        {"green", {0, 255, 0}, 120, 1, 0.5, 1, 1},
        {"dark cyan", {0, 51, 51}, 180, 1, 0.1, 1, 0.2},
        {"pink violet", {255, 204, 255}, 300, 1, 0.9, 0.2, 1},
        {"just below a full turn", {255, 0, 1}, 360 - 60.0 / 255, 1, 0.5, 1, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        double hue = -1, saturation = -1, third = -1;
        uxColorToHSL(c.color, hue, saturation, third);
        EXPECT_NEAR(hue, c.hue, 1e-9);
        EXPECT_NEAR(saturation, c.hslSaturation, 1e-9);
        EXPECT_NEAR(third, c.lightness, 1e-9);
        uxColorToHSV(c.color, hue, saturation, third);
        EXPECT_NEAR(hue, c.hue, 1e-9);
        EXPECT_NEAR(saturation, c.hsvSaturation, 1e-9);
        EXPECT_NEAR(third, c.value, 1e-9);
        EXPECT_EQ(uxHSLToColor(c.hue, c.hslSaturation, c.lightness), c.color);
        EXPECT_EQ(uxHSVToColor(c.hue, c.hsvSaturation, c.value), c.color);
    }
}

TEST(UXColorFunctions, EightBitColoursSurviveTheRoundTrip)
{
    // The step shares no factor with 256, so that every value of every channel meets most of the others.
    int lost = 0;
    for (int code = 0; code < 1 << 24; code += 13) {
        const UXColor color(code >> 16, code >> 8 & 255, code & 255);
        double hue = 0, saturation = 0, third = 0;
        uxColorToHSL(color, hue, saturation, third);
        lost += uxHSLToColor(hue, saturation, third) != color;
        uxColorToHSV(color, hue, saturation, third);
        lost += uxHSVToColor(hue, saturation, third) != color;
    }
    EXPECT_EQ(lost, 0);
}

TEST(UXColorFunctions, OddPartsStillMakeAColour)
{
    EXPECT_EQ(uxHSLToColor(-120, 1, 0.5), UXColor(0, 0, 255));
    EXPECT_EQ(uxHSVToColor(360 + 120, 7, 7), UXColor(0, 255, 0));
    EXPECT_EQ(uxHSLToColor(INFINITY, 1, 0.5), UXColor(255, 0, 0));
    EXPECT_EQ(uxHSVToColor(NAN, NAN, NAN), UXColor(0, 0, 0));
    double hue = 0, saturation = 0, value = 0;
    uxColorToHSV({999, -5, 0, 0.3}, hue, saturation, value);
    EXPECT_EQ(saturation, 1);
    EXPECT_EQ(value, 1);
}
