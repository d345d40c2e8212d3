#include "kx_gauge_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_gauge_chart_data_provider.h"
#include "ux/ux_event.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_localize.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace {

constexpr double noValue = KXGaugeChartDataUser::noValue;
constexpr double infinite = std::numeric_limits<double>::infinity();
const std::optional<double> null;
const std::optional<std::vector<double>> evenly;

/** Answers value, target, minimum and maximum, as many as a test gives. */
class GaugeProvider : public KXGaugeChartDataProvider {
public:
    std::vector<std::optional<double>> measures{30, 80, 0, 100};
    bool empty = false;
    int askedCount = 0;
    std::function<void()> leftClickAction;
    std::vector<KXChartDataPath> clicked;
    std::function<void()> onHint;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return empty; }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return measures.size(); }
    bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path) override
    {
        return !measures.at(path.at(0));
    }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        ++askedCount;
        return *measures.at(path.at(0));
    }
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        clicked.push_back(*path);
        return leftClickAction;
    }
    bool obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*) override { return true; }
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath& path) override
    {
        if (onHint)
            onHint();
        return {"measure " + std::to_string(path.at(0)), "text"};
    }
};

/** @return where each text of a recording stands, in the space of the whole picture */
std::vector<UXDoubleRect> obtainDrawnTexts(const std::vector<std::string>& lines)
{
    std::vector<UXDoubleRect> texts;
    std::vector<UXDoublePoint> origins(1);
    for (const std::string& line : lines) {
        UXDoublePoint shift;
        UXDoubleRect rect;
        if (line == "saveState")
            origins.push_back(origins.back());
        else if (line == "restoreState")
            origins.pop_back();
        else if (std::sscanf(line.c_str(), "translate %lf,%lf", &shift.x, &shift.y) == 2)
            origins.back() = origins.back() + shift;
        else if (std::sscanf(line.c_str(), "drawText %lf,%lf,%lf,%lf", &rect.x, &rect.y, &rect.width,
                             &rect.height) == 4)
            texts.push_back({rect.x + origins.back().x, rect.y + origins.back().y, rect.width, rect.height});
    }
    return texts;
}

bool anyTwoMeet(const std::vector<UXDoubleRect>& rects)
{
    for (std::size_t i = 0; i < rects.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (const UXDoubleRect shared = uxIntersectionDoubleRect(rects[i], rects[j]);
                shared.width > 0 && shared.height > 0)
                return true;
    return false;
}

/** Opens the steps that a test looks into. */
class OpenGauge : public KXGaugeChart {
public:
    using KXGaugeChart::_customLayout_setRect_pipeRadius;
    using KXGaugeChart::_obtainPipePartitionColor;
    using KXGaugeChart::customMouseMove;
};

class KXGaugeChartTest : public testing::Test {
protected:
    KXGaugeChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.setRect(uxMakeRect(0, 0, 600, 400));
        chart.setDataProvider(&provider);
        load();
    }
    void load()
    {
        chart.prepareData();
        chart.reloadData();
        chart.layout();
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
        labels.insert(labels.end(), {chart.getMainLabel(), chart.getMinLabel(), chart.getMaxLabel(),
                                     chart.getTargetLabel()});
        std::erase_if(labels, [](const KXChartLabel* label) { return !label->getVisible(); });
        return labels;
    }

    UXFixedMeasurer measurer;
    GaugeProvider provider;
    OpenGauge chart;
};

