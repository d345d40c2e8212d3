#include "kx_enum_map.h"

#include "kx_assistant_line_options.h"
#include "kx_axis_chart_options.h"
#include "kx_axis_tick_label_options.h"
#include "kx_bar_chart_options.h"
#include "kx_chart_data_format_options.h"
#include "kx_chart_data_type.h"
#include "kx_control_chart_options.h"
#include "kx_density_chart_options.h"
#include "kx_gauge_chart_options.h"
#include "kx_kpi_chart_options.h"
#include "kx_line_chart_options.h"
#include "kx_pie_chart_options.h"
#include "kx_scatter_chart_options.h"
#include "kx_table_chart_options.h"
#include "kx_tornado_chart_options.h"
#include "kx_tree_map_chart_options.h"
#include "kx_trend_chart_options.h"
#include "kx_waterfall_chart_options.h"
#include "ux/ux_align.h"
#include "ux/ux_arrangement.h"
#include "ux/ux_direction.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_lock.h"
#include "ux/ux_named_enum_map.h"
#include "ux/ux_position.h"
#include "ux/ux_rect_edge.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"

#include <memory>
#include <type_traits>
#include <vector>

namespace {

template <class E, class... Others>
constexpr bool isOneOf = (std::is_same_v<E, Others> || ...);

/** Whether the framework itself has the map of E, because it writes E too. */
template <class E>
constexpr bool isOfFramework = isOneOf<E, UXAlign, UXArrangement, UXDirection, UXHintPosition, UXPosition,
                                       UXRectEdge, UXSymbolStyle, UXTextAlign, UXTextOption>;

/** @return the owners of the other maps, emptied when the library is unloaded */
std::vector<std::shared_ptr<UXEnum::UXEnumBase>>& obtainOwnedMaps()
{
    static std::vector<std::shared_ptr<UXEnum::UXEnumBase>> owned;
    return owned;
}

/** @param map the map of one enumeration, null until it is first asked for */
UXEnum::UXEnumBase* obtainMap(UXEnum::UXEnumBase*& map, UXEnum::UXEnumBase* (*make)())
{
    const UXLockScope locked;
    if (!map) {
        obtainOwnedMaps().emplace_back(make());
        map = obtainOwnedMaps().back().get();
    }
    return map;
}

} // namespace

template <class E>
UXEnum::UXEnumMap<E>* kxObtainEnumMap()
{
    if constexpr (isOfFramework<E>) {
        return &uxObtainNamedEnumMap<E>();
    } else {
        static UXEnum::UXEnumBase* map = nullptr;
        return static_cast<UXEnum::UXEnumMap<E>*>(obtainMap(
            map, []() -> UXEnum::UXEnumBase* { return new UXEnum::UXEnumMap<E>(uxObtainEnumNames(E())); }));
    }
}

template KX_EXPORT UXEnum::UXEnumMap<UXSymbolStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXDirection>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXHintPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAssistantLineLabelContent>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAssistantLineLabelPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisChartLabelDisplayOption>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisChartValueOption>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisChartOrientation>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisChartType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisTickLabelRotationType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXAxisTickLabelIntervalMode>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXBarLabelPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXBarLabelOverflow>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataDensity>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataFormatThousandsSeparator>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataFormatDecimalSeparator>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataFormatNegative>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataFormatDateTimeMode>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartDataType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartLineStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartLineCapStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartLineJoinStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXChartSliderType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXControlChartStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXGaugeChartLabelDisplay>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXGaugeChartPartitionStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXKpiChartMainDisplay>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXKpiDifferenceDisplay>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXLineLabelPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXLineCurve>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXLineNullHandling>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXLinePointDisplay>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXPointShape>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXScatterLabelContent>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXPieChartSliceStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXPieSliceOrder>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXPieLabelPosition>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableColumnHeaderInfoType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableDatabarStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTablePanelType>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableColorRuleKind>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableRowLayout>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableShowValuesAs>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTableTotals>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTornadoChartStackStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTreeMapChartTileStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXDensityStyle>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXDensitySmoothing>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXDensityHeightScale>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTrendChartDiffDisplay>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXTrendComparison>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<KXWaterfallChartGroupValueSortOrder>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXAlign>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXArrangement>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXRectEdge>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXTextAlign>* kxObtainEnumMap();
template KX_EXPORT UXEnum::UXEnumMap<UXTextOption>* kxObtainEnumMap();
