#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_grid_layer.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_scroll_bar.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr double null = KXAxisChartTestProvider::null;
using Mark = KXAxisChartMark;

/** Draws a bar per series and category, all of a category's over one another, the first in front. */
class BarsView : public KXAxisChartDataView {
public:
    struct Bar {
        Mark mark;
        UXDoubleRect rect;
    };

    bool shouldIncludeZero() const override { return true; }
    double obtainOverhang() const override { return 0.5; }
    void reload() override { ++reloads; }
    void layout(const KXAxisChartPlotFrame& frame) override
    {
        bars.clear();
        const KXAxisChartStacks values = _makeStacks();
        for (std::size_t position = 0; position < values.series.size(); ++position) {
            for (std::uint64_t category = values.first; category < values.end; ++category) {
                const double value = values.obtainValue(position, category);
                const double middle = frame.categories.obtainPosition(values.obtainCategoryValue(category));
                if (const auto along = frame.placeAlong(0, std::isnan(value) ? 0 : value))
                    bars.push_back(
                        {{values.series[position].index, category},
                         frame.makeRect({middle - frame.spacing / 2, middle + frame.spacing / 2}, *along)});
            }
        }
    }
    void updateLook() override {}
    void paint(UXPainter& painter, const UXRect&) const override
    {
        for (const Bar& bar : bars) {
            painter.setColor(
                getChart()->obtainMarkColor(bar.mark, getChart()->obtainSeriesColor(bar.mark.series)));
            painter.drawRects({&bar.rect, 1});
        }
    }
    UXRect obtainMarkPlace(const Mark& mark) const override
    {
        return mark == Mark{1, 0} ? UXRect(100, -50, 100, 150) : UXRect();
    }
    std::optional<Mark> hitMark(UXPoint point) const override
    {
        for (const Bar& bar : bars)
            if (uxPointInDoubleRect(UXDoublePoint(point.x + 0.5, point.y + 0.5), bar.rect))
                return bar.mark;
        return std::nullopt;
    }
    std::string customSerializeTypeID() override { return "BarsView"; }

    std::vector<Bar> bars;
    int reloads = 0;
};

class BarsChart : public KXXYAxisChart {
public:
    explicit BarsChart(KXAxisChartTestProvider& provider, UXRect rect = {0, 0, 302, 202})
        : view(_addView(std::make_unique<BarsView>())), bars(view.bars)
    {
        getChartProperty()->setShowLegend(false);
        for (KXAxisProperty* axis : {getXAxisProperty(), getYAxisProperty()}) {
            axis->setShowTitle(false);
            axis->setShowTickLabels(false);
        }
        setDataProvider(&provider);
        setRect(rect);
    }
    void resize(int width, int height)
    {
        setRect({0, 0, width, height});
        layout();
    }
    /** @return the middle of a mark in the space of the chart's root */
    UXPoint obtainMiddle(const Mark& mark) const
    {
        for (const BarsView::Bar& bar : bars)
            if (bar.mark == mark)
                return translatePoint(
                    UXPoint(uxSaturateToInt(uxMidDoubleX(bar.rect)), uxSaturateToInt(uxMidDoubleY(bar.rect))),
                    getPlot(), nullptr);
        return {-1, -1};
    }

    BarsView& view;
    const std::vector<BarsView::Bar>& bars;
};

} // namespace

