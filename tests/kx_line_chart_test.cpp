#include "kx_line_chart.h"

#include "kx_area_chart.h"
#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_bar_chart.h"
#include "kx_key_walk.h"
#include "kx_line_bar_chart.h"
#include "kx_line_chart_property.h"
#include "kx_line_gradient_legend.h"
#include "kx_load_chart.h"
#include "kx_table_data_provider.h"
#include "kx_test_input.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Mark = KXAxisChartMark;

constexpr double null = KXAxisChartTestProvider::null;
constexpr UXRect usualRect(0, 0, 600, 300);

class KXLineChartTest : public testing::Test {
protected:
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
};

/** @return each run of a line by its values: "10,20 30" where 20 and 30 are not joined */
std::string describe(const KXLineChartDataView& view, std::size_t position)
{
    std::string text;
    for (const KXLineVertex& vertex : view.getShapes().at(position).line.vertices) {
        const double value = view.getFrame().values.obtainValue(vertex.along);
        text += (text.empty() ? "" : vertex.startsRun ? " " : ",") + std::to_string(std::lround(value));
    }
    return text;
}

std::string obtainTexts(const KXLineChartDataView& view)
{
    std::multiset<std::string> texts;
    for (const KXLineLabel& label : view.getLabels())
        texts.insert(label.text);
    std::string all;
    for (const std::string& text : texts)
        all += text + " ";
    return all;
}

/** Moves the pointer to a place of the plot. */
void moveTo(KXXYAxisChart& chart, const UXDoublePoint& place, double dx = 0, double dy = 0)
{
    const UXPoint point(static_cast<int>(place.x + dx), static_cast<int>(place.y + dy));
    KXTestInput{chart}.move(chart.translatePoint(point, chart.getPlot(), nullptr));
}

} // namespace

TEST(KXLineChartProperty, EveryKey) { KX_WALK_KEYS(KXLineChartProperty, KX_LINE_CHART_PROPERTY_KEYS); }

TEST(KXLineChartProperty, SeriesTakeListsInTurn)
{
    KXLineChartProperty property;
    EXPECT_EQ(property.obtainLineWidth(7), 2);
    property.updateSeriesLineWidths({1, -3, 4});
    property.updateSeriesShapes({KXPointShape::Cross, KXPointShape::Plus});
    EXPECT_EQ(property.obtainLineWidth(1), 0);
    EXPECT_EQ(property.obtainLineWidth(5), 4);
    EXPECT_EQ(property.obtainPointShape(3), KXPointShape::Plus);
    EXPECT_EQ(property.obtainLineStyle(3), KXChartLineStyle::None);
}

