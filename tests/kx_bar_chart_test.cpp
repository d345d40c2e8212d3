#include "kx_bar_chart.h"

#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_chart_property.h"
#include "kx_interaction_color_effect.h"
#include "kx_interaction_highlight_color_pattern_effect.h"
#include "kx_interaction_highlight_size_effect.h"
#include "kx_key_walk.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr double null = KXAxisChartTestProvider::null;

void load(KXBarChart& chart, KXChartDataProvider& provider, UXRect rect = {0, 0, 600, 300})
{
    for (KXAxisProperty* axis : {chart.getXAxisProperty(), chart.getYAxisProperty()})
        axis->setShowTitle(false);
    kxLoad(chart, provider, rect);
}

class KXBarChartTest : public testing::Test {
protected:
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
};

/** @return the labels' texts in order, a blank after each */
std::string obtainTexts(const KXBarChart& chart)
{
    std::multiset<std::string> texts;
    for (const KXBarLabel& label : chart.getDataView().getLabels())
        texts.insert(label.text + " ");
    return std::accumulate(texts.begin(), texts.end(), std::string());
}

} // namespace

TEST(KXBarChartProperty, EveryKey) { KX_WALK_KEYS(KXBarChartProperty, KX_BAR_CHART_PROPERTY_KEYS); }

TEST_F(KXBarChartTest, Labels)
{
    struct Case {
        const char* name;
        KXAxisChartStacking form;
        KXAxisChartLabelDisplayOption display;
        KXAxisChartValueOption option;
        bool totals, names; // the host names the first value of the second series
        std::string expected;
    };
    using enum KXAxisChartStacking;
    using Display = KXAxisChartLabelDisplayOption;
    using Option = KXAxisChartValueOption;
    const Case cases[] = {
        {"values", Plain, Display::ValueOnly, Option::All, true, true, "-10 20 30 60 red "},
        {"of a series", Plain, Display::PercentageOnly, Option::MaxOnly, false, false, "50.0 % 66.7 % "},
        {"of a stack", Stacked, Display::PercentageOnly, Option::MaxOnly, false, false, "100.0 % 85.7 % "},
        {"adding up", Plain, Display::PercentageOnly, Option::All, false, false,
         "16.7 % 33.3 % 33.3 % 50.0 % 66.7 % "},
        {"both", Plain, Display::ValueAndPercentage, Option::NegativeOnly, false, false, "-10 (16.7 %) "},
        {"titles", Plain, Display::Title, Option::MinOnly, false, false, "s0 s1 "},
        {"totals", Stacked, Display::ValueOnly, Option::MinOnly, true, false, "-10 30 30 50 50 "},
    };
    provider.values = {{20, 30, -10}, {30, null, 60}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.redPath = c.names ? KXIndexPath{1, 0} : KXIndexPath();
        KXBarChart chart;
        chart.updateBarForm(c.form);
        KXBarChartProperty& property = *chart.getBarChartProperty();
        property.updateShowLabels(true);
        property.updateShowTotals(c.totals);
        property.updateLabelDisplayOption(c.display);
        property.updateLabelValueOption(c.option);
        load(chart, provider);
        EXPECT_EQ(obtainTexts(chart), c.expected);
    }
}

TEST_F(KXBarChartTest, ColorsComeFromHostItemOrSeries)
{
    provider.values = {{20, 30, -10}};
    provider.redPath = {0, 1};
    KXBarChart chart;
    chart.getBarChartProperty()->updateColorByItem(true);
    chart.getBarChartProperty()->updateItemColors({UXColor(1, 1, 1), UXColor(2, 2, 2)});
    load(chart, provider);
    std::string text = uxPaintToText(chart);
    EXPECT_NE(text.find("1,1,1"), std::string::npos) << text;
    EXPECT_NE(text.find("255,0,0"), std::string::npos);
    EXPECT_EQ(text.find("2,2,2"), std::string::npos) << "the host's colour holds";
    EXPECT_NE(uxPaintToText(chart, 1.5).find("255,0,0"), std::string::npos) << "also for other pixels";
}

