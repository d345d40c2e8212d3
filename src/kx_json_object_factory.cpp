#include "kx_json_object_factory.h"

#include "kx_area_chart.h"
#include "kx_assistant_line_data_view.h"
#include "kx_assistant_line_property.h"
#include "kx_axis.h"
#include "kx_axis_chart_base_layer.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_chart_property.h"
#include "kx_chart_data_format.h"
#include "kx_chart_heat_map_column_header_panel.h"
#include "kx_chart_kpi_panel.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_chart_slider.h"
#include "kx_chart_stacked_bar_segment.h"
#include "kx_chart_toolbox.h"
#include "kx_chart_toolbox_item.h"
#include "kx_check_box.h"
#include "kx_circle.h"
#include "kx_control_chart.h"
#include "kx_control_chart_combo_box.h"
#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_row.h"
#include "kx_density_chart.h"
#include "kx_gauge_chart.h"
#include "kx_heat_map_chart.h"
#include "kx_heat_map_content_panel.h"
#include "kx_heat_map_label.h"
#include "kx_heat_map_legend.h"
#include "kx_heat_map_panel.h"
#include "kx_horizontal_bar.h"
#include "kx_kpi_chart.h"
#include "kx_legend.h"
#include "kx_legend_cell.h"
#include "kx_line_bar_chart.h"
#include "kx_line_chart.h"
#include "kx_line_chart_data_view.h"
#include "kx_line_chart_property.h"
#include "kx_line_point.h"
#include "kx_line_segment.h"
#include "kx_lines.h"
#include "kx_menu.h"
#include "kx_menu_item.h"
#include "kx_pie.h"
#include "kx_pie_chart.h"
#include "kx_pie_segment_info.h"
#include "kx_rectangle.h"
#include "kx_scatter_chart.h"
#include "kx_scatter_chart_data_view.h"
#include "kx_scatter_chart_property.h"
#include "kx_scatter_plot_area.h"
#include "kx_scatter_plot_data.h"
#include "kx_scatter_point.h"
#include "kx_scrollable_value_list.h"
#include "kx_stacked_bar.h"
#include "kx_table_chart.h"
#include "kx_table_databar_info.h"
#include "kx_table_panel.h"
#include "kx_tile.h"
#include "kx_tornado_chart.h"
#include "kx_tornado_chart_data_view.h"
#include "kx_tornado_chart_property.h"
#include "kx_tornado_chart_stacked_bar.h"
#include "kx_tree_map_chart.h"
#include "kx_trend_chart.h"
#include "kx_value_chart.h"
#include "kx_value_list.h"
#include "kx_value_list_base_item.h"
#include "kx_value_list_chart.h"
#include "kx_vertical_bar.h"
#include "kx_waterfall_chart.h"
#include "kx_waterfall_chart_data_view.h"
#include "ux/ux_hint.h"
#include "ux/ux_hint_frame.h"
#include "ux/ux_label.h"
#include "ux/ux_string.h"

#include <type_traits>

