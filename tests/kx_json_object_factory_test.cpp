#include "kx_json_object_factory.h"

#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

const char* const documentNames[] = {"KXAreaChart",
                                     "KXAssistantLineDataView",
                                     "KXAssistantLineProperty",
                                     "KXAxis",
                                     "KXAxisChartBaseLayer",
                                     "KXAxisChartLayer",
                                     "KXAxisTickLabelView",
                                     "KXBarChart",
                                     "KXBarChartDataView",
                                     "KXBarChartProperty",
                                     "KXChartDataFormat",
                                     "KXChartLabel",
                                     "KXChartProperty",
                                     "KXChartSlider",
                                     "KXChartToolbox",
                                     "KXCheckBox",
                                     "KXCircle",
                                     "KXControlChart",
                                     "KXControlChartComboBox",
                                     "KXControlChartComboBoxScrollView",
                                     "KXControlChartRow",
                                     "KXDensityChart",
                                     "KXGaugeChart",
                                     "KXHeatMapChart",
                                     "KXHeatMapLabel",
                                     "KXHeatMapLegend",
                                     "KXChartHeatMapColumnHeaderPanel",
                                     "KXHeatMapContentPanel",
                                     "KXHeatMapPanel",
                                     "UXHint",
                                     "UXHintFrame",
                                     "KXHorizontalBar",
                                     "KXKpiChart",
                                     "KXChartKpiPanel",
                                     "UXLabel",
                                     "KXLegend",
                                     "KXLegendCell",
                                     "KXLines",
                                     "KXLineBarChart",
                                     "KXLineChart",
                                     "KXLinePoint",
                                     "KXLineSegment",
                                     "KXLineChartDataView",
                                     "KXLineChartProperty",
                                     "KXMenu",
                                     "KXMenuItem",
                                     "KXPieChart",
                                     "KXPieSegmentInfo",
                                     "KXPie",
                                     "KXRectangle",
                                     "KXScatterChart",
                                     "KXScatterChartDataView",
                                     "KXScatterPlotArea",
                                     "KXScatterPlotData",
                                     "KXScatterPoint",
                                     "KXScatterChartProperty",
                                     "KXScrollableValueList",
                                     "KXStackedBar",
                                     "KXChartStackedBarSegment",
                                     "KXTableChart",
                                     "KXTableDatabarInfo",
                                     "KXTablePanel",
                                     "KXTile",
                                     "KXChartToolboxItem",
                                     "KXTornadoChart",
                                     "KXTornadoChartDataView",
                                     "KXTornadoChartProperty",
                                     "KXTornadoChartStackedBar",
                                     "KXTreeMapChart",
                                     "KXTrendChart",
                                     "KXValueChart",
                                     "KXValueList",
                                     "KXValueListBaseItem",
                                     "KXValueListChart",
                                     "KXVerticalBar",
                                     "KXWaterfallChart",
                                     "KXWaterfallChartDataView"};

} // namespace

TEST(KXJsonObjectFactory, MakesTheClassThatTheNameSays)
{
    KXJsonObjectFactory factory;
    for (const char* name : documentNames) {
        const std::unique_ptr<UXJsonObject> made(factory.create(name));
        EXPECT_TRUE(!made || made->customSerializeTypeID() == name) << name;
    }
    for (const char* name : {"KXChartProperty"})
        EXPECT_TRUE(std::unique_ptr<UXJsonObject>(factory.create(name))) << name;
}

TEST(KXJsonObjectFactory, AnswersNullToAllOtherNames)
{
    KXJsonObjectFactory factory;
    for (const char* name : {"", "kxchartproperty", "KXCHARTPROPERTY", "KXChartProperty ",
                             "KXChartPropertyBase", "KXPieChartProperty", "kxareachart"})
        EXPECT_EQ(factory.create(name), nullptr) << name;
}
