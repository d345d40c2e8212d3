#include "kx_axis_alignment.h"
#include "kx_axis_chart_axis_cache_data.h"
#include "kx_axis_scale.h"
#include "kx_category_places.h"
#include "kx_logarithmic_scale.h"
#include "kx_value_extremes.h"
#include "kx_visible_range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

TEST(KXAxisAlignment, GivesTheSecondAxisTheIntervalsOfTheFirst)
{
    struct Axis {
        double min, max, interval;
    };
    struct Case {
        const char* name;
        Axis first, second;
        double low, high; // the second one's data
        bool isAligned;
        Axis expectedFirst, expectedSecond;
    };
    const Case cases[] = {
        {"one zero", {0, 100, 20}, {0, 8, 2}, 0, 7, true, {0, 100, 20}, {0, 10, 2}},
        {"steps of 2.5", {0, 100, 25}, {0, 12, 2}, 0, 9.5, true, {0, 100, 25}, {0, 10, 2.5}},
        {"zero inside both", {-20, 60, 20}, {-5, 10, 5}, -1, 10, true, {-20, 60, 20}, {-5, 15, 5}},
        {"the first has nothing below", {0, 100, 20}, {-5, 10, 5}, -4, 10, true, {-20, 100, 20}, {-5, 25, 5}},
        {"nothing above", {-100, 0, 20}, {0, 10, 5}, 0, 10, true, {-100, 40, 20}, {-25, 10, 5}},
        {"no common zero", {0, 100, 20}, {1000, 1100, 20}, 1003, 1090, true, {0, 100, 20}, {1000, 1100, 20}},
        {"ends that are no intervals", {0, 95, 20}, {0, 8, 2}, 0, 7, false, {0, 95, 20}, {0, 8, 2}},
        {"all zero", {0, 100, 20}, {0, 1, 1}, 0, 0, false, {0, 100, 20}, {0, 1, 1}},
        {"beyond a double", {0, 4, 1}, {0, 1, 1}, -1.7e308, 1.7e308, false, {0, 4, 1}, {0, 1, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXAxisChartAxisCacheData first, second;
        for (const auto& [data, axis] : {std::pair(&first, &c.first), std::pair(&second, &c.second)}) {
            data->axisMin = axis->min;
            data->axisMax = axis->max;
            data->tickInterval = axis->interval;
        }
        EXPECT_EQ(kxAlignAxes(first, second, {c.low, c.high}), c.isAligned);
        for (const auto& [data, axis] :
             {std::pair(&first, &c.expectedFirst), std::pair(&second, &c.expectedSecond)}) {
            EXPECT_DOUBLE_EQ(data->axisMin, axis->min);
            EXPECT_DOUBLE_EQ(data->axisMax, axis->max);
            EXPECT_DOUBLE_EQ(data->tickInterval, axis->interval);
        }
    }
}

TEST(KXLogarithmicScale, EndsAndTicksAtRoundNumbers)
{
    struct Case {
        const char* name;
        double low, high;
        bool isRounded;
        double from, to;
        std::vector<double> ticks;
    };
    const Case cases[] = {
        {"powers", 3, 41'000, true, 1, 100'000, {1, 10, 100, 1000, 10'000, 100'000}},
        {"between powers", 12, 180, true, 10, 200, {10, 20, 50, 100, 200}},
        {"below one", 0.03, 0.4, true, 0.02, 0.5, {0.02, 0.05, 0.1, 0.2, 0.5}},
        {"one value", 100, 100, true, 100, 200, {100, 120, 140, 160, 180, 200}},
        {"within a step", 1200, 1290, false, 1200, 1290, {1200, 1220, 1240, 1260, 1280}},
        {"nothing above zero", -5, 0, true, 1, 10, {1, 2, 5, 10}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const KXLogarithmicRange range = kxObtainLogarithmicRange(c.low, c.high, c.isRounded);
        EXPECT_NEAR(std::pow(10, range.low) / c.from, 1, 1e-9);
        EXPECT_NEAR(std::pow(10, range.high) / c.to, 1, 1e-9);
        std::vector<double> ticks;
        for (const double tick : kxObtainLogarithmicTicks(range.low, range.high, 5))
            ticks.push_back(kxObtainValueOfExponent(tick));
        EXPECT_EQ(ticks, c.ticks);
    }
    EXPECT_LE(kxObtainLogarithmicTicks(-300, 300, 5).size(), 13U) << "not one a power";
    EXPECT_TRUE(kxObtainLogarithmicTicks(0, std::numeric_limits<double>::infinity(), 5).empty());
}

TEST(KXCategoryPlaces, OrderByNumbersAndLeaveOutWhatHasNone)
{
    constexpr double null = std::numeric_limits<double>::quiet_NaN();
    KXCategoryPlaces places;
    places.take(std::vector<double>{5, null, 1, 5, 3}, false);
    EXPECT_EQ(places.getNumbers(), (std::vector<double>{1, 3, 5, 5}));
    EXPECT_EQ(std::vector(places.getCategories().begin(), places.getCategories().end()),
              (std::vector<std::uint64_t>{2, 4, 0, 3}))
        << "equal ones as they come";
    EXPECT_EQ(places.obtainPlace(3), 3);
    EXPECT_EQ(places.obtainPlace(1), KXCategoryPlaces::none);
    EXPECT_EQ(places.obtainPlace(9), KXCategoryPlaces::none);
    EXPECT_EQ(places.getLeastDistance(), 2);
    EXPECT_EQ(places.findInside(2, 5), std::pair(std::uint64_t{1}, std::uint64_t{4}));
    EXPECT_EQ(places.findNearest(4), 1) << "the lower one of two as near";
    EXPECT_EQ(places.findNearest(1e300), 3);
    places.take(std::vector<double>{0, 10, 100, -1}, true);
    EXPECT_EQ(places.getNumbers(), (std::vector<double>{10, 100}));
    EXPECT_EQ(places.getLeastDistance(), 1) << "in powers of ten";
    places.take(std::vector<double>{2, 4}, false);
    EXPECT_TRUE(places.getCategories().empty()) << "nothing is kept of an order that is the usual one";
    EXPECT_EQ(places.obtainCategory(1), 1);
}

TEST(KXVisibleRange, StopsAtTheDataAndAtTheLeast)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    struct Case {
        const char* name;
        KXVisibleRange range, expected;
    };
    const Case cases[] = {
        {"inside", {20, 30}, {20, 30}},         {"beside", {-20, -10}, {0, 10}},
        {"over the end", {95, 105}, {90, 100}}, {"too short", {50, 51}, {48, 53}},
        {"more than all", {-5, 500}, {0, 100}}, {"empty", {3, 3}, {0, 100}},
        {"infinite", {-infinite, 5}, {0, 100}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(kxFitVisibleRange(c.range, {0, 100}, 5), c.expected) << c.name;
    EXPECT_EQ(kxZoomVisibleRange({0, 100}, 25, 0.5), (KXVisibleRange{12.5, 62.5})) << "25 keeps its place";
}
