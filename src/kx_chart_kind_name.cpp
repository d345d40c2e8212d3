#include "kx_chart_kind_name.h"

#include "ux/ux_localize.h"

#include <algorithm>
#include <iterator>

std::string kxObtainChartKindName(std::string_view typeID)
{
    struct Kind {
        std::string_view typeID;
        const char* name;
    };
    static constexpr Kind kinds[] = {
        {"KXAreaChart", "Area chart"},       {"KXBarChart", "Bar chart"},
        {"KXControlChart", "Filter"},        {"KXDensityChart", "Density chart"},
        {"KXGaugeChart", "Gauge"},           {"KXHeatMapChart", "Heat map"},
        {"KXKpiChart", "Key figures"},       {"KXLineBarChart", "Line and bar chart"},
        {"KXLineChart", "Line chart"},       {"KXPieChart", "Pie chart"},
        {"KXScatterChart", "Scatter chart"}, {"KXTableChart", "Table"},
        {"KXTornadoChart", "Tornado chart"}, {"KXTreeMapChart", "Tree map"},
        {"KXTrendChart", "Trend chart"},     {"KXValueChart", "Value"},
        {"KXValueListChart", "Value list"},  {"KXWaterfallChart", "Waterfall chart"},
    };
    const auto* found = std::ranges::find(kinds, typeID, &Kind::typeID);
    return uxLocalizeString(found == std::end(kinds) ? "Chart" : found->name);
}
