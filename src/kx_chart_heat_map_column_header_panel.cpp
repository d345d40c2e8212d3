#include "kx_chart_heat_map_column_header_panel.h"

KXChartHeatMapColumnHeaderPanel::KXChartHeatMapColumnHeaderPanel() = default;
KXChartHeatMapColumnHeaderPanel::~KXChartHeatMapColumnHeaderPanel() = default;

std::string KXChartHeatMapColumnHeaderPanel::customSerializeTypeID()
{
    return "KXChartHeatMapColumnHeaderPanel";
}
