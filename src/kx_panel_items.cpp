#include "kx_panel_items.h"

#include <algorithm>
#include <numeric>
#include <utility>

KXPanelShape KXPanelItem::obtainDrawnShape() const
{
    const bool isMoved = shift.x != 0 || shift.y != 0;
    const KXPanelShape drawn = isMoved ? shape.obtainMoved(shift) : shape;
    return look.sizeRatio != 1 ? drawn.obtainScaled(look.sizeRatio) : drawn;
}

void KXPanelItems::set(std::vector<KXPanelItem> items, const UXDoubleRect& area)
{
    m_items = std::move(items);
    m_order.resize(m_items.size());
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    std::ranges::sort(m_order, {}, [this](std::size_t index) { return m_items[index].item; });
    m_grid = KXCollisionGrid(area);
    for (std::size_t i = 0; i < m_items.size(); ++i)
        m_grid.add(m_items[i].shape.getBounds(), 0, i);
}

std::optional<std::size_t> KXPanelItems::find(const KXChartItem& item) const
{
    const auto found = std::ranges::lower_bound(m_order, item, {},
                                                [this](std::size_t index) { return m_items[index].item; });
    return found != m_order.end() && m_items[*found].item == item ? std::optional(*found) : std::nullopt;
}

std::optional<std::size_t> KXPanelItems::findAt(const UXDoublePoint& point) const
{
    std::optional<std::size_t> front;
    for (const std::size_t index : m_grid.findOwners(point))
        if ((!front || index > *front) && m_items[index].shape.holdsPoint(point))
            front = index;
    return front;
}
