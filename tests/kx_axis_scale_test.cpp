#include "kx_axis_scale.h"

#include "kx_axis_property.h"
#include "kx_chart_data_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double largest = (std::numeric_limits<double>::max)();
constexpr double denormal = std::numeric_limits<double>::denorm_min();
constexpr int largestCount = (std::numeric_limits<int>::max)();

/** Bounds, interval and number of ticks of a resolved axis. */
struct Scale {
    double min, max, interval;
    int ticks;

    friend bool operator==(const Scale&, const Scale&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Scale& scale)
    {
        return out << scale.min << " to " << scale.max << " by " << scale.interval << ", " << scale.ticks;
    }
};

KXAxisChartAxisCacheData makeData(double min, double max)
{
    KXAxisChartAxisCacheData cache;
    cache.dataMin = min;
    cache.dataMax = max;
    return cache;
}

KXAxisChartAxisCacheData makeScale(double min, double max, double interval)
{
    KXAxisChartAxisCacheData cache;
    cache.axisMin = min;
    cache.axisMax = max;
    cache.tickInterval = interval;
    return cache;
}

Scale resolve(KXAxisProperty& property, KXAxisChartAxisCacheData cache, bool roundsRange)
{
    EXPECT_TRUE(kxUpdateAxisCacheData(&property, &cache, roundsRange));
    EXPECT_FALSE(cache.needsUpdate);
    return {cache.axisMin, cache.axisMax, cache.tickInterval, kxObtainAxisTickCount(cache)};
}

} // namespace

TEST(KXAxisScale, SuitableRange)
{
    const std::tuple<double, double, double> cases[] = {{0, 0, 0},
                                                        {9.9e-9, 0, 0},
                                                        {-5, 0, 0},
                                                        {NAN, 0, 0},
                                                        {1, 1, 1},
                                                        {1.5, 2, 1},
                                                        {1.6, 2, 2},
                                                        {2, 2, 2},
                                                        {2.5, 5, 2},
                                                        {3, 5, 2},
                                                        {3.1, 5, 5},
                                                        {5, 5, 5},
                                                        {7, 10, 5},
                                                        {7.1, 10, 10},
                                                        {96, 100, 100},
                                                        {1000, 1000, 1000},
                                                        {0.001, 0.001, 0.001},
                                                        {1e-5, 1e-5, 1e-5},
                                                        {0.00004, 0.00005, 0.00005},
                                                        {0.3, 0.5, 0.2},
                                                        {1e-8, 1e-8, 1e-8},
                                                        {1e308, 1e308, 1e308},
                                                        {1.2e308, largest, 1e308},
                                                        {1.7e308, largest, largest},
                                                        {inf, largest, largest}};
    for (const auto& [amount, range, interval] : cases) {
        SCOPED_TRACE(amount);
        EXPECT_EQ(kxCalculateSuitableRange(amount, false), range);
        EXPECT_EQ(kxCalculateSuitableRange(amount, true), interval);
    }
}

