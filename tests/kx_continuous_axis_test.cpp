#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart.h"
#include "kx_bar_layout.h"
#include "kx_calendar_time.h"
#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox_item.h"
#include "kx_line_bar_chart.h"
#include "kx_line_chart.h"
#include "kx_line_chart_property.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_label.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double day = 86400;
constexpr double null = KXAxisChartTestProvider::null;

class KXContinuousAxisTest : public testing::Test {
protected:
    KXContinuousAxisTest()
    {
        provider.categoryType = KXChartDataType::Date;
        provider.categoryNumber = [](std::uint64_t i) { return static_cast<double>(i) * day; };
    }
    /** Lets the provider have so many members, each with its place as its value. */
    void count(std::uint64_t categories)
    {
        provider.categoryCount = categories;
        provider.values = {{}};
        for (std::uint64_t i = 0; i < categories; ++i)
            provider.values[0].push_back(static_cast<double>(i) + 1);
    }

    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
};

std::string obtainTickTexts(const KXXYAxisChart& chart)
{
    std::string texts;
    for (UXObject* child : chart.getPlot()->getChildren()) {
        auto* labels = dynamic_cast<KXAxisTickLabelView*>(child);
        if (!labels || labels->getAxis() != chart.getXAxis())
            continue;
        for (const double tick : labels->obtainVisibleTicks())
            texts += (texts.empty() ? "" : "|") + labels->obtainTickLabel(tick);
    }
    return texts;
}

template <class Part>
Part* findPart(const KXXYAxisChart& chart)
{
    Part* found = nullptr;
    for (UXObject* child : chart.getPlot()->getChildren())
        if (auto* part = dynamic_cast<Part*>(child))
            found = part;
    return found;
}

/** @return a place among the marks, as a part of their area, in the chart's space */
UXPoint at(const KXXYAxisChart& chart, double share, double height = 0.5)
{
    const UXRect area = chart.getMarksArea();
    return chart.translatePoint(UXPoint(area.x + static_cast<int>(share * area.width),
                                        area.y + static_cast<int>(height * area.height)),
                                chart.getPlot(), const_cast<KXXYAxisChart*>(&chart));
}

KXVisibleRange obtainDays(const KXXYAxisChart& chart)
{
    return {chart.getXAxis()->getMinValue() / day, chart.getXAxis()->getMaxValue() / day};
}

} // namespace