TEST(KXAxisChart, OneLayoutServesBothOrientations)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, -3}};
    BarsChart upright(provider), lying(provider, {0, 0, 202, 302});
    lying.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
    upright.getXAxisProperty()->updateShowGridLine(true);
    kxLoad(upright);
    kxLoad(lying);
    EXPECT_EQ(upright.getMarksArea(), UXRect(0, 0, 300, 200));
    EXPECT_EQ(lying.getMarksArea(), UXRect(0, 0, 200, 300));
    ASSERT_EQ(upright.bars.size(), 3);
    ASSERT_EQ(lying.bars.size(), 3);
    const UXDoubleRect expected[] = {{0, 80, 100, 40}, {100, 40, 100, 80}, {200, 120, 100, 120}};
    // Data -3..2 on 200 units: 40 a value, and zero 80 below the top.
    for (std::size_t i = 0; i < 3; ++i) {
        const UXDoubleRect bar = upright.bars[i].rect, turned = lying.bars[i].rect;
        const double height = std::min(expected[i].height, 120.0);
        EXPECT_TRUE(uxEqualDoubleRects(bar, {expected[i].x, i == 2 ? 80 : 80 - height, 100, height})) << i;
        EXPECT_TRUE(uxEqualDoubleRects(turned, {200 - bar.y - bar.height, bar.x, bar.height, bar.width}))
            << i;
    }
    const auto& lines = upright.getGridLayer()->getLines();
    ASSERT_EQ(lines.size(), 3) << "categories, values, zero";
    EXPECT_EQ(lines[0].places, (std::vector<double>{50, 150, 250}));
    EXPECT_FALSE(lines[0].isHorizontal);
    EXPECT_EQ(lines[2].places, std::vector<double>{80});
    EXPECT_TRUE(lines[2].isHorizontal);
}

TEST(KXAxisChart, TitlesTakeRoomBesideTheMarksUnlessThatIsScarce)
{
    const UXFixedMeasurer measurer;
    const std::tuple<const char*, bool, int, int, UXRect, bool> cases[] = {
        {"at the sides", false, 300, 200, {17, 0, 283, 183}, true},
        {"at the ends", true, 300, 200, {0, 17, 231, 183}, true},
        {"too small", false, 130, 100, {0, 0, 130, 100}, false},
    };
    for (const auto& [name, atEnd, width, height, area, shown] : cases) {
        SCOPED_TRACE(name);
        KXAxisChartTestProvider provider;
        BarsChart chart(provider, {0, 0, width + 2, height + 2});
        for (KXAxisProperty* axis : {chart.getXAxisProperty(), chart.getYAxisProperty()}) {
            axis->updateShowTitle(true);
            axis->updateShowTitleAtEndOfAxis(atEnd);
        }
        kxLoad(chart);
        EXPECT_EQ(chart.getMarksArea(), area);
        const std::string painted = uxPaintToText(chart);
        for (const char* title : {"\"Categories\"", "\"s0\""})
            EXPECT_EQ(painted.find(title) != std::string::npos, shown) << title << painted;
    }
}

TEST(KXAxisChart, TitlesKeepOffLabelsAndInsideTheChart)
{
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
    for (const auto& [categories, top] : {std::pair(3, 17), {60, 13 + 20}}) {
        provider.categoryCount = static_cast<std::uint64_t>(categories);
        provider.values = {std::vector<double>(static_cast<std::size_t>(categories), 1)};
        BarsChart chart(provider, {0, 0, 302, 402});
        KXAxisProperty& axis = *chart.getXAxisProperty();
        axis.setShowTitle(true), axis.setShowTitleAtEndOfAxis(true), axis.setShowTickLabels(true);
        UXTextProperty large = axis.getTickLabelProperty();
        large.font.size = 40;
        axis.setTickLabelProperty(large);
        chart.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
        kxLoad(chart);
        EXPECT_EQ(chart.getMarksArea().y, top) << "half of the first label's line, where that is nearer";
    }
    BarsChart low(provider, {0, 0, 602, 112});
    low.getYAxisProperty()->setShowTitle(true);
    UXTextProperty large = low.getYAxisProperty()->getTitleProperty();
    large.font.size = 250;
    low.getYAxisProperty()->setTitleProperty(large);
    kxLoad(low);
    EXPECT_EQ(uxPaintToText(low).find("\u2026"), std::string::npos) << "longer than the chart is high";
}

TEST(KXAxisChart, BoundsAreExactAndTheLinesThereInside)
{
    KXAxisChartTestProvider provider;
    BarsChart chart(provider);
    chart.getYAxisProperty()->setAutoAxisRange(false);
    chart.getYAxisProperty()->setCustomMaxAxisValue(1);
    for (const double min : {0.0, -1e-9, 0.0}) {
        chart.getYAxisProperty()->updateCustomMinAxisValue(min);
        kxLoad(chart);
        EXPECT_EQ(chart.getYAxis()->getMinValue(), min) << "whatever stood there before";
    }
    EXPECT_EQ(chart.getGridLayer()->getLines()[0].places.back(), 0.5);
}