TEST_F(KXGaugeChartTest, RatiosStayInsideTheRangeOrHaveNoValue)
{
    struct Case {
        const char* name;
        std::vector<std::optional<double>> measures;
        double value, target;
    };
    const Case cases[] = {
        {"inside", {30, 80, 0, 100}, 0.3, 0.8},
        {"at the ends", {0, 100, 0, 100}, 0, 1},
        {"value below, target above", {-5, 200, 0, 100}, 0, 1},
        {"value above, target below", {101, -1, 0, 100}, 1, 0},
        {"no target", {30, null, 0, 100}, 0.3, noValue},
        {"no value takes the target along", {null, 80, 0, 100}, noValue, noValue},
        {"one measure only", {30}, noValue, noValue},
        {"no range", {5, 5, 5, 5}, noValue, noValue},
        {"a reversed range", {5, 5, 10, 0}, noValue, noValue},
        {"infinite value", {infinite, 80, 0, 100}, noValue, noValue},
        {"not a number", {NAN, 80, 0, 100}, noValue, noValue},
        {"infinite target", {30, infinite, 0, 100}, 0.3, noValue},
        {"the greatest finite number is none",
         {30, 80, 0, (std::numeric_limits<double>::max)()},
         noValue,
         noValue},
        {"a range wider than a double", {0, 1e308, -1e308, 1e308}, 0.5, 1},
        {"the least range", {5e-324, 0, 0, 5e-324}, 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.measures = c.measures;
        load();
        EXPECT_EQ(chart.getValueRatio(), c.value);
        EXPECT_EQ(chart.getTargetRatio(), c.target);
        paintLines();
    }
}

TEST_F(KXGaugeChartTest, ValuesOfItsOwnReplaceTheHosts)
{
    chart.setCustomTargetValue(true);
    chart.setTargetValueCache(-10);
    chart.setCustomMinValue(true);
    chart.setMinValueCache(-20);
    chart.setCustomMaxValue(true);
    chart.setMaxValueCache(80);
    provider.askedCount = 0;
    chart.layout();
    EXPECT_EQ(chart.getValueRatio(), 0.5);
    EXPECT_EQ(chart.getTargetRatio(), 0.1);
    EXPECT_EQ(chart.getMinLabel()->getText(), "-20");
    EXPECT_EQ(provider.askedCount, 0) << "a property needs no data";

    provider.empty = true;
    load();
    EXPECT_FALSE(chart.preparedData());
    EXPECT_EQ(chart.getMainLabel()->getText(), "--");
    EXPECT_EQ(chart.getMaxLabel()->getText(), "80");
}

TEST_F(KXGaugeChartTest, PartitionsEndWhereTheStyleSays)
{
    struct Case {
        const char* name;
        std::int64_t wanted;
        std::optional<std::vector<double>> boundaries; // of the custom style
        std::vector<double> angles;
        std::vector<double> percentages;
    };
    const Case cases[] = {
        {"none is one", 0, evenly, {180}, {0, 100}},
        {"negative is one", -7, evenly, {180}, {0, 100}},
        {"twelve are eight",
         12,
         evenly,
         {22.5, 45, 67.5, 90, 112.5, 135, 157.5, 180},
         {0, 12.5, 25, 37.5, 50, 62.5, 75, 87.5, 100}},
        {"three", 3, evenly, {60, 120, 180}, {0, 100 / 3.0, 200 / 3.0, 100}},
        {"all at the start", 3, std::vector<double>(8, 0.0), {0, 0, 180}, {0, 0, 0, 100}},
        {"too few", 4, std::vector<double>{0, 25}, {45, 180, 180, 180}, {0, 25, 100, 100, 100}},
        {"beyond the end", 3, std::vector<double>{0, 250, 50}, {180, 90, 180}, {0, 100, 50, 100}},
        {"no number", 2, std::vector<double>{0, NAN}, {180, 180}, {0, 100, 100}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        chart.setPipePartition(c.wanted);
        chart.setPartitionStyle(c.boundaries ? KXGaugeChartPartitionStyle::Custom
                                             : KXGaugeChartPartitionStyle::EvenlyDistributed);
        chart.setCustomPartitionSegment(c.boundaries.value_or(std::vector<double>()));
        ASSERT_EQ(chart.obtainPipePartition(), static_cast<int>(c.angles.size()));
        for (int i = 0; i < chart.obtainPipePartition(); ++i)
            EXPECT_DOUBLE_EQ(chart.obtainPartitionAngle(i), c.angles[static_cast<std::size_t>(i)]) << i;
        for (int i = 0; i <= chart.obtainPipePartition(); ++i)
            EXPECT_DOUBLE_EQ(chart.obtainPartitionLabelPercentage(i),
                             c.percentages[static_cast<std::size_t>(i)])
                << i;
        paintLines();
    }
    chart.setPartitionStyle(static_cast<KXGaugeChartPartitionStyle>(7));
    EXPECT_EQ(chart.obtainPartitionAngle(0), 0);
}

TEST_F(KXGaugeChartTest, ColoursRunFromTheMinimumsOverTheMiddle)
{
    const UXColor low(24, 200, 140), middle(252, 209, 84), high(255, 110, 110);
    const std::pair<int, std::vector<UXColor>> cases[] = {
        {1, {low}},
        {2, {low, high}},
        {3, {low, middle, high}},
        {4, {low, {138, 204, 112}, middle, high}},
        {5, {low, {138, 204, 112}, middle, {253, 159, 97}, high}},
    };
    for (const auto& [count, expected] : cases) {
        chart.setPipePartition(count);
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(chart._obtainPipePartitionColor(i), expected[static_cast<std::size_t>(i)])
                << i << " of " << count;
    }
    chart.setPartitionStyle(KXGaugeChartPartitionStyle::Custom);
    chart.setCustomPartitionColor({0, 50}, {UXColor(1, 2, 3, 0.5)});
    EXPECT_TRUE(chart.getInitPartition());
    EXPECT_EQ(chart._obtainPipePartitionColor(0), UXColor(1, 2, 3, 0.5));
    EXPECT_EQ(chart._obtainPipePartitionColor(1), low) << "a part without a colour";
}

TEST_F(KXGaugeChartTest, WritesNumbersAsTheDisplaySays)
{
    using Display = KXGaugeChartLabelDisplay;
    struct Case {
        Display display;
        double value, ratio;
        const char* expected;
    };
    const Case cases[] = {
        {Display::None, 5, 0.5, ""},
        {Display::Actual, 1234.5, 0.5, "1,234.50"},
        {Display::Actual, noValue, 0.5, "--"},
        {Display::Actual, NAN, 0.5, "--"},
        {Display::Comparison, 5, 1.0 / 3, "33.33%"},
        {Display::Comparison, 5, noValue, "--%"},
        {Display::Both, 5, 0.5, "5 (50.00%)"},
        {Display::Both, infinite, noValue, "-- (--%)"},
        {static_cast<Display>(9), 5, 0.5, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(chart.obtainLabelDisplayString(c.value, c.ratio, c.display), c.expected);

    chart.setPipePartition(4);
    chart.setPartitionLabelDisplay(Display::Both);
    EXPECT_EQ(chart.obtainPartitionLabelString(1), "25 (25.00%)");
    provider.measures = {5, 5, 5, 5};
    load();
    EXPECT_EQ(chart.obtainPartitionLabelString(1), "-- (25.00%)");
    provider.measures = {5, 5, null, 5};
    load();
    EXPECT_EQ(chart.obtainPartitionLabelString(1), "-- (25.00%)") << "no minimum to count from";
}

TEST_F(KXGaugeChartTest, TheRadiusKeepsRoomForTheTexts)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    struct Case {
        const char* name;
        bool pointer;
        UXRect rect;
        int h1, h2, expected;
    };
    // 1000 x 400: W 950, H 380; the width alone would allow (950 - 57) / 2 = 447 (446.5 rounded up).
    const Case cases[] = {
        {"width", false, {0, 0, 1000, 4000}, 0, 0, 447},
        {"height", false, {0, 0, 1000, 400}, 0, 0, 380},
        {"height with ends", false, {0, 0, 1000, 400}, 20, 0, 380 - 13 - 20},
        {"pointer", true, {0, 0, 1000, 400}, 0, 0, 380 - 15},
        {"pointer and main text", true, {0, 0, 1000, 400}, 20, 50, 380 - 50 - 15 - 11},
        {"ends higher than the main text", true, {0, 0, 1000, 400}, 60, 10, 380 - 60 - 13},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        chart.setShowPointer(c.pointer);
        EXPECT_EQ(chart._customLayout_setRect_pipeRadius(KXGaugeChartLabelDisplay::None, helper.get(), c.rect,
                                                         c.h1, c.h2, {}),
                  c.expected);
    }
    // "100" is the wider text of 0 and 100: 27 at size 18; the pad is 57 + 54, the limit 419.5 rounded up.
    EXPECT_EQ(chart._customLayout_setRect_pipeRadius(KXGaugeChartLabelDisplay::Actual, helper.get(),
                                                     {0, 0, 1000, 4000}, 0, 0, {}),
              420);
}

TEST_F(KXGaugeChartTest, PaintsTheDialUnderTheMainText)
{
    chart.setPipePartition(3);
    chart.setMaxMinDisplay(KXGaugeChartLabelDisplay::None);
    chart.setTargetDisplay(KXGaugeChartLabelDisplay::None);
    const std::vector<std::string> lines = paintLines();
    const UXRect pipe = chart.getPipeRect();
    const int r = pipe.height, cx = pipe.x + r, cy = pipe.getBottom();
    const auto text = [](auto... parts) {
        std::string joined;
        ((joined += (joined.empty() ? "" : ",") + std::to_string(parts)), ...);
        return joined;
    };
    const auto at = [&](const std::string& line) {
        return std::find(lines.begin(), lines.end(), line) - lines.begin();
    };
    const auto count = static_cast<std::ptrdiff_t>(lines.size());
    const auto first = at("addCircleArcPath " + text(cx, cy, r, 180, 240));
    const auto second = at("addCircleArcPath " + text(cx, cy, r, 240, 300));
    const auto last = at("addCircleArcPath " + text(cx, cy, r, 300, 360));
    const auto tick = at("rotate 324");   // 0.8 of the dial
    const auto needle = at("rotate 234"); // 0.3
    EXPECT_LT(first, second);
    EXPECT_LT(second, last);
    EXPECT_LT(last, tick);
    EXPECT_LT(tick, needle);
    EXPECT_LT(needle, count);
    const auto isText = [](const std::string& line) { return line.rfind("drawText", 0) == 0; };
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isText), 1) << "the main text is drawn once";
    EXPECT_GT(std::find_if(lines.begin(), lines.end(), isText) - lines.begin(), needle);
}

TEST_F(KXGaugeChartTest, WithoutAPointerOnlyThePartUpToTheValueIsColoured)
{
    struct Case {
        const char* name;
        std::optional<double> value;
        std::ptrdiff_t coloured;
    };
    const Case cases[] = {
        {"in the second part", 30.0, 2},
        {"above", 900.0, 4},
        {"at the minimum", 0.0, 0},
        {"below", -4.0, 0},
        {"none", null, 0},
    };
    chart.setPipePartition(4);
    chart.setShowPointer(false);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.measures[0] = c.value;
        load();
        const std::vector<std::string> lines = paintLines();
        EXPECT_EQ(std::count(lines.begin(), lines.end(), "closePath"), 4 + c.coloured);
    }
}