TEST(KXAxisScale, WhatTheUserSets)
{
    struct Case {
        const char* name;
        bool roundsRange;
        double min, max, interval;
        int ticks;
        std::function<void(KXAxisProperty&, KXAxisChartAxisCacheData&)> set;
    };
    using P = KXAxisProperty;
    using C = KXAxisChartAxisCacheData;
    const auto stack = [](P& p, C& c) {
        p.setIsStacked(true);
        c.stackedMin = -10, c.stackedMax = 290;
    };
    const auto percent = [](P& p, C& c) {
        p.setIsStacked(true), p.setIs100PercentStacked(true);
        p.setCustomAxisTickIntervalFor100PercentStacked(25);
        p.setCustomAxisTickInterval(30);
        c.stackedMax = 1000;
    };
    const auto percentBy25 = [&](P& p, C& c) { percent(p, c), p.setAutoAxisTicks(false); };
    const auto everySeven = [](P& p, C&) { p.setAutoAxisTicks(false), p.setCustomAxisTickInterval(7); };
    const auto custom = [](double min, double max) {
        return [=](P& p, C&) {
            p.setAutoAxisRange(false);
            p.setCustomMinAxisValue(min), p.setCustomMaxAxisValue(max);
        };
    };
    const Case cases[] = {
        {"bounds as they are", false, 0, 96, 20, 5, [](P&, C&) {}},
        {"stacked", false, -10, 290, 100, 4, stack},
        {"percentages", true, 0, 100, 20, 6, percent},
        {"percentages by a custom interval", true, 0, 100, 25, 5, percentBy25},
        {"no stacking", false, 0, 96, 20, 5, [](P& p, C&) { p.setIs100PercentStacked(true); }},
        {"custom range", true, -3, 9, 2, 7, custom(-3, 9)},
        {"custom range without extent", true, 0, 96, 20, 5, custom(4, 4)},
        {"custom range without an end", true, 0, 96, 20, 5, custom(0, inf)},
        {"custom range of no numbers", true, 0, 96, 20, 5, custom(NAN, NAN)},
        {"custom interval", true, 0, 120, 7, 18, everySeven},
        {"custom interval of zero", true, 0, 120, 20, 7, [](P& p, C&) { p.setAutoAxisTicks(false); }},
        {"not in use", true, 0, 120, 20, 7, [](P& p, C&) { p.setCustomAxisTickInterval(7); }},
        {"preset interval", true, 0, 120, 30, 5, [](P&, C& c) { c.presetTickInterval = 30; }},
        {"preset too small", false, 0, 96, 1, 97, [](P&, C& c) { c.presetTickInterval = 1e-9; }},
        {"one tick", false, 0, 96, 96, 2, [](P& p, C&) { p.setAxisPossibleTickCount(1); }},
        {"ticks below one", false, 0, 96, 96, 2, [](P& p, C&) { p.setAxisPossibleTickCount(-5); }},
        {"small range", false, 0, 4, 4, 2, [](P&, C& c) { c.isSmallRange = true, c.dataMax = 4; }},
        {"as many ticks", false, 0, 5, 1, 6, [](P&, C& c) { c.isSmallRange = true, c.dataMax = 5; }},
        {"categories", true, 0, 12, 1, 12, [](P&, C& c) { c.isValueAxis = false, c.categoryCount = 12; }},
        {"no categories", true, 0, 0, 1, 0, [](P&, C& c) { c.isValueAxis = false; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXAxisProperty property;
        KXAxisChartAxisCacheData cache = makeData(0, 96);
        c.set(property, cache);
        EXPECT_EQ(resolve(property, cache, c.roundsRange), (Scale{c.min, c.max, c.interval, c.ticks}));
    }
}

TEST(KXAxisScale, TicksOfAnyScale)
{
    const std::tuple<const char*, double, double, double, int> cases[] = {
        {"a part of an interval", 0, 0.9, 1, 0},
        {"one interval", 0, 1, 1, 2},
        {"a division with noise", 0, 0.6, 0.2, 4},
        {"a billion", 0, 1, 1e-9, 1000000001},
        {"more than int holds", 0, 1e6, denormal, largestCount},
        {"interval of zero", 0, 1, 0, 0},
        {"negative interval", 1, 0, -0.5, 0},
        {"interval of no number", 0, 1, NAN, 0},
        {"infinite interval", 0, 1, inf, 0},
        {"no end", 0, inf, 1, largestCount},
        {"a length beyond double", -1e308, 1e308, 5e307, 5},
    };
    for (const auto& [name, min, max, interval, count] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(kxObtainAxisTickCount(makeScale(min, max, interval)), count);
    }
    KXAxisChartAxisCacheData categories;
    categories.isValueAxis = false;
    categories.categoryCount = 1'000'000'000'000;
    EXPECT_EQ(kxObtainAxisTickCount(categories), largestCount);
    EXPECT_EQ(kxObtainAxisTick(makeScale(-5, 5, 2.5), 3), 2.5);
    KXAxisChartAxisCacheData months = makeScale(0, 120, 30);
    months.ownTicks = {0, 31, 59};
    EXPECT_EQ(kxObtainAxisTickCount(months), 3);
    EXPECT_EQ(kxObtainAxisTick(months, 2), 59);
}

TEST(KXAxisScale, VisibleTicks)
{
    struct Case {
        const char* name;
        KXAxisChartAxisCacheData cache;
        double first, last;
        std::size_t limit;
        std::vector<double> expected;
    };
    const KXAxisChartAxisCacheData tens = makeScale(5, 105, 10);
    KXAxisChartAxisCacheData months = makeScale(0, 120, 30);
    months.ownTicks = {0, 31, 59, 90, 120};
    const Case cases[] = {
        {"all", makeScale(0, 0.6, 0.2), 0, 0.6, 9, {0, 0.2, 2 * 0.2, 3 * 0.2}},
        {"a window", tens, 30, 55, 9, {35, 45, 55}},
        {"between two ticks", tens, 36, 44, 9, {}},
        {"beyond the ends", tens, -inf, 20, 11, {5, 15}},
        {"multiples of three", tens, 30, 105, 3, {35, 65, 95}},
        {"the same multiples after scrolling", tens, 26, 101, 3, {35, 65, 95}},
        {"ticks of its own", months, 31, 100, 9, {31, 59, 90}},
        {"every other one of them", months, 0, 120, 3, {0, 59, 120}},
        {"between two of them", months, 60, 89, 9, {}},
        {"none wanted", tens, 0, 100, 0, {}},
        {"the wrong way round", tens, 50, 40, 9, {}},
        {"of no numbers", tens, NAN, 40, 9, {}},
        {"an interval lost beside the values",
         makeScale(1e16, 1e16 + 4, 0.5),
         1e16,
         inf,
         9,
         {1e16, 1e16 + 2, 1e16 + 4}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(kxObtainAxisTicks(c.cache, c.first, c.last, c.limit), c.expected);
    }
}

TEST(KXAxisScale, HostileNumbersGiveFewFiniteDistinctTicks)
{
    const double odd[] = {0,    -0.0, 1,         -1,      96,     1e-8,      1e-9,  denormal, -denormal,
                          1e16, NAN,  inf,       -inf,    1e308,  -1e308,    0.1,   largest,  -largest,
                          5e-7, 1e9,  1.0000001, -1e-300, 123456, -0.000123, 2e307, 1e15 + 1, 7};
    std::mt19937 random(42);
    const auto pick = [&] { return odd[random() % std::size(odd)]; };
    for (int round = 0; round < 20000; ++round) {
        KXAxisProperty property;
        property.setAutoAxisRange(random() % 2);
        property.setCustomMinAxisValue(pick());
        property.setCustomMaxAxisValue(pick());
        property.setAutoAxisTicks(random() % 2);
        property.setCustomAxisTickInterval(pick());
        property.setAxisPossibleTickCount(static_cast<int>(random() % 9) - 2);
        KXAxisChartAxisCacheData cache = makeData(pick(), pick());
        cache.presetTickInterval = random() % 4 ? 0 : pick();
        cache.isSmallRange = random() % 2;
        ASSERT_TRUE(kxUpdateAxisCacheData(&property, &cache, random() % 2));
        ASSERT_TRUE(std::isfinite(cache.axisMin) && std::isfinite(cache.axisMax)) << round;
        ASSERT_TRUE(std::isfinite(cache.tickInterval) && cache.tickInterval > 0) << round;
        const std::vector<double> ticks = kxObtainAxisTicks(cache, cache.axisMin, cache.axisMax, 50);
        ASSERT_LE(ticks.size(), 50u);
        for (std::size_t i = 0; i < ticks.size(); ++i)
            ASSERT_TRUE(std::isfinite(ticks[i]) && (i == 0 || ticks[i] > ticks[i - 1])) << round;
    }
}