TEST_F(KXContinuousAxisTest, TicksAreTheFinestThatFit)
{
    struct Case {
        const char* name;
        KXChartDataType type;
        std::function<double(std::uint64_t)> number;
        std::uint64_t count;
        const char *wide, *middle, *narrow; // at 1000, 480 and 240
    };
    const auto month = [](std::uint64_t i) {
        return kxObtainCalendarSeconds({2023, static_cast<int>(i) + 11, 1, 0, 0, 0});
    };
    const Case cases[] = {
        {"months", KXChartDataType::Date, month, 6, "Nov 2023|Dec|Jan 2024|Feb|Mar|Apr",
         "Nov 2023|Dec|Jan 2024|Feb|Mar|Apr", "Jan 2024|Apr"},
        {"days over a year's end", KXChartDataType::Date,
         [](std::uint64_t i) {
             return kxObtainCalendarSeconds({2023, 12, 30, 0, 0, 0}) + static_cast<double>(i) * day;
         },
         5, "30 Dec 2023|31|1 Jan 2024|2|3", "30 Dec 2023|31|1 Jan 2024|2|3", "1 Jan 2024"},
        {"hours", KXChartDataType::DateTime, [](std::uint64_t i) { return static_cast<double>(i) * 3600; },
         25, "1 Jan 1970 00:00|03:00|06:00|09:00|12:00|15:00|18:00|21:00|2 Jan 00:00",
         "1 Jan 1970 00:00|06:00|12:00|18:00|2 Jan 00:00", "1 Jan 1970 00:00|12:00|2 Jan 00:00"},
        {"times", KXChartDataType::Time, [](std::uint64_t i) { return static_cast<double>(i) * 600; }, 13,
         "00:00|00:10|00:20|00:30|00:40|00:50|01:00|01:10|01:20|01:30|01:40|01:50|02:00",
         "00:00|00:15|00:30|00:45|01:00|01:15|01:30|01:45|02:00", "00:00|00:30|01:00|01:30|02:00"},
        {"centuries", KXChartDataType::Date,
         [](std::uint64_t i) {
             return kxObtainCalendarSeconds({static_cast<int>(i) * 100 + 100, 1, 1, 0, 0, 0});
         },
         10, "100|200|300|400|500|600|700|800|900|1000", "100|200|300|400|500|600|700|800|900|1000",
         "200|400|600|800|1000"},
        {"one", KXChartDataType::Date, month, 1, "1 Nov 2023", "1 Nov 2023", "1 Nov 2023"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.categoryType = c.type;
        provider.categoryNumber = c.number;
        count(c.count);
        KXLineChart chart;
        chart.getXAxisProperty()->setShowTitle(false);
        if (c.type == KXChartDataType::Time)
            chart.getXAxisProperty()->setIsContinuous(true);
        for (const auto& [width, expected] : {std::pair(1000, c.wide), {480, c.middle}, {240, c.narrow}}) {
            kxLoad(chart, provider, {0, 0, width, 200});
            EXPECT_EQ(obtainTickTexts(chart), expected) << width;
        }
        EXPECT_EQ(provider.asked["text"], 0) << "ticks ask the host nothing";
    }
    KXLineChart chart;
    provider.categoryType = KXChartDataType::Date;
    provider.categoryNumber = month;
    count(6);
    chart.getXDataFormat()->setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
    chart.getXDataFormat()->setCustomDateTimeFormat("MM/YYYY");
    kxLoad(chart, provider, {0, 0, 1000, 200});
    EXPECT_EQ(obtainTickTexts(chart), "11/2023|12/2023|01/2024|02/2024|03/2024|04/2024");
}

TEST_F(KXContinuousAxisTest, WhoIsContinuous)
{
    count(3);
    struct Case {
        const char* name;
        std::function<void()> change;
        bool lines, bars;
    };
    const Case cases[] = {
        {"dates", [] {}, true, false},
        {"times of day", [this] { provider.categoryType = KXChartDataType::Time; }, false, false},
        {"the host wants it", [this] { provider.setting.firstFlag = true; }, true, true},
        {"numbers that tell nothing apart",
         [this] {
             provider.setting.firstFlag = false;
             provider.categoryType = KXChartDataType::DateTime;
             provider.categoryNumber = [](std::uint64_t) { return 0.0; };
         },
         false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.change();
        KXLineChart lines;
        KXBarChart bars;
        kxLoad(lines, provider, {0, 0, 400, 200});
        kxLoad(bars, provider, {0, 0, 400, 200});
        EXPECT_EQ(lines.isContinuous(), c.lines);
        EXPECT_EQ(bars.isContinuous(), c.bars);
        lines.getXAxisProperty()->updateIsCustomizedIsContinuous(true);
        EXPECT_FALSE(lines.isContinuous()) << "the user wants slots";
    }
}

TEST_F(KXContinuousAxisTest, OfManyInOnePixelTheKeyboardTakesOne)
{
    count(20000);
    KXLineChart dense;
    kxLoad(dense, provider, {0, 0, 600, 200});
    const auto step = [&](std::uint64_t from, KXChartItemStep key) {
        const auto item = dense.obtainItemBeside(KXChartItem{0, 0, from}, key);
        return item ? dense.obtainCategoryMap().obtainPosition(dense.obtainCategoryValue(item->index)) -
                          dense.obtainCategoryMap().obtainPosition(dense.obtainCategoryValue(from))
                    : 0;
    };
    const double page = dense.getMarksArea().width / 10.0;
    EXPECT_NEAR(step(10000, KXChartItemStep::Right), 0.6, 0.6);
    EXPECT_NEAR(step(10000, KXChartItemStep::Left), -0.6, 0.6);
    EXPECT_NEAR(step(10000, KXChartItemStep::PageDown), page, 0.1);
    EXPECT_NEAR(step(10000, KXChartItemStep::PageUp), -page, 0.1);
    EXPECT_EQ(dense.obtainItemBeside(KXChartItem{0, 0, 19000}, KXChartItemStep::PageDown),
              (KXChartItem{0, 0, 19999}));
}

TEST_F(KXContinuousAxisTest, MembersLieByNumberAndThoseWithoutAreLeftOut)
{
    provider.categoryCount = 4;
    provider.values = {{1, 2, 3, 4}};
    provider.categoryNumber = [](std::uint64_t i) {
        const double days[] = {9, null, 0, 3};
        return days[i] * day;
    };
    KXLineChart chart;
    kxLoad(chart, provider, {0, 0, 600, 200});
    std::vector<std::uint64_t> joined;
    for (const KXLineVertex& vertex : chart.getDataView().getShapes().at(0).line.vertices)
        joined.push_back(vertex.category);
    EXPECT_EQ(joined, (std::vector<std::uint64_t>{2, 3, 0}));
    EXPECT_FALSE(chart.hasItem({0, 0, 1}));
    EXPECT_EQ(chart.obtainItemBeside(KXChartItem{0, 0, 3}, KXChartItemStep::Right), (KXChartItem{0, 0, 0}));
    EXPECT_EQ(chart.obtainItemBeside(KXChartItem{0, 0, 2}, KXChartItemStep::Left), std::nullopt);

    // Values follow each other as they are joined: 3, 4, 1.
    using enum KXAxisChartValueOption;
    const std::pair<KXAxisChartValueOption, std::set<std::string>> labelled[] = {{LineEnds, {"3", "1"}},
                                                                                 {TurningPoint, {"4"}}};
    for (const auto& [option, expected] : labelled) {
        chart.getLineChartProperty()->updateShowLabels(true);
        chart.getLineChartProperty()->updateLabelValueOption(option);
        chart.layout();
        std::set<std::string> texts;
        for (const KXLineLabel& label : chart.getDataView().getLabels())
            texts.insert(label.text);
        EXPECT_EQ(texts, expected);
    }

    // A bar has the room of the least distance, one alone that of a day.
    provider.setting.firstFlag = true;
    for (const std::uint64_t bars : {std::uint64_t{4}, std::uint64_t{1}}) {
        count(bars);
        KXBarChart chartOfBars;
        kxLoad(chartOfBars, provider, {0, 0, 600, 200});
        ASSERT_EQ(chartOfBars.getDataView().getBars().size(), bars == 1 ? 1 : 3);
        const UXDoubleRect first = chartOfBars.getDataView().getBars().front().rect;
        EXPECT_GT(first.width, 20);
        EXPECT_GE(first.x, chartOfBars.getMarksArea().x);
        EXPECT_LE(first.x + first.width, uxMaxX(chartOfBars.getMarksArea()));
    }
}

TEST_F(KXContinuousAxisTest, ThePointerZooms)
{
    count(101);
    KXLineChart chart;
    chart.getChartProperty()->setShowLegend(false);
    kxLoad(chart, provider, {0, 0, 600, 200});
    const auto turn = [&](double notches) {
        UXEvent event = kxMakeEvent(UXEventType::MouseWheel, at(chart, 0.25));
        event.addEventKey(UXEventKey::Ctrl);
        event.setWheelDelta({0, notches});
        chart.mouseWheel(event);
        chart.layout();
    };
    EXPECT_FALSE(findPart<KXChartToolboxItem>(chart)->getVisible());
    turn(-1);
    EXPECT_NEAR(obtainDays(chart).obtainLength(), 80, 1e-6);
    EXPECT_NEAR(obtainDays(chart).from, 5, 0.2) << "what is under the pointer stays there";
    EXPECT_TRUE(findPart<KXChartToolboxItem>(chart)->getVisible());
    turn(-10);
    turn(-10);
    EXPECT_NEAR(obtainDays(chart).obtainLength(), 1, 1e-6) << "room for two points";

    // A drag moves it and is no click; a small one is.
    chart.showRange(*chart.getXAxis(), {20 * day, 30 * day});
    chart.layout();
    UXDiagram diagram;
    diagram.addChild(&chart);
    const auto drag = [&](double from, double to, bool shift = false) {
        UXEvent down = KXTestInput::at(at(chart, from)), move = KXTestInput::at(at(chart, to));
        if (shift)
            move.addEventKey(UXEventKey::Shift);
        diagram.mouseDown(down);
        diagram.mouseMove(move);
        chart.layout();
        diagram.mouseUp(move);
        chart.layout();
    };
    const double four = 4.01 / chart.getMarksArea().width;
    drag(0.5, 0.5 + four);
    EXPECT_LT(obtainDays(chart).from, 20) << "4 units are no click";
    drag(0.5 + four, 0.5);
    provider.paths.clear();
    drag(0.75, 0.25);
    EXPECT_NEAR(obtainDays(chart).from, 25, 0.1);
    drag(0, 0.999);
    drag(0, 0.999);
    drag(0, 0.999);
    EXPECT_EQ(obtainDays(chart).from, 0) << "it stops at the data";
    EXPECT_EQ(provider.asked["leftClickAction"], 0);
    drag(0.2, 0.4, true);
    EXPECT_NEAR(obtainDays(chart).from, 2, 0.1);
    EXPECT_NEAR(obtainDays(chart).to, 4, 0.1);

    // It is saved, and other data keep it.
    KXLineChart read;
    ASSERT_TRUE(read.deserialize(chart.serialize()));
    kxLoad(read, provider, {0, 0, 600, 200});
    EXPECT_NEAR(obtainDays(read).to, 4, 0.1);
    count(50);
    kxLoad(chart);
    EXPECT_NEAR(obtainDays(chart).to, 4, 0.1);
    chart.mouseDoubleClick(kxMakeEvent(UXEventType::MouseDoubleClick, at(chart, 0.9, 0.05)));
    chart.layout();
    EXPECT_EQ(obtainDays(chart), (KXVisibleRange{0, 49}));
    chart.getAxisChartProperty()->updateEnableZoom(false);
    turn(-1);
    EXPECT_EQ(obtainDays(chart), (KXVisibleRange{0, 49}));
    diagram.removeChild(&chart);
}

TEST_F(KXContinuousAxisTest, KeysZoomAndTheViewFollowsTheWalk)
{
    count(101);
    KXLineChart chart;
    kxLoad(chart, provider, {0, 0, 600, 200});
    UXDiagram diagram;
    diagram.addChild(&chart);
    diagram.setFocusedObject(&chart);
    const KXTestInput input{diagram};
    const auto press = [&](const std::string& text) {
        input.type(text);
        chart.layout();
    };
    press("+");
    EXPECT_NEAR(obtainDays(chart).from, 25, 0.2);
    press("+");
    press("-");
    EXPECT_NEAR(obtainDays(chart).obtainLength(), 50, 1e-6);
    UXEvent right;
    right.setKeyCode(static_cast<int>(UXKeyCode::Right));
    right.addEventKey(UXEventKey::Shift);
    diagram.keyDown(right);
    chart.layout();
    EXPECT_NEAR(obtainDays(chart).from, 30, 0.2) << "a tenth of what is seen";
    input.type(UXKeyCode::End); // the walk begins
    input.type(UXKeyCode::End);
    EXPECT_EQ(obtainDays(chart).to, 100);
    press("0");
    EXPECT_EQ(obtainDays(chart), (KXVisibleRange{0, 100}));
    diagram.removeChild(&chart);
}

TEST_F(KXContinuousAxisTest, APartOfTheValuesThatWasSavedIsLeftLikeAnyOther)
{
    count(101);
    for (const bool areBars : {false, true}) {
        SCOPED_TRACE(areBars);
        std::unique_ptr<KXXYAxisChart> chart = std::make_unique<KXLineChart>();
        if (areBars)
            chart = std::make_unique<KXBarChart>();
        kxLoad(*chart, provider, {0, 0, 600, 400});
        const KXVisibleRange whole = chart->obtainShownRange(*chart->getYAxis());
        EXPECT_EQ(chart->obtainZoomedAxes().size(), areBars ? 0 : 1);
        chart->getAxisChartProperty()->updateVisibleYFrom(20);
        chart->getAxisChartProperty()->updateVisibleYTo(40);
        chart->layout();
        EXPECT_EQ(chart->obtainShownRange(*chart->getYAxis()), (KXVisibleRange{20, 40}));
        auto* button = findPart<KXChartToolboxItem>(*chart);
        EXPECT_TRUE(button->getVisible());
        KXTestInput{*chart}.type("0");
        chart->layout();
        EXPECT_EQ(chart->obtainShownRange(*chart->getYAxis()), whole);
        EXPECT_FALSE(button->getVisible());
    }
}

TEST_F(KXContinuousAxisTest, ValuesFollowWhatIsSeenWhereTheUserWantsIt)
{
    count(101);
    KXLineChart chart;
    kxLoad(chart, provider, {0, 0, 600, 200});
    chart.showRange(*chart.getXAxis(), {10 * day, 20 * day});
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 120);
    chart.getAxisChartProperty()->updateFitValuesToVisible(true);
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getMinValue(), 8);
    EXPECT_LE(chart.getYAxis()->getMaxValue(), 24);
    EXPECT_LT(chart.obtainVisibleCategories().second, 25) << "no look at what is not seen";
}

