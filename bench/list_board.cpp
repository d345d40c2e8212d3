#include "list_board.h"

#include "kx_chart_property.h"
#include "kx_control_chart_list.h"
#include "mixed_number.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>

std::uint64_t ListTable::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension == 0 ? count : 0;
}

std::string ListTable::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return "Member " + std::to_string(path.at(1) + 1);
}

double ListTable::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    const std::uint64_t member = path.at(1);
    return static_cast<double>((member * 7919 + 13) % 1000);
}

bool ListTable::obtainSelection(KXChartDataUser*, std::vector<std::uint64_t>& members, bool& isExcluding)
{
    constexpr std::uint64_t period = 3;
    for (std::uint64_t member = 0; member < count; member += period)
        members.push_back(member);
    isExcluding = false;
    return true;
}

ListBoard::ListBoard(std::uint64_t memberCount)
{
    m_provider.count = memberCount;
    m_chart.getChartProperty()->updateShowTitle(false);
    m_chart.setShowSearch(false);
    m_chart.setShowAll(false);
    m_chart.setShowCounts(false);
    m_chart.setShowBars(false);
    reload();
}

void ListBoard::update()
{
    UXVirtualScrollView& view = m_chart.getList()->getScrollView();
    const std::int64_t most = view.getContentHeight() - view.obtainDisplayArea().height;
    const std::uint64_t place = mixNumber(++m_turn) %
                                static_cast<std::uint64_t>(std::max<std::int64_t>(most, 1));
    view.setContentOffsetY(static_cast<std::int64_t>(place));
    m_diagram.layout();
}

void ListBoard::scroll(int step)
{
    UXVirtualScrollView& view = m_chart.getList()->getScrollView();
    constexpr std::int64_t distance = 53;
    const std::int64_t most = std::max<std::int64_t>(
        view.getContentHeight() - view.obtainDisplayArea().height, 1);
    view.setContentOffsetY(distance * step % most);
    m_diagram.layout();
}
