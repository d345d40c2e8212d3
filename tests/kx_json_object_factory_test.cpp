#include "kx_json_object_factory.h"

#include "kx_chart.h"
#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

TEST(KXJsonObjectFactory, MakesTheClassThatTheNameSays)
{
    KXJsonObjectFactory factory;
    const std::vector<std::string> names = KXJsonObjectFactory::obtainTypeNames();
    EXPECT_GE(names.size(), 26u);
    for (const char* name : {"KXAxis", "KXBarChartDataView", "KXGaugeChart", "KXLegendCell", "UXLabel"})
        EXPECT_TRUE(std::ranges::count(names, name)) << name;
    for (const std::string& name : names) {
        const std::unique_ptr<UXJsonObject> made(factory.create(name));
        ASSERT_TRUE(made) << name;
        EXPECT_EQ(made->customSerializeTypeID(), name);
        const bool isChart = std::ranges::count(KXJsonObjectFactory::obtainChartTypeNames(), name) == 1;
        EXPECT_EQ(dynamic_cast<KXChart*>(made.get()) != nullptr, isChart) << name;
    }
    for (const char* name : {"", "kxchartproperty", "KXCHARTPROPERTY", "KXChartProperty ",
                             "KXChartPropertyBase", "KXPieChartProperty", "kxareachart"})
        EXPECT_EQ(factory.create(name), nullptr) << name;
}