TEST(KXAxisChart, LabelsTakeTheirRoomFromTheMarks)
{
    const UXFixedMeasurer measurer; // a byte is 6.5 wide and a line 13 high
    KXAxisChartTestProvider provider;
    provider.values = {{10, 20, 30}};
    BarsChart upright(provider), lying(provider);
    lying.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
    for (BarsChart* chart : {&upright, &lying}) {
        chart->getXAxisProperty()->setShowTickLabels(true);
        chart->getYAxisProperty()->setShowTickLabels(true);
        kxLoad(*chart);
        EXPECT_FALSE(chart->getRequireToVerifyLayout()) << "settled in one pass";
        const std::string painted = uxPaintToText(*chart);
        for (const char* text : {"\"c0\"", "\"c2\"", "\"10\"", "\"30\""})
            EXPECT_NE(painted.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(upright.getMarksArea(), UXRect(18, 0, 282, 181));
    EXPECT_EQ(lying.getMarksArea(), UXRect(18, 0, 282, 181));
    EXPECT_EQ(provider.askedTexts.size(), 6) << "each category once for each chart";

    // Half of the upper label has its room at the axis's end, above the highest bar.
    EXPECT_NEAR(upright.bars[2].rect.y, 6.5, 1);
    EXPECT_NEAR(uxMaxDoubleX(lying.bars[2].rect), 300 - 6.5, 1);
    upright.getYDataFormat()->updateSuffix(" EUR");
    upright.layout();
    EXPECT_EQ(upright.getMarksArea().x, 44);
    EXPECT_EQ(upright.obtainValueText(0, 10), "10 EUR");
    upright.resize(302, 42);
    EXPECT_EQ(upright.getMarksArea(), UXRect(44, 0, 256, 33)) << "no room for the categories' labels";
    upright.resize(50, 40);
    EXPECT_EQ(upright.getMarksArea(), UXRect(0, 0, 48, 38)) << "no room for labels";

    provider.categoryText = [](std::uint64_t) { return "eighteen letters in"; };
    lying.resize(152, 122);
    kxLoad(lying);
    EXPECT_EQ(lying.getMarksArea().x, 69) << "more than a third, for a word's length of the label";
    EXPECT_EQ(uxPaintToText(lying).find("rotate"), std::string::npos) << "numbers are thinned out";
    lying.getYAxisProperty()->updateTickLabelIntervalMode(KXAxisTickLabelIntervalMode::All);
    lying.getYDataFormat()->updateSuffix(" EUR");
    lying.resize(202, 202);
    EXPECT_NE(uxPaintToText(lying).find("rotate"), std::string::npos) << "unless all of them are wanted";
}

TEST(KXAxisChart, LabelsAreAskedForWhereTheyAreSeen)
{
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
    provider.categoryCount = 100'000;
    BarsChart chart(provider);
    chart.getXAxisProperty()->setShowTickLabels(true);
    kxLoad(chart);
    const std::size_t visible = chart.bars.size();
    EXPECT_LE(provider.askedTexts.size(), visible + 2);
    provider.askedTexts.clear();
    chart.getPlot()->setContentOffsetX(800'000);
    chart.layout();
    EXPECT_LE(provider.askedTexts.size(), visible + 2);
    EXPECT_TRUE(std::ranges::all_of(provider.askedTexts, [](std::uint64_t c) { return c > 57'000; }));
    chart.resize(402, 202);
    EXPECT_LE(provider.askedTexts.size(), chart.bars.size() + 2) << "each of those that came into view once";
}

TEST(KXAxisChart, ScrollsWhereCategoriesNeedMoreRoom)
{
    KXAxisChartTestProvider provider;
    provider.categoryCount = 1'000'000;
    provider.values = {{1, 2, 3}};
    BarsChart chart(provider);
    kxLoad(chart);
    provider.asked.clear();
    UXVirtualScrollView& plot = *chart.getPlot();
    EXPECT_EQ(plot.getContentWidth(), 14'000'000);
    EXPECT_EQ(chart.getMarksArea(), UXRect(0, 0, 300, 188)) << "above the scroll bar";
    EXPECT_EQ(chart.bars.size(), 22);
    EXPECT_EQ(plot.getHorizontalScrollBar()->getSliderColor(), UXColor(209, 209, 214));

    UXEvent wheel = kxMakeEvent(UXEventType::MouseWheel, {100, 100});
    wheel.setWheelDelta({0, 105});
    plot.mouseWheel(wheel);
    EXPECT_EQ(plot.getContentOffsetX(), 5040);
    EXPECT_EQ(chart.bars.front().mark.category, 360);
    EXPECT_EQ(chart.bars.size(), 22);
    EXPECT_EQ(provider.asked["value"] + provider.asked["isNull"], 0);
    EXPECT_LE(provider.askedTexts.size(), 1) << "the first visible one is remembered by its text";

    // The data stay where they are, whatever the size and the spacing.
    chart.resize(502, 202);
    EXPECT_EQ(chart.bars.front().mark.category, 360);
    chart.getAxisChartProperty()->updateDataDensity(KXChartDataDensity::Loose);
    chart.layout();
    EXPECT_EQ(plot.getContentOffsetX(), 8640);
    chart.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
    chart.layout();
    EXPECT_EQ(plot.getContentOffsetY(), 8640);
    EXPECT_EQ(plot.getContentOffsetX(), 0);
    EXPECT_EQ(chart.bars.front().mark.category, 360);
    EXPECT_EQ(chart.getMarksArea(), UXRect(0, 0, 488, 200));

    // Ten categories come in front: the same one stands first.
    provider.categoryText = [](std::uint64_t i) { return i < 10 ? "new" : "c" + std::to_string(i - 10); };
    kxLoad(chart);
    EXPECT_EQ(chart.bars.front().mark.category, 370);
    provider.categoryCount = 5;
    kxLoad(chart);
    EXPECT_EQ(chart.bars.size(), 5);
    EXPECT_EQ(plot.getContentOffsetY(), 0);
    chart.getAxisChartProperty()->updateEnableScroll(false);
    provider.categoryCount = 1000;
    kxLoad(chart);
    EXPECT_EQ(chart.bars.size(), 1000);
    EXPECT_FALSE(plot.hasScrollBars());
    chart.getXAxisProperty()->updateAxisLength(9000);
    chart.layout();
    EXPECT_EQ(chart.bars.size(), 1000) << "all at once, also where a longer axis is wanted";
    chart.getXAxisProperty()->updateAxisLength(0);
    chart.layout();
    EXPECT_EQ(chart.getMarksArea().height, 200) << "no length of its own";
}

TEST(KXAxisChart, ContinuousCategoriesLieAtTheirNumbers)
{
    KXAxisChartTestProvider provider;
    provider.categoryType = KXChartDataType::Integer;
    provider.categoryNumber = [](std::uint64_t i) { return i == 2 ? 9.0 : static_cast<double>(i); };
    BarsChart chart(provider);
    chart.getXAxisProperty()->updateIsContinuous(true);
    kxLoad(chart);
    ASSERT_TRUE(chart.isContinuous());
    ASSERT_EQ(chart.bars.size(), 3);
    // From half a unit before 0 to half a unit after 9: ten units of 30.
    EXPECT_NEAR(uxMidDoubleX(chart.bars[1].rect), 45, 1e-6);
    EXPECT_NEAR(uxMidDoubleX(chart.bars[2].rect), 285, 1e-6);
    EXPECT_NEAR(chart.bars[2].rect.width, 30, 1e-6);
    KXTestInput{chart}.move({200, 10});
    EXPECT_EQ(chart.getHintInfo().title, "c2") << "the nearest category";

    provider.categoryNumber = [](std::uint64_t i) { return 5.0 - static_cast<double>(i); };
    kxLoad(chart);
    EXPECT_EQ(chart.obtainVisibleCategories().second, 3) << "also where they do not grow";
    EXPECT_EQ(chart.getCategoryPlaces().obtainCategory(0), 2);
    provider.categoryNumber = [](std::uint64_t) { return null; };
    kxLoad(chart);
    EXPECT_FALSE(chart.isContinuous());
}

TEST(KXAxisChart, HiddenSeriesLeaveRangesAndStayHidden)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {100, 50, 20}};
    BarsChart chart(provider);
    kxLoad(chart);
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 100);
    EXPECT_EQ(chart.obtainLegendCellSize(), 2);
    chart.legendCellClicked(1, UXEvent());
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 3);
    EXPECT_EQ(chart.bars.size(), 3);
    UXColor color;
    EXPECT_TRUE(chart.obtainLegendSymbolColor(1, color));
    EXPECT_NE(color, chart.obtainSeriesColor(1));
    kxLoad(chart);
    EXPECT_EQ(chart.getShownSeries(), std::vector<std::uint64_t>{0});
    chart.legendCellClicked(1, UXEvent());
    chart.getChartProperty()->updateTopXItemsToShow(2);
    chart.getChartProperty()->updateShowOnlyTopX(true);
    chart.layout();
    EXPECT_EQ(chart.bars.size(), 4) << "two series of the first two categories";
    chart.getChartProperty()->updateEnableInteraction(false);
    chart.legendCellClicked(1, UXEvent());
    EXPECT_TRUE(chart.isSeriesShown(1));
    chart.setSeriesShown(7, false);
    EXPECT_EQ(provider.asked["begin"], 2);
}

TEST(KXAxisChart, TheMarkUnderThePointerIsToldAndStandsOut)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {3, 3, null}, {4, 4, 3.5}};
    provider.wantsHighlight = true;
    BarsChart chart(provider);
    kxLoad(chart);
    const KXTestInput input{chart};
    const auto moveTo = [&](const Mark& mark) { input.move(chart.obtainMiddle(mark)); };
    moveTo({2, 2});
    EXPECT_EQ(chart.getHoveredMark(), (Mark{0, 2})) << "the one in front";
    moveTo({2, 1});
    EXPECT_EQ(chart.getHoveredMark(), (Mark{0, 1}));
    moveTo({1, 0});
    ASSERT_EQ(chart.getHoveredMark(), (Mark{1, 0}));
    const UXHintInfo& hint = chart.getHintInfo();
    EXPECT_TRUE(chart.getHintVisible());
    EXPECT_EQ(chart.obtainHintArea(chart.getHintPoint()), UXRect(101, 1, 100, 100)) << "as far as it is seen";
    EXPECT_EQ(hint.title, "c0");
    ASSERT_EQ(hint.rows.size(), 3);
    EXPECT_EQ(hint.rows[0].label, "s1");
    EXPECT_EQ(hint.rows[1].label + hint.rows[1].value, "s01");
    EXPECT_EQ(hint.rows[0].color, chart.obtainSeriesColor(1));
    EXPECT_EQ(provider.paths.back().valueIndexPath, (KXIndexPath{1, 0}));
    EXPECT_EQ(provider.paths.back().dimensionIndexPath, (KXIndexPath{0, 0}));

    const UXColor red(255, 0, 0);
    EXPECT_EQ(chart.getCursor(), UXCursor::PointingHand);
    EXPECT_EQ(chart.obtainMarkColor({1, 0}, red), red);
    EXPECT_DOUBLE_EQ(chart.obtainMarkColor({1, 1}, red).alpha, 0.3);
    const auto asked = provider.asked["shouldHighlight"];
    moveTo({1, 0});
    EXPECT_EQ(provider.asked["shouldHighlight"], asked) << "only what is new is told";
    input.move({250, 3});
    EXPECT_FALSE(chart.getHoveredMark());
    EXPECT_EQ(chart.getCursor(), UXCursor::AsParent);
    EXPECT_EQ(chart.getHintInfo().rows.size(), 2) << "beside the marks, without the null";
    EXPECT_EQ(chart.obtainMarkColor({1, 1}, red), red);
    input.move({-5, 3});
    EXPECT_FALSE(chart.getHintVisible());

    provider.hint = {"told", "by the host"};
    moveTo({0, 2});
    EXPECT_EQ(chart.getHintInfo().title, "told");
    chart.legendCellHovered(2, true);
    EXPECT_EQ(chart.obtainMarkColor({2, 1}, red), red);
    input.leave();
    EXPECT_NE(chart.obtainMarkColor({0, 2}, red), red);
    chart.legendCellHovered(2, false);
    EXPECT_FALSE(chart.isHighlighting());
}

