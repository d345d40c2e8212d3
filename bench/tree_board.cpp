#include "tree_board.h"

#include "kx_chart_property.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace {

constexpr std::uint64_t groupCount = 12;

} // namespace

std::uint64_t TreeTable::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension == 0 ? numbers.size() : dimension == 1 ? groupCount : 0;
}

std::string TreeTable::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return (path.at(0) == 0 ? "#" : "Group ") + std::to_string(path.at(1) + 1);
}

double TreeTable::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return path.at(1) % groupCount == path.at(2) ? numbers.at(path.at(1))
                                                 : std::numeric_limits<double>::quiet_NaN();
}

void TreeTable::obtainItems(KXChartDataUser*, std::uint64_t first, std::span<KXPanelChartDataItem> items)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i] = {first + i, (first + i) % groupCount, numbers.at(first + i)};
}

TreeBoard::TreeBoard(const std::vector<double>& values)
{
    m_otherNumbers.assign(values.rbegin(), values.rend());
    m_provider.numbers = values;
    m_chart.getChartProperty()->updateTitleValue("Tree map");
    m_chart.getChartProperty()->updateShowLegend(false);
    m_chart.setShowLabelValue(false);
    reload();
}

void TreeBoard::update()
{
    std::swap(m_provider.numbers, m_otherNumbers);
    reload();
}