TEST_F(KXGaugeChartTest, PartsCoverTheDialInWholeDegrees)
{
    // 8 even parts are 22.5 degrees wide: rounded up, then what remains of the exact end, to 180.
    chart.setPipePartition(8);
    std::vector<std::string> ends;
    for (const std::string& line : paintLines())
        if (line.rfind("addCircleArcPath", 0) == 0)
            ends.push_back(line.substr(line.rfind(',') + 1));
    EXPECT_EQ(ends, (std::vector<std::string>{"203", "225", "248", "270", "293", "315", "338", "360", "360"}))
        << "the last one is the hub";
    chart.setPipeWithPercentage(1);
    const std::vector<std::string> full = paintLines();
    EXPECT_EQ(std::count_if(full.begin(), full.end(),
                            [](const std::string& line) { return line.rfind("joinCircleArcPath", 0) == 0; }),
              8)
        << "sectors have one arc";
}

TEST_F(KXGaugeChartTest, NoTwoTextsMeetAndNoneMeetsTheDial)
{
    using Display = KXGaugeChartLabelDisplay;
    const UXSize sizes[] = {{1000, 600}, {600, 400}, {400, 400}, {320, 200},
                            {240, 160},  {160, 120}, {60, 40}};
    const std::vector<std::optional<double>> data[] = {{30, 80, 0, 100},
                                                       {1234567.5, -1, 0, 98765432},
                                                       {7, 1e9, 0, 5},
                                                       {null, null, 0, 100},
                                                       {5, 50, 0, 100}};
    for (const UXSize& size : sizes)
        for (const auto& measures : data)
            for (const Display display : {Display::Actual, Display::Both})
                for (const int partitions : {1, 4, 8})
                    for (const bool pointer : {true, false}) {
                        SCOPED_TRACE(std::to_string(size.width) + " wide, " + std::to_string(partitions) +
                                     " parts, pointer " + std::to_string(pointer) + ", display " +
                                     std::to_string(static_cast<int>(display)));
                        provider.measures = measures;
                        chart.setRect(uxMakeRect(0, 0, size.width, size.height));
                        chart.setMainDisplay(display);
                        chart.setMaxMinDisplay(display);
                        chart.setTargetDisplay(display);
                        chart.setPartitionLabelDisplay(display);
                        chart.setPipePartition(partitions);
                        chart.setShowPointer(pointer);
                        load();
                        const UXRect pipe = chart.getPipeRect();
                        EXPECT_GT(pipe.height, 0);
                        EXPECT_TRUE(uxContainsRect(chart.getContentRect(), pipe));
                        const std::vector<KXChartLabel*> labels = obtainShownLabels();
                        const std::vector<UXDoubleRect> drawn = obtainDrawnTexts(paintLines());
                        EXPECT_EQ(drawn.size(), labels.size());
                        EXPECT_FALSE(anyTwoMeet(drawn));
                        EXPECT_TRUE(size.width < 160 || chart.getMainLabel()->getVisible());
                        for (const KXChartLabel* label : labels) {
                            const UXRect a = label->getRect();
                            EXPECT_TRUE(uxContainsRect(chart.getContentRect(), a)) << label->getText();
                            // The nearest point of a text outside is at least the radius away from the
                            // centre.
                            const double cx = pipe.x + pipe.height, cy = pipe.getBottom();
                            const double dx = std::max({a.x - cx, cx - uxMaxX(a), 0.0});
                            const double dy = std::max({a.y - cy, cy - uxMaxY(a), 0.0});
                            const bool isOutside = label != chart.getMainLabel() || pointer;
                            const double distance = isOutside && a.y < cy ? std::hypot(dx, dy) : pipe.height;
                            EXPECT_GE(distance, pipe.height) << label->getText();
                        }
                    }
}

