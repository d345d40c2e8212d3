#include "kx_tree_map_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_line_gradient_legend.h"
#include "kx_squarify.h"
#include "kx_table_data_provider.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

double obtainRatio(const KXTileEdges& edges)
{
    const double width = edges.right - edges.left, height = edges.bottom - edges.top;
    return std::max(width / height, height / width);
}

TEST(KXSquarify, TheExampleOfItsAuthors)
{
    const std::vector<KXTileEdges> places = kxSquarify(Values{6, 6, 4, 3, 2, 2, 1}, {0, 0, 6, 4});
    ASSERT_EQ(places.size(), 7);
    EXPECT_EQ(places[0], (KXTileEdges{0, 0, 3, 2}));
    EXPECT_EQ(places[1], (KXTileEdges{0, 2, 3, 4}));
    double worst = 0;
    for (const KXTileEdges& edges : places)
        worst = std::max(worst, obtainRatio(edges));
    EXPECT_NEAR(worst, 25.0 / 9, 1e-12);
}

TEST(KXSquarify, EveryValueHasItsShareWhateverItIs)
{
    std::mt19937 random(3);
    const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        Values values;
        for (int n = 1 + below(60); n > 0; --n)
            values.push_back(i % 7 == 0 ? std::exp(below(1400) - 700) : 1 + below(1000));
        const UXDoubleRect area(3, 5, 1 + below(900), 1 + below(600));
        double greatest = *std::ranges::max_element(values), sum = 0;
        for (const double value : values)
            sum += value / greatest;
        const std::vector<KXTileEdges> places = kxSquarify(values, area);
        for (std::size_t k = 0; k < values.size(); ++k) {
            const KXTileEdges& edges = places[k];
            const double extent = (edges.right - edges.left) * (edges.bottom - edges.top);
            ASSERT_NEAR(extent, area.width * area.height * (values[k] / greatest / sum), 1e-6);
        }
    }
    EXPECT_TRUE(kxSquarify({}, {0, 0, 6, 4}).empty());
    EXPECT_EQ(kxSquarify(Values{1, 2}, {1, 1, 0, 4}).size(), 2) << "without extent";
}

/** A tree map over a table, without title and legend. */
class KXTreeMapChartTest : public testing::Test {
protected:
    KXTreeMapChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.getChartProperty()->setShowLegend(false);
        chart.getDataFormat()->setDecimals(0);
    }
    void showGroups()
    {
        table.addDimension("Leaf", Texts{"a", "b", "c", "d", "e"});
        table.addDimension("Group", Texts{"x", "y", "x", "y", "y"});
        table.addMeasure("Size", {60, 100, 20, 30, 10});
        layOut();
    }
    void layOut(const UXRect& rect = {0, 0, 402, 302})
    {
        table.serve(chart);
        chart.setRect(rect);
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }
    /** @return the names of the tiles in their order */
    std::string obtainTiles()
    {
        std::string text;
        for (const KXPanelItem& item : chart.getLaidOutItems())
            text += chart.obtainItemHint(item.item).title + "; ";
        return text;
    }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXTreeMapChart chart;
};

// Each pixel of the area belongs to one tile, and each tile has the pixels of its share, as far as its edges
// can be on whole pixels.
TEST_F(KXTreeMapChartTest, TilesFillWholePixelsWithoutGaps)
{
    chart.setTileGap(0);
    chart.setGroupGap(0);
    chart.setShowCaptions(false);
    std::mt19937 random(11);
    for (const int count : {1, 7, 60, 4000}) {
        SCOPED_TRACE(count);
        Texts names, groups;
        Values values;
        double sum = 0;
        for (int i = 0; i < count; ++i) {
            names.push_back("t" + std::to_string(i));
            groups.push_back("g" + std::to_string(i % 5));
            values.push_back(1.0 + static_cast<double>(random() % 1000));
            sum += values.back();
        }
        table.clear();
        table.addDimension("Leaf", names);
        table.addDimension("Group", groups);
        table.addMeasure("Size", values);
        layOut({0, 0, 302, 202});
        std::vector<int> owners(300 * 200, 0);
        for (const KXPanelItem& item : chart.getLaidOutItems()) {
            const UXDoubleRect& rect = item.shape.getBounds();
            const double wanted = 60'000 * chart.obtainItemValue(item.item) / sum;
            EXPECT_LE(std::abs(rect.width * rect.height - wanted), rect.width + rect.height + 1);
            for (double y = rect.y; y < rect.y + rect.height; ++y)
                for (double x = rect.x; x < rect.x + rect.width; ++x)
                    ++owners.at(static_cast<std::size_t>((y - 1) * 300 + x - 1));
        }
        EXPECT_EQ(std::ranges::count(owners, 1), 60'000);
    }
}

TEST_F(KXTreeMapChartTest, GroupsAndTilesFollowBySize)
{
    showGroups();
    EXPECT_EQ(obtainTiles(), "y, b; y, d; y, e; x, a; x, c; ");
    ASSERT_EQ(chart.getGroups().size(), 2);
    EXPECT_EQ(chart.obtainItemHint({0, 1, 1}).text, "100 (45.5 %)");
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"y\"", "\"x\"", "\"b\"", "\"100\"", "\"e\""}), "");
    const double sums[] = {140, 80};
    for (std::size_t i = 0; i < 2; ++i) {
        const UXDoubleRect& rect = chart.getGroups()[i].rect;
        EXPECT_NEAR(rect.width * rect.height, 400 * 300 * sums[i] / 220, 300) << i;
    }
    layOut({0, 0, 60, 40});
    for (const KXTreeMapChart::Group& group : chart.getGroups())
        EXPECT_EQ(group.caption.height, 0) << "it would take more than a third";

    chart.setGroupShown(1, false);
    layOut();
    EXPECT_EQ(obtainTiles(), "x, a; x, c; ");
    EXPECT_EQ(chart.obtainItemHint({0, 0, 0}).text, "60 (75.0 %)") << "of what is left";
}

