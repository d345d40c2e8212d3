#include "kx_panel_item_runs.h"

#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <span>

namespace {

/** Thinner rectangles are drawn wider than they are, so that they can be seen. */
constexpr double leastMergedExtent = 1;
constexpr double greatest = (std::numeric_limits<double>::max)();

/** Makes rect the larger one that it is together with another one beside or below.
 *  @return whether they are one */
bool merge(UXDoubleRect& rect, const UXDoubleRect& next)
{
    if (std::min({rect.width, rect.height, next.width, next.height}) < leastMergedExtent)
        return false;
    if (rect.x == next.x && rect.width == next.width && rect.y + rect.height == next.y) {
        rect.height += next.height;
        return true;
    }
    if (rect.y == next.y && rect.height == next.height && rect.x + rect.width == next.x) {
        rect.width += next.width;
        return true;
    }
    return false;
}

bool isSeen(const UXDoubleRect& bounds, const UXRect& dirtyRect)
{
    return uxIntersectsRect(uxSurroundingRect(bounds), dirtyRect);
}

} // namespace

/** What stands out by more than its colour reaches over the others. */
void KXPanelItemRuns::set(const std::vector<KXPanelItem>& items)
{
    m_runs.clear();
    m_rects.clear();
    m_edges = {greatest, greatest, -greatest, -greatest};
    std::vector<std::size_t> above;
    const auto addItem = [&](std::size_t i) {
        const KXPanelItem& item = items[i];
        if (item.share < 1)
            _addItem(item, i, item.light, 1);
        if (item.share > 0)
            _addItem(item, i, item.look.fill, item.share);
    };
    for (std::size_t i = 0; i < items.size(); ++i) {
        const KXChartItemLook& look = items[i].look;
        if (look.fill.alpha <= 0 && look.line.alpha <= 0)
            continue;
        if (look.standsOut())
            above.push_back(i);
        else
            addItem(i);
    }
    std::ranges::for_each(above, addItem);
}

void KXPanelItemRuns::_addItem(const KXPanelItem& item, std::size_t index, const UXColor& color, double share)
{
    const KXPanelShape part = share < 1 ? item.shape.obtainPart(share) : KXPanelShape();
    const UXDoubleRect* rect = (share < 1 ? part : item.shape).obtainRect();
    if (rect && !item.look.standsOut() && item.shift == UXDoublePoint())
        _addRect(*rect, color);
    else
        m_runs.push_back({color, m_rects.size(), m_rects.size(), index, share});
}

void KXPanelItemRuns::_addRect(const UXDoubleRect& rect, const UXColor& color)
{
    const bool goesOn = !m_runs.empty() && m_runs.back().firstRect < m_runs.back().endRect &&
                        m_runs.back().color == color;
    m_edges = {std::min(m_edges.left, rect.x), std::min(m_edges.top, rect.y),
               std::max(m_edges.right, rect.x + rect.width), std::max(m_edges.bottom, rect.y + rect.height)};
    if (!goesOn)
        m_runs.push_back({color, m_rects.size(), m_rects.size()});
    Run& run = m_runs.back();
    m_rects.push_back(rect);
    // A row of tiles that is whole now may go on the one before.
    while (m_rects.size() > run.firstRect + 1 && merge(*(m_rects.end() - 2), m_rects.back()))
        m_rects.pop_back();
    run.endRect = m_rects.size();
}

void KXPanelItemRuns::paint(UXPainter& painter, const UXRect& dirtyRect,
                            const std::vector<KXPanelItem>& items) const
{
    for (const Run& run : m_runs) {
        if (run.firstRect < run.endRect) {
            _paintRects(painter, dirtyRect, run);
            continue;
        }
        const KXPanelItem& item = items[run.item];
        const KXPanelShape shape = item.obtainDrawnShape();
        if (!isSeen(shape.getBounds(), dirtyRect))
            continue;
        painter.setColor(run.color);
        if (run.share < 1)
            shape.obtainPart(run.share).fill(painter);
        else
            shape.fill(painter);
        if (item.look.line.alpha <= 0)
            continue;
        painter.setColor(item.look.line);
        painter.setLineWidth(1);
        shape.stroke(painter);
    }
}

void KXPanelItemRuns::_paintRects(UXPainter& painter, const UXRect& dirtyRect, const Run& run) const
{
    std::span<const UXDoubleRect> rects = std::span(m_rects).subspan(run.firstRect,
                                                                     run.endRect - run.firstRect);
    std::vector<UXDoubleRect> seen;
    const UXDoubleRect bounds{m_edges.left, m_edges.top, m_edges.right - m_edges.left,
                              m_edges.bottom - m_edges.top};
    if (!uxContainsRect(dirtyRect, uxSurroundingRect(bounds))) {
        std::ranges::copy_if(rects, std::back_inserter(seen),
                             [&](const UXDoubleRect& rect) { return isSeen(rect, dirtyRect); });
        rects = seen;
    }
    if (rects.empty())
        return;
    painter.setColor(run.color);
    painter.drawRects(rects);
}