TEST_F(KXBarChartTest, ASingleSeriesHasTheDefaultColorUnlessSomebodyWantsAnother)
{
    const UXColor own(1, 2, 3), red(255, 0, 0), green(0, 255, 0);
    KXBarChart chart;
    load(chart, provider);
    chart.getChartProperty()->updateDefaultColor(own);
    EXPECT_FALSE(chart.getRequireToVerifyLayout());
    EXPECT_NE(uxPaintToText(chart).find("setColor 1,2,3,"), std::string::npos);
    chart.getAxisChartProperty()->updateSeriesColors({red});
    EXPECT_EQ(chart.obtainSeriesColor(0), red);
    provider.greenSeries = 0;
    chart.reloadColors();
    EXPECT_EQ(chart.obtainSeriesColor(0), green);
    provider.greenSeries.reset();
    provider.values = {{1, 2, 3}, {1, 2, 3}};
    chart.getAxisChartProperty()->updateSeriesColors({});
    kxLoad(chart);
    EXPECT_EQ(chart.obtainSeriesColor(0), chart.getDefaultColors()[0]);
}

TEST_F(KXBarChartTest, EffectsReachSizeLineAndLabelOfTheHoveredBar)
{
    const UXColor line(1, 2, 3);
    KXBarChart chart;
    chart.getBarChartProperty()->updateShowLabels(true);
    load(chart, provider);
    provider.makeEffects = [&] {
        auto size = std::make_unique<KXInteractionHighlightSizeEffect>();
        size->setSizeRatio(0.5);
        return std::vector<KXInteractionEffect*>{
            size.release(), new KXInteractionHighlightColorPatternEffect(
                                nullptr, std::make_unique<KXInteractionColorEffect>(line))};
    };
    const UXDoubleRect rect = chart.getDataView().getBars()[1].rect;
    const UXPoint inside(static_cast<int>(rect.x + 2), static_cast<int>(rect.y + 2));
    KXTestInput{chart}.move(chart.translatePoint(inside, chart.getPlot(), nullptr));
    const KXChartItemLook look = chart.obtainMarkLook({0, 1}, UXColor(9, 9, 9));
    EXPECT_EQ(look, (KXChartItemLook{UXColor(9, 9, 9), line, 0.5}));
    EXPECT_EQ(chart.obtainTextColor(KXAxisChartMark{0, 1}, UXColor()), line);
    const std::string painted = uxPaintToText(chart);
    EXPECT_EQ(uxFindMissing(painted, {"setColor 1,2,3,1", "stroke", "\"2\"", "color 1,2,3,1"}), "")
        << painted;
}

TEST_F(KXBarChartTest, HiddenSeriesTakeNoRoomAndFormsNoData)
{
    provider.values = {{20, 30, 10}, {5, 5, 5}};
    KXBarChart chart;
    load(chart, provider, {0, 0, 200, 200});
    const double width = chart.getDataView().getBars().front().rect.width;
    chart.setSeriesShown(1, false);
    chart.layout();
    EXPECT_GT(chart.getDataView().getBars().front().rect.width, width);
    EXPECT_EQ(chart.getDataView().getBars().size(), 3);
    const int asked = provider.asked["value"];
    chart.updateBarForm(KXAxisChartStacking::Percentage);
    chart.layout();
    EXPECT_EQ(chart.obtainBarForm(), KXAxisChartStacking::Percentage);
    EXPECT_EQ(chart.getDataView().getBars().front().to, 100);
    EXPECT_EQ(provider.asked["value"], asked);
}

