#include "ux/ux_color_vision.h"

#include "ux/ux_palette.h"

#include <gtest/gtest.h>

/** The pairs that the authors of the implementation notes publish, which meet every branch of the formula. */
TEST(UXColorVision, DifferencesAreThoseOfThePublishedPairs)
{
    const struct {
        UXLabColor first, second;
        double difference;
    } pairs[] = {
        {{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
        {{50, 3.1571, -77.2803}, {50, 0, -82.7485}, 2.8615},
        {{50, 2.8361, -74.0200}, {50, 0, -82.7485}, 3.4412},
        {{50, -1.3802, -84.2814}, {50, 0, -82.7485}, 1.0000},
        {{50, -1.1848, -84.8006}, {50, 0, -82.7485}, 1.0000},
        {{50, -0.9009, -85.5211}, {50, 0, -82.7485}, 1.0000},
        {{50, 0, 0}, {50, -1, 2}, 2.3669},
        {{50, -1, 2}, {50, 0, 0}, 2.3669},
        {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0009}, 7.1792},
        {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0010}, 7.1792},
        {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0011}, 7.2195},
        {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0012}, 7.2195},
        {{50, -0.0010, 2.4900}, {50, 0.0009, -2.4900}, 4.8045},
        {{50, -0.0010, 2.4900}, {50, 0.0010, -2.4900}, 4.8045},
        {{50, -0.0010, 2.4900}, {50, 0.0011, -2.4900}, 4.7461},
        {{50, 2.5, 0}, {50, 0, -2.5}, 4.3065},
        {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
        {{50, 2.5, 0}, {61, -5, 29}, 22.8977},
        {{50, 2.5, 0}, {56, -27, -3}, 31.9030},
        {{50, 2.5, 0}, {58, 24, 15}, 19.4535},
        {{50, 2.5, 0}, {50, 3.1736, 0.5854}, 1.0000},
        {{50, 2.5, 0}, {50, 3.2972, 0}, 1.0000},
        {{50, 2.5, 0}, {50, 1.8634, 0.5757}, 1.0000},
        {{50, 2.5, 0}, {50, 3.2592, 0.3350}, 1.0000},
        {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
        {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
        {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
        {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
        {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
        {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
        {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
        {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
        {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
        {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
    };
    for (const auto& pair : pairs)
        EXPECT_NEAR(uxObtainColorDifference(pair.first, pair.second), pair.difference, 5e-5);
}

TEST(UXColorVision, EyesWithoutAKindOfConeMixUpWhatItTellsApart)
{
    using enum UXColorVision;
    const struct {
        UXColor first, second;
        UXColorVision blind;
    } pairs[] = {{{205, 60, 60}, {120, 118, 60}, Deuteranopia},
                 {{60, 130, 60}, {165, 105, 60}, Deuteranopia},
                 {{130, 40, 40}, {62, 52, 40}, Protanopia},
                 {{0, 150, 150}, {20, 140, 200}, Tritanopia}};
    for (const auto& pair : pairs)
        EXPECT_LT(uxObtainColorDifference(pair.first, pair.second, pair.blind),
                  0.5 * uxObtainColorDifference(pair.first, pair.second));
    for (const UXColorVision vision : {Normal, Protanopia, Deuteranopia, Tritanopia})
        for (const int grey : {0, 90, 255})
            EXPECT_LE(uxObtainColorDifference(UXColor(grey, grey, grey),
                                              uxObtainSeenColor(UXColor(grey, grey, grey), vision)),
                      0.1)
                << "greys stay what they are";
    const UXLabColor white = uxColorToLab(UXColor(255, 255, 255));
    EXPECT_NEAR(white.lightness, 100, 1e-3);
    EXPECT_NEAR(white.a, 0, 1e-2);
    EXPECT_NEAR(white.b, 0, 1e-2);
}

TEST(UXPalette, IsMadeOfColorsThatAllEyesTellApart)
{
    const UXColor white(255, 255, 255), black(0, 0, 0), red(200, 60, 60);
    struct Case {
        const char* name;
        std::vector<UXColor> colors;
        UXColor ground;
        bool isEnough;
    };
    const Case cases[] = {
        {"nothing", {}, white, true},
        {"one that is seen", {red}, white, true},
        {"one that is not", {{255, 221, 0}}, white, false},
        {"the same on black", {{255, 221, 0}}, black, true},
        {"twice the same", {red, red}, white, false},
        {"red and green", {red, {120, 120, 40}}, white, false},
        {"half clear", {{0, 0, 0, 0.2}}, white, false},
        {"many alike", {red, red, red, red, red, red}, white, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxMeasurePalette(c.colors, c.ground).areEnough(), c.isEnough);
        const std::vector<UXColor> made = uxMakeDistinctPalette(c.colors, c.ground);
        EXPECT_EQ(made.size(), c.colors.size());
        EXPECT_TRUE(uxMeasurePalette(made, c.ground).areEnough());
        EXPECT_EQ(made == c.colors, c.isEnough) << "what is well stays";
    }
}
