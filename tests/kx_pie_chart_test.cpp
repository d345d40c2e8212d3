#include "kx_pie_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_pie_grid.h"
#include "kx_table_data_provider.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

/** A pie over a table, without title and legend. */
class KXPieChartTest : public testing::Test {
protected:
    KXPieChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.getChartProperty()->setShowLegend(false);
        chart.getDataFormat()->setDecimals(0);
    }
    void show(const Values& values, const UXRect& rect = {0, 0, 402, 302})
    {
        Texts names;
        for (std::size_t i = 0; i < values.size(); ++i)
            names.push_back("slice " + std::to_string(i));
        table.clear();
        table.addDimension("Slice", names);
        table.addMeasure("Size", values);
        layOut(rect);
    }
    void layOut(const UXRect& rect = {0, 0, 402, 302})
    {
        table.serve(chart);
        chart.setRect(rect);
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }
    /** @return the names of the slices of the first pie with their percentages */
    std::string obtainSlices()
    {
        std::string text;
        for (const KXPanelItem& item : chart.getLaidOutItems())
            if (item.item.index == 0)
                text += chart.obtainGroupName(item.item.group) + "=" + chart.obtainPercentageText(item.item) +
                        " ";
        return text;
    }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXPieChart chart;
};

double obtainTurn(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool doCross(const KXPieChart::Leader& one, const KXPieChart::Leader& other)
{
    for (const std::size_t i : {0, 1})
        for (const std::size_t k : {0, 1}) {
            const UXDoublePoint &a = one[i], &b = one[i + 1], &c = other[k], &d = other[k + 1];
            if (obtainTurn(a, b, c) * obtainTurn(a, b, d) < 0 &&
                obtainTurn(c, d, a) * obtainTurn(c, d, b) < 0)
                return true;
        }
    return false;
}

/** @return whether a line comes nearer to the middle than the edge, or two stand in another order than their
 * slices */
std::string findFault(const KXPie& pie, const std::vector<KXPieChart::Leader>& leaders)
{
    const UXDoublePoint center = pie.getCenter();
    for (std::size_t i = 0; i < leaders.size(); ++i) {
        const KXPieChart::Leader& leader = leaders[i];
        for (double share = 0; share <= 1; share += 0.05) {
            const double x = leader[1].x + share * (leader[2].x - leader[1].x);
            const double y = leader[1].y + share * (leader[2].y - leader[1].y);
            if (std::hypot(x - center.x, y - center.y) < pie.getRadius() - 1e-3)
                return "a line runs through the pie";
        }
        for (std::size_t k = 0; k < i; ++k) {
            if (doCross(leader, leaders[k]))
                return "two lines cross";
            const bool isSameSide = (leader[2].x < center.x) == (leaders[k][2].x < center.x);
            if (isSameSide && (leader[1].y < leaders[k][1].y) != (leader[2].y < leaders[k][2].y) &&
                leader[1].y != leaders[k][1].y)
                return "two labels stand in another order than their slices";
        }
    }
    return {};
}

/** @return the first text that lies over another one in a recorded drawing */
std::string findTextOverText(const std::string& drawing)
{
    std::vector<UXDoubleRect> rects;
    std::istringstream lines(drawing);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.rfind("\" ");
        UXDoubleRect rect;
        if (line.find("drawText") == std::string::npos || end == std::string::npos ||
            std::sscanf(line.c_str() + end + 2, "%lf,%lf,%lf,%lf", &rect.x, &rect.y, &rect.width,
                        &rect.height) != 4)
            continue;
        for (const UXDoubleRect& other : rects)
            if (rect.x < other.x + other.width && other.x < rect.x + rect.width &&
                rect.y < other.y + other.height && other.y < rect.y + rect.height)
                return line;
        rects.push_back(rect);
    }
    return {};
}