TEST(KXAxisChart, AHintCountsAllThatItLeavesOut)
{
    KXAxisChartTestProvider provider;
    provider.values = std::vector<std::vector<double>>(40, {1, 2, 3});
    provider.values[30][1] = NAN;
    BarsChart chart(provider);
    kxLoad(chart);
    KXTestInput{chart}.move(chart.obtainMiddle({0, 1}));
    EXPECT_EQ(chart.getHintInfo().rows.size() + chart.getHintInfo().omittedRowCount, 39);
    EXPECT_GT(chart.getHintInfo().omittedRowCount, 0);
}

TEST(KXAxisChart, ClicksMenusAndLinksNameTheMark)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {4, 4, 4}};
    BarsChart chart(provider);
    kxLoad(chart);
    const UXPoint on = chart.obtainMiddle({0, 1}), beside{250, -50};
    const KXTestInput input{chart};
    const auto click = [&](const UXPoint& down, const UXPoint& up) {
        input.press(down);
        return chart.triggerEventHandler(kxMakeEvent(UXEventType::LeftClick, up));
    };
    EXPECT_TRUE(click(on, on));
    ASSERT_EQ(provider.paths.size(), 1);
    EXPECT_EQ(provider.paths[0].valueIndexPath, (KXIndexPath{0, 1}));
    EXPECT_FALSE(click(on, beside));
    EXPECT_FALSE(click(beside, beside));
    input.press(beside, UXEventKey::RightButton);
    EXPECT_EQ(provider.paths.size(), 1);
    input.press(on, UXEventKey::RightButton);
    EXPECT_EQ(provider.asked["shouldRightClick"], 1);

    const std::tuple<const char*, KXIndexPath, KXIndexPath, std::vector<KXChartItem>> cases[] = {
        {"a value", {1, 2}, {0, 2}, {{0, 1, 2}}},
        {"a category", {}, {0, 1}, {{0, 0, 1}, {0, 1, 1}}},
        {"another dimension", {}, {1, 1}, {}},
        {"no such category", {0, 3}, {}, {}},
        {"no such series", {2, 0}, {}, {}},
        {"nothing", {}, {}, {}},
        {"a value of another member", {1, 2}, {0, 1}, {}},
    };
    for (const auto& [name, value, dimension, items] : cases) {
        SCOPED_TRACE(name);
        KXChartDataPath path;
        path.valueIndexPath = value;
        path.dimensionIndexPath = dimension;
        EXPECT_EQ(chart.findItems(path), items);
        const KXHighlightResult result = chart.showLinkedHighlight(path, nullptr);
        EXPECT_EQ(result == KXHighlightResult::Highlighted, !items.empty());
        EXPECT_EQ(chart.isHighlighting(), !items.empty());
        chart.hideLinkedHighlight(nullptr);
        EXPECT_FALSE(chart.isHighlighting() || chart.getHintVisible());
    }
}

