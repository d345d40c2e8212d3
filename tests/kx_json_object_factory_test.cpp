#include "kx_json_object_factory.h"

#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

TEST(KXJsonObjectFactory, MakesTheClassThatTheNameSays)
{
    KXJsonObjectFactory factory;
    std::istringstream names(
        "KXAxis KXAxisChartBaseLayer KXAxisChartLayer KXAxisTickLabelView KXBarChart "
        "KXBarChartProperty KXChartDataFormat KXChartLabel KXChartProperty "
        "KXChartStackedBarSegment KXChartToolbox KXChartToolboxItem KXGaugeChart "
        "KXHorizontalBar KXLegend KXMenu KXMenuItem KXRectangle KXStackedBar KXValueChart KXVerticalBar "
        "UXHint UXHintFrame UXLabel");
    for (std::string name; names >> name;) {
        const std::unique_ptr<UXJsonObject> made(factory.create(name));
        ASSERT_TRUE(made) << name;
        EXPECT_EQ(made->customSerializeTypeID(), name);
    }
    for (const char* name : {"", "kxchartproperty", "KXCHARTPROPERTY", "KXChartProperty ",
                             "KXChartPropertyBase", "KXPieChartProperty", "kxareachart"})
        EXPECT_EQ(factory.create(name), nullptr) << name;
}
