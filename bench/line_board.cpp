#include "line_board.h"

#include "kx_area_chart.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_chart_property.h"
#include "kx_line_bar_chart.h"
#include "kx_line_chart.h"
#include "kx_line_chart_property.h"

#include <type_traits>
#include <utility>

template <class Chart>
LineBoard<Chart>::LineBoard(const std::vector<double>& values, std::size_t seriesCount,
                            const std::string& title)
{
    constexpr double factor = 1.3;
    for (const double value : values)
        m_otherNumbers.push_back(factor * value);
    this->m_provider.numbers = values;
    this->m_provider.seriesCount = seriesCount;
    this->m_chart.getChartProperty()->updateTitleValue(title);
    this->m_chart.getChartProperty()->updateShowLegend(true);
    this->m_chart.getAxisChartProperty()->updateEnableScroll(false);
    if constexpr (std::is_same_v<Chart, KXAreaChart>)
        this->m_chart.getYAxisProperty()->updateIsStacked(true);
    if constexpr (!std::is_same_v<Chart, KXLineBarChart>)
        this->m_chart.getLineChartProperty()->updatePointDisplay(KXLinePointDisplay::Never);
    this->reload();
}

template <class Chart>
void LineBoard<Chart>::update()
{
    std::swap(this->m_provider.numbers, m_otherNumbers);
    this->reload();
}

template <class Chart>
bool LineBoard<Chart>::hit(const UXPoint& point)
{
    return !uxIsEmptyRect(this->m_chart.obtainHintArea(point));
}

template class LineBoard<KXLineChart>;
template class LineBoard<KXAreaChart>;
template class LineBoard<KXLineBarChart>;