TEST(KXAxisChart, TheKeyboardWalksMarksAndScrollsToThem)
{
    using enum UXKeyCode;
    KXAxisChartTestProvider provider;
    provider.values = {{1, null, 3}, {4, 4, null}, {1, 2, 3}};
    const std::pair<UXKeyCode, Mark> steps[] = {
        {Right, {0, 0}}, {Right, {0, 2}}, {Right, {0, 2}}, {Down, {2, 2}},     {Left, {2, 1}},   {Up, {1, 1}},
        {Up, {1, 1}},    {End, {2, 2}},   {Home, {0, 0}},  {PageDown, {0, 2}}, {PageUp, {0, 0}},
    };
    const auto turn = [](UXKeyCode key) {
        return key == Right ? Down : key == Down ? Right : key == Left ? Up : key == Up ? Left : key;
    };
    for (const bool isVertical : {true, false}) {
        UXDiagram diagram;
        BarsChart chart(provider);
        chart.setAlign(UXAlign::None);
        diagram.addChild(&chart);
        if (!isVertical)
            chart.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
        kxLoad(chart);
        diagram.setFocusedObject(&chart);
        const KXTestInput input{diagram};
        for (const auto& [key, expected] : steps) {
            SCOPED_TRACE(testing::Message() << isVertical << " " << static_cast<int>(key));
            EXPECT_TRUE(input.type(isVertical ? key : turn(key)));
            const std::optional<KXChartItem> focused = chart.getItems()->getFocused();
            ASSERT_TRUE(focused);
            EXPECT_EQ((Mark{focused->group, focused->index}), expected);
            EXPECT_TRUE(chart.getHintVisible());
        }
        diagram.removeChild(&chart);
    }

    provider.values = {std::vector<double>(100, 1)};
    provider.categoryCount = 100;
    UXDiagram diagram;
    BarsChart chart(provider);
    chart.setAlign(UXAlign::None);
    diagram.addChild(&chart);
    kxLoad(chart);
    diagram.setFocusedObject(&chart);
    const KXTestInput input{diagram};
    input.type(Home);
    for (int i = 0; i < 40; ++i)
        input.type(Right);
    EXPECT_GT(chart.getPlot()->getContentOffsetX(), 0);
    EXPECT_LT(chart.obtainVisibleCategories().first, 40U);
    EXPECT_GT(chart.obtainVisibleCategories().second, 40U);
    diagram.removeChild(&chart);
}

