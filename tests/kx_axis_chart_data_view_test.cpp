#include "kx_axis_chart_data_view.h"

#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_labels.h"
#include "kx_chart_items.h"
#include "kx_json_object_factory.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Mark = KXAxisChartMark;

/** Steps from one running total to the next, and the last total from zero on. */
class WaterfallView : public KXAxisChartDataView {
public:
    void reload() override
    {
        totals = {0};
        for (std::uint64_t i = 0; !getShownSeries().empty() && i < getChart()->getCategoryCount(); ++i)
            totals.push_back(totals.back() + getChart()->getValue(getShownSeries()[0], i));
    }
    std::optional<KXAxisChartValueRange> obtainValueRange() const override
    {
        const KXValueExtremes range = kxFindValueExtremes(totals);
        return KXAxisChartValueRange{range.min, range.max, range.min, range.max};
    }
    void layout(const KXAxisChartPlotFrame& frame) override
    {
        steps.clear();
        const auto [first, end] = getChart()->obtainVisibleCategories();
        for (std::uint64_t i = first; i < end; ++i) {
            const bool isTotal = i + 1 == totals.size();
            const double middle = frame.categories.obtainPosition(static_cast<double>(i));
            if (const auto along = frame.placeAlong(isTotal ? 0 : totals[i], totals[isTotal ? i : i + 1]))
                steps.push_back({{0, i}, frame.makeRect({middle - 10, middle + 10}, *along)});
        }
    }
    void updateLook() override {}
    void paint(UXPainter& painter, const UXRect&) const override
    {
        for (const auto& [mark, rect] : steps) {
            const UXColor color = obtainValue(mark) < 0 ? UXColor(200, 0, 0) : UXColor(0, 120, 0);
            painter.setColor(getChart()->obtainMarkColor(mark, color));
            painter.drawRects({&rect, 1});
        }
    }
    void paintLabels(UXPainter& painter, const UXRect&) const override
    {
        for (const auto& [mark, rect] : steps)
            painter.drawText((obtainValue(mark) > 0 ? "+" : "") +
                                 getChart()->obtainValueText(0, obtainValue(mark)),
                             rect, {});
    }
    std::optional<Mark> hitMark(UXPoint point) const override
    {
        for (const auto& [mark, rect] : steps)
            if (uxPointInDoubleRect(UXDoublePoint(point.x, point.y), rect))
                return mark;
        return std::nullopt;
    }
    double obtainValue(const Mark& mark) const override
    {
        const std::uint64_t i = mark.category;
        return i + 1 < totals.size() ? totals[i + 1] - totals[i] : totals.back();
    }
    void fillHintFooter(UXHintInfo& info, std::uint64_t category) override
    {
        const double after = totals[std::min<std::size_t>(category + 1, totals.size() - 1)];
        info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, "After",
                          getChart()->obtainValueText(0, after));
    }
    bool shouldIncludeZero() const override { return true; }
    std::string customSerializeTypeID() override { return "WaterfallView"; }

    std::vector<double> totals;
    std::vector<std::pair<Mark, UXDoubleRect>> steps;
};

class WaterfallChart : public KXXYAxisChart {
public:
    std::uint64_t obtainShownCategoryCount() const override
    {
        const std::uint64_t count = KXXYAxisChart::obtainShownCategoryCount();
        return count > 0 ? count + 1 : 0;
    }
    std::string obtainCategoryLabel(std::uint64_t category) override
    {
        return category == getCategoryCount() ? "Total" : KXXYAxisChart::obtainCategoryLabel(category);
    }
    WaterfallView& view = _addView(std::make_unique<WaterfallView>());
};

/** Each series as the bars of a view of its own, which may have an axis of its own. */
class CombinedChart : public KXXYAxisChart {
public:
    KXAxisChartDataView* obtainViewOfSeries(std::uint64_t series) const override
    {
        return series == 0 ? &behind : &front;
    }
    KXBarChartDataView& behind = _addView(std::make_unique<KXBarChartDataView>());
    KXBarChartDataView& front = _addView(std::make_unique<KXBarChartDataView>());
};

/** Points at numbers of their own along both axes: the first series along x, the second along y. */
class PointsView : public KXAxisChartDataView {
public:
    std::optional<KXValueExtremes> obtainNumberRange() const override
    {
        return kxFindValueExtremes(getChart()->getSeriesValues(0));
    }
    void layout(const KXAxisChartPlotFrame& frame) override
    {
        points.clear();
        const auto [first, end] = getChart()->obtainVisibleCategories();
        for (std::uint64_t i = first; i < end; ++i)
            points.push_back(frame.makePoint(frame.categories.obtainPosition(getChart()->getValue(0, i)),
                                             frame.values.obtainPosition(getChart()->getValue(1, i))));
    }
    void updateLook() override {}
    void paint(UXPainter&, const UXRect&) const override {}
    std::optional<Mark> hitMark(UXPoint at) const override
    {
        for (std::size_t i = 0; i < points.size(); ++i)
            if (std::hypot(points[i].x - at.x, points[i].y - at.y) < 6)
                return Mark{1, i};
        return std::nullopt;
    }
    std::optional<std::uint64_t> obtainCategoryAt(UXPoint at) const override
    {
        const auto mark = hitMark(at);
        return mark ? std::optional(mark->category) : std::nullopt;
    }
    std::string customSerializeTypeID() override { return "PointsView"; }

    std::vector<UXDoublePoint> points;
};

class PointsChart : public KXXYAxisChart {
public:
    PointsView& view = _addView(std::make_unique<PointsView>());
};

UXPoint toChart(const KXXYAxisChart& chart, const UXDoublePoint& place)
{
    return chart.translatePoint(UXPoint(static_cast<int>(place.x), static_cast<int>(place.y)),
                                chart.getPlot(), nullptr);
}

