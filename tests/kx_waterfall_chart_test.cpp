#include "kx_waterfall_chart.h"

#include "kx_axis_chart_axis_cache_data.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_bar_layout.h"
#include "kx_chart_property.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_hint_info.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double null = KXAxisChartTestProvider::null;

/** Names its third member a total where that is wanted. */
class Provider : public KXAxisChartTestProvider {
public:
    bool hasTotal = false;

    bool obtainStepIsTotal(KXChartDataUser*, std::uint64_t category) override
    {
        return hasTotal && category == 2;
    }
};

class KXWaterfallChartTest : public testing::Test {
protected:
    const UXFixedMeasurer measurer;
    Provider provider;

    void load(KXWaterfallChart& chart, UXRect rect = {0, 0, 600, 300})
    {
        for (KXAxisProperty* axis : {chart.getXAxisProperty(), chart.getYAxisProperty()})
            axis->setShowTitle(false);
        kxLoad(chart, provider, rect);
    }
    void divide(std::vector<double> values, std::uint64_t memberCount)
    {
        provider.memberCount = memberCount;
        provider.categoryCount = values.size() / memberCount;
        provider.values = {std::move(values)};
    }
};

KXChartItem obtainItem(const KXWaterfallChart& chart, std::uint64_t place)
{
    return {
        0,
        static_cast<std::uint64_t>(KXWaterfallChartDataView::obtainSeries(chart.getSteps().steps.at(place))),
        place};
}

std::string describe(const KXIndexPath& path)
{
    std::string text;
    for (const std::uint64_t index : path)
        text += std::to_string(index) + ".";
    return text;
}

} // namespace

TEST_F(KXWaterfallChartTest, BarsFloatAndLinesLeadFromOneToTheNext)
{
    provider.values = {{30, null, -10, 0, 5}};
    provider.categoryCount = 5;
    for (const auto orientation : {KXAxisChartOrientation::Vertical, KXAxisChartOrientation::Horizontal}) {
        KXWaterfallChart chart;
        chart.getAxisChartProperty()->setOrientation(orientation);
        chart.getBarChartProperty()->setShowLabels(true);
        load(chart);
        const KXWaterfallChartDataView& view = chart.getDataView();
        ASSERT_EQ(view.getBars().size(), 5u) << "the null has none";
        const KXBarPlane& plane = view.getPlane();
        for (const KXBar& bar : view.getBars()) {
            const KXWaterfallStep& step = chart.getSteps().steps[bar.mark.category];
            const KXAxisChartInterval along = plane.obtainAlong(bar.rect);
            const double from = plane.values.obtainPosition(step.from),
                         to = plane.values.obtainPosition(step.to);
            EXPECT_NEAR(along.start, std::min(from, to), 1e-9);
            EXPECT_NEAR(along.end, std::max(from, to), 1e-9);
        }
        // From 30 over the null, from 20 over the step of nothing, and to the total.
        ASSERT_EQ(view.getConnectors().size(), 3u);
        for (std::size_t i = 0; i < 3; ++i) {
            const double level = plane.values.obtainPosition(std::vector<double>{30, 20, 25}[i]);
            EXPECT_LE(std::abs(plane.obtainAlong(view.getConnectors()[i]).start - level), 1);
        }
        std::string texts;
        for (const KXBarLabel& label : view.getLabels())
            texts += label.text + " ";
        for (const char* text : {"+30 ", "-10 ", "+5 ", "25 "})
            EXPECT_NE(texts.find(text), std::string::npos) << texts;
        EXPECT_NE(uxPaintToText(chart).find("drawRects"), std::string::npos);
    }
}

TEST_F(KXWaterfallChartTest, LinesGoOnFromATotalOfZero)
{
    provider.hasTotal = true;
    provider.values = {{30, 10, 0, 5}};
    provider.categoryCount = 4;
    KXWaterfallChart chart;
    load(chart);
    const KXWaterfallChartDataView& view = chart.getDataView();
    const std::vector<double> levels{30, 40, 0, 5};
    ASSERT_EQ(view.getConnectors().size(), levels.size());
    for (std::size_t i = 0; i < levels.size(); ++i)
        EXPECT_NEAR(view.getPlane().obtainAlong(view.getConnectors()[i]).start,
                    view.getPlane().values.obtainPosition(levels[i]), 1);
}

