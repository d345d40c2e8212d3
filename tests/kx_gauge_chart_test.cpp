#include "kx_gauge_chart.h"

#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <tuple>

namespace {

using Display = KXGaugeChartLabelDisplay;
using Measures = std::vector<std::optional<double>>;

constexpr double noValue = KXGaugeChartDataUser::noValue;
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = (std::numeric_limits<double>::max)();
const std::optional<double> null;

std::ptrdiff_t countLines(const std::vector<std::string>& lines, const std::string& start)
{
    return std::ranges::count_if(lines, [&](const std::string& line) { return line.starts_with(start); });
}

/** Opens the step that a test looks into. */
class OpenGauge : public KXGaugeChart {
public:
    using KXGaugeChart::_obtainPipePartitionColor;
};

class KXGaugeChartTest : public testing::Test {
protected:
    KXGaugeChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.setRect(uxMakeRect(0, 0, 600, 400));
        provider.hint = [](const KXIndexPath& path) {
            return KXChartDataProviderHintData{"measure " + std::to_string(path.at(0)), "text"};
        };
        load({30, 80, 0, 100});
    }
    void load(const Measures& measures)
    {
        provider.measures = measures;
        kxLoad(chart, provider, chart.getRect());
    }
    std::vector<std::string> paintLines()
    {
        chart.layout();
        UXRecordingPaintConfig config;
        chart.paint(&config, chart.getBoundingRect());
        return config.getRecording().getLines();
    }
    std::vector<KXChartLabel*> obtainShownLabels()
    {
        std::vector<KXChartLabel*> labels = chart.getPartitionLabelsPool();
        for (KXChartLabel* label :
             {chart.getMainLabel(), chart.getMinLabel(), chart.getMaxLabel(), chart.getTargetLabel()})
            labels.push_back(label);
        std::erase_if(labels, [](const KXChartLabel* label) { return !label->getVisible(); });
        return labels;
    }
    UXFixedMeasurer measurer;
    KXTestProvider provider;
    OpenGauge chart;
};

TEST_F(KXGaugeChartTest, RatiosStayInsideTheRangeOrHaveNoValue)
{
    const std::tuple<const char*, Measures, double, double> cases[] = {
        {"inside", {30, 80, 0, 100}, 0.3, 0.8},
        {"value below, target above", {-5, 200, 0, 100}, 0, 1},
        {"value above, target below", {101, -1, 0, 100}, 1, 0},
        {"no target", {30, null, 0, 100}, 0.3, noValue},
        {"no value takes the target along", {null, 80, 0, 100}, noValue, noValue},
        {"one measure only", {30}, noValue, noValue},
        {"no range", {5, 5, 5, 5}, noValue, noValue},
        {"a reversed range", {5, 5, 10, 0}, noValue, noValue},
        {"infinite value", {infinite, 80, 0, 100}, noValue, noValue},
        {"not a number", {noNumber, 80, 0, 100}, noValue, noValue},
        {"infinite target", {30, infinite, 0, 100}, 0.3, noValue},
        {"the greatest finite number is none", {30, 80, 0, greatest}, noValue, noValue},
        {"a range wider than a double", {0, 1e308, -1e308, 1e308}, 0.5, 1},
        {"the least range", {5e-324, 0, 0, 5e-324}, 1, 0},
    };
    for (const auto& [name, measures, value, target] : cases) {
        SCOPED_TRACE(name);
        load(measures);
        EXPECT_EQ(chart.getValueRatio(), value);
        EXPECT_EQ(chart.getTargetRatio(), target);
        paintLines();
    }
}

TEST_F(KXGaugeChartTest, PartitionsEndWhereTheStyleSays)
{
    // How many are wanted, the boundaries of the custom style (none for even parts), where the parts end
    using Numbers = std::vector<double>;
    const std::tuple<const char*, int, Numbers, Numbers> cases[] = {
        {"none is one", 0, {}, {180}},
        {"negative is one", -7, {}, {180}},
        {"twelve are eight", 12, {}, {22.5, 45, 67.5, 90, 112.5, 135, 157.5, 180}},
        {"three", 3, {}, {60, 120, 180}},
        {"all at the start", 3, Numbers(8, 0.0), {0, 0, 180}},
        {"too few", 4, {0, 25}, {45, 180, 180, 180}},
        {"beyond the end", 3, {0, 250, 50}, {180, 90, 180}},
        {"no number", 2, {0, noNumber}, {180, 180}},
    };
    for (const auto& [name, wanted, boundaries, expected] : cases) {
        SCOPED_TRACE(name);
        chart.setPipePartition(wanted);
        chart.setPartitionStyle(boundaries.empty() ? KXGaugeChartPartitionStyle::EvenlyDistributed
                                                   : KXGaugeChartPartitionStyle::Custom);
        chart.setCustomPartitionSegment(boundaries);
        Numbers angles;
        for (int i = 0; i < chart.obtainPipePartition(); ++i) {
            angles.push_back(chart.obtainPartitionAngle(i));
            EXPECT_DOUBLE_EQ(chart.obtainPartitionLabelPercentage(i + 1), angles.back() / 180 * 100);
        }
        EXPECT_EQ(angles, expected);
        EXPECT_EQ(chart.obtainPartitionLabelPercentage(0), 0);
        paintLines();
    }
    chart.setPartitionStyle(static_cast<KXGaugeChartPartitionStyle>(7));
    EXPECT_EQ(chart.obtainPartitionAngle(0), 0);
}