TEST_F(KXLineChartTest, LinesRunThroughTheirValues)
{
    struct Case {
        const char* name;
        KXLineNullHandling nulls;
        bool isStacked, isWhole;
        std::string first, second;
        std::size_t points; // of both, with the user's display
    };
    using enum KXLineNullHandling;
    const Case cases[] = {
        {"a null is a gap, and what has no neighbour a point", Gap, false, false, "20,30 -10", "60,5,5,40",
         7},
        {"joined over it", Connect, false, false, "20,30,-10", "60,5,5,40", 7},
        {"through zero, where no point is", Zero, false, false, "20,30,0,-10", "60,5,5,40", 7},
        {"stacked, negative values below", Gap, true, false, "20,30,0,-10", "80,35,5,40", 7},
        {"parts of 100", Gap, true, true, "25,86,0,20", "100,100,100,100", 7},
    };
    provider.categoryCount = 4;
    provider.values = {{20, 30, null, -10}, {60, 5, 5, 40}};
    for (const Case& c : cases)
        for (const auto orientation :
             {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
            SCOPED_TRACE(c.name);
            KXLineChart chart;
            chart.getAxisChartProperty()->updateOrientation(orientation);
            chart.getLineChartProperty()->updateNullHandling(c.nulls);
            chart.getYAxisProperty()->updateIsStacked(c.isStacked);
            chart.getYAxisProperty()->updateIs100PercentStacked(c.isWhole);
            kxLoad(chart, provider, usualRect);
            EXPECT_EQ(describe(chart.getDataView(), 0), c.first);
            EXPECT_EQ(describe(chart.getDataView(), 1), c.second);
            EXPECT_EQ(chart.getDataView().getPoints().size(), c.points);
            const KXAxisChartScale categories = chart.obtainCategoryMap();
            const KXLineVertex& last = chart.getDataView().getShapes()[0].line.vertices.back();
            EXPECT_EQ(last.across, categories.obtainPosition(3));
        }
}

TEST_F(KXLineChartTest, PointsAreDrawnWhereTheyAreFewOrAlone)
{
    using enum KXLinePointDisplay;
    struct Case {
        const char* name;
        KXLinePointDisplay display;
        std::uint64_t count;
        double width;
        std::size_t points;
    };
    const Case cases[] = {{"few", Auto, 40, 2, 39},
                          {"many, and one alone", Auto, 60, 2, 1},
                          {"wanted", Always, 60, 2, 59},
                          {"unwanted", Never, 10, 2, 0},
                          {"no line", Auto, 60, 0, 59}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.categoryCount = c.count;
        provider.values = {std::vector<double>(c.count, 3)};
        provider.values[0][1] = null;
        KXLineChart chart;
        chart.getLineChartProperty()->updatePointDisplay(c.display);
        chart.getLineChartProperty()->updateLineWidth(c.width);
        kxLoad(chart, provider, usualRect);
        EXPECT_EQ(chart.getDataView().getPoints().size(), c.points);
    }
}

TEST_F(KXLineChartTest, AreasFillFromZeroOrFromEachOther)
{
    provider.values = {{20, -10, null}, {30, 20, 10}};
    KXAreaChart chart;
    kxLoad(chart, provider, usualRect);
    EXPECT_LE(chart.getYAxis()->getMinValue(), -10);
    const auto& shapes = chart.getDataView().getShapes();
    ASSERT_EQ(shapes[0].fills.size(), 1);
    EXPECT_EQ(shapes[0].fills[0].back().y, chart.obtainValueScale(0).obtainPosition(0));
    chart.getYAxisProperty()->updateIsStacked(true);
    chart.layout();
    ASSERT_EQ(shapes[0].fills.size(), 2) << "one band on each side of zero";
    ASSERT_EQ(shapes[1].fills.size(), 1);
    EXPECT_EQ(shapes[1].fills[0].back().y, chart.obtainValueScale(0).obtainPosition(20))
        << "on the first one";
    moveTo(chart, {shapes[1].fills[0].front().x, shapes[1].fills[0].front().y}, 2, 40);
    EXPECT_EQ(chart.getHoveredMark(), (Mark{1, 0})) << "in its fill, far from its line";
}

TEST_F(KXLineChartTest, TheNearestLineIsHitAndItsHintTellsAllSeries)
{
    provider.categoryCount = 4;
    provider.values = {{10, 10, null, 10}, {30, 30, null, 30}};
    for (const auto orientation : {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        KXLineChart chart;
        chart.getAxisChartProperty()->updateOrientation(orientation);
        kxLoad(chart, provider, usualRect);
        const bool isVertical = chart.isVertical();
        const UXDoublePoint second = chart.getDataView().getPoints().at(1).place; // of the first series
        const double part = chart.obtainCategorySpacing() * 0.3;
        const auto moveBeside = [&](double across, double along) {
            moveTo(chart, second, isVertical ? across : along, isVertical ? along : across);
        };
        moveBeside(-part, 11);
        EXPECT_EQ(chart.getHoveredMark(), (Mark{0, 1})) << "by the distance to the line";
        ASSERT_EQ(chart.getHintInfo().rows.size(), 2);
        EXPECT_EQ(chart.getHintInfo().title, "c1");
        EXPECT_EQ(chart.getHintInfo().rows[0].label, "s0");
        EXPECT_LT(chart.obtainMarkColor({1, 1}, UXColor()).alpha, 1);
        moveBeside(-part, 16);
        EXPECT_EQ(chart.getHoveredMark(), std::nullopt);
        moveBeside(2 * part, 0);
        EXPECT_EQ(chart.getHoveredMark(), std::nullopt) << "in the gap";
        EXPECT_EQ(chart.getHintInfo().title, "c1") << "the nearest point there is";
    }
}

TEST_F(KXLineChartTest, WhatIsHitIsTheNearestOfAll)
{
    // Points up and down: beside one of them the next is nearer along the axis.
    provider.categoryCount = 60;
    provider.values = {{}};
    for (int i = 0; i < 60; ++i)
        provider.values[0].push_back(i % 2 == 0 ? 100 : 0);
    for (const double width : {0.0, 2.0}) {
        SCOPED_TRACE(width);
        KXLineChart chart;
        chart.getLineChartProperty()->updateLineWidth(width);
        kxLoad(chart, provider, usualRect);
        const KXLineVertex& top = chart.getDataView().getShapes()[0].line.vertices.at(30);
        moveTo(chart, {top.across, top.along}, 0.6 * chart.obtainCategorySpacing(), 8);
        EXPECT_EQ(chart.getHoveredMark(), (Mark{0, 30}));
    }

    // A line through bars, and the edge of an area beside it.
    using enum KXAxisChartType;
    provider.categoryCount = 3;
    provider.values = {{30, 30, 30}, {20, 20, 20}, {21, 21, 21}};
    KXLineBarChart chart;
    chart.getLineChartProperty()->updateSeriesTypes({Bar, Line, Area});
    kxLoad(chart, provider, usualRect);
    const auto hit = [&](double value, double below) {
        moveTo(chart,
               {chart.obtainCategoryMap().obtainPosition(1), chart.obtainValueScale(0).obtainPosition(value)},
               0, below);
        return chart.getHoveredMark();
    };
    EXPECT_EQ(hit(21, 0), (Mark{2, 1}));
    EXPECT_EQ(hit(20, 2), (Mark{1, 1}));
    EXPECT_EQ(hit(20, 7), (Mark{0, 1})) << "the bar that the pointer is in";
}

TEST_F(KXLineChartTest, Labels)
{
    struct Case {
        const char* name;
        KXAxisChartLabelDisplayOption display;
        KXAxisChartValueOption option;
        std::string expected;
    };
    using Display = KXAxisChartLabelDisplayOption;
    using Option = KXAxisChartValueOption;
    const Case cases[] = {
        {"values", Display::ValueOnly, Option::All, "-10 20 30 60 red "},
        {"extremes", Display::ValueOnly, Option::MinMax, "-10 30 60 red "},
        {"parts", Display::PercentageOnly, Option::MinOnly, "16.7 % red "},
        {"names beyond the ends", Display::Title, Option::LineEnds, "s0 s1 "},
    };
    provider.values = {{20, 30, -10}, {30, null, 60}};
    provider.redPath = {1, 0};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXLineChart chart;
        chart.getLineChartProperty()->updateShowLabels(true);
        chart.getLineChartProperty()->updateLabelDisplayOption(c.display);
        chart.getLineChartProperty()->updateLabelValueOption(c.option);
        kxLoad(chart, provider, usualRect);
        EXPECT_EQ(obtainTexts(chart.getDataView()), c.expected);
    }
}

TEST_F(KXLineChartTest, NamesAreMovedApartAndLeaveMostOfThePlot)
{
    provider.values = {{1, 2, 10}, {1, 2, 10.1}, {1, 2, 10.2}};
    KXLineChart chart;
    chart.getLineChartProperty()->updateShowLabels(true);
    chart.getLineChartProperty()->updateLabelDisplayOption(KXAxisChartLabelDisplayOption::Title);
    chart.getLineChartProperty()->updateLabelValueOption(KXAxisChartValueOption::LineEnds);
    kxLoad(chart, provider, usualRect);
    std::vector<KXLineLabel> names = chart.getDataView().getLabels();
    ASSERT_EQ(names.size(), 3);
    std::ranges::sort(names, {}, [](const KXLineLabel& name) { return name.rect.y; });
    for (std::size_t i = 1; i < names.size(); ++i)
        EXPECT_GE(names[i].rect.y, names[i - 1].rect.y + names[i - 1].rect.height);
    const UXDoublePoint end = chart.getDataView().getPoints()[2].place;
    EXPECT_GT(names[0].rect.x, end.x);
    const double room = chart.getMarksArea().width;
    chart.getLineChartProperty()->updateLabelProperty([&] {
        UXTextProperty property = chart.getLineChartProperty()->getLabelProperty();
        property.font.size = 400;
        return property;
    }());
    chart.layout();
    EXPECT_TRUE(chart.getDataView().getLabels().empty()) << "a name without room is left to the hint";
    EXPECT_GT(chart.getDataView().getPoints()[2].place.x, chart.getMarksArea().x + 0.5 * room);
}

TEST_F(KXLineChartTest, DashesAndColorsByValueReachThePainter)
{
    provider.values = {{20, 30, -10}};
    KXLineChart chart;
    KXLineChartProperty& property = *chart.getLineChartProperty();
    property.updateLineStyle(KXChartLineStyle::Dash);
    property.updateNegativeColor(UXColor(9, 8, 7));
    kxLoad(chart, provider, usualRect);
    std::string painted = uxPaintToText(chart);
    EXPECT_EQ(uxFindMissing(painted, {"addGradientPatternColorStop 9,8,7", "setLineDash 6 7", "drawMarks"}),
              "")
        << painted;
    property.updateColorByValue(true);
    chart.layout();
    property.updateMaxColor(UXColor(1, 2, 3));
    EXPECT_FALSE(chart.getRequireToVerifyLayout()) << "only colours are others";
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"addGradientPatternColorStop 1,2,3"}), "");
}

