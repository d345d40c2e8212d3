#include "heat_board.h"

#include "kx_chart_property.h"
#include "kx_heat_map_panel.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double cellSize = 18;

} // namespace

std::uint64_t HeatTable::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension == 0 ? numbers.size() / columnCount : dimension == 1 ? columnCount : 0;
}

std::string HeatTable::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return std::to_string(path.at(1));
}

double HeatTable::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return numbers.at(path.at(1) * columnCount + path.at(2));
}

void HeatTable::obtainValues(KXChartDataUser*, const KXIndexPath& first, std::span<double> values)
{
    const auto start = numbers.begin() + static_cast<std::ptrdiff_t>(first.at(1) * columnCount + first.at(2));
    std::copy_n(start, values.size(), values.begin());
}

HeatBoard::HeatBoard(const std::vector<double>& values, std::uint64_t columnCount, bool fit)
{
    m_otherNumbers.assign(values.rbegin(), values.rend());
    m_provider.columnCount = columnCount;
    m_provider.numbers = values;
    m_chart.getChartProperty()->updateTitleValue("Heat map");
    m_chart.setFit(fit);
    m_chart.setMinCellSize(cellSize);
    reload();
}

void HeatBoard::update()
{
    std::swap(m_provider.numbers, m_otherNumbers);
    reload();
}

void HeatBoard::scroll(std::int64_t offset, UXPaintConfig& config)
{
    m_chart.getPanel()->setContentOffsetY(offset);
    m_diagram.layout();
    paint(config);
}