TEST_F(KXGaugeChartTest, ColoursRunFromTheMinimumsOverTheMiddle)
{
    const UXColor low(24, 200, 140), middle(252, 209, 84), high(255, 110, 110);
    const UXColor lowMiddle(138, 204, 112), middleHigh(253, 159, 97);
    for (const std::vector<UXColor>& expected :
         {std::vector{low}, std::vector{low, middle, high}, std::vector{low, lowMiddle, middle, high},
          std::vector{low, lowMiddle, middle, middleHigh, high}}) {
        chart.setPipePartition(std::ssize(expected));
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(chart._obtainPipePartitionColor(static_cast<int>(i)), expected[i]);
    }
    chart.setPipePartition(6);
    EXPECT_EQ(chart._obtainPipePartitionColor(4), UXColor(253, 176, 92)) << "a third of the way, to the unit";
    chart.setPipePartition(7);
    EXPECT_EQ(chart._obtainPipePartitionColor(5), UXColor(254, 143, 101));
    chart.setPartitionStyle(KXGaugeChartPartitionStyle::Custom);
    chart.setCustomPartitionColor({0, 50}, {UXColor(1, 2, 3, 0.5)});
    EXPECT_TRUE(chart.getInitPartition());
    EXPECT_EQ(chart._obtainPipePartitionColor(0), UXColor(1, 2, 3, 0.5));
    EXPECT_EQ(chart._obtainPipePartitionColor(1), low) << "a part without a colour";
}

TEST_F(KXGaugeChartTest, WritesNumbersAsTheDisplaySays)
{
    const std::tuple<Display, double, double, const char*> cases[] = {
        {Display::None, 5, 0.5, ""},
        {Display::Actual, 1234.5, 0.5, "1,234.50"},
        {Display::Actual, noNumber, 0.5, "--"},
        {Display::Comparison, 5, 1.0 / 3, "33.33%"},
        {Display::Comparison, 5, noValue, "--%"},
        {Display::Both, 5, 0.5, "5 (50.00%)"},
        {Display::Both, infinite, noValue, "-- (--%)"},
        {static_cast<Display>(9), 5, 0.5, ""}};
    for (const auto& [display, value, ratio, expected] : cases)
        EXPECT_EQ(chart.obtainLabelDisplayString(value, ratio, display), expected);

    chart.setPipePartition(4);
    chart.setPartitionLabelDisplay(Display::Both);
    EXPECT_EQ(chart.obtainPartitionLabelString(1), "25 (25.00%)");
    for (const Measures& unusable : {Measures{5, 5, 5, 5}, Measures{5, 5, null, 5}}) {
        load(unusable);
        EXPECT_EQ(chart.obtainPartitionLabelString(1), "-- (25.00%)");
    }
}

TEST_F(KXGaugeChartTest, PartsEndAtWholeDegreesAndTheirColourAtTheValue)
{
    // Parts, pointer, value, and the degrees where arcs end on the painter's circle; a hub's is the last one
    const std::tuple<const char*, int, bool, std::optional<double>, const char*> cases[] = {
        {"22.5 is rounded, what remains is not", 8, true, 30, ",203,225,248,270,293,315,338,360,360"},
        {"the second of four holds the value", 4, false, 30, ",225,225,270,234,315,360"},
        {"above", 2, false, 900, ",270,270,360,360"},
        {"at the minimum", 2, false, 0, ",270,360"},
        {"below", 2, false, -4, ",270,360"},
        {"no value", 2, false, null, ",270,360"},
    };
    for (const auto& [name, parts, pointer, value, expected] : cases) {
        chart.setPipePartition(parts);
        chart.setShowPointer(pointer);
        load({value, 80, 0, 100});
        std::string ends;
        for (const std::string& line : paintLines())
            if (line.starts_with("addCircleArcPath"))
                ends += line.substr(line.rfind(','));
        EXPECT_EQ(ends, expected) << name;
    }
    EXPECT_EQ(countLines(paintLines(), "setStartPoint"), 0);
    chart.setPipeWithPercentage(1);
    EXPECT_EQ(countLines(paintLines(), "setStartPoint"), 2) << "a sector starts in the middle";
}

