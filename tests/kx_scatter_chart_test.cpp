#include "kx_scatter_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_chart_selection_provider.h"
#include "kx_key_walk.h"
#include "kx_line_gradient_legend.h"
#include "kx_load_chart.h"
#include "kx_scatter_chart_data_provider.h"
#include "kx_scatter_chart_property.h"
#include "kx_size_legend.h"
#include "kx_table_data_provider.h"
#include "kx_test_input.h"
#include "ux/ux_diagram.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr double null = KXAxisChartTestProvider::null;
constexpr UXRect usualRect{0, 0, 600, 400};
using Mark = KXAxisChartMark;

class KXScatterChartTest : public testing::Test {
protected:
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
    KXScatterChart chart;

    /** @param values one list a role, X first */
    void load(std::vector<std::vector<double>> values, std::uint64_t memberCount = 0)
    {
        for (KXAxisProperty* axis : {chart.getXAxisProperty(), chart.getYAxisProperty()})
            axis->setShowTitle(false);
        provider.memberCount = memberCount;
        provider.categoryCount = values.front().size() / std::max<std::uint64_t>(memberCount, 1);
        provider.values = std::move(values);
        kxLoad(chart, provider, usualRect);
    }
    UXPoint placeOf(const Mark& mark) const
    {
        return chart.getDataView().obtainHintPoint(mark).value_or(UXPoint());
    }
};

/** Points (0, 0), (1, 1) ... by measures whose roles it gives itself, and boxes around them. */
class PointTable : public KXScatterChartDataProvider, public KXChartSelectionProvider {
public:
    std::vector<std::string> boxed; // the indexes of the points that were told, box by box
    std::vector<KXChartDataPath> chosen;
    bool selectsByBox = true, namesChosen = false;
    int questionCount = 0;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == 0 ? 4 : 0;
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 3; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return static_cast<double>(path.at(0) == 0 ? 7 : path.at(1));
    }
    bool obtainSelectedPaths(KXChartDataUser*, std::vector<KXChartDataPath>& paths) override
    {
        if (namesChosen)
            paths = chosen;
        return namesChosen;
    }
    std::int64_t obtainRoleMeasure(KXChartDataUser*, KXScatterChartRole role) override
    {
        return role == KXScatterChartRole::X ? 2 : role == KXScatterChartRole::Y ? 1 : -1;
    }
    bool shouldSelectByBox(KXChartDataUser*) override { return selectsByBox; }
    std::function<void()> obtainSelectionAction(KXChartDataUser*,
                                                const std::vector<KXChartDataPath>& paths) override
    {
        return [this, paths] {
            std::string& told = boxed.emplace_back();
            for (const KXChartDataPath& path : paths)
                told += std::to_string(path.valueIndexPath.at(1));
        };
    }
    bool obtainIsSelected(KXChartDataPath* path) override
    {
        ++questionCount;
        return std::ranges::any_of(chosen, [path](const KXChartDataPath& each) {
            return each.valueIndexPath == path->valueIndexPath;
        });
    }
    void selectionChanged(KXChartDataUser*, const std::vector<KXChartDataPath>& paths) override
    {
        chosen = paths;
    }
};

/** @return the points in the order of drawing: series:category, width, "o" for a hollow one */
std::string describe(const KXScatterLayout& layout)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < layout.getCount(); ++i) {
        const Mark mark = layout.obtainMark(i);
        text << mark.series << ':' << mark.category << ' ' << layout.obtainDiameter(i)
             << (layout.isHollow(i) ? "o; " : "; ");
    }
    return text.str();
}

} // namespace

TEST(KXScatterChartProperty, EveryKey)
{
    KX_WALK_KEYS(KXScatterChartProperty, KX_SCATTER_CHART_PROPERTY_KEYS);
}

