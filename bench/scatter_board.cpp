#include "scatter_board.h"

#include "kx_chart_property.h"
#include "kx_scatter_chart_property.h"

#include <utility>

ScatterBoard::ScatterBoard(const std::vector<double>& places)
{
    constexpr double factor = 1.3, pointSize = 5;
    m_otherNumbers.reserve(places.size());
    for (const double place : places)
        m_otherNumbers.push_back(factor * place);
    m_provider.numbers = places;
    m_provider.seriesCount = 2;
    m_chart.getChartProperty()->updateTitleValue("Scatter");
    m_chart.getScatterChartProperty()->updatePointSize(pointSize);
    m_chart.getScatterChartProperty()->updateOpacity(1);
    reload();
}

void ScatterBoard::update()
{
    std::swap(m_provider.numbers, m_otherNumbers);
    reload();
}

bool ScatterBoard::hit(const UXPoint& point) { return !uxIsEmptyRect(m_chart.obtainHintArea(point)); }