TEST_F(KXWaterfallChartTest, AxisHoldsTheChangesAloneWhereTotalsMayBeTorn)
{
    provider.values = {{1000, 20, -30}};
    KXWaterfallChart chart;
    chart.setFirstIsStart(true);
    load(chart);
    const KXAxisChartAxisCacheData& axis = *chart.obtainAxisCacheData(chart.getYAxisProperty());
    EXPECT_EQ(axis.axisMin, 0);
    const double whole = chart.getDataView().getBars().front().rect.height;
    chart.setStartAtZero(false);
    kxLoad(chart, provider, {0, 0, 600, 300});
    EXPECT_GT(axis.axisMin, 900);
    EXPECT_LE(axis.axisMin, 990);
    const KXWaterfallChartDataView& view = chart.getDataView();
    const KXAxisChartInterval foot = view.getPlane().obtainAlong(view.getBars().front().rect);
    EXPECT_LT(foot.end, view.getPlane().obtainAlong().end) << "the teeth reach down from there";
    EXPECT_LT(foot.obtainLength(), whole);
    chart.getYAxisProperty()->updateIsStacked(true);
    chart.getYAxisProperty()->updateIs100PercentStacked(true);
    chart.layout();
    EXPECT_GT(axis.axisMin, 900) << "stacks mean nothing to it";
}

TEST_F(KXWaterfallChartTest, PathsNameWhatTheHostHas)
{
    struct Case {
        const char* name;
        bool isDivided;
        std::uint64_t place;
        std::string identifier, members, value;
        std::vector<std::uint64_t> found; // by its own path
    };
    const Case cases[] = {
        {"a step", false, 1, "Mark", "0.1.", "0.1.", {1}},
        {"the end", false, 3, "Total", "", "", {3}},
        {"a total", true, 0, "Mark", "0.0.", "", {0}},
        {"a change", true, 1, "Mark", "1.1.", "0.1.1.", {1}},
        {"what is gathered", true, 2, "Others", "1.0.2.", "", {2}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider = Provider();
        if (c.isDivided)
            divide({1, 2, 3, 2, 9, 4}, 3);
        KXWaterfallChart chart;
        chart.setMaxSteps(1);
        load(chart);
        const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(obtainItem(chart, c.place)));
        ASSERT_TRUE(path);
        EXPECT_EQ(path->identifier, c.identifier);
        EXPECT_EQ(describe(path->dimensionIndexPath), c.members);
        EXPECT_EQ(describe(path->valueIndexPath), c.value);
        std::vector<std::uint64_t> found;
        for (const KXChartItem& item : chart.findItems(*path))
            found.push_back(item.index);
        EXPECT_EQ(found, c.found);
    }
}

TEST_F(KXWaterfallChartTest, HintsTellTheChangeAndWhereItLeads)
{
    provider.values = {{200, 30, -10}};
    KXWaterfallChart chart;
    chart.setFirstIsStart(true);
    load(chart);
    const auto tell = [&](std::uint64_t place) {
        const UXHintInfo info = chart.obtainItemHint(obtainItem(chart, place));
        std::string text = info.title + ": ";
        for (const UXHintRowInfo& row : info.rows)
            text += row.value + " ";
        for (const UXHintRowInfo& row : info.footerRows)
            text += row.value + " ";
        return text;
    };
    EXPECT_EQ(tell(0), "c0: 200 ");
    EXPECT_EQ(tell(2), "c2: -10 -5.0 % 230 220 ");
    EXPECT_EQ(tell(3), "Total: 220 ");
    chart.setFirstIsStart(false);
    load(chart);
    EXPECT_EQ(tell(1), "c1: +30 -- 200 230 ");
}

TEST_F(KXWaterfallChartTest, KeysWalkAlongTheStepsAndEveryAnswerMayHideWhatIsSmall)
{
    divide({5, 1, 2, 9, 2, 1, 3, null, 2}, 3);
    KXWaterfallChart chart;
    load(chart);
    std::vector<std::uint64_t> walked;
    std::optional<KXChartItem> item = chart.obtainItemBeside(std::nullopt, KXChartItemStep::First);
    for (; item && walked.size() < 20; item = chart.obtainItemBeside(item, KXChartItemStep::Right))
        walked.push_back(item->index);
    EXPECT_EQ(walked.size(), chart.getCategoryCount());
    EXPECT_TRUE(std::ranges::is_sorted(walked));
    EXPECT_EQ(chart.getSteps().steps.back().value, 5);

    // The first two members alone; each one that changes counts anew.
    chart.getChartProperty()->updateTopXItemsToShow(2);
    chart.getChartProperty()->updateShowOnlyTopX(true);
    EXPECT_EQ(chart.getSteps().steps.back().value, 12);
    provider.hasTotal = true;
    provider.memberCount = 0;
    provider.values = {{1, 2, 9}};
    chart.getChartProperty()->updateShowOnlyTopX(false);
    load(chart);
    EXPECT_EQ(chart.getCategoryCount(), 3u) << "the last one is a total already";
}