TEST_F(KXBarChartTest, HintTellsPartsAndTotals)
{
    provider.values = {{20, 30, 10}, {60, null, 5}};
    KXBarChart chart;
    const auto hoverFirst = [&](KXAxisChartStacking form) {
        chart.updateBarForm(form);
        chart.layout();
        const UXDoubleRect rect = chart.getDataView().getBars()[1].rect;
        const UXPoint inside(static_cast<int>(rect.x + 2), static_cast<int>(rect.y + 2));
        KXTestInput{chart}.move(chart.translatePoint(inside, chart.getPlot(), nullptr));
        return chart.getHintInfo();
    };
    load(chart, provider);
    UXHintInfo info = hoverFirst(KXAxisChartStacking::Stacked);
    ASSERT_EQ(info.rows.size(), 2);
    EXPECT_EQ(info.rows[0].value, "60");
    ASSERT_EQ(info.footerRows.size(), 1);
    EXPECT_EQ(info.footerRows[0].value, "80");
    info = hoverFirst(KXAxisChartStacking::Percentage);
    ASSERT_EQ(info.rows.size(), 2);
    EXPECT_EQ(info.rows[1].value, "20 (25.0 %)");
    EXPECT_TRUE(info.footerRows.empty());
}

TEST_F(KXBarChartTest, LabelsBeyondTheLongestBarHaveRoomOrNone)
{
    provider.values = {{99, 100, 3}};
    for (const int height : {300, 60}) {
        KXBarChart chart;
        load(chart, provider, {0, 0, 300, height});
        const double without = chart.getDataView().getBars()[1].rect.height;
        chart.getBarChartProperty()->updateShowLabels(true);
        chart.layout();
        const KXBar& longest = chart.getDataView().getBars()[1];
        if (height == 300)
            EXPECT_EQ(chart.getDataView().getLabels().front().rect.y + 12 + 3, longest.rect.y)
                << "beyond its end";
        else
            EXPECT_EQ(longest.rect.height, without);
    }
}

TEST_F(KXBarChartTest, TotalsStandOnTheirSideOrElseOnTheOther)
{
    provider.categoryCount = 2;
    provider.values = {{50, 50}, {-20, -100}};
    KXBarChart chart;
    chart.updateBarForm(KXAxisChartStacking::Stacked);
    chart.getBarChartProperty()->updateShowTotals(true);
    chart.getYAxisProperty()->setAutoAxisRange(false);
    chart.getYAxisProperty()->setCustomMaxAxisValue(100);
    const auto isAboveZero = [&](double min) {
        chart.getYAxisProperty()->updateCustomMinAxisValue(min);
        load(chart, provider);
        std::vector<bool> above;
        const KXBarPlane& plane = chart.getDataView().getPlane();
        for (const KXBarLabel& label : chart.getDataView().getLabels())
            above.push_back(label.rect.y < plane.values.obtainPosition(0));
        return above;
    };
    EXPECT_EQ(isAboveZero(-200), (std::vector<bool>{true, false}));
    EXPECT_EQ(isAboveZero(-100), (std::vector<bool>{true, true})) << "no room below";
}

TEST_F(KXBarChartTest, HostMayDoAnythingWhileItIsAsked)
{
    for (const char* call : {"color", "label"}) {
        for (const bool destroys : {false, true}) {
            SCOPED_TRACE(testing::Message() << call << destroys);
            provider = KXAxisChartTestProvider();
            provider.values = {{20, 30, 10}, {60, null, 5}};
            auto chart = std::make_unique<KXBarChart>();
            chart->getBarChartProperty()->updateShowLabels(true);
            provider.onCall = [&](const std::string& asked) {
                if (asked != call)
                    return;
                const auto running = std::exchange(provider.onCall, {}); // this, which has to last
                if (destroys)
                    chart.reset();
                else
                    chart->prepareData(); // takes the values away from under the labels
            };
            load(*chart, provider);
            EXPECT_EQ(!chart, destroys);
            if (chart) {
                kxLoad(*chart);
                EXPECT_FALSE(chart->getDataView().getLabels().empty());
            }
        }
    }
}