TEST_F(KXContinuousAxisTest, LogarithmicReversedAndAlignedValueAxes)
{
    provider.categoryType = KXChartDataType::String;
    provider.categoryCount = 4;
    provider.values = {{1, 10, 0, 1000}, {1, 2, 3, 9}};
    KXLineBarChart chart;
    chart.getLineChartProperty()->setSeriesTypes({KXAxisChartType::Bar, KXAxisChartType::SecondaryLine});
    kxLoad(chart, provider, {0, 0, 600, 300});
    EXPECT_EQ(chart.getYAxis()->getMinValue(), 0);
    const auto* first = chart.obtainAxisCacheData(chart.getYAxisProperty());
    const auto* second = chart.obtainAxisCacheData(chart.getSecondaryYAxisProperty());
    EXPECT_EQ((first->axisMax - first->axisMin) / first->tickInterval,
              (second->axisMax - second->axisMin) / second->tickInterval);
    EXPECT_EQ(chart.obtainValueScale(0).obtainPosition(0), chart.obtainValueScale(1).obtainPosition(0));

    chart.getAxisChartProperty()->updateIsYLogarithmic(true);
    chart.layout();
    EXPECT_EQ(chart.getYAxis()->getMaxValue(), 3) << "powers of ten";
    const KXAxisChartScale scale = chart.obtainValueScale(0);
    EXPECT_NEAR(scale.obtainPosition(10) - scale.obtainPosition(100),
                scale.obtainPosition(1) - scale.obtainPosition(10), 1e-6);
    EXPECT_EQ(scale.obtainPosition(0), scale.obtainPosition(1)) << "bars stand on the lower bound";
    EXPECT_FALSE(chart.hasItem({0, 0, 2})) << "nothing is not above zero";
    auto* note = findPart<UXLabel>(chart);
    EXPECT_EQ(note->getText(), "1 value not above zero is left out");
    chart.getYAxisProperty()->updateIsStacked(true);
    chart.layout();
    EXPECT_GT(chart.getYAxis()->getMaxValue(), 900) << "stacks are sums, not powers";
    EXPECT_FALSE(note->getVisible());

    chart.getAxisChartProperty()->updateIsYReversed(true);
    for (const auto orientation : {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        chart.getAxisChartProperty()->updateOrientation(orientation);
        chart.layout();
        const bool isUpright = orientation == KXAxisChartOrientation::Vertical;
        EXPECT_EQ(chart.obtainValueScale(0).obtainPosition(1000) >
                      chart.obtainValueScale(0).obtainPosition(1),
                  isUpright);
    }
}