TEST_F(KXGaugeChartTest, TextsLeaveInTheStatedOrder)
{
    chart.setPartitionLabelDisplay(KXGaugeChartLabelDisplay::Actual);
    chart.setPipePartition(8);
    const auto countBoundaries = [&] {
        const std::vector<KXChartLabel*>& pool = chart.getPartitionLabelsPool();
        return std::count_if(pool.begin(), pool.end(),
                             [](KXChartLabel* label) { return label->getVisible(); });
    };
    chart.layout();
    EXPECT_EQ(countBoundaries(), 7) << "the ends are said by minimum and maximum";
    // From large to small: nothing lesser outlives something greater.
    for (int size = 600; size >= 10; size -= 7) {
        SCOPED_TRACE(size);
        chart.setRect(uxMakeRect(0, 0, size, size * 2 / 3));
        chart.layout();
        const bool target = chart.getTargetLabel()->getVisible(), ends = chart.getMinLabel()->getVisible();
        EXPECT_TRUE(countBoundaries() == 0 || (target && ends));
        EXPECT_TRUE(!(target || ends) || chart.getMainLabel()->getVisible());
        EXPECT_EQ(ends, chart.getMaxLabel()->getVisible());
    }
    EXPECT_FALSE(chart.getMainLabel()->getVisible());
}

