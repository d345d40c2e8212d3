#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_diagram.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <numeric>
#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

/** What a change costs: questions to the host, layouts of the chart and of its marks, and the part of the
 * chart that is painted anew, in percent. */
struct Work {
    int questions = 0, layouts = 0, markLayouts = 0, percent = 0;

    /** @return whether no more is done than was thought, and as much is asked and laid out */
    friend bool operator==(const Work& done, const Work& expected)
    {
        return done.questions == expected.questions && done.layouts == expected.layouts &&
               done.markLayouts == expected.markLayouts && done.percent <= expected.percent;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Work& work)
    {
        return stream << work.questions << " questions, " << work.layouts << " layouts, " << work.markLayouts
                      << " of marks, " << work.percent << " %";
    }
};

class CountingChart : public KXBarChart {
public:
    Work work;

protected:
    void _customLayout(UXRect plotArea) override
    {
        ++work.layouts;
        KXBarChart::_customLayout(plotArea);
    }
    void _layoutMarks() override
    {
        ++work.markLayouts;
        KXBarChart::_layoutMarks();
    }
};

/** A scrolling chart of two series with labels, as a view shows it. */
class Board {
public:
    Board()
    {
        m_provider.categoryCount = 200;
        m_provider.values = {std::vector<double>(200, 1), std::vector<double>(200, 2)};
        m_diagram.setRect({0, 0, 600, 300});
        m_diagram.addChild(&m_chart);
        m_chart.getBarChartProperty()->updateShowLabels(true);
        kxLoad(m_chart, m_provider, m_diagram.getRect());
        paint();
    }
    CountingChart& getChart() { return m_chart; }
    KXAxisChartTestProvider& getProvider() { return m_provider; }
    UXDiagram& getDiagram() { return m_diagram; }

    void paint(double scale = 1)
    {
        m_diagram.layout();
        UXRecordingPaintConfig config(scale);
        m_diagram.paint(&config, m_diagram.getBoundingRect());
        m_diagram.clearDirtyRect();
    }
    Work count(const std::function<void(Board&)>& change)
    {
        m_provider.asked.clear();
        m_chart.work = {};
        change(*this);
        m_diagram.layout();
        Work done = m_chart.work;
        for (const auto& [name, times] : m_provider.asked)
            done.questions += times;
        int pixels = 0;
        for (const UXRect& rect : m_diagram.getDirtyRegion().getRects())
            pixels += rect.width * rect.height;
        const UXRect whole = m_diagram.getBoundingRect();
        done.percent = 100 * pixels / (whole.width * whole.height);
        paint();
        return done;
    }

private:
    const UXFixedMeasurer m_measurer;
    KXAxisChartTestProvider m_provider;
    UXDiagram m_diagram;
    CountingChart m_chart;
};

UXPoint obtainMiddle(const KXBarChart& chart, std::size_t bar)
{
    const UXDoubleRect rect = chart.getDataView().getBars()[bar].rect;
    const UXPoint middle(static_cast<int>(rect.x + rect.width / 2), static_cast<int>(rect.y + 3));
    return chart.translatePoint(middle, chart.getPlot(), nullptr);
}

} // namespace

TEST(KXAxisChartWork, AChangeReachesWhatItTouches)
{
    struct Case {
        const char* name;
        std::function<void(Board&)> change;
        Work expected;
    };
    const auto scrollTo = [](int slot) {
        return [slot](Board& board) {
            KXBarChart& chart = board.getChart();
            chart.getPlot()->setContentOffsetX(slot * static_cast<int>(chart.obtainCategorySpacing()));
        };
    };
    const Case cases[] = {
        {"a colour key",
         [](Board& board) {
             board.getChart().getAxisChartProperty()->updateSeriesColors({UXColor(9, 9, 9)});
         },
         {0, 0, 0, 95}},
        {"the colours of items",
         [](Board& board) { board.getChart().getBarChartProperty()->updateColorByItem(true); },
         {0, 0, 0, 95}},
        {"new host colours", [](Board& board) { board.getChart().reloadColors(); }, {130, 0, 0, 95}},
        {"a scroll by one slot", scrollTo(1), {8, 0, 1, 81}},
        {"the way back", scrollTo(0), {0, 0, 1, 81}},
        {"a hover",
         [](Board& board) { KXTestInput{board.getDiagram()}.move(obtainMiddle(board.getChart(), 2)); },
         {6, 0, 0, 81}},
        {"the same hover",
         [](Board& board) { KXTestInput{board.getDiagram()}.move(obtainMiddle(board.getChart(), 2)); },
         {}},
        {"a second device", [](Board& board) { board.paint(1.5); }, {}},
        {"its own document",
         [](Board& board) { board.getChart().deserialize(board.getChart().serialize()); },
         {260, 1, 1, 100}},
        {"new data",
         [](Board& board) {
             board.getChart().prepareData();
             board.getChart().reloadData();
         },
         {1117, 1, 1, 100}},
    };
    Board board;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(board.count(c.change), c.expected);
    }
}

/** Labels of many widths, of which few have room: which ones depends on texts that come while laying out. */
TEST(KXAxisChartWork, AFirstPictureIsTheLastOne)
{
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
    provider.categoryCount = 300;
    provider.values = {std::vector<double>(300, 1)};
    for (int width = 200; width < 700; width += 7) {
        SCOPED_TRACE(width);
        KXBarChart chart;
        chart.getAxisChartProperty()->updateEnableScroll(false);
        kxLoad(chart, provider, {0, 0, width, 90});
        const std::string first = uxPaintToText(chart);
        chart.setRequireToVerifyLayout(true);
        chart.layout();
        EXPECT_EQ(uxPaintToText(chart), first);
    }
}

