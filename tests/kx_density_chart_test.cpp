#include "kx_density_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_property.h"
#include "kx_table_data_provider.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Bins = std::vector<KXDensityBinData>;
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

TEST(KXDensity, BinsHaveOrderWidthsAndNoOverlaps)
{
    const std::tuple<const char*, Bins, std::vector<KXDensityBin>> cases[] = {
        {"sorted, empty ones absent", {{4, 2, 1}, {0, 2, 3}, {2, 2, 0}}, {{0, 2, 3}, {4, 6, 1}}},
        {"unequal", {{0, 1, 3}, {1, 9, 1}}, {{0, 1, 3}, {1, 10, 1}}},
        {"an overlap ends at the next edge", {{0, 5, 3}, {2, 2, 1}}, {{0, 2, 3}, {2, 4, 1}}},
        {"a width of the neighbour before", {{0, 2, 3}, {2, 0, 1}}, {{0, 2, 3}, {2, 4, 1}}},
        {"of that behind", {{0, -1, 3}, {4, 2, 1}}, {{0, 2, 3}, {4, 6, 1}}},
        {"without any width", {{0, 0, 3}, {4, 0, 1}, {6, 0, 1}}, {{0, 4, 3}, {4, 6, 1}, {6, 8, 1}}},
        {"what has no place or count", {{null, 1, 3}, {0, 1, null}, {1, 1, -4}, {2, 1, 5}}, {{2, 3, 5}}},
    };
    for (const auto& [name, bins, expected] : cases)
        EXPECT_EQ(KXDensity(bins).getBins(), expected) << name;
    EXPECT_TRUE(std::isnan(KXDensity().obtainQuantile(0.5)));
}

TEST(KXDensity, TheAreaOfACurveIsItsTotal)
{
    const Bins unequal{{0, 1, 40}, {1, 3, 10}, {4, 1, 25}, {9, 4, 5}}, single{{3, 2, 7}};
    using Bounds = KXDensity::Bounds;
    const std::tuple<const char*, Bins, double, Bounds> cases[] = {
        {"steps", unequal, 0, {}},        {"a narrow kernel", unequal, 0.1, {}},
        {"a wide one", unequal, 5, {}},   {"thrown back below", unequal, 2, {0.0, {}}},
        {"at both", unequal, 2, {0, 13}}, {"a bound beyond reach", unequal, 2, {-90.0, {}}},
        {"one bin", single, 1, {}},
    };
    for (const auto& [name, bins, width, bounds] : cases) {
        SCOPED_TRACE(name);
        const KXDensity density(bins);
        const auto [from, to] = density.obtainRange(width, bounds);
        constexpr int count = 100'000;
        double area = 0;
        for (int i = 0; i < count; ++i)
            area += density.obtainHeight(from + (to - from) * (i + 0.5) / count, width, bounds);
        area *= (to - from) / count;
        EXPECT_NEAR(area, density.getTotal(), density.getTotal() * 1e-3);
    }
}

TEST(KXDensity, NumbersThatStandForAll)
{
    const KXDensity density({{0, 10, 1}, {10, 10, 2}, {20, 10, 1}});
    EXPECT_EQ(density.obtainQuantile(0.25), 10);
    EXPECT_EQ(density.obtainQuantile(0.5), 15);
    EXPECT_EQ(density.obtainMean(), 15);
    // Middles 5, 15, 15, 25: s = sqrt(200 / 3); the quartiles lie at 5 and 15.
    EXPECT_NEAR(density.obtainKernelWidth(), 0.9 * (10 / 1.34) * std::pow(4, -0.2), 1e-12);
    EXPECT_EQ(KXDensity({{3, 2, 7}}).obtainKernelWidth(), 1) << "half a bin";
    const double deviation = std::sqrt(100 * 0.1 * 0.9 * 100 / 99);
    EXPECT_NEAR(KXDensity({{0, 10, 90}, {10, 10, 10}}).obtainKernelWidth(),
                0.9 * deviation * std::pow(100, -0.2), 1e-12)
        << "both quartiles in one bin";
}

/** A density chart over a table, without title and legend. */
class KXDensityChartTest : public testing::Test {
protected:
    KXDensityChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.getChartProperty()->setShowLegend(false);
    }
    void show()
    {
        table.addDimension("Group", Texts{"a", "a", "b", "b", "b"});
        table.addDimension("Bin", Values{0, 10, 0, 10, 20});
        table.addMeasure("Count", {30, 10, 5, 10, 5});
        layOut();
    }
    void layOut()
    {
        table.serve(chart);
        chart.setRect({0, 0, 402, 302});
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXDensityChart chart;
};

