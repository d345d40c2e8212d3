#include "kx_tornado_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_axis_cache_data.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_labels.h"
#include "kx_bar_layout.h"
#include "kx_chart_property.h"
#include "kx_chart_stacked_bar_segment.h"
#include "kx_key_walk.h"
#include "kx_load_chart.h"
#include "kx_tornado_chart_property.h"
#include "kx_tornado_chart_stacked_bar.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_label.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double null = KXAxisChartTestProvider::null;

class KXTornadoChartTest : public testing::Test {
protected:
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;

    void load(KXTornadoChart& chart, std::vector<std::vector<double>> values, std::uint64_t memberCount = 0)
    {
        for (KXAxisProperty* axis : {chart.getXAxisProperty(), chart.getYAxisProperty()})
            axis->setShowTitle(false);
        provider.memberCount = memberCount;
        provider.categoryCount = values.front().size() / std::max<std::uint64_t>(memberCount, 1);
        provider.values = std::move(values);
        kxLoad(chart, provider, {0, 0, 600, 300});
    }
    void setForm(KXTornadoChart& chart, KXTornadoForm form)
    {
        chart.getTornadoChartProperty()->updateIsMirrored(form != KXTornadoForm::FromCenter);
        chart.getTornadoChartProperty()->updateStackStyle(form == KXTornadoForm::Difference
                                                              ? KXTornadoChartStackStyle::Difference
                                                              : KXTornadoChartStackStyle::StackedBar);
    }
};

/** @return by rows: their category, and each bar as series:from>to */
std::string describe(const KXTornadoChart& chart)
{
    std::ostringstream text;
    const KXTornadoChartDataView& view = chart.getDataView();
    for (const KXBarSlot& slot : view.getSlots()) {
        text << view.getRows().categories.at(slot.category);
        for (std::size_t i = slot.firstBar; i < slot.endBar; ++i) {
            const KXBar& bar = view.getBars()[i];
            text << " " << bar.mark.series << ":" << bar.from << ">" << bar.to;
        }
        text << "; ";
    }
    return text.str();
}

/** @return the labels of the categories in the plot's space, and what they say */
std::vector<std::pair<UXRect, std::string>> obtainCategoryLabels(const KXTornadoChart& chart)
{
    std::vector<std::pair<UXRect, std::string>> labels;
    for (UXObject* part : chart.getPlot()->getChildren()) {
        const auto* view = dynamic_cast<KXAxisTickLabelView*>(part);
        if (!view || view->getAxis() != chart.getXAxis())
            continue;
        for (const UXLabel* label : view->obtainLabels()) {
            UXRect rect = label->getRect();
            rect.x += view->getRect().x;
            if (label->getVisible())
                labels.emplace_back(rect, label->getText());
        }
    }
    return labels;
}

} // namespace

TEST(KXTornadoChartProperty, EveryKey)
{
    KX_WALK_KEYS(KXTornadoChartProperty, KX_TORNADO_CHART_PROPERTY_KEYS);
}

