#include "heat_board.h"

#include "kx_chart_property.h"

#include <algorithm>
#include <utility>

std::uint64_t HeatTable::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension < 2 ? side : 0;
}

std::string HeatTable::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return std::to_string(path.at(1));
}

double HeatTable::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return numbers.at(path.at(1) * side + path.at(2));
}

void HeatTable::obtainValues(KXChartDataUser*, const KXIndexPath& first, std::span<double> values)
{
    const auto start = numbers.begin() + static_cast<std::ptrdiff_t>(first.at(1) * side + first.at(2));
    std::copy_n(start, values.size(), values.begin());
}

HeatBoard::HeatBoard(const std::vector<double>& values, std::uint64_t side)
{
    m_otherNumbers.assign(values.rbegin(), values.rend());
    m_provider.side = side;
    m_provider.numbers = values;
    m_chart.getChartProperty()->updateTitleValue("Heat map");
    m_chart.setFit(true);
    reload();
}

void HeatBoard::update()
{
    std::swap(m_provider.numbers, m_otherNumbers);
    reload();
}