TEST(KXAxisChart, ATabSaysWhereLinkedMarksAreThatNobodySees)
{
    struct Case {
        const char* name;
        std::int64_t offset;
        bool hasTab;
    };
    // 100 categories of 14 units, of which the marks' area shows 22 across and 14 along.
    const Case cases[] = {
        {"behind the end", 0, true},
        {"seen", 700, false},
        {"behind the start", 728, true},
    };
    KXAxisChartTestProvider provider;
    provider.values = {std::vector<double>(100, 1)};
    provider.categoryCount = 100;
    KXChartDataPath path;
    path.valueIndexPath = {0, 50};
    for (const Case& c : cases) {
        for (const bool isVertical : {true, false}) {
            SCOPED_TRACE(testing::Message() << c.name << isVertical);
            BarsChart chart(provider);
            if (!isVertical)
                chart.getAxisChartProperty()->updateOrientation(KXAxisChartOrientation::Horizontal);
            kxLoad(chart);
            chart.showLinkedHighlight(path, nullptr);
            UXVirtualScrollView& plot = *chart.getPlot();
            isVertical ? plot.setContentOffsetX(c.offset) : plot.setContentOffsetY(c.offset);
            const std::string painted = uxPaintToText(chart);
            EXPECT_EQ(painted.find("0.85") != std::string::npos, c.hasTab);
            chart.showLinkedHighlight(path, nullptr);
            EXPECT_TRUE(chart.getHintVisible()) << "at the edge, too";
            EXPECT_EQ(isVertical ? plot.getContentOffsetX() : plot.getContentOffsetY(), c.offset)
                << "where the reader has scrolled to";
        }
    }
}