UXDoublePoint obtainMiddle(const UXDoubleRect& rect) { return {uxMidDoubleX(rect), uxMidDoubleY(rect)}; }

bool shows(KXXYAxisChart& chart, std::initializer_list<const char*> texts)
{
    const std::string painted = uxPaintToText(chart);
    return std::ranges::all_of(texts, [&](const char* text) {
        const bool isThere = painted.find("\"" + std::string(text) + "\"") != std::string::npos;
        EXPECT_TRUE(isThere) << text;
        return isThere;
    });
}

/** Each place of the value axis and each orientation. */
class KXAxisChartDataViewTest : public testing::TestWithParam<std::tuple<bool, bool>> {
protected:
    template <class Chart>
    void load(Chart& chart, KXAxisChartDataView& view)
    {
        const auto [isHorizontal, isSecondary] = GetParam();
        if (isHorizontal)
            chart.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
        view.updateIsOnSecondaryAxis(isSecondary);
        kxLoad(chart, provider, {0, 0, 600, 400});
        EXPECT_EQ(chart.isSeriesOnSecondaryAxis(chart.getShownSeries().back()), isSecondary);
    }
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Frames, KXAxisChartDataViewTest, testing::Combine(testing::Bool(), testing::Bool()));

TEST_P(KXAxisChartDataViewTest, AWaterfallStandsOnItsRunningTotals)
{
    provider.values = {{20, -5, 10}};
    WaterfallChart chart;
    load(chart, chart.view);
    EXPECT_TRUE(shows(chart, {"Total", "+20", "-5", "+10", "+25"}));
    const KXAxis& axis = std::get<1>(GetParam()) ? *chart.getSecondaryYAxis() : *chart.getYAxis();
    EXPECT_EQ(axis.getMaxValue(), 25);
    KXTestInput{chart}.move(toChart(chart, obtainMiddle(chart.view.steps.at(3).second)));
    EXPECT_EQ(chart.getHintInfo().title, "Total");
    EXPECT_EQ(chart.getHintInfo().rows.at(0).value, "25");
    EXPECT_EQ(chart.getHintInfo().footerRows.at(0).value, "25");
}

TEST_P(KXAxisChartDataViewTest, TwoViewsShareACategoryAxis)
{
    provider.values = {{10, 20, 30}, {300, 200, 100}};
    CombinedChart chart;
    load(chart, chart.front);
    const bool isSecondary = std::get<1>(GetParam());
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), isSecondary ? 30 : 300);
    EXPECT_TRUE(shows(chart, {"c1", "s0", "s1", "300", isSecondary ? "30" : "200"}));
    KXTestInput{chart}.move(toChart(chart, obtainMiddle(chart.front.getBars()[1].rect)));
    EXPECT_EQ(chart.getItems()->getHovered(), (KXChartItem{1, 1, 1})) << "of the second view, in front";
    EXPECT_EQ(chart.getHintInfo().rows.size(), 2);
    chart.setSeriesShown(1, false);
    chart.layout();
    EXPECT_TRUE(chart.front.getBars().empty());
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 30);
    KXTestInput{chart}.move(toChart(chart, obtainMiddle(chart.behind.getBars()[0].rect)));
    EXPECT_EQ(chart.getItems()->getHovered(), (KXChartItem{0, 0, 0}));
}

TEST_P(KXAxisChartDataViewTest, TheXAxisMayBeOneOfValues)
{
    provider.values = {{0, 30, -10}, {1, 2, 3}};
    PointsChart chart;
    load(chart, chart.view);
    EXPECT_TRUE(shows(chart, {"-10", "30"}));
    const UXDoublePoint& place = chart.view.points[1];
    EXPECT_EQ(chart.obtainCategoryMap().obtainValue(chart.isVertical() ? place.x : place.y), 30);
    KXTestInput{chart}.move(toChart(chart, chart.view.points[0]));
    EXPECT_EQ(chart.getHoveredMark(), (Mark{1, 0}));
    EXPECT_EQ(chart.getHintInfo().title, "c0");
}

TEST(KXAxisChartDataView, TheFactoryMakesOneThatIsReadBack)
{
    KXBarChartDataView view;
    view.updateIsOnSecondaryAxis(true);
    KXJsonObjectFactory factory;
    const std::unique_ptr<UXJsonObject> made(factory.create("KXBarChartDataView"));
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->deserialize(view.serialize(), &factory));
    EXPECT_EQ(made->serialize(), view.serialize());
}

TEST(KXAxisChartDataView, TheAxisOfEachIsSavedWhereItIsNotTheUsualOne)
{
    CombinedChart chart, read;
    const std::string usual = chart.serialize();
    EXPECT_EQ(usual.find("m_viewsOnOtherAxis"), std::string::npos);
    chart.behind.updateIsOnSecondaryAxis(true);
    EXPECT_TRUE(read.deserialize(chart.serialize()));
    EXPECT_TRUE(read.behind.getIsOnSecondaryAxis());
    EXPECT_EQ(read.serialize(), chart.serialize());
    EXPECT_TRUE(read.updateVectorValue("m_viewsOnOtherAxis", 0, 1));
    EXPECT_FALSE(read.behind.getIsOnSecondaryAxis());
    EXPECT_TRUE(read.front.getIsOnSecondaryAxis());
    std::string wrong = chart.serialize();
    wrong.replace(wrong.find("\"m_viewsOnOtherAxis\":[0]"), 24, "\"m_viewsOnOtherAxis\":\"0\"");
    EXPECT_FALSE(read.deserialize(wrong));
    EXPECT_TRUE(read.deserialize(usual));
    EXPECT_EQ(read.serialize(), usual);
}
