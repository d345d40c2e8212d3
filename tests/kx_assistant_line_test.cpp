#include "kx_assistant_line_data_view.h"
#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_bar_chart.h"
#include "kx_chart_value_operation.h"
#include "kx_key_walk.h"
#include "kx_legend.h"
#include "kx_line_chart.h"
#include "kx_load_chart.h"
#include "kx_waterfall_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using Operation = KXChartValueOperation;

constexpr double null = KXAxisChartTestProvider::null;

KXAssistantLineProperty makeLine(Operation operation, double value = 0)
{
    KXAssistantLineProperty line;
    line.setOperation(static_cast<int>(operation));
    line.setValue(value);
    return line;
}

class KXAssistantLineTest : public testing::Test {
protected:
    /** Loads the chart with these lines. */
    void load(KXXYAxisChart& chart, const std::vector<KXAssistantLineProperty>& lines)
    {
        chart.getAxisChartProperty()->updateAssistantLines(lines);
        kxLoad(chart, provider, {0, 0, 600, 300});
    }
    const KXAssistantLineDataView::Line& getLine(const KXXYAxisChart& chart, std::size_t index = 0)
    {
        return chart.getAssistantLineView(true).getLines().at(index);
    }

    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
};

} // namespace

TEST(KXAssistantLineProperty, EveryKey)
{
    KX_WALK_KEYS(KXAssistantLineProperty, KX_ASSISTANT_LINE_PROPERTY_KEYS);
}

TEST(KXChartValueOperation, TellsOneValueOfMany)
{
    const std::vector<double> values{2, null, 4, 4, 4, 5, 5, 7, 9}; // mean 5, squares of distances 32
    const std::vector<double> one{3}, nothing{null};
    struct Case {
        const char* name;
        Operation operation;
        double parameter, many, single;
    };
    const Case cases[] = {
        {"fixed", Operation::FixedValue, -1.5, -1.5, -1.5},
        {"least", Operation::Minimum, 0, 2, 3},
        {"greatest", Operation::Maximum, 0, 9, 3},
        {"mean", Operation::Average, 0, 5, 3},
        {"median", Operation::Median, 0, 4.5, 3},
        {"a quarter of the sum", Operation::ShareOfSum, 25, 10, 0.75},
        {"90 of a hundred", Operation::Percentile, 90, 7.6, 3},
        {"all of a hundred", Operation::Percentile, 100, 9, 3},
        {"a deviation below", Operation::StandardDeviation, -1, 5 - std::sqrt(32.0 / 7), null},
        {"no single value", Operation::Trend, 0, null, null},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const double many = kxObtainOperationValue(c.operation, c.parameter, values);
        const double single = kxObtainOperationValue(c.operation, c.parameter, one);
        EXPECT_TRUE(std::isnan(c.many) ? std::isnan(many) : std::abs(many - c.many) < 1e-12) << many;
        EXPECT_TRUE(std::isnan(c.single) ? std::isnan(single) : std::abs(single - c.single) < 1e-12)
            << single;
        const double none = kxObtainOperationValue(c.operation, c.parameter, nothing);
        EXPECT_EQ(std::isnan(none), c.operation != Operation::FixedValue);
    }
}