TEST(KXAxisChart, AMeasureWithAnAxisToItselfNamesIt)
{
    class SplitChart : public BarsChart {
    public:
        explicit SplitChart(KXAxisChartTestProvider& provider)
            : BarsChart(provider), second(_addView(std::make_unique<BarsView>()))
        {
            second.updateIsOnSecondaryAxis(true);
        }
        KXAxisChartDataView* obtainViewOfSeries(std::uint64_t series) const override
        {
            return series > 0 ? &second : &view;
        }
        BarsView& second;
    };
    KXAxisChartTestProvider provider;
    for (const auto& [count, first, second] : std::vector<std::tuple<int, std::string, std::string>>{
             {1, "s0", "s0"}, {2, "s0", "s1"}, {3, "s0", ""}}) {
        provider.values.assign(static_cast<std::size_t>(count), {1, 2, 3});
        SplitChart chart(provider);
        kxLoad(chart);
        EXPECT_EQ(chart.getYAxisProperty()->getDefaultTitleValue(), first);
        EXPECT_EQ(chart.getSecondaryYAxisProperty()->getDefaultTitleValue(), second);
    }
}

TEST(KXAxisChart, ChangesReachTheStepThatTheyTouch)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {1, 2, 3}};
    BarsChart chart(provider);
    kxLoad(chart);
    const int pulled = provider.asked["value"], reloads = chart.view.reloads;
    chart.getYAxisProperty()->updateIsStacked(true);
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 6);
    EXPECT_EQ(chart.view.reloads, reloads + 1);
    chart.getYAxisProperty()->updateAxisAndTickLabelColor(UXColor(1, 2, 3));
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getColor(), UXColor(1, 2, 3));
    EXPECT_EQ(chart.getYAxisProperty()->getTickLabelFontColor(), UXColor(1, 2, 3));
    chart.getAxisChartProperty()->updateSeriesColors({UXColor(9, 9, 9)});
    EXPECT_FALSE(chart.getRequireToVerifyLayout());
    EXPECT_EQ(chart.obtainSeriesColor(1), UXColor(9, 9, 9));
    chart.getYAxisProperty()->updateAxisLength(50);
    chart.layout();
    EXPECT_EQ(chart.getMarksArea().height, 50);
    EXPECT_EQ(provider.asked["value"], pulled);

    BarsChart reset(provider);
    chart.getYDataFormat()->updatePrefix("about ");
    reset.customResetProperties(KXChartResetType::Style, &chart,
                                {"Axis", "Stack", "ColorSeries", "DataFormat"});
    EXPECT_EQ(reset.getYAxisProperty()->getAxisColor(), UXColor(1, 2, 3));
    EXPECT_FALSE(reset.getYAxisProperty()->getIsStacked());
    EXPECT_EQ(reset.obtainValueText(0, 1), "about 1");
    EXPECT_EQ(reset.getAxisChartProperty()->getSeriesColors().size(), 1);
}

