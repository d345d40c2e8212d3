#include "kx_axis_chart_data_provider.h"
#include "kx_bar_chart.h"
#include "kx_gauge_chart.h"
#include "kx_load_chart.h"
#include "kx_member_panel_chart.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/** One member with one value, which the host takes back in one way or another. */
class DoubtfulProvider : public KXAxisChartDataProvider,
                         public KXPanelChartDataProvider,
                         public KXTestProvider {
public:
    bool isValid = true, isEmptyValue = false;

    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == 0 ? 1 : 0;
    }
    bool validateValueData(KXChartDataUser*, const KXIndexPath&) override { return isValid; }
    bool obtainValueDataIsEmpty(KXChartDataUser*, const KXIndexPath&) override { return isEmptyValue; }
};

class PanelChart : public KXMemberPanelChart {
public:
    std::string customSerializeTypeID() override { return "PanelChart"; }

protected:
    void _customLayout(UXRect) override {}
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
        PanelChart panel;
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