TEST_F(KXAssistantLineTest, TellsOfTheShownSeriesAndStandsWhereItsValueDoes)
{
    provider.categoryCount = 4;
    provider.values = {{1, 2, 3, 6}, {10, 20, 30, null}};
    KXAssistantLineProperty named = makeLine(Operation::Average);
    named.setSeriesID("s0");
    KXBarChart chart;
    load(chart, {makeLine(Operation::Maximum), named});
    EXPECT_EQ(getLine(chart).value, 30);
    EXPECT_EQ(getLine(chart, 1).value, 3);
    for (const auto orientation : {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        chart.getAxisChartProperty()->updateOrientation(orientation);
        chart.layout();
        const bool isUpright = orientation == KXAxisChartOrientation::Vertical;
        const std::vector<UXDoublePoint>& path = getLine(chart).path;
        ASSERT_EQ(path.size(), 2);
        EXPECT_NEAR(isUpright ? path[0].y : path[0].x, chart.obtainValueScale(0).obtainPosition(30), 1);
        EXPECT_EQ(isUpright ? path[0].y : path[0].x, isUpright ? path[1].y : path[1].x);
    }
    chart.setSeriesShown(1, false);
    chart.layout();
    EXPECT_EQ(getLine(chart).value, 6) << "of what is shown";
    chart.setSeriesShown(1, true);
    chart.getYAxisProperty()->updateIsStacked(true);
    chart.layout();
    EXPECT_EQ(getLine(chart).value, 33) << "the sums of stacks";
    EXPECT_EQ(getLine(chart, 1).value, 3);
    chart.getYAxisProperty()->updateIs100PercentStacked(true);
    chart.layout();
    EXPECT_TRUE(getLine(chart).path.empty()) << "values are not percentages";
}

TEST_F(KXAssistantLineTest, FixedValuesWidenTheRangeAndOthersAreClipped)
{
    KXAssistantLineProperty band = makeLine(Operation::FixedValue, 50),
                            deviation = makeLine(Operation::StandardDeviation, 100);
    band.setIsBand(true);
    band.setToValue(70);
    KXBarChart chart;
    load(chart, {band, deviation});
    EXPECT_GE(chart.getYAxis()->getMaxValue(), 70);
    EXPECT_EQ(getLine(chart).band.size(), 4);
    EXPECT_EQ(getLine(chart).valueText, "50 \u2013 70");
    EXPECT_TRUE(getLine(chart, 1).path.empty()) << "102 lies beyond";
    KXAssistantLineProperty category = makeLine(Operation::FixedValue);
    category.setIsOnXAxis(true);
    category.setCategory("c2");
    load(chart, {category});
    ASSERT_EQ(getLine(chart).path.size(), 2);
    EXPECT_NEAR(getLine(chart).path[0].x, chart.obtainCategoryMap().obtainPosition(2), 1);
    EXPECT_EQ(getLine(chart).valueText, "c2");
}

TEST_F(KXAssistantLineTest, TrendsAndMovingAverages)
{
    struct Case {
        const char* name;
        std::vector<double> values;
        bool hasTrend;
        double slope, halfBand; // at the middle; by hand: t(0.975, 2) s / sqrt(n) with s = sqrt(squares / 2)
    };
    const Case cases[] = {
        {"a straight line", {1, 3, 5, 7}, true, 2, 0},
        {"scattered", {1, 2.2, 2.8, 4}, true, 0.96, 4.302652729749464 * std::sqrt(0.072 / 2) / 2},
        {"two points", {1, null, 3}, true, 1, null},
        {"one point", {null, 4}, false, 0, null},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.categoryCount = c.values.size();
        provider.values = {c.values};
        KXLineChart chart;
        load(chart, {makeLine(Operation::Trend)});
        const KXAssistantLineDataView::Line& line = getLine(chart);
        ASSERT_EQ(line.trend.has_value(), c.hasTrend);
        EXPECT_EQ(line.path.empty(), !c.hasTrend);
        EXPECT_EQ(line.band.empty(), std::isnan(c.halfBand));
        if (!c.hasTrend)
            continue;
        EXPECT_NEAR(line.trend->slope, c.slope, 1e-12);
        const double half = line.trend->obtainHalfBand(line.trend->meanX);
        EXPECT_TRUE(std::isnan(c.halfBand) ? std::isnan(half) : std::abs(half - c.halfBand) < 1e-9) << half;
    }
    provider.categoryType = KXChartDataType::Integer;
    provider.setting.firstFlag = true;
    provider.categoryNumber = [](std::uint64_t) { return 5.0; };
    KXLineChart equal;
    load(equal, {makeLine(Operation::Trend)});
    EXPECT_FALSE(getLine(equal).trend) << "all at one x";

    provider = KXAxisChartTestProvider();
    provider.categoryCount = 5;
    provider.values = {{1, null, 4, 6, 8}};
    KXLineChart chart;
    load(chart, {makeLine(Operation::MovingAverage, 3)});
    const std::vector<double>& means = getLine(chart).means;
    ASSERT_EQ(means.size(), 5);
    EXPECT_TRUE(std::isnan(means[1])) << "none before there are three places";
    EXPECT_EQ(means[2], 2.5);
    EXPECT_EQ(means[4], 6);
    EXPECT_FALSE(getLine(chart).path.empty());
    load(chart, {makeLine(Operation::MovingAverage, null)});
    EXPECT_TRUE(getLine(chart).means.empty()) << "of no number of values";
}

TEST_F(KXAssistantLineTest, LabelsLegendHintAndDocument)
{
    provider.values = {{1, 2, 3}, {3, 2, 1}};
    KXAssistantLineProperty target = makeLine(Operation::FixedValue, 2), mean = makeLine(Operation::Average);
    target.setLabelText("Target");
    target.setShowInLegend(true);
    mean.setLineStyle(KXChartLineStyle::Dot);
    mean.setShowInLegend(true);
    mean.setIsInFront(false);
    KXBarChart chart;
    load(chart, {target, mean});
    const KXAssistantLineDataView &front = chart.getAssistantLineView(true),
                                  &behind = chart.getAssistantLineView(false);
    ASSERT_EQ(front.getLabels().size(), 1);
    EXPECT_EQ(front.getLabels()[0].text, "Target 2");
    ASSERT_EQ(behind.getLabels().size(), 1);
    EXPECT_EQ(behind.getLabels()[0].text, "Average 2");
    EXPECT_FALSE(uxIntersectsRect(uxSurroundingRect(front.getLabels()[0].rect),
                                  uxSurroundingRect(behind.getLabels()[0].rect)));

    EXPECT_EQ(chart.obtainLegendCellSize(), 4);
    EXPECT_EQ(chart.obtainLegendLabel(2), "Target");
    EXPECT_EQ(chart.obtainLegendSymbolStyle(2), UXSymbolStyle::AssistantLineWithDash);
    EXPECT_EQ(chart.obtainLegendSymbolStyle(3), UXSymbolStyle::AssistantLineWithDot);
    EXPECT_TRUE(chart.obtainLegendShouldShowCell(3));
    chart.legendCellClicked(2, UXEvent());
    EXPECT_TRUE(chart.isSeriesShown(0));
    KXWaterfallChart steps;
    load(steps, {target});
    EXPECT_TRUE(steps.obtainLegendShouldShowCell(3)) << "after what goes up, what goes down and totals";
    EXPECT_FALSE(steps.obtainLegendShouldShowCell(1)) << "nothing goes down";

    const UXDoublePoint on = front.getLines()[0].path[0];
    const UXPoint point = chart.translatePoint(UXPoint(static_cast<int>(on.x), static_cast<int>(on.y)),
                                               chart.getPlot(), &chart);
    const std::optional<KXChartItem> item = chart.obtainExplainedAt(point);
    ASSERT_TRUE(item);
    EXPECT_EQ(chart.obtainItemHint(*item).title, "Target");

    KXBarChart read;
    ASSERT_TRUE(read.deserialize(chart.serialize()));
    EXPECT_EQ(read.getAxisChartProperty()->getAssistantLines(),
              (std::vector<KXAssistantLineProperty>{target, mean}));
    EXPECT_EQ(read.serialize(), chart.serialize());
    KXBarChart reset;
    reset.customResetProperties(KXChartResetType::Style, &chart, {"AssistantLine"});
    EXPECT_EQ(reset.getAxisChartProperty()->getAssistantLines().size(), 2);
}