/** Two charts of 1,000 bars above each other, of which the lower one shows what the pointer is over in the
 * upper one: as all others stay dimmed, nothing is painted anew but what the highlight leaves and comes to.
 */
TEST(KXAxisChartWork, AHighlightRepaintsTheBarsThatItMovesBetween)
{
    class Host : public KXAxisChartTestProvider {
    public:
        KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                             KXChartDataProvider*) override
        {
            auto* target = new KXChartDataPath;
            target->valueIndexPath = {0, path->valueIndexPath.at(1)};
            return target;
        }
    } upperHost, lowerHost;
    const UXFixedMeasurer measurer;
    KXChartLinkedActionDiagram links(nullptr);
    UXDiagram diagram;
    diagram.setRect({0, 0, 4000, 600});
    diagram.registerGlobalEventDiagram(&links);
    KXBarChart upper, lower;
    for (auto& [chart, host] : {std::pair(&upper, &upperHost), std::pair(&lower, &lowerHost)}) {
        host->wantsHighlight = true;
        host->categoryCount = 1000;
        host->values = {std::vector<double>(1000, 1)};
        diagram.addChild(chart);
        chart->getAxisChartProperty()->updateEnableScroll(false);
        chart->getBarChartProperty()->updateShowLabels(true);
    }
    upperHost.values.push_back(upperHost.values.front()); // beside each other, with one match for both
    kxLoad(upper, upperHost, {0, 0, 4000, 300});
    kxLoad(lower, lowerHost, {0, 300, 4000, 300});

    using Marks = std::vector<KXAxisChartMark>;
    const auto areaOf = [](const std::vector<UXRect>& rects) {
        std::int64_t area = 0;
        for (const UXRect& rect : rects)
            area += std::int64_t{rect.width} * rect.height;
        return area;
    };
    const auto expectRepainted = [&](const KXBarChart& chart, const Marks& marks) {
        std::vector<UXRect> dirty, expected;
        for (const UXRect& rect : diagram.getDirtyRegion().getRects())
            dirty.push_back(uxIntersectionRect(rect, chart.getRect()));
        for (const KXAxisChartMark& mark : marks)
            for (const UXRect& rect : chart.getDataView().obtainMarkRects(mark))
                expected.push_back(rect);
        EXPECT_LE(areaOf(dirty), areaOf(expected));
        EXPECT_EQ(areaOf(dirty) > 0, !marks.empty());
    };
    const KXTestInput input{diagram};
    const auto pointAt = [&](const KXAxisChartMark& mark) {
        const UXRect bar = upper.getDataView().obtainMarkPlace(mark);
        input.move(upper.translatePoint({uxMidX(bar), bar.getBottom() - 3}, upper.getPlot(), nullptr));
        EXPECT_EQ(upper.getHoveredMark(), mark);
    };
    const std::tuple<const char*, KXAxisChartMark, Marks, Marks> cases[] = {
        {"to the next bar", {0, 11}, {{0, 10}, {0, 11}}, {{0, 10}, {0, 11}}},
        {"further", {1, 500}, {{0, 11}, {1, 500}}, {{0, 11}, {0, 500}}},
        {"to another one with the same match", {0, 500}, {{1, 500}, {0, 500}}, {}}};
    pointAt({0, 10});
    for (const auto& [name, to, inUpper, inLower] : cases) {
        SCOPED_TRACE(name);
        diagram.clearDirtyRect();
        pointAt(to);
        EXPECT_EQ(lower.obtainMarksStandingOut(), (Marks{{0, to.category}}));
        expectRepainted(upper, inUpper);
        expectRepainted(lower, inLower);
    }
}

TEST(KXAxisChartWork, APartIsPaintedWithoutALookAtTheOthers)
{
    Board board;
    const KXBarChart& chart = board.getChart();
    const UXDoubleRect bar = chart.getDataView().getBars()[4].rect;
    const UXRect part = chart.translateRect(uxSurroundingRect(bar), chart.getPlot(), nullptr);
    UXRecordingPaintConfig config;
    board.getDiagram().paint(&config, uxInflateRect(part, -1, -1));
    std::string painted;
    for (const std::string& line : config.getRecording().getLines())
        painted += line.starts_with("drawRects ") ? line + "\n" : "";
    for (const KXBar& other : chart.getDataView().getBars()) {
        std::ostringstream drawn;
        drawn << " " << other.rect.x << ",";
        EXPECT_EQ(painted.find(drawn.str()) != std::string::npos, other.mark.category == 2) << drawn.str();
    }
}

TEST(KXAxisChartWork, ColoursShowAtOnceAndAnotherDeviceMovesNothing)
{
    Board board;
    KXBarChart& chart = board.getChart();
    const auto paint = [&] { return uxPaintToText(chart); };
    const auto shows = [&](const char* color) { return paint().find(color) != std::string::npos; };
    chart.getAxisChartProperty()->updateSeriesColors({UXColor(9, 8, 7)});
    EXPECT_TRUE(shows("9,8,7"));
    EXPECT_FALSE(shows("255,0,0") || shows("0,255,0"));
    board.getProvider().redPath = {0, 1};
    board.getProvider().greenSeries = 1;
    chart.reloadColors();
    EXPECT_TRUE(shows("255,0,0") && shows("0,255,0") && shows("9,8,7"));

    const std::string painted = paint();
    const UXDoubleRect bar = chart.getDataView().getBars()[3].rect;
    EXPECT_NE(uxPaintToText(chart, 1.25), painted);
    EXPECT_EQ(chart.getDataView().getBars()[3].rect, bar) << "what hits and hints read";
    EXPECT_EQ(paint(), painted);
}