TEST_F(KXScatterChartTest, PointsHaveTheMeasuresOfTheirRoles)
{
    struct Case {
        const char* name;
        std::vector<std::vector<double>> values;
        std::uint64_t memberCount;
        KXChartDataType type;
        std::string expected;
        std::vector<double> sizes; // of the legend
    };
    using enum KXChartDataType;
    const Case cases[] = {
        {"x and y; one that lacks either is left out",
         {{1, null, 3, 4}, {5, 6, null, 8}},
         0,
         String,
         "1:0 8; 1:3 8; ",
         {}},
        {"area by size, the largest first; no size is the least, hollow",
         {{1, 2, 3, 4, 5}, {5, 6, 7, 8, 9}, {25, 100, null, 0, -3}},
         0,
         String,
         "1:1 40; 1:0 20; 1:3 4; 1:2 4o; 1:4 4o; ",
         {100, 20, 5}},
        {"a size without a place counts for nothing",
         {{1, null}, {5, 6}, {100, 400}},
         0,
         String,
         "1:0 40; ",
         {100, 20, 5}},
        {"none has a size", {{1, 2, 3}, {5, 6, 7}, {null, 0, -3}}, 0, String, "1:1 4; 1:0 4o; 1:2 4o; ", {}},
        {"series by member", {{1, 2, 3, 4}, {5, null, 7, 8}}, 2, String, "2:0 8; 2:1 8; 3:1 8; ", {}},
        {"one measure: at numbers", {{5, 6, 7}}, 0, Float, "0:0 8; 0:1 8; 0:2 8; ", {}},
        {"one measure: in slots", {{5, 6, 7}}, 0, String, "0:0 8; 0:1 8; 0:2 8; ", {}},
        {"none to be seen", {{null}, {1}}, 0, String, "", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.categoryType = c.type;
        load(c.values, c.memberCount);
        EXPECT_EQ(describe(chart.getDataView().getLayout()), c.expected);
        EXPECT_EQ(chart.getSizeLegend()->getValues(), c.sizes);
        EXPECT_EQ(chart.isContinuous(), c.type == Float || c.values.size() > 1);
    }
}

TEST_F(KXScatterChartTest, WhiskersShowBetweenWhichValuesAPointIsThoughtToLie)
{
    KXTableDataProvider table;
    table.addDimension("Day", std::vector<std::string>{"a", "b", "c", "d"});
    table.addMeasure("High", {15, 95, 25, 30});
    table.addMeasure("X", {1, 2, 3, null});
    table.addMeasure("Y", {10, 20, 20, 20});
    table.addMeasure("Low", {5, 15, null, 3});
    table.addMeasure("Size", {5, 5, 5, 5});
    table.setBand(2, 3, 0);
    struct Case {
        const char* name;
        std::function<void()> change;
        std::vector<double> sizes; // of the legend
    };
    const Case cases[] = {
        {"the others in their order", [] {}, {5, 1, 0.2}},
        {"no size", [&] { table.setRole(KXScatterChartRole::Size, -1); }, {}},
        {"a colour", [&] { table.setRole(KXScatterChartRole::Color, 4); }, {}},
    };
    chart.setRect(usualRect);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        table.serve(chart);
        chart.layout();
        EXPECT_EQ(chart.getSizeLegend()->getValues(), c.sizes);
        EXPECT_GE(chart.getYAxis()->getMaxValue(), 95);
        EXPECT_EQ(chart.obtainItemHint({0, 2, 1}).rows.at(1).value, "20 (15 \u2013 95)");
        // Each is three lines: c has one end alone, d no place.
        const std::string painted = uxPaintToText(chart);
        std::size_t gaps = 0;
        for (std::size_t at = painted.find("gap"); at != std::string::npos; at = painted.find("gap", at + 1))
            ++gaps;
        EXPECT_EQ(gaps, 6);
    }
}

TEST_F(KXScatterChartTest, ALargePointAtTheEdgeIsWhole)
{
    chart.getScatterChartProperty()->updateMaxPointSize(40);
    load({{0, 100}, {0, 100}, {7, 7}});
    const UXRect& area = chart.getMarksArea();
    for (const std::uint64_t category : {0U, 1U}) {
        const UXRect place = chart.getDataView().obtainMarkPlace({1, category});
        EXPECT_GE(place.x, area.x - 1);
        EXPECT_LE(place.x + place.width, area.x + area.width + 1);
        EXPECT_GE(place.y, area.y - 1);
        EXPECT_LE(place.getBottom(), area.getBottom() + 1);
    }
    EXPECT_FALSE(chart.isZoomed());
}