TEST_F(KXDensityChartTest, RowsAreTheItemsOfAllStylesButHistograms)
{
    show();
    for (const KXDensityStyle style :
         {KXDensityStyle::Ridge, KXDensityStyle::Violin, KXDensityStyle::Strip, KXDensityStyle::Box}) {
        SCOPED_TRACE(static_cast<int>(style));
        chart.setStyle(style);
        layOut();
        ASSERT_EQ(chart.getLaidOutItems().size(), 2);
        const KXChartItem item = chart.getLaidOutItems()[1].item;
        EXPECT_EQ(item, (KXChartItem{KXDensityChart::rowKind, 1, 0}));
        EXPECT_TRUE(chart.hasItem(item));
        const UXHintInfo hint = chart.obtainItemHint(item);
        EXPECT_EQ(hint.title + ": " + hint.text, "b: Median about 15, quartiles about 10 \u2013 20");
        const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(item));
        EXPECT_EQ(chart.findItems(*path), std::vector{item});
        EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"a\"", "\"b\""}), "");
    }
    chart.setStyle(KXDensityStyle::Histogram);
    layOut();
    EXPECT_EQ(chart.getLaidOutItems().size(), 5);
    EXPECT_EQ(chart.obtainItemHint({0, 0, 1}).text, "10 \u2013 20");
    EXPECT_FALSE(chart.hasItem({0, 0, 2})) << "no values lie there";
    table.replaceMeasure(0, {30, -10, 7, -1, 5});
    layOut();
    EXPECT_EQ(chart.getNote(), "Not shown: 2 negative");
    chart.setGroupShown(0, false);
    layOut();
    EXPECT_EQ(chart.getNote(), "Not shown: 1 negative") << "of the row that is left";
}

TEST_F(KXDensityChartTest, PercentagesOfTheBinsOfARowAddUp)
{
    chart.setStyle(KXDensityStyle::Histogram);
    table.addDimension("Bin", Values{0, 10, 20});
    table.addMeasure("Count", {1, 1, 1});
    layOut();
    const char* const expected[] = {"1 (33.4 %)", "1 (33.3 %)", "1 (33.3 %)"};
    for (std::uint64_t bin = 0; bin < 3; ++bin)
        EXPECT_EQ(chart.obtainItemHint({0, bin, 0}).rows.at(0).value, expected[bin]);
}

// One bin is far narrower than the scale, and lies between any places at even distances.
TEST_F(KXDensityChartTest, ACurveOfNarrowBinsPeaksAtItsHighestOne)
{
    table.addDimension("Bin", Values{1.2345, 1.5, 1000});
    table.addMeasure("Count", {100, 0, 2});
    for (const double width : {0.001, 0.5, 5.0}) {
        chart.setKernelWidth(width);
        layOut();
        const KXDensityChart::Row& row = chart.getRows().at(0);
        const auto& [from, to, count] = chart.obtainDensity(0).getBins().at(0);
        const double highest = chart.obtainDensity(0).obtainHeight((from + to) / 2, width, {});
        EXPECT_GE(row.greatestHeight, highest) << width;
        EXPECT_NEAR(row.greatestHeight, highest, highest / 100) << width;
        EXPECT_GE(chart.getLaidOutItems().at(0).shape.getBounds().y, 1) << "it stays in its row";
    }
}

TEST_F(KXDensityChartTest, HeightsHaveInCommonWhatIsWanted)
{
    show();
    chart.setSmoothing(KXDensitySmoothing::Off);
    // The highest bins: 30 of 40 values in 10 units, and 10 of 20.
    const std::tuple<KXDensityHeightScale, double> cases[] = {
        {KXDensityHeightScale::Share, 0.75 / 0.5},
        {KXDensityHeightScale::Count, 3},
        {KXDensityHeightScale::Max, 1},
    };
    for (const auto& [scale, ratio] : cases) {
        chart.setHeightScale(scale);
        layOut();
        const KXDensityChart::Row &a = chart.getRows().at(0), &b = chart.getRows().at(1);
        EXPECT_NEAR(3 * a.unitHeight / (1 * b.unitHeight), ratio, 1e-9) << static_cast<int>(scale);
        for (const KXPanelItem& item : chart.getLaidOutItems())
            EXPECT_GE(item.shape.getBounds().y, 1) << "the highest one fits";
    }
}

TEST_F(KXDensityChartTest, BinsAloneAreOneRow)
{
    table.addDimension("Bin", Values{0, 10, 20});
    table.addMeasure("Count", {30, -2, null});
    layOut();
    EXPECT_EQ(chart.getNote(), "Not shown: 1 negative, 1 without a value");
    ASSERT_EQ(chart.getLaidOutItems().size(), 1);
    EXPECT_EQ(chart.obtainLegendCellSize(), 0);
    EXPECT_EQ(chart.obtainPlace(0) < chart.obtainPlace(10), true);
    table.clear();
    table.addDimension("Bin", Texts{"x", "y"});
    table.addMeasure("Count", {3, 4});
    layOut();
    EXPECT_NE(uxPaintToText(chart).find("No data"), std::string::npos) << "bins without a place";
}

} // namespace