TEST_F(KXPieChartTest, LabelsOfAnyPieKeepTheirOrderAndNeverMeet)
{
    std::mt19937 random(7);
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::size_t leaderCount = 0, textCount = 0;
    for (int i = 0; i < 2000; ++i) {
        SCOPED_TRACE(i);
        Values values;
        for (int n = 1 + below(i % 3 == 0 ? 60 : 12); n > 0; --n)
            values.push_back(below(8) == 0 ? below(3) - 1 : std::exp(below(90) / 10.0));
        chart.setStartAngle(below(3) == 0 ? below(720) - 360 : -90);
        chart.setSweep(below(3) == 0 ? 90 + below(300) : 360);
        chart.setIsClockwise(below(4) != 0);
        chart.setHoleRatio(below(2) * 0.6);
        chart.setShowTotal(below(2) == 0);
        show(values, {0, 0, 40 + below(900), 30 + below(600)});
        ASSERT_LE(chart.getPies().size(), 1);
        if (chart.getPies().empty())
            continue;
        ASSERT_EQ(findFault(chart.getPies()[0], chart.getLeaders()), "");
        double whole = 0;
        for (const KXPieSegmentInfo& segment : chart.getPies()[0].getSegments())
            whole += segment.getPercentage();
        ASSERT_NEAR(whole, 100, 1e-6);
        const std::string drawing = uxPaintToText(chart);
        ASSERT_EQ(findTextOverText(drawing), "");
        leaderCount += chart.getLeaders().size();
        for (std::size_t at = 0; (at = drawing.find("drawText", at)) != std::string::npos; ++at)
            ++textCount;
    }
    EXPECT_GT(leaderCount, 10'000) << "labels beside pies are what this is about";
    EXPECT_GE(textCount, leaderCount);
}

TEST_F(KXPieChartTest, SmallSlicesAreGatheredAfterTheFirstAndBeforePercentages)
{
    using enum KXPieChartSliceStyle;
    using enum KXPieSliceOrder;
    const std::tuple<const char*, KXPieChartSliceStyle, double, KXPieSliceOrder, int, const char*> cases[] = {
        {"all", Default, 0, None, 0,
         "slice 0=10.0 % slice 1=50.0 % slice 2=1.0 % slice 3=38.0 % slice 4=1.0 % "},
        {"by size", Default, 0, Descending, 0,
         "slice 1=50.0 % slice 3=38.0 % slice 0=10.0 % slice 2=1.0 % slice 4=1.0 % "},
        {"the two largest, Others last", NumOfSliceDisplay, 2, Ascending, 0,
         "slice 3=38.0 % slice 1=50.0 % Others=12.0 % "},
        {"below a share", GroupValueLessThan, 2, None, 0,
         "slice 0=10.0 % slice 1=50.0 % slice 3=38.0 % Others=2.0 % "},
        {"a single one stays", NumOfSliceDisplay, 4, Descending, 0,
         "slice 1=50.0 % slice 3=38.0 % slice 0=10.0 % slice 2=1.0 % slice 4=1.0 % "},
        {"of the top", NumOfSliceDisplay, 1, Descending, 3, "slice 1=51.0 % Others=49.0 % "},
    };
    for (const auto& [name, style, number, order, top, expected] : cases) {
        SCOPED_TRACE(name);
        chart.setSliceStyle(style);
        chart.setSliceCount(static_cast<std::int64_t>(number));
        chart.setGroupBelowPercent(number);
        chart.setSort(order);
        chart.getChartProperty()->setShowOnlyTopX(top > 0);
        chart.getChartProperty()->setTopXItemsToShow(top);
        show({10, 50, 1, 38, 1});
        EXPECT_EQ(obtainSlices(), expected);
        EXPECT_EQ(chart.obtainLegendCellSize(), chart.getLaidOutItems().size());
    }

    chart.setSliceStyle(Default);
    chart.setSort(None);
    chart.getChartProperty()->setTopXItemsToShow(2);
    show({null, 0, 1, -2, 3, 4});
    EXPECT_EQ(obtainSlices(), "slice 2=25.0 % slice 4=75.0 % ") << "what has no slice takes no place";
    EXPECT_EQ(chart.getNote(), "");

    chart.getChartProperty()->setShowOnlyTopX(false);
    chart.setSliceStyle(GroupValueLessThan);
    chart.setGroupBelowPercent(2);
    show({10, 50, 1, 38, 1});
    const KXChartItem others = chart.getLaidOutItems().back().item;
    const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(others));
    EXPECT_EQ(path->identifier, "Others");
    EXPECT_EQ(path->dimensionIndexPath, (KXIndexPath{0, 2, 4}));
    EXPECT_EQ(chart.findItems(*path), std::vector{others});
    path->dimensionIndexPath = {0, 4};
    EXPECT_EQ(chart.findItems(*path), std::vector{others}) << "it answers for what it holds";
    const UXHintInfo hint = chart.obtainItemHint(others);
    EXPECT_EQ(hint.title + "=" + hint.text, "Others (2)=2 (2.0 %)");
    chart.setGroupShown(1, false);
    chart.layout();
    EXPECT_EQ(obtainSlices(), "slice 0=20.0 % slice 3=76.0 % Others=4.0 % ") << "of what is left";
    EXPECT_EQ(chart.obtainLegendCellSize(), 4);
}

TEST_F(KXPieChartTest, WhatHasNoSliceIsToldOnce)
{
    const std::tuple<const char*, Values, const char*, const char*> cases[] = {
        {"nothing is left out", {1, 3}, "slice 0=25.0 % slice 1=75.0 % ", ""},
        {"one slice", {5}, "slice 0=100.0 % ", ""},
        {"of every kind",
         {1, -2, -3, 0, null, 3},
         "slice 0=25.0 % slice 5=75.0 % ",
         "Not shown: 2 negative, 1 zero, 1 without a value"},
        {"below what is shown", {1e9, 1}, "slice 0=100.0 % slice 1=< 0.1 % ", ""},
        {"beyond a double", {1e308, 1e308, 1e308}, "slice 0=33.4 % slice 1=33.3 % slice 2=33.3 % ", ""},
        {"all zero", {0, 0}, "", ""},
    };
    for (const auto& [name, values, slices, note] : cases) {
        SCOPED_TRACE(name);
        show(values);
        EXPECT_EQ(obtainSlices(), slices);
        EXPECT_EQ(chart.getNote(), note);
        EXPECT_EQ(uxPaintToText(chart).find("No data") != std::string::npos, !*slices);
    }
    show({5});
    EXPECT_EQ(chart.getLaidOutItems()[0].shape.obtainSector()->sweepDegrees, 360) << "without a gap";
}

