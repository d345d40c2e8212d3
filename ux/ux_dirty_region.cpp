#include "ux/ux_dirty_region.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

double areaOf(const UXRect& rect) { return static_cast<double>(rect.width) * rect.height; }

/** @return the area that painting the enclosing rectangle adds to painting both. In double, since the extent
 * of two rectangles far apart does not fit into int. */
double obtainWaste(const UXRect& a, const UXRect& b)
{
    const double width = static_cast<double>(
                             std::max(a.x + std::int64_t{a.width}, b.x + std::int64_t{b.width})) -
                         std::min(a.x, b.x);
    const double height = static_cast<double>(
                              std::max(a.y + std::int64_t{a.height}, b.y + std::int64_t{b.height})) -
                          std::min(a.y, b.y);
    return width * height - areaOf(a) - areaOf(b);
}

/** @return whether one rectangle does for both: they share points, or they are parts of one */
bool shouldMerge(const UXRect& a, const UXRect& b)
{
    return uxIntersectsRect(a, b) || obtainWaste(a, b) <= 0;
}

} // namespace

bool UXDirtyRegion::add(const UXRect& rect)
{
    // 1. What is empty, or dirty already, changes nothing.
    const auto holds = [&](const UXRect& present) { return uxContainsRect(present, rect); };
    if (uxIsEmptyRect(rect) || std::ranges::any_of(m_rects, holds))
        return false;

    // 2. A merged rectangle can reach others that neither of its parts reached, so it is tried again.
    UXRect merged = rect;
    for (std::size_t i = 0; i < m_rects.size();) {
        if (!shouldMerge(m_rects[i], merged)) {
            ++i;
            continue;
        }
        merged = uxUnionRect(m_rects[i], merged);
        m_rects.erase(m_rects.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    if (m_rects.size() < maxRectCount) {
        m_rects.push_back(merged);
        return true;
    }

    // 3. Where no place is left, it joins the area with which it wastes the least.
    const auto nearest = std::ranges::min_element(
        m_rects, {}, [&](const UXRect& present) { return obtainWaste(present, merged); });
    merged = uxUnionRect(*nearest, merged);
    m_rects.erase(nearest);
    add(merged);
    return true;
}

UXRect UXDirtyRegion::obtainBounds() const
{
    UXRect bounds;
    for (const UXRect& rect : m_rects)
        bounds = uxUnionRect(bounds, rect);
    return bounds;
}

bool UXDirtyRegion::intersects(const UXRect& rect) const
{
    return std::ranges::any_of(m_rects, [&](const UXRect& dirty) { return uxIntersectsRect(dirty, rect); });
}
