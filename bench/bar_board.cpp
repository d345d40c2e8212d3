#include "bar_board.h"

#include "kx_axis_chart_property.h"
#include "kx_chart_property.h"
#include "kx_waterfall_chart.h"

#include <algorithm>
#include <utility>

std::uint64_t BarTable::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension == categoryDimension ? numbers.size() / seriesCount : 0;
}

std::string BarTable::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return "c" + std::to_string(path[1]);
}

std::string BarTable::obtainValueLabel(KXChartDataUser*, std::uint64_t value)
{
    return "Series " + std::to_string(value + 1);
}

double BarTable::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return numbers[path[0] * (numbers.size() / seriesCount) + path[1]];
}

void BarTable::obtainSeriesValues(KXChartDataUser*, std::uint64_t series, std::uint64_t firstCategory,
                                  std::span<double> values)
{
    const std::size_t begin = series * (numbers.size() / seriesCount) + firstCategory;
    std::copy_n(numbers.begin() + static_cast<std::ptrdiff_t>(begin), values.size(), values.begin());
}

template <class Chart>
BarBoardOf<Chart>::BarBoardOf(const std::vector<double>& values, std::size_t seriesCount)
{
    constexpr double factor = 1.3;
    for (const double value : values)
        m_otherNumbers.push_back(factor * value);
    std::ranges::reverse(m_otherNumbers);
    this->m_provider.numbers = values;
    this->m_provider.seriesCount = seriesCount;
    this->m_chart.getChartProperty()->updateTitleValue("Bars");
    this->m_chart.getAxisChartProperty()->updateEnableScroll(false);
    this->reload();
}

template <class Chart>
void BarBoardOf<Chart>::update()
{
    std::swap(this->m_provider.numbers, m_otherNumbers);
    this->reload();
}

template <class Chart>
bool BarBoardOf<Chart>::hit(const UXPoint& point)
{
    return !uxIsEmptyRect(this->m_chart.obtainHintArea(point));
}

template class BarBoardOf<KXBarChart>;
template class BarBoardOf<KXWaterfallChart>;