TEST_F(KXPieChartTest, PiesOfASecondDimensionAreEqualInAGrid)
{
    table.addDimension("Slice", Texts{"a", "b", "a", "b", "a"});
    table.addDimension("Pie", Texts{"p", "p", "q", "q", "r"});
    table.addMeasure("Size", {1, 3, 2, 2, 5});
    layOut({0, 0, 602, 202});
    ASSERT_EQ(chart.getPies().size(), 3);
    for (const KXPie& pie : chart.getPies()) {
        EXPECT_EQ(pie.getRadius(), chart.getPies()[0].getRadius());
        EXPECT_EQ(pie.getCenter().y, chart.getPies()[0].getCenter().y);
    }
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"p\"", "\"q\"", "\"r\""}), "");
    chart.setShowTotal(true);
    chart.setTotalCaption("all");
    layOut({0, 0, 602, 202});
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"p all 4\"", "\"r all 5\""}), "") << "without a hole";
    chart.setHoleRatio(0.6);
    layOut({0, 0, 602, 202});
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"p\"", "\"4\"", "\"all\""}), "") << "in the hole";
    EXPECT_EQ(chart.obtainPercentageText({0, 1, 0}), "75.0 %");
    EXPECT_EQ(chart.obtainPercentageText({0, 0, 2}), "100.0 %");
    EXPECT_EQ(chart.obtainLegendCellSize(), 2);
    EXPECT_EQ(chart.getNote(), "") << "what does not meet is not missed";

    table.clear();
    table.addDimension("Slice", Texts{"a", "b", "c", "a", "c"});
    table.addDimension("Pie", Texts{"p", "p", "p", "q", "q"});
    table.addMeasure("Size", {50, 1, 2, 60, 3});
    chart.setSliceStyle(KXPieChartSliceStyle::NumOfSliceDisplay);
    chart.setSliceCount(1);
    layOut();
    ASSERT_EQ(chart.getLaidOutItems().size(), 4);
    EXPECT_EQ(chart.obtainItemHint(chart.getLaidOutItems()[1].item).title, "Others (2), p");
    EXPECT_EQ(chart.obtainItemHint(chart.getLaidOutItems()[3].item).title, "c, q") << "one is not gathered";
    EXPECT_EQ(chart.getLaidOutItems()[3].color, chart.getLaidOutItems()[1].color) << "as the legend has it";

    const std::tuple<const char*, std::size_t, UXDoubleSize, std::size_t> grids[] = {
        {"one", 1, {2, 2}, 1},
        {"wide room", 4, {2, 2}, 4},
        {"two rows", 10, {2, 2}, 5},
        {"wide pies", 4, {2, 1}, 2},
    };
    for (const auto& [name, count, shape, columns] : grids)
        EXPECT_EQ(KXPieGrid::divide({0, 0, 400, 120}, count, shape, 0).columnCount, columns) << name;
}

TEST_F(KXPieChartTest, ACircleIsAsLargeAsItsSweepAllows)
{
    chart.setLabelPosition(KXPieLabelPosition::Inside);
    const std::tuple<const char*, double, double, bool, UXDoubleSize> cases[] = {
        {"all around", -90, 360, true, {2, 2}},      {"upper half", 180, 180, true, {2, 1}},
        {"upper half, back", 0, 180, false, {2, 1}}, {"a quarter", -90, 90, true, {1, 1}},
        {"not a number", NAN, NAN, true, {2, 2}},
    };
    for (const auto& [name, start, sweep, isClockwise, extent] : cases) {
        SCOPED_TRACE(name);
        chart.setStartAngle(start);
        chart.setSweep(sweep);
        chart.setIsClockwise(isClockwise);
        show({1, 2}, {0, 0, 402, 302});
        const double largest = std::min(400 / extent.width, 300 / extent.height);
        EXPECT_NEAR(chart.getPies()[0].getRadius(), largest / 1.06, 1);
        for (const KXPanelItem& item : chart.getLaidOutItems())
            EXPECT_TRUE(item.shape.getBounds().x >= 0 && item.shape.getBounds().y >= 0);
    }
    const KXPie& pie = chart.getPies()[0];
    KXPie read;
    EXPECT_TRUE(read.deserialize(KXPie(pie).serialize()));
    EXPECT_EQ(read.getTotal(), 3);
    EXPECT_EQ(read.obtainSector(1, 1), pie.obtainSector(1, 1));
}

} // namespace