TEST_F(KXScatterChartTest, BothAxesMayCountExponents)
{
    chart.getAxisChartProperty()->updateIsXLogarithmic(true);
    chart.getAxisChartProperty()->updateIsYLogarithmic(true);
    load({{1, 10, 100, 0, 5}, {1, 10, 100, 5, -5}});
    EXPECT_EQ(describe(chart.getDataView().getLayout()), "1:0 8; 1:1 8; 1:2 8; ");
    EXPECT_NE(uxPaintToText(chart).find("2 values not above zero are left out"), std::string::npos);
    EXPECT_NEAR(placeOf({1, 1}).x - placeOf({1, 0}).x, placeOf({1, 2}).x - placeOf({1, 1}).x, 1);
    EXPECT_NEAR(placeOf({1, 1}).y - placeOf({1, 0}).y, placeOf({1, 2}).y - placeOf({1, 1}).y, 1);
}

TEST_F(KXScatterChartTest, ThePointUnderThePointerIsToldAlone)
{
    load({{1, 1, 5, 9}, {1, 1, 5, 9}, {100, 4, 50, 1}, {7, 8, null, 9}});
    EXPECT_TRUE(chart.getGradientLegend()->getVisible() || !chart.getChartProperty()->getShowLegend());
    const UXPoint first = placeOf({1, 0});
    const auto hit = [&](int dx) { return chart.getDataView().hitMark({first.x + dx, first.y}); };
    EXPECT_EQ(hit(0), (Mark{1, 1})) << "the smaller one lies on the larger one";
    EXPECT_EQ(hit(15), (Mark{1, 0})) << "inside of the larger one alone";
    EXPECT_EQ(hit(31), (Mark{1, 0})) << "near its edge";
    EXPECT_EQ(hit(34), std::nullopt);

    const UXHintInfo info = chart.obtainItemHint({0, 1, 0});
    EXPECT_EQ(info.title, "c0");
    std::string rows;
    for (const UXHintRowInfo& row : info.rows)
        rows += row.label + "=" + row.value + " ";
    EXPECT_EQ(rows, "s0=1 s1=1 s2=100 s3=7 ");
    EXPECT_FALSE(chart.obtainExplainedAt({300, 40})) << "beside all points";
}

TEST_F(KXScatterChartTest, TheKeyboardGoesToTheNearestPointOfADirection)
{
    // 0 and 1 lie at one place; 2 right of them, 3 far above, 4 a little right of 3.
    load({{1, 1, 5, 1, 2}, {1, 1, 2, 9, 9}});
    struct Case {
        std::uint64_t from;
        KXChartItemStep step;
        std::optional<std::uint64_t> to;
    };
    using enum KXChartItemStep;
    const Case cases[] = {{0, Right, 1}, {1, Right, 2}, {1, Left, 0}, {0, Left, {}},
                          {1, Up, 0},    {3, Right, 4}, {3, Down, 0}, {2, Left, 1},
                          {4, Up, {}},   {0, Up, 3},    {0, Next, 1}, {4, Next, {}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.from) + " by " + std::to_string(static_cast<int>(c.step)));
        const auto found = chart.obtainItemBeside(KXChartItem{0, 1, c.from}, c.step);
        EXPECT_EQ(found ? std::optional(found->index) : std::nullopt, c.to);
    }

    // Where a part is shown, it follows along both axes.
    chart.showRange(*chart.getXAxis(), {0.5, 1.5});
    chart.showRange(*chart.getYAxis(), {0.5, 1.5});
    chart.layout();
    EXPECT_TRUE(chart.isZoomed());
    chart.showItem({0, 1, 4});
    EXPECT_TRUE(chart.getMarksArea().x < placeOf({1, 4}).x &&
                chart.getMarksArea().y <= placeOf({1, 4}).y + 1);
    EXPECT_EQ(chart.getDataView().hitMark(placeOf({1, 4})), (Mark{1, 4}));
}

