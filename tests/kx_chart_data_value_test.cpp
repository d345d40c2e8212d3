#include "kx_axis_chart_data_provider.h"
#include "kx_bar_chart.h"
#include "kx_chart_label.h"
#include "kx_gauge_chart.h"
#include "kx_load_chart.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_pie_chart.h"
#include "kx_table_data_provider.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_event.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/** One member with one value, which the host takes back in one way or another. */
class DoubtfulProvider : public KXAxisChartDataProvider,
                         public KXPanelChartDataProvider,
                         public KXTestProvider {
public:
    bool isValid = true, isEmptyValue = false, isGenerated = false;

    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == 0 ? 1 : 0;
    }
    bool validateValueData(KXChartDataUser*, const KXIndexPath&) override { return isValid; }
    bool obtainValueDataIsEmpty(KXChartDataUser*, const KXIndexPath&) override { return isEmptyValue; }
    bool obtainValueDataIsGenerated(KXChartDataUser*, const KXIndexPath&) override { return isGenerated; }
};

/** Two cells of a table of two by three, told as a list, and one that it does not have. */
class SparseProvider : public KXTableDataProvider {
public:
    bool isLate = true;

    std::uint64_t obtainItemCount(KXChartDataUser*) override { return 3; }
    void obtainItems(KXChartDataUser*, std::uint64_t first, std::span<KXPanelChartDataItem> items) override
    {
        const KXPanelChartDataItem all[] = {{1, 2, 7}, {9, 9, 9}, {0, 0, 5}};
        for (KXPanelChartDataItem& item : items)
            item = all[first++];
    }
    bool obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension, std::uint64_t first,
                           std::span<std::string> texts) override
    {
        EXPECT_FALSE(UXLayoutRounds::isLayingOut());
        return !isLate && KXTableDataProvider::obtainMemberTexts(user, dimension, first, texts);
    }
};

} // namespace

TEST(KXChartDataValue, WhatTheHostTakesBackIsANullForEveryKind)
{
    struct Case {
        const char* name;
        bool isNull, isValid, isEmpty, isMissing;
    };
    const Case cases[] = {
        {"a value", false, true, false, false},
        {"null", true, true, false, true},
        {"not valid", false, false, false, true},
        {"empty", false, true, true, true},
    };
    const UXFixedMeasurer measurer;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DoubtfulProvider provider;
        provider.number = 5;
        provider.isNull = c.isNull;
        provider.isValid = c.isValid;
        provider.isEmptyValue = c.isEmpty;
        const UXRect rect{0, 0, 300, 200};
        KXBarChart bars;
        KXPieChart panel;
        KXGaugeChart gauge;
        KXValueChart value;
        kxLoad(bars, provider, rect);
        kxLoad(panel, provider, rect);
        kxLoad(gauge, provider, rect);
        kxLoad(value, provider, rect);
        EXPECT_EQ(std::isnan(bars.getValue(0, 0)), c.isMissing);
        EXPECT_EQ(std::isnan(panel.getValue(0, 0)), c.isMissing);
        EXPECT_EQ(gauge.preparedData(), !c.isMissing);
        EXPECT_EQ(value.preparedData(), !c.isMissing);
    }
}

TEST(KXChartDataValue, WhatWasFilledInTakesNoClick)
{
    const UXFixedMeasurer measurer;
    for (const bool isGenerated : {false, true}) {
        DoubtfulProvider provider;
        provider.isGenerated = isGenerated;
        KXValueChart chart;
        kxLoad(chart, provider, {0, 0, 300, 200});
        chart.getValueLabel()->triggerEventHandler(UXEvent(UXEventType::LeftClick));
        EXPECT_EQ(provider.count("leftClickAction"), isGenerated ? 0 : 1);
    }
}

TEST(KXChartDataValue, APanelTakesAListOfCellsAndTextsThatComeLater)
{
    const UXFixedMeasurer measurer;
    SparseProvider provider;
    provider.addDimension("down", std::vector<std::string>{"a", "a", "a", "b"});
    provider.addDimension("across", std::vector<std::string>{"x", "y", "z", "x"});
    provider.addMeasure("value", std::vector<double>{1, 2, 3, 4});
    KXPieChart chart;
    kxLoad(chart, provider, {0, 0, 300, 200});
    const double values[] = {chart.getValue(0, 0), chart.getValue(0, 5)};
    EXPECT_EQ(values[0] + values[1], 12);
    EXPECT_TRUE(std::isnan(chart.getValue(0, 1))) << "not in the list";

    EXPECT_EQ(chart.obtainGroupName(1), KXDataRequests::placeholder);
    provider.isLate = false;
    chart.dataArrived(0, 2);
    chart.layout();
    EXPECT_EQ(chart.obtainGroupName(1), "b");
}