TEST_F(KXGaugeChartTest, ClicksAndHintsNameTheMeasure)
{
    int clicks = 0;
    provider.leftClickAction = [&] { ++clicks; };
    const std::pair<KXChartLabel*, std::uint64_t> labels[] = {{chart.getMainLabel(), 0},
                                                              {chart.getTargetLabel(), 1},
                                                              {chart.getMinLabel(), 2},
                                                              {chart.getMaxLabel(), 3}};
    for (const auto& [label, measure] : labels) {
        SCOPED_TRACE(measure);
        UXEvent click(UXEventType::LeftClick);
        EXPECT_TRUE(label->triggerEventHandler(click));
        click.runPostedActions();
        EXPECT_EQ(provider.clicked.back().valueIndexPath, (KXIndexPath{measure, 0}));

        UXEvent move(UXEventType::MouseMove);
        move.setMousePoint({label->getRect().x + 1, label->getRect().y + 1});
        bool stop = false;
        chart.customMouseMove(move, stop);
        EXPECT_TRUE(chart.getHintVisible());
        EXPECT_EQ(chart.UXHintDelegate::getHintInfo().title, "measure " + std::to_string(measure));
    }
    EXPECT_EQ(clicks, 4);
    UXEvent beside(UXEventType::MouseMove);
    beside.setMousePoint({1, 1});
    bool stop = false;
    chart.customMouseMove(beside, stop);
    EXPECT_FALSE(chart.getHintVisible());
}