TEST_F(KXTreeMapChartTest, SmallTilesAreGatheredInEachGroup)
{
    chart.setTileStyle(KXTreeMapChartTileStyle::GroupValueLessThan);
    chart.setGroupBelowPercent(20);
    showGroups();
    EXPECT_EQ(obtainTiles(), "y, b; y, Others (2); x, a; x, c; ");
    const KXChartItem others = chart.getLaidOutItems()[1].item;
    EXPECT_EQ(chart.obtainItemValue(others), 40);
    const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(others));
    EXPECT_EQ(path->identifier, "Others");
    EXPECT_EQ(path->dimensionIndexPath, (KXIndexPath{0, 3, 4})) << "those of its own group";
    EXPECT_EQ(chart.findItems(*path), std::vector{others});

    table.clear();
    table.addDimension("Leaf", Texts{"a", "b", "c", "d"});
    table.addMeasure("Size", {5, 80, 6, 9});
    layOut();
    EXPECT_EQ(obtainTiles(), "b; Others (3); ") << "in one level";
    chart.getChartProperty()->setShowOnlyTopX(true);
    chart.getChartProperty()->setTopXItemsToShow(2);
    chart.reloadData();
    layOut();
    EXPECT_EQ(obtainTiles(), "b; d; ") << "the first ones as shown; a single one stays";
}

// Small are a, b and d of all: x has the first two of them, y the last alone.
TEST_F(KXTreeMapChartTest, OthersOfAGroupHoldsSeveralOfItsOwn)
{
    chart.setTileStyle(KXTreeMapChartTileStyle::GroupValueLessThan);
    chart.setGroupBelowPercent(20);
    table.addDimension("Leaf", Texts{"a", "b", "c", "c", "d"});
    table.addDimension("Group", Texts{"x", "x", "x", "y", "y"});
    table.addMeasure("Size", {6, 7, 50, 60, 5});
    table.addMeasure("Heat", {1, 2, 3, 4, 9});
    layOut();
    EXPECT_EQ(obtainTiles(), "y, c; y, d; x, c; x, Others (2); ");
    EXPECT_NE(uxPaintToText(chart).find("\"d\""), std::string::npos);
    const KXPanelItem &sole = chart.getLaidOutItems()[1], &others = chart.getLaidOutItems()[3];
    EXPECT_EQ(sole.color, chart.getMaxColor());
    EXPECT_NE(others.color, chart.getMinColor()) << "what is gathered has no value of the other measure";
    const UXHintInfo hint = chart.obtainItemHint(sole.item);
    EXPECT_EQ(hint.text + " " + hint.rows.at(0).value, "5 (3.9 %) Heat: 9");
    const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(sole.item));
    EXPECT_EQ(path->identifier, "Tile");
    EXPECT_EQ(path->valueIndexPath, (KXIndexPath{0, 3, 1}));
    EXPECT_EQ(chart.findItems(*path), std::vector{sole.item});
}

