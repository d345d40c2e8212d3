#pragma once

#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"
#include "ux/ux_saturate.h"

#include <cstdint>

// Rectangles are half open: a point on the right or bottom edge is outside. A rectangle without a positive
// width and height is empty and encloses nothing. Sums stop at int's limits.

[[nodiscard]] constexpr int uxWidth(const UXRect& rect) { return rect.width; }
[[nodiscard]] constexpr int uxHeight(const UXRect& rect) { return rect.height; }
[[nodiscard]] constexpr int uxMinX(const UXRect& rect) { return rect.x; }
[[nodiscard]] constexpr int uxMaxX(const UXRect& rect)
{
    return uxSaturateToInt(std::int64_t{rect.x} + rect.width);
}
[[nodiscard]] constexpr int uxMidX(const UXRect& rect)
{
    return uxSaturateToInt(std::int64_t{rect.x} + rect.width / 2);
}
[[nodiscard]] constexpr int uxMinY(const UXRect& rect) { return rect.y; }
[[nodiscard]] constexpr int uxMaxY(const UXRect& rect) { return rect.getBottom(); }
[[nodiscard]] constexpr int uxMidY(const UXRect& rect)
{
    return uxSaturateToInt(std::int64_t{rect.y} + rect.height / 2);
}

[[nodiscard]] constexpr double uxMinDoubleX(const UXDoubleRect& rect) { return rect.x; }
[[nodiscard]] constexpr double uxMaxDoubleX(const UXDoubleRect& rect) { return rect.x + rect.width; }
[[nodiscard]] constexpr double uxMidDoubleX(const UXDoubleRect& rect) { return rect.x + rect.width / 2; }
[[nodiscard]] constexpr double uxMinDoubleY(const UXDoubleRect& rect) { return rect.y; }
[[nodiscard]] constexpr double uxMaxDoubleY(const UXDoubleRect& rect) { return rect.y + rect.height; }
[[nodiscard]] constexpr double uxMidDoubleY(const UXDoubleRect& rect) { return rect.y + rect.height / 2; }

/** @return rect grown by left, top, right and bottom on that side; a negative amount shrinks */
[[nodiscard]] constexpr UXRect uxInflateRect(const UXRect& rect, int left, int top, int right, int bottom)
{
    return {uxSaturateToInt(std::int64_t{rect.x} - left), uxSaturateToInt(std::int64_t{rect.y} - top),
            uxSaturateToInt(std::int64_t{rect.width} + left + right),
            uxSaturateToInt(std::int64_t{rect.height} + top + bottom)};
}

/** @return rect grown by dx on the left and right, dy above and below; a negative amount shrinks */
[[nodiscard]] constexpr UXRect uxInflateRect(const UXRect& rect, int dx, int dy)
{
    return uxInflateRect(rect, dx, dy, dx, dy);
}

/** @return rect grown by left, top, right and bottom on that side; a negative amount shrinks */
[[nodiscard]] constexpr UXDoubleRect uxInflateDoubleRect(const UXDoubleRect& rect, int left, int top,
                                                         int right, int bottom)
{
    return {rect.x - left, rect.y - top, rect.width + left + right, rect.height + top + bottom};
}

/** @return rect grown by dx on the left and right, dy above and below; a negative amount shrinks */
[[nodiscard]] constexpr UXDoubleRect uxInflateDoubleRect(const UXDoubleRect& rect, double dx, double dy)
{
    return {rect.x - dx, rect.y - dy, rect.width + 2 * dx, rect.height + 2 * dy};
}

[[nodiscard]] constexpr bool uxIsEmptyRect(const UXRect& rect) { return rect.width <= 0 || rect.height <= 0; }

/** @return whether no field is infinite or not a number */
[[nodiscard]] UX_EXPORT bool uxIsFiniteDoubleRect(const UXDoubleRect& rect);

/** @return the smallest rectangle around both; the other one where one is empty */
[[nodiscard]] UX_EXPORT UXRect uxUnionRect(const UXRect& a, const UXRect& b);
[[nodiscard]] UX_EXPORT UXDoubleRect uxUnionDoubleRect(const UXDoubleRect& a, const UXDoubleRect& b);

/** @return the whole units that rect touches */
[[nodiscard]] UX_EXPORT UXRect uxSurroundingRect(const UXDoubleRect& rect);

/** @return what both hold; (0, 0, 0, 0) where they share nothing */
[[nodiscard]] UX_EXPORT UXRect uxIntersectionRect(const UXRect& a, const UXRect& b);
[[nodiscard]] UX_EXPORT UXDoubleRect uxIntersectionDoubleRect(const UXDoubleRect& a, const UXDoubleRect& b);

/** @return whether both hold a common point; touching edges do not count */
[[nodiscard]] UX_EXPORT bool uxIntersectsRect(const UXRect& a, const UXRect& b);

/** @return whether outer holds every point of inner; an empty rectangle neither holds nor is held */
[[nodiscard]] UX_EXPORT bool uxContainsRect(const UXRect& outer, const UXRect& inner);

[[nodiscard]] UX_EXPORT bool uxPointInRect(const UXPoint& point, const UXRect& rect);
[[nodiscard]] UX_EXPORT bool uxPointInDoubleRect(const UXDoublePoint& point, const UXDoubleRect& rect);

[[nodiscard]] constexpr bool uxEqualRects(const UXRect& a, const UXRect& b) { return a == b; }

/** @return whether no field differs by more than utCompareDoubles allows */
[[nodiscard]] UX_EXPORT bool uxEqualDoubleRects(const UXDoubleRect& a, const UXDoubleRect& b);

/** @return rect as far from the right of within as it was from its left */
[[nodiscard]] constexpr UXRect uxMirrorRect(const UXRect& rect, const UXRect& within)
{
    const std::int64_t right = std::int64_t{rect.x} + rect.width;
    return {uxSaturateToInt(std::int64_t{2} * within.x + within.width - right), rect.y, rect.width,
            rect.height};
}

/** @return rect moved by as little as brings it inside bound; cut to bound's size where it is larger */
[[nodiscard]] UX_EXPORT UXRect uxShiftAndBoundInRect(const UXRect& rect, const UXRect& bound);