TEST(KXAxisChart, TheProviderMayDestroyTheChartInAnyAnswer)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {3, 2, 1}};
    provider.categoryCount = 500;
    provider.categoryType = KXChartDataType::Date;
    provider.wantsHighlight = true;
    const auto use = [&](std::unique_ptr<BarsChart>& chart) {
        UXEvent wheel = kxMakeEvent(UXEventType::MouseWheel, {100, 100});
        wheel.setWheelDelta({0, 1});
        KXChartDataPath path;
        path.valueIndexPath = {1, 3};
        const Mark mark{0, 1};
        const std::function<void()> steps[] = {
            [&] { chart->getXAxisProperty()->setShowTickLabels(true); },
            [&] { kxLoad(*chart); },
            [&] { chart->getPlot()->mouseWheel(wheel); },
            [&] { kxLoad(*chart); },
            [&] { chart->getPlot()->setContentOffsetX(0); },
            [&] { KXTestInput{*chart}.move(chart->obtainMiddle(mark)); },
            [&] { KXTestInput{*chart}.press(chart->obtainMiddle(mark), UXEventKey::RightButton); },
            [&] {
                chart->triggerEventHandler(kxMakeEvent(UXEventType::LeftClick, chart->obtainMiddle(mark)));
            },
            [&] { KXTestInput{*chart}.leave(); },
            [&] { chart->showLinkedHighlight(path, nullptr); },
            [&] { chart->getXAxisProperty()->updateIsContinuous(true); },
            [&] { chart->layout(); },
        };
        for (const auto& step : steps)
            if (chart)
                step();
    };
    auto whole = std::make_unique<BarsChart>(provider);
    use(whole);
    EXPECT_TRUE(whole->isContinuous());
    for (const auto& [call, count] : std::map<std::string, int>(provider.asked)) {
        const int most = call == "memberCount" ? 99 : 9; // what names a mark asks for it, and comes late
        for (int nth = 1; nth <= std::min(count, most); ++nth) {
            auto chart = std::make_unique<BarsChart>(provider);
            int left = nth;
            provider.onCall = [&, name = call](const std::string& asked) {
                if (asked == name && --left == 0)
                    chart.reset();
            };
            use(chart);
            EXPECT_FALSE(chart) << call << nth;
        }
    }
}