namespace {

struct Type {
    const char* name;
    UXJsonObject* (*create)(); // null for a name without a class
    bool isChart;
};

template <class Class>
UXJsonObject* create()
{
    return new Class;
}

// A class joins with its include and KX_TYPE in its row. KX_TYPE_WITHOUT_CLASS is a name that documents may
// hold and that has no class in this library: it is answered with null.
#define KX_TYPE(Class)                                               \
    {                                                                \
#        Class, create < Class>, std::is_base_of_v < KXChart, Class> \
    }
#define KX_TYPE_WITHOUT_CLASS(Class) \
    {                                \
#        Class, nullptr, false       \
    }
constexpr Type types[] = {
    KX_TYPE(KXAreaChart),
    KX_TYPE(KXAssistantLineDataView),
    KX_TYPE(KXAssistantLineProperty),
    KX_TYPE(KXAxis),
    KX_TYPE(KXAxisChartBaseLayer),
    KX_TYPE(KXAxisChartLayer),
    KX_TYPE(KXAxisTickLabelView),
    KX_TYPE(KXBarChart),
    KX_TYPE(KXBarChartDataView),
    KX_TYPE(KXBarChartProperty),
    KX_TYPE(KXChartDataFormat),
    KX_TYPE(KXChartLabel),
    KX_TYPE(KXChartProperty),
    KX_TYPE(KXChartSlider),
    KX_TYPE(KXChartToolbox),
    KX_TYPE(KXCheckBox),
    KX_TYPE(KXCircle),
    KX_TYPE(KXControlChart),
    KX_TYPE(KXControlChartComboBox),
    KX_TYPE(KXControlChartComboBoxScrollView),
    KX_TYPE(KXControlChartRow),
    KX_TYPE(KXDensityChart),
    KX_TYPE(KXGaugeChart),
    KX_TYPE(KXHeatMapChart),
    KX_TYPE(KXHeatMapLabel),
    KX_TYPE(KXHeatMapLegend),
    KX_TYPE(KXChartHeatMapColumnHeaderPanel),
    KX_TYPE(KXHeatMapContentPanel),
    KX_TYPE(KXHeatMapPanel),
    KX_TYPE(UXHint),
    KX_TYPE(UXHintFrame),
    KX_TYPE(KXHorizontalBar),
    KX_TYPE(KXKpiChart),
    KX_TYPE(KXChartKpiPanel),
    KX_TYPE(UXLabel),
    KX_TYPE(KXLegend),
    KX_TYPE(KXLegendCell),
    KX_TYPE(KXLines),
    KX_TYPE(KXLineBarChart),
    KX_TYPE(KXLineChart),
    KX_TYPE(KXLinePoint),
    KX_TYPE(KXLineSegment),
    KX_TYPE(KXLineChartDataView),
    KX_TYPE(KXLineChartProperty),
    KX_TYPE(KXMenu),
    KX_TYPE(KXMenuItem),
    KX_TYPE(KXPieChart),
    KX_TYPE(KXPieSegmentInfo),
    KX_TYPE(KXPie),
    KX_TYPE(KXRectangle),
    KX_TYPE(KXScatterChart),
    KX_TYPE(KXScatterChartDataView),
    KX_TYPE(KXScatterPlotArea),
    KX_TYPE(KXScatterPlotData),
    KX_TYPE(KXScatterPoint),
    KX_TYPE(KXScatterChartProperty),
    KX_TYPE(KXScrollableValueList),
    KX_TYPE(KXStackedBar),
    KX_TYPE(KXChartStackedBarSegment),
    KX_TYPE(KXTableChart),
    KX_TYPE(KXTableDatabarInfo),
    KX_TYPE(KXTablePanel),
    KX_TYPE(KXTile),
    KX_TYPE(KXChartToolboxItem),
    KX_TYPE(KXTornadoChart),
    KX_TYPE(KXTornadoChartDataView),
    KX_TYPE(KXTornadoChartProperty),
    KX_TYPE(KXTornadoChartStackedBar),
    KX_TYPE(KXTreeMapChart),
    KX_TYPE(KXTrendChart),
    KX_TYPE(KXValueChart),
    KX_TYPE(KXValueList),
    KX_TYPE(KXValueListBaseItem),
    KX_TYPE(KXValueListChart),
    KX_TYPE(KXVerticalBar),
    KX_TYPE(KXWaterfallChart),
    KX_TYPE(KXWaterfallChartDataView),
};
#undef KX_TYPE
#undef KX_TYPE_WITHOUT_CLASS

} // namespace

KXJsonObjectFactory::KXJsonObjectFactory() = default;
KXJsonObjectFactory::~KXJsonObjectFactory() = default;

std::vector<std::string> KXJsonObjectFactory::obtainTypeNames()
{
    std::vector<std::string> names;
    for (const Type& type : types)
        if (type.create)
            names.emplace_back(type.name);
    return names;
}

std::vector<std::string> KXJsonObjectFactory::obtainChartTypeNames()
{
    std::vector<std::string> names;
    for (const Type& type : types)
        if (type.isChart)
            names.emplace_back(type.name);
    return names;
}

UXJsonObject* KXJsonObjectFactory::customCreate(const std::string& typeName)
{
    if (UXJsonObject* made = UXJsonObjectFactory::customCreate(typeName))
        return made;
    for (const Type& type : types) {
        if (type.create && uxEqualStringsCS(typeName, type.name))
            return type.create();
    }
    return nullptr;
}
