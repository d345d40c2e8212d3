#include "kx_panel_items.h"

#include <algorithm>
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
    m_area = area;
    m_order.clear();
    m_grid.reset();
}

const std::vector<KXPanelItems::Entry>& KXPanelItems::_obtainOrder() const
{
    if (m_order.size() == m_items.size())
        return m_order;
    m_order.reserve(m_items.size());
    for (std::size_t i = 0; i < m_items.size(); ++i)
        m_order.push_back({m_items[i].item, i});
    std::ranges::sort(m_order, {}, &Entry::item);
    return m_order;
}

const KXCollisionGrid& KXPanelItems::_obtainGrid() const
{
    if (m_grid)
        return *m_grid;
    m_grid.emplace(m_area);
    for (std::size_t i = 0; i < m_items.size(); ++i)
        m_grid->add(m_items[i].shape.getBounds(), 0, i);
    return *m_grid;
}

std::optional<std::size_t> KXPanelItems::find(const KXChartItem& item) const
{
    const std::vector<Entry>& order = _obtainOrder();
    const auto found = std::ranges::lower_bound(order, item, {}, &Entry::item);
    return found != order.end() && found->item == item ? std::optional(found->index) : std::nullopt;
}

std::optional<std::size_t> KXPanelItems::findAt(const UXDoublePoint& point) const
{
    std::optional<std::size_t> front;
    for (const std::size_t index : _obtainGrid().findOwners(point))
        if ((!front || index > *front) && m_items[index].shape.holdsPoint(point))
            front = index;
    return front;
}