TEST_F(KXScatterChartTest, ABoxSelectsThePointsInItWhereTheProviderWantsThat)
{
    PointTable table;
    UXDiagram diagram;
    diagram.setRect(usualRect);
    diagram.addChild(&chart);
    kxLoad(chart, table, usualRect);
    const KXTestInput input{diagram};
    const auto drag = [&](const UXPoint& from, const UXPoint& to) {
        input.press(from);
        UXEvent moved = KXTestInput::at(to);
        moved.setEventType(UXEventType::MouseMove);
        diagram.mouseMove(moved);
        input.release(to);
    };
    const auto beside = [&](std::uint64_t category, int distance) {
        const UXPoint point = chart.translatePointToParent(
            chart.getPlot()->translatePointToParent(placeOf({1, category}), &chart), nullptr);
        return UXPoint(point.x + distance, point.y - distance);
    };
    drag(beside(1, -20), beside(2, 20));
    EXPECT_EQ(table.boxed, std::vector<std::string>{"12"});
    EXPECT_EQ(chart.getItems()->getSelected(), (std::vector<KXChartItem>{{0, 1, 1}, {0, 1, 2}}));
    EXPECT_FALSE(chart.isZoomed());

    // Asked for all that is chosen, the host is asked about no item, and names may be those of what is gone.
    table.namesChosen = true;
    table.questionCount = 0;
    table.chosen.erase(table.chosen.begin());
    table.chosen.emplace_back().valueIndexPath = {1, 9};
    chart.reloadData();
    chart.layout();
    EXPECT_EQ(chart.getItems()->getSelected(), (std::vector<KXChartItem>{{0, 1, 2}}));
    EXPECT_EQ(table.questionCount, 0);

    table.selectsByBox = false;
    drag(beside(0, -20), beside(2, 20));
    EXPECT_EQ(table.boxed.size(), 1u);
}

TEST_F(KXScatterChartTest, CrowdedPointsAreSeenThrough)
{
    std::mt19937 random(7);
    for (const std::size_t count : {std::size_t{20}, std::size_t{20'000}}) {
        std::vector<std::vector<double>> values(4, std::vector<double>(count));
        for (std::vector<double>& list : values)
            for (double& value : list)
                value = static_cast<double>(random() % 1000);
        load(values);
        const bool isCrowded = count > 1000;
        EXPECT_EQ(chart.getDataView().getOpacity() < 0.5, isCrowded);
        EXPECT_GE(chart.getDataView().getOpacity(), 0.25);
        EXPECT_EQ(chart.getDataView().getLayout().colorSteps.empty(), !isCrowded);
        EXPECT_EQ(chart.getDataView().obtainSingleMarks().size(), isCrowded ? 0 : count);
    }
    chart.getScatterChartProperty()->updateOpacity(0.9);
    EXPECT_EQ(chart.getDataView().getOpacity(), 0.9);
}

TEST(KXScatterIndex, FindsWhatALookAtAllFinds)
{
    std::mt19937 random(3);
    for (const std::size_t count : {std::size_t{1}, std::size_t{40}, std::size_t{3000}}) {
        KXScatterLayout layout;
        layout.greatestDiameter = 20;
        for (std::size_t i = 0; i < count; ++i) {
            layout.centres.emplace_back(static_cast<double>(random() % 320) - 10,
                                        static_cast<double>(random() % 210) / 2 - 3);
            layout.categories.push_back(static_cast<std::uint32_t>(i));
            layout.diameters.push_back(count == 40 ? static_cast<float>(random() % 41) / 2 : 20.0F);
        }
        KXScatterIndex index;
        index.build(layout, {0, 0, 300, 100});
        for (int probe = 0; probe < 300; ++probe) {
            const UXDoublePoint at(static_cast<double>(random() % 300) + 0.5,
                                   static_cast<double>(random() % 100) + 0.5);
            std::optional<std::size_t> expected;
            std::tuple best{12.0, 10.0, 22.0};
            for (std::size_t i = 0; i < count; ++i) {
                const double distance = std::hypot(layout.centres[i].x - at.x, layout.centres[i].y - at.y);
                const double radius = layout.obtainDiameter(i) / 2;
                const std::tuple own{std::max(distance - radius, 0.0), radius, distance};
                if (own <= best) {
                    best = own;
                    expected = i;
                }
            }
            const std::optional<std::size_t> found = index.findNearest(layout, at, 12);
            ASSERT_EQ(found.has_value(), expected.has_value());
            if (found) {
                EXPECT_EQ(layout.centres[*found], layout.centres[*expected]);
            }
        }
    }
}