TEST_F(KXTornadoChartTest, RowsAreSortedAndTheirSidesRunFromOnePlace)
{
    struct Case {
        const char* name;
        KXTornadoForm form;
        std::vector<std::vector<double>> values;
        std::uint64_t memberCount;
        double center;
        std::string expected;
        double axisMin, axisMax;
    };
    using enum KXTornadoForm;
    const Case cases[] = {
        {"two measures",
         Mirrored,
         {{3, 5, null}, {4, 9, 2}},
         0,
         0,
         "1 0:0>-5 1:0>9; 0 0:0>-3 1:0>4; 2 1:0>2; ",
         -10,
         10},
        {"two measures of two members",
         Mirrored,
         {{1, 2}, {3, 4}},
         2,
         0,
         "0 0:0>-1 1:-1>-3 2:0>3 3:3>7; ",
         -8,
         8},
        {"three members",
         Mirrored,
         {{1, 2, 3, 4, 5, 6}},
         3,
         0,
         "1 0:0>-4 1:0>5 2:5>11; 0 0:0>-1 1:0>2 2:2>5; ",
         -15,
         15},
        {"a negative is as long as it is great", Mirrored, {{-8}, {3}}, 0, 0, "0 0:0>-8 1:0>3; ", -10, 10},
        {"equal rows keep their order",
         Mirrored,
         {{1, 2, 1}, {1, 0, 1}},
         0,
         0,
         "0 0:0>-1 1:0>1; 1 0:0>-2 1:0>0; 2 0:0>-1 1:0>1; ",
         -2.5,
         2.5},
        {"from a center",
         FromCenter,
         {{90, 95}, {120, 96}},
         0,
         100,
         "0 1:100>120 0:100>90; 1 0:100>95 1:100>96; ",
         80,
         130},
        {"the difference",
         Difference,
         {{3, 5, null}, {4, 9, -7}},
         0,
         0,
         "2 0:0>-7; 1 1:0>4; 0 1:0>1; ",
         -10,
         5},
        {"nothing", Mirrored, {{0}, {0}}, 0, 0, "0 0:0>0 1:0>0; ", -1, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTornadoChart chart;
        setForm(chart, c.form);
        chart.getTornadoChartProperty()->updateCenter(c.center);
        load(chart, c.values, c.memberCount);
        EXPECT_EQ(describe(chart), c.expected);
        const KXAxisChartAxisCacheData& axis = *chart.obtainAxisCacheData(chart.getYAxisProperty());
        EXPECT_EQ(axis.axisMin, c.axisMin);
        EXPECT_EQ(axis.axisMax, c.axisMax);
    }
}

TEST_F(KXTornadoChartTest, BothSidesShareOneScaleWithZeroInTheMiddle)
{
    KXTornadoChart chart;
    chart.getBarChartProperty()->setShowLabels(true);
    load(chart, {{3, 17, -5}, {4, 9, 2}});
    const KXTornadoChartDataView& view = chart.getDataView();
    const KXBarPlane& plane = view.getPlane();
    const double zero = plane.values.obtainPosition(0);
    for (const KXBar& bar : view.getBars()) {
        const bool isLeft = bar.mark.series == 0;
        EXPECT_NEAR(bar.rect.width / std::abs(bar.value), plane.values.spacing, 1e-6);
        EXPECT_NEAR(isLeft ? bar.rect.x + bar.rect.width : bar.rect.x, zero, 1e-9);
        EXPECT_EQ(view.isHatched(bar.mark), chart.getValue(bar.mark.series, bar.mark.category) < 0);
    }
    std::string texts;
    for (const KXBarLabel& label : view.getLabels())
        texts += label.text + " ";
    EXPECT_NE(texts.find("-5 "), std::string::npos) << "signed: " << texts;
    EXPECT_EQ(texts.find("-17 "), std::string::npos) << texts;

    // Ticks count outwards, also where the user's interval does not divide the side.
    chart.getYAxisProperty()->updateAutoAxisTicks(false);
    chart.getYAxisProperty()->updateCustomAxisTickInterval(8);
    chart.layout();
    const std::string text = uxPaintToText(chart);
    for (const char* tick : {"\"0\"", "\"8\"", "\"16\""})
        EXPECT_NE(text.find(tick), std::string::npos) << tick << text;
    EXPECT_EQ(text.find("\"-8\""), std::string::npos);

    // However many of them have a label, the middle has.
    for (const double interval : {1.0, 3.0, 8.0, 0.01})
        for (int width = 160; width <= 400; width += 40) {
            chart.getYAxisProperty()->updateCustomAxisTickInterval(interval);
            chart.setRect({0, 0, width, 160});
            chart.layout();
            EXPECT_NE(uxPaintToText(chart).find("\"0\""), std::string::npos) << interval << " " << width;
        }
}

TEST_F(KXTornadoChartTest, CategoriesMayBeNamedBetweenTheSides)
{
    KXTornadoChart chart;
    chart.getTornadoChartProperty()->updateLabelsInCenter(true);
    load(chart, {{3, 17, -5, null}, {4, 9, 2, 0}});
    KXAxis& axis = *chart.getYAxis();
    const double gap = axis.getGap(), middle = axis.obtainDoubleValuePositionInAxis(0).x;
    const KXTornadoChartDataView& view = chart.getDataView();
    for (const KXBar& bar : view.getBars()) {
        const bool isLeft = bar.mark.series == 0;
        const double start = isLeft ? bar.rect.x + bar.rect.width : bar.rect.x;
        EXPECT_NEAR(start, middle + (isLeft ? -gap : gap) / 2, 1e-6) << bar.value;
        EXPECT_NEAR(bar.rect.width, std::abs(bar.value) * view.getPlane().values.spacing, 1e-6);
        EXPECT_NEAR(view.getPlane().values.obtainValue(isLeft ? bar.rect.x : bar.rect.x + bar.rect.width),
                    bar.to, 1e-6);
    }
    int count = 0;
    for (const auto& [rect, text] : obtainCategoryLabels(chart)) {
        EXPECT_NEAR(rect.x + rect.width / 2.0, middle, 1) << text;
        EXPECT_LT(rect.width, gap);
        ++count;
    }
    EXPECT_EQ(count, 4);

    setForm(chart, KXTornadoForm::Difference);
    chart.layout();
    EXPECT_EQ(axis.getGap(), 0);
}

TEST_F(KXTornadoChartTest, HintsAndTotalsAreThoseOfTheSides)
{
    KXTornadoChart chart;
    chart.getBarChartProperty()->setShowTotals(true);
    load(chart, {{1, 2, 3, 4, 5, -6}}, 3);
    const auto tell = [&](const KXChartItem& item) {
        const UXHintInfo info = chart.obtainItemHint(item);
        std::string text = info.title;
        for (const auto* rows : {&info.rows, &info.footerRows})
            for (const UXHintRowInfo& row : *rows)
                text += ", " + row.label + " " + row.value;
        return text;
    };
    EXPECT_EQ(tell({0, 0, 0}), "c1, c0 4, c1 5, c2 -6, Right -1, Difference -5");
    std::string totals;
    for (const KXBarLabel& label : chart.getDataView().getLabels())
        totals += label.text + " ";
    EXPECT_EQ(totals, "-1 5 ");
    setForm(chart, KXTornadoForm::Difference);
    load(chart, {{3}, {9}});
    EXPECT_EQ(tell({0, 1, 0}), "c0, Difference +6, s0 3, s1 9");
}

TEST_F(KXTornadoChartTest, PathsNameTheCategoriesOfTheHostInWhateverOrder)
{
    KXTornadoChart chart;
    load(chart, {{3, 5, 8}, {4, 9, 2}});
    const std::unique_ptr<KXChartDataPath> path(chart.createItemPath({0, 1, 0}));
    EXPECT_EQ(path->valueIndexPath, (KXIndexPath{1, 1}));
    EXPECT_EQ(path->dimensionIndexPath, (KXIndexPath{0, 1}));
    EXPECT_EQ(chart.findItems(*path), (std::vector<KXChartItem>{{0, 1, 0}}));
    EXPECT_EQ(chart.obtainCategoryLabel(0), "c1");
    chart.getChartProperty()->updateTopXItemsToShow(2);
    chart.getChartProperty()->updateShowOnlyTopX(true);
    KXChartDataPath last;
    last.dimensionIndexPath = {0, 0}; // the shortest row
    EXPECT_TRUE(chart.findItems(last).empty());
}

TEST(KXTornadoChartStackedBar, GrowsOutwardsAndIsReadBack)
{
    KXTornadoChartStackedBar bar, read;
    bar.setRect({0, 0, 100, 10});
    bar.setIsOnLeft(true);
    bar.setTotal(10);
    bar.addSegment(3, UXColor());
    bar.addSegment(-2, UXColor());
    bar.layout();
    EXPECT_EQ(bar.getSegments()[0]->getRect(), UXRect(70, 0, 30, 10));
    EXPECT_EQ(bar.getSegments()[1]->getRect(), UXRect(50, 0, 20, 10));
    EXPECT_TRUE(read.deserialize(bar.serialize()));
    EXPECT_EQ(read.serialize(), bar.serialize());
}