TEST_F(KXTreeMapChartTest, OnlySizesThatAddUpAreGathered)
{
    class Table : public KXTableDataProvider {
    public:
        std::uint64_t average = 0;
        bool obtainValueAddsUp(KXChartDataUser*, std::uint64_t measure) override
        {
            return measure != average;
        }
    } averages;
    averages.addDimension("Leaf", Texts{"a", "b", "c", "d"});
    averages.addMeasure("Size", {5, 80, 6, 9});
    averages.addMeasure("Heat", {1, 2, 3, 4});
    chart.setTileStyle(KXTreeMapChartTileStyle::GroupValueLessThan);
    chart.setGroupBelowPercent(20);
    for (const auto& [average, tiles] : {std::pair{0, "b; d; c; a; "}, {1, "b; Others (3); "}}) {
        averages.average = static_cast<std::uint64_t>(average);
        averages.serve(chart);
        chart.setRect({0, 0, 402, 302});
        chart.layout();
        EXPECT_EQ(obtainTiles(), tiles) << average;
    }
}

TEST_F(KXTreeMapChartTest, WhatHasNoTileIsToldOnce)
{
    const std::tuple<const char*, Values, const char*, const char*> cases[] = {
        {"nothing is left out", {1, 3}, "t1; t0; ", ""},
        {"of every kind",
         {1, -2, 0, null, 3},
         "t4; t0; ",
         "Not shown: 1 negative, 1 zero, 1 without a value"},
        {"beyond a double", {1e308, 1e308, 1e308}, "t0; t1; t2; ", ""},
        {"too small for a pixel", {1e300, 1}, "t0; ", ""},
        {"all zero", {0, 0}, "", ""},
    };
    for (const auto& [name, values, tiles, note] : cases) {
        SCOPED_TRACE(name);
        Texts names;
        for (std::size_t i = 0; i < values.size(); ++i)
            names.push_back("t" + std::to_string(i));
        table.clear();
        table.addDimension("Leaf", names);
        table.addMeasure("Size", values);
        layOut();
        EXPECT_EQ(obtainTiles(), tiles);
        EXPECT_EQ(chart.getNote(), note);
        EXPECT_EQ(uxPaintToText(chart).find("No data") != std::string::npos, !*tiles);
    }
}

TEST_F(KXTreeMapChartTest, ASecondMeasureGivesColours)
{
    chart.getChartProperty()->setShowLegend(true);
    table.addDimension("Leaf", Texts{"a", "b", "c"});
    table.addMeasure("Size", {3, 2, 1});
    table.addMeasure("Heat", {10, 30, null});
    layOut();
    EXPECT_EQ(chart.obtainLegendCellSize(), 0);
    const UXObject& legend = *chart.getChildren().back();
    EXPECT_TRUE(legend.getVisible());
    EXPECT_EQ(chart.getLaidOutItems()[0].color, chart.getMinColor());
    EXPECT_EQ(chart.getLaidOutItems()[1].color, chart.getMaxColor());
    EXPECT_NE(chart.getLaidOutItems()[2].color, chart.getMinColor()) << "a null is no least value";
    const UXHintInfo hint = chart.obtainItemHint({0, 1, 0});
    EXPECT_EQ(hint.text + " " + hint.rows.at(0).value, "2 (33.3 %) Heat: 30");
    KXChartDataFormat heat;
    heat.setDecimals(1);
    chart.setDataFormats({*chart.getDataFormat(), heat});
    EXPECT_EQ(chart.obtainItemHint({0, 1, 0}).rows.at(0).value, "Heat: 30.0") << "in a format of its own";
    chart.setMaxColor(UXColor(1, 2, 3));
    EXPECT_EQ(chart.getLaidOutItems()[1].color, UXColor(1, 2, 3)) << "without a layout";
}

TEST_F(KXTreeMapChartTest, AGroupIsShownAloneByItsName)
{
    showGroups();
    EXPECT_EQ(chart.getWayBack().height, 0);
    chart.setShownGroup("x");
    layOut();
    EXPECT_EQ(obtainTiles(), "x, a; x, c; ");
    EXPECT_NE(uxPaintToText(chart).find("\"All / x\""), std::string::npos);
    EXPECT_FALSE(chart.hasItem({0, 1, 1}));
    EXPECT_EQ(chart.obtainItemHint({0, 0, 0}).text, "60 (75.0 %)");

    KXTreeMapChart read;
    EXPECT_TRUE(read.deserialize(chart.serialize()));
    EXPECT_EQ(read.getShownGroup(), "x");
    table.replaceDimension(1, Texts{"z", "x", "z", "x", "x"}); // it has another index now
    layOut();
    EXPECT_EQ(obtainTiles(), "x, b; x, d; x, e; ");
    chart.setShownGroup("gone");
    layOut();
    EXPECT_EQ(chart.getLaidOutItems().size(), 5) << "one that is not there hides nothing";
}

} // namespace