TEST_F(KXGaugeChartTest, AProviderMayDestroyTheChartThatAsksForAHint)
{
    auto* doomed = new OpenGauge;
    doomed->setRect(uxMakeRect(0, 0, 300, 200));
    doomed->setDataProvider(&provider);
    doomed->prepareData();
    doomed->reloadData();
    doomed->layout();
    provider.onHint = [&] { delete doomed; };
    UXEvent move(UXEventType::MouseMove);
    move.setMousePoint({doomed->getMainLabel()->getRect().x + 1, doomed->getMainLabel()->getRect().y + 1});
    bool stop = false;
    doomed->customMouseMove(move, stop);
}

TEST_F(KXGaugeChartTest, SavesAndReadsBackTheSameBytes)
{
    chart.setPipePartition(5);
    chart.setPartitionLabelDisplay(KXGaugeChartLabelDisplay::Both);
    chart.setPartitionStyle(KXGaugeChartPartitionStyle::Custom);
    chart.setCustomPartitionColor({0, 12.5, 1.0 / 3}, {UXColor(1, 2, 3, 0.25)});
    chart.setTargetCaption("Ziel \"\xE2\x82\xAC\" ");
    chart.getDataFormat()->setSuffix(" K");
    chart.layout();
    const std::string saved = chart.serialize();

    KXGaugeChart read;
    EXPECT_TRUE(read.deserialize(saved));
    EXPECT_EQ(read.serialize(), saved);
    EXPECT_EQ(read.getPartitionLabelsPool().size(), 6u);
    EXPECT_EQ(read.getCustomPartitionSegment(), chart.getCustomPartitionSegment());

    std::size_t place = 0;
    for (const char* key : {"m_titleFontSize",
                            "m_mainLabel",
                            "m_maxLabel",
                            "m_minLabel",
                            "m_targetLabel",
                            "m_partitionLabelsPool",
                            "m_showPointer",
                            "m_mainDisplay",
                            "m_fontColor",
                            "m_fontName",
                            "m_fontSize",
                            "m_targetDisplay",
                            "m_targetFontColor",
                            "m_targetFontSize",
                            "m_targetFontName",
                            "m_targetCaption",
                            "m_maxMinDisplay",
                            "m_maxMinFontColor",
                            "m_maxMinFontName",
                            "m_maxMinFontSize",
                            "m_customTargetValue",
                            "m_targetValueCache",
                            "m_customMaxValue",
                            "m_maxValueCache",
                            "m_customMinValue",
                            "m_minValueCache",
                            "m_dataFormat",
                            "m_pipePartition",
                            "m_pipeBackgroundColor",
                            "m_pipeTargetColor",
                            "m_pointerColor",
                            "m_partitionStyle",
                            "m_pipeValueMaxColor",
                            "m_pipeValueMiddleColor",
                            "m_pipeValueMinColor",
                            "m_initPartition",
                            "m_customParititonSegment",
                            "m_customPartitionColor",
                            "m_partitionLabelDisplay",
                            "m_partitionLabelFontColor",
                            "m_partitionLabelFontName",
                            "m_partitionLabelFontSize",
                            "m_pipeWithPercentage",
                            "m_hintInfo"}) {
        const std::size_t found = saved.find("\"" + std::string(key) + "\"", place);
        ASSERT_NE(found, std::string::npos) << key << " is missing or out of order";
        place = found;
    }
    EXPECT_FALSE(read.deserialize("{}"));
    EXPECT_EQ(read.serialize(), saved) << "what a document lacks stays";
    EXPECT_FALSE(read.deserialize(R"({"m_fontSize": "big", "m_customParititonSegment": [1, "x"]})"));
    EXPECT_EQ(read.getFontSize(), 50);
}