TEST_F(KXLineChartTest, TheHostMayDoAnythingWhileItIsAsked)
{
    for (const char* call : {"color", "label"})
        for (const bool destroys : {false, true}) {
            SCOPED_TRACE(testing::Message() << call << destroys);
            provider = KXAxisChartTestProvider();
            auto chart = std::make_unique<KXLineChart>();
            chart->getLineChartProperty()->updateShowLabels(true);
            provider.onCall = [&](const std::string& asked) {
                if (asked != call)
                    return;
                const auto running = std::exchange(provider.onCall, {}); // this, which has to last
                if (destroys)
                    chart.reset();
                else
                    chart->prepareData(); // takes the values away from under the labels
            };
            kxLoad(*chart, provider, usualRect);
            EXPECT_EQ(!chart, destroys);
            if (chart) {
                kxLoad(*chart);
                EXPECT_FALSE(chart->getDataView().getLabels().empty());
            }
        }
}

TEST_F(KXLineChartTest, ACombinationDrawsEachMeasureAsItWants)
{
    using enum KXAxisChartType;
    struct Case {
        const char* name;
        std::vector<KXAxisChartType> types;
        bool isWhole;
        std::vector<KXAxisChartType> expected;
    };
    const Case cases[] = {
        {"by their sizes", {}, false, {Bar, Line, SecondaryLine}},
        {"beside parts of 100 percent", {}, true, {Bar, SecondaryLine, SecondaryLine}},
        {"as the user wants", {Area, Unknown, Scatter}, false, {Area, Line, Scatter}},
    };
    provider.values = {{10, 20, 30}, {30, 20, 10}, {3000, 2000, null}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXLineBarChart chart;
        chart.getLineChartProperty()->updateSeriesTypes(c.types);
        chart.getYAxisProperty()->updateIsStacked(c.isWhole);
        chart.getYAxisProperty()->updateIs100PercentStacked(c.isWhole);
        kxLoad(chart, provider, usualRect);
        for (std::uint64_t series = 0; series < c.expected.size(); ++series) {
            EXPECT_EQ(chart.obtainSeriesType(series), c.expected[series]) << series;
            EXPECT_EQ(chart.isSeriesOnSecondaryAxis(series), c.expected[series] == SecondaryLine) << series;
        }
    }
    KXLineBarChart chart;
    kxLoad(chart, provider, usualRect);
    EXPECT_EQ(chart.getSecondaryYAxis()->getMaxValue(), 3000);
    EXPECT_EQ(chart.obtainLegendSymbolStyle(1), UXSymbolStyle::LineLeft);
    EXPECT_EQ(chart.obtainLegendSymbolStyle(2), UXSymbolStyle::LineRight);
    chart.setSeriesShown(2, false);
    chart.layout();
    EXPECT_EQ(chart.obtainLegendSymbolStyle(1), UXSymbolStyle::Line);
}