TEST_F(KXGaugeChartTest, TextsGiveWayToEachOther)
{
    chart.setFontSize(300);
    chart.layout();
    EXPECT_LT(chart.getMainLabel()->getTextProperty().font.size, 300);
    EXPECT_EQ(chart.getMinLabel()->getTextProperty().font.size, 18) << "a far larger main text shrinks first";

    chart.setPartitionLabelDisplay(Display::Comparison);
    load({30, 0, 0, 100});
    const UXRect target = chart.getTargetLabel()->getRect();
    const UXRect boundary = chart.getPartitionLabelsPool()[0]->getRect();
    EXPECT_LE(target.getBottom(), boundary.y) << "the target stands by its tick, not beyond the boundary";
    EXPECT_NEAR(uxMaxX(target), uxMaxX(boundary), 5);

    chart.setFontSize(50);
    chart.setRect(uxMakeRect(0, 0, 480, 320));
    chart.setMaxMinDisplay(Display::Both);
    chart.setMainDisplay(Display::Both);
    load({1234567.5, null, 0, 98765432});
    EXPECT_EQ(chart.getMainLabel()->getRect().y, chart.getMinLabel()->getRect().getBottom())
        << "a wide main text moves below the ends";
}

TEST_F(KXGaugeChartTest, TheTargetsTickHasRoomWithoutItsLabel)
{
    chart.setTargetDisplay(Display::None);
    chart.setMaxMinDisplay(Display::None);
    for (const double target : {0, 30, 50, 80, 100})
        for (const UXRect& rect : {UXRect(0, 0, 600, 150), UXRect(0, 0, 200, 300)}) {
            SCOPED_TRACE(testing::Message() << target << " in " << rect.width);
            chart.setRect(rect);
            load({30, target, 0, 100});
            EXPECT_EQ(countLines(paintLines(), "clip"), 0) << "only a tick at the chart's edge is cut";
        }
}

TEST_F(KXGaugeChartTest, TextsLeaveInTheStatedOrder)
{
    chart.setPartitionLabelDisplay(Display::Actual);
    chart.setPipePartition(8);
    // From large to small: nothing lesser outlives something greater.
    for (int size = 600; size >= 10; size -= 7) {
        SCOPED_TRACE(size);
        chart.setRect(uxMakeRect(0, 0, size, size * 2 / 3));
        chart.layout();
        const bool main = chart.getMainLabel()->getVisible(), target = chart.getTargetLabel()->getVisible();
        const bool ends = chart.getMinLabel()->getVisible();
        const std::ptrdiff_t boundaries = std::ssize(obtainShownLabels()) - main - target - 2 * ends;
        EXPECT_EQ(ends, chart.getMaxLabel()->getVisible());
        EXPECT_TRUE(size < 600 || boundaries == 7) << "the ends are said by minimum and maximum";
        EXPECT_TRUE(boundaries == 0 || (target && ends));
        EXPECT_TRUE(main || !(target || ends));
        EXPECT_TRUE(main || size < 160);
    }
    EXPECT_FALSE(chart.getMainLabel()->getVisible());
}

TEST_F(KXGaugeChartTest, ClicksAndHintsNameTheMeasure)
{
    const KXTestInput input{chart};
    std::uint64_t measure = 0;
    for (KXChartLabel* label :
         {chart.getMainLabel(), chart.getTargetLabel(), chart.getMinLabel(), chart.getMaxLabel()}) {
        label->triggerEventHandler(UXEvent(UXEventType::LeftClick));
        EXPECT_EQ(provider.paths.back().valueIndexPath, (KXIndexPath{measure, 0}));
        input.move(middleOf(*label));
        EXPECT_TRUE(chart.getHintVisible());
        EXPECT_EQ(chart.UXHintDelegate::getHintInfo().title, "measure " + std::to_string(measure++));
    }
    input.move({1, 1});
    EXPECT_FALSE(chart.getHintVisible());

    auto doomed = std::make_unique<OpenGauge>();
    kxLoad(*doomed, provider, {0, 0, 300, 200});
    provider.onCall = [&](const std::string& call) { call == "hint" ? doomed.reset() : void(); };
    KXTestInput{*doomed}.move(middleOf(*doomed->getMainLabel()));
    EXPECT_FALSE(doomed) << "the provider may destroy the chart that asks";
}

} // namespace