TEST_F(KXGaugeChartTest, TheHostReachesEveryPropertyByItsKey)
{
    UXPropertyAccessor& accessor = chart;
    EXPECT_TRUE(accessor.updateVectorValue("m_customParititonSegment", 1, 20.0));
    EXPECT_EQ(chart.getCustomPartitionSegment(), (std::vector<double>{0, 20, 0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(accessor.updateVectorValue("m_customPartitionColor", 0, UXColor(9, 8, 7)));
    EXPECT_TRUE(accessor.updateEnum("m_partitionStyle", KXGaugeChartPartitionStyle::Custom));
    EXPECT_EQ(chart._obtainPipePartitionColor(0), UXColor(9, 8, 7));
    EXPECT_TRUE(accessor.updateEnumString("m_mainDisplay", "Both"));
    EXPECT_TRUE(accessor.updateValue("m_pipePartition", std::int64_t{3}));
    EXPECT_TRUE(accessor.updateValue("m_titleValue", std::string("T")));
    EXPECT_FALSE(accessor.updateValue("m_pipeWithPercentage", std::string("thick")));
    UXJsonObject* label = nullptr;
    EXPECT_TRUE(accessor.obtainObject("m_mainLabel", &label));
    EXPECT_EQ(label, chart.getMainLabel());
    std::uint64_t pooled = 0;
    EXPECT_TRUE(accessor.obtainVectorCount<KXChartLabel*>("m_partitionLabelsPool", pooled));

    measurer.askedCount = 0;
    chart.layout();
    EXPECT_GT(measurer.askedCount, 0);
    measurer.askedCount = 0;
    EXPECT_TRUE(accessor.updateValue("m_pointerColor", UXColor(1, 2, 3)));
    EXPECT_TRUE(accessor.updateValue("m_fontColor", UXColor(4, 5, 6)));
    chart.layout();
    EXPECT_EQ(chart.getMainLabel()->getTextProperty().textColor, UXColor(4, 5, 6));
    EXPECT_EQ(measurer.askedCount, 0) << "a colour needs no measuring";
}

TEST_F(KXGaugeChartTest, HostileSettingsNeitherCrashNorLeaveTheChart)
{
    const int extremes[] = {(std::numeric_limits<int>::min)(), -1, 0, 1, 8,
                            (std::numeric_limits<int>::max)()};
    const double shares[] = {NAN, -1e300, -0.5, 0, 1, 2, infinite};
    for (const int size : extremes)
        for (const double share : shares) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(share));
            chart.setFontSize(size);
            chart.setMaxMinFontSize(size);
            chart.setTargetFontSize(size);
            chart.setPipeWithPercentage(share);
            chart.setRect(uxMakeRect(0, 0, 300, 200));
            paintLines();
            for (const KXChartLabel* label : obtainShownLabels())
                EXPECT_TRUE(uxContainsRect(chart.getContentRect(), label->getRect())) << label->getText();
            chart.setRect(uxMakeRect(-5, -5, size, size));
            paintLines();
        }
}

TEST(KXGaugeChart, TheCaptionIsInTheHostsLanguage)
{
    uxSetLocalizer([](const std::string& text) { return text == "Target" ? "Ziel" : text; });
    EXPECT_EQ(KXGaugeChart().getTargetCaption(), "Ziel: ");
    uxSetLocalizer({});
    EXPECT_EQ(KXGaugeChart().getTargetCaption(), "Target: ");
}

} // namespace
