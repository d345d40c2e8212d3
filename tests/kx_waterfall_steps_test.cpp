#include "kx_waterfall_steps.h"

#include "kx_value_statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Order = KXWaterfallChartGroupValueSortOrder;

constexpr double null = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = (std::numeric_limits<double>::max)();

KXWaterfallSource makeSource(const std::vector<std::vector<double>>& parts, bool isDivided)
{
    KXWaterfallSource source;
    source.isDivided = isDivided;
    for (const std::vector<double>& part : parts)
        source.parts.emplace_back(part);
    source.count = parts.empty() ? 0 : parts.front().size();
    return source;
}

/** @return each bar as its ends, a total with '=', Others with 'o' and a null with '-' in front */
std::string describe(const KXWaterfallSteps& made)
{
    using enum KXWaterfallStep::Kind;
    std::ostringstream text;
    for (const KXWaterfallStep& step : made.steps)
        text << (std::isnan(step.value)                   ? "-"
                 : step.kind == Total || step.kind == End ? "="
                 : step.kind == Others                    ? "o"
                                                          : "")
             << step.from << ">" << step.to << " ";
    return text.str();
}

} // namespace

TEST(KXWaterfallSteps, RunFromTotalToTotal)
{
    struct Case {
        const char* name;
        std::vector<double> values;
        KXWaterfallRule rule;
        std::vector<bool> totals;
        std::string expected;
    };
    const Case cases[] = {
        {"changes", {3, -5, 4}, {}, {}, "0>3 3>-2 -2>2 =0>2 "},
        {"a start", {10, -4, 0}, {.firstIsStart = true}, {}, "=0>10 10>6 6>6 =0>6 "},
        {"without an end", {3, 4}, {.hasEnd = false}, {}, "0>3 3>7 "},
        {"a null goes on", {3, null, 4}, {}, {}, "0>3 -3>3 3>7 =0>7 "},
        {"a null start", {null, 4}, {.firstIsStart = true}, {}, "=0>0 0>4 =0>4 "},
        {"totals of the host",
         {3, 4, 8, 1, null},
         {},
         {false, false, true, false, true},
         "0>3 3>7 =0>8 8>9 =0>9 "},
        {"none", {}, {}, {}, ""},
        {"beyond a double",
         {largest, largest, -largest},
         {},
         {},
         "0>1.79769e+308 1.79769e+308>1.79769e+308 1.79769e+308>1.79769e+308 =0>1.79769e+308 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<std::vector<double>> parts{c.values}; // lent
        KXWaterfallSource source = makeSource(parts, false);
        source.areTotals = c.totals;
        EXPECT_EQ(describe(kxMakeWaterfallSteps(source, c.rule)), c.expected);
    }
}

TEST(KXWaterfallSteps, BreakTheDifferenceOfTwoTotalsDown)
{
    struct Case {
        const char* name;
        std::vector<std::vector<double>> parts;
        std::uint64_t count;
        Order order;
        std::string expected;
    };
    const std::vector<std::vector<double>> five{{10, 12}, {5, 4}, {null, 7}, {3, null}, {null, null}};
    const Case cases[] = {
        {"all", five, 8, Order::None, "=0>18 18>20 20>19 19>26 26>23 -23>23 =0>23 "},
        {"up first", five, 8, Order::IncreaseToDecrease, "=0>18 18>25 25>27 27>26 26>23 -23>23 =0>23 "},
        {"down first, the small ones gathered", five, 2, Order::DecreaseToIncrease,
         "=0>18 18>15 15>22 -22>22 o22>23 =0>23 "},
        {"one alone is not gathered", {{1, 2}, {1, 4}, {1, 8}}, 2, Order::None, "=0>3 3>4 4>7 7>14 =0>14 "},
        {"three totals", {{1, 2, 4}, {1, 1, 0}}, 8, Order::None, "=0>2 2>3 3>3 =0>3 3>5 5>4 =0>4 "},
        {"one total", {{1}, {2}}, 8, Order::None, "=0>3 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const KXWaterfallSource source = makeSource(c.parts, true);
        EXPECT_EQ(describe(kxMakeWaterfallSteps(source, {false, true, c.count, c.order})), c.expected);
    }
}

TEST(KXWaterfallSteps, EndWithTheCompensatedSum)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponents(-8, 16);
    for (int round = 0; round < 200; ++round) {
        std::vector<double> values;
        for (int i = 0; i < 60; ++i)
            values.push_back((random() % 2 == 0 ? 1 : -1) * std::pow(10.0, exponents(random)));
        const KXWaterfallSteps made = kxMakeWaterfallSteps(makeSource({values}, false), {});
        EXPECT_EQ(made.steps.back().value, kxObtainSum(values));

        std::vector<std::vector<double>> parts;
        std::vector<double> changes;
        for (std::size_t i = 0; i + 1 < values.size(); i += 2)
            parts.push_back({std::round(values[i] * 1e-4), std::round(values[i + 1] * 1e-4)});
        for (const KXWaterfallStep& step : kxMakeWaterfallSteps(makeSource(parts, true), {}).steps)
            changes.push_back(step.kind == KXWaterfallStep::Kind::Total
                                  ? (changes.empty() ? 1 : -1) * step.value
                                  : step.value);
        EXPECT_EQ(kxObtainSum(changes), 0) << "of whole numbers";
    }
}
