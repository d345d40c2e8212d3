#include "kx_percentages.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

TEST(KXPercentages, AddUpToAHundred)
{
    constexpr double greatest = (std::numeric_limits<double>::max)();
    struct Case {
        const char* name;
        std::vector<double> values;
        int decimals;
        std::string expected;
    };
    const Case cases[] = {
        {"ties to the earlier", {1, 1, 1}, 1, "33.4 % 33.3 % 33.3 % "},
        {"the largest remainder", {1, 2, 3}, 0, "17 % 33 % 50 % "},
        {"too small to show", {9999, 1}, 1, "100.0 % < 0.1 % "},
        {"no part", {3, 0, NAN, -1, INFINITY}, 0, "100 % 0 % 0 % 0 % 0 % "},
        {"nothing", {0, NAN}, 1, "0.0 % 0.0 % "},
        {"sums beyond a double", {greatest, greatest}, 0, "50 % 50 % "},
        {"many decimals", {1, 2}, 99, "33.333333333 % 66.666666667 % "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<double> percentages = kxObtainPercentages(c.values, c.decimals);
        std::string text;
        for (std::size_t i = 0; i < c.values.size(); ++i)
            text += kxFormatPartOfWhole(percentages[i], c.values[i], c.decimals) + " ";
        EXPECT_EQ(text, c.expected);
    }

    std::mt19937 random(9);
    for (int round = 0; round < 200; ++round) {
        std::vector<double> values(1 + random() % 40);
        for (double& value : values)
            value = std::pow(10.0, static_cast<double>(random() % 1000) / 100);
        const double sum = std::accumulate(values.begin(), values.end(), 0.0);
        const std::vector<double> percentages = kxObtainPercentages(values, 1);
        double units = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            units += std::round(10 * percentages[i]);
            EXPECT_LT(std::abs(percentages[i] - 100 * values[i] / sum), 0.1 + 1e-9);
        }
        EXPECT_EQ(units, 1000);
    }
}