TEST_F(KXLineChartTest, MeasuresThatAreThereForOthersAreNoSeries)
{
    struct Case {
        const char* name;
        std::function<std::unique_ptr<KXXYAxisChart>()> make;
        const char* painted;
    };
    const Case cases[] = {
        {"bands", [] { return std::make_unique<KXLineChart>(); }, "fill"},
        {"whiskers on bars", [] { return std::make_unique<KXBarChart>(); }, "gap"},
        {"whiskers beside bars", [] { return std::make_unique<KXLineBarChart>(); }, "gap"},
    };
    KXTableDataProvider table;
    table.addDimension("Day", std::vector<std::string>{"a", "b", "c", "d"});
    table.addMeasure("Value", {10, 20, null, 20});
    table.addMeasure("Low", {5, 15, 15, null});
    table.addMeasure("High", {15, 95, 25, 30});
    table.addMeasure("Heat", {1, 3, 2, null});
    table.setBand(0, 1, 2);
    table.setColorMeasure(3);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::unique_ptr<KXXYAxisChart> chart = c.make();
        chart->setRect(usualRect);
        table.serve(*chart);
        chart->layout();
        EXPECT_EQ(chart->getShownSeries(), std::vector<std::uint64_t>{0});
        EXPECT_EQ(chart->obtainLegendCellSize(), 0);
        EXPECT_GE(chart->getYAxis()->getMaxValue(), 95);
        EXPECT_NE(uxPaintToText(*chart).find(c.painted), std::string::npos);
        const KXChartItem item{0, 0, 1};
        EXPECT_EQ(chart->obtainItemHint(item).rows.at(0).value, "20 (15 \u2013 95)");
    }
    KXLineChart chart;
    chart.setRect(usualRect);
    chart.getLineChartProperty()->updateColorByValue(true);
    chart.getLineChartProperty()->updateMaxColor(UXColor(1, 2, 3));
    table.serve(chart);
    chart.layout();
    EXPECT_EQ(chart.getDataView().obtainColorScale()->greatest, 3);
    EXPECT_EQ(chart.obtainItemHint({0, 0, 1}).rows.at(0).color, UXColor(1, 2, 3));

    // In a combination strips of colours stand beside the names, one for each axis unless one says all.
    table.setColorMeasure(-1);
    table.addMeasure("Far", {1000, 3000, 2000, 2000});
    KXLineBarChart combined;
    combined.setRect({0, 0, 600, 500});
    combined.getLineChartProperty()->updateColorByValue(true);
    combined.getLineChartProperty()->updateSeriesTypes({KXAxisChartType::Line});
    table.serve(combined);
    struct Strips {
        std::int64_t measure;
        double first, second; // their greatest values, 0 for none
    };
    for (const Strips& c : {Strips{-1, 95, 3000}, Strips{3, 3, 0}}) {
        table.setColorMeasure(c.measure);
        combined.layout();
        EXPECT_GT(combined.obtainLegendCellSize(), 1);
        for (const bool isSecondary : {false, true}) {
            const double greatest = isSecondary ? c.second : c.first;
            const KXLineGradientLegend& legend = *combined.getGradientLegend(isSecondary);
            EXPECT_EQ(legend.getVisible(), greatest > 0) << c.measure << isSecondary;
            EXPECT_TRUE(!legend.getVisible() || legend.getScale().greatest == greatest)
                << legend.getScale().greatest;
        }
    }
    EXPECT_NE(chart.obtainItemHint({0, 0, 3}).rows.at(0).color, UXColor(1, 2, 3)) << "no value, no colour";
}

TEST_F(KXLineChartTest, WhatIsAtOnePlaceIsToldTheNearestFirst)
{
    provider.categoryCount = 3;
    provider.values = {{10, 50, 90}, {20, 55, 10}, {90, 52, 50}};
    KXLineChart chart;
    kxLoad(chart, provider, usualRect);
    const auto tell = [&](double value) {
        const KXAxisChartPlotFrame& frame = chart.getDataView().getFrame();
        moveTo(chart, {frame.categories.obtainPosition(1) + 25, frame.values.obtainPosition(value)});
        std::string order;
        for (const UXHintRowInfo& row : chart.getHintInfo().rows)
            order += row.label + " ";
        return order;
    };
    const std::string before = uxPaintToText(chart);
    EXPECT_EQ(tell(5), "s0 s2 s1 ") << "beside all lines";
    EXPECT_GT(uxPaintToText(chart).size(), before.size()) << "a thin line leads to the axis";
    EXPECT_EQ(tell(99), "s1 s2 s0 ");
    KXTestInput{chart}.leave();
    EXPECT_EQ(uxPaintToText(chart), before) << "without the thin line";
}
