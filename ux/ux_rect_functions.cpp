#include "ux/ux_rect_functions.h"

#include "ux/ut.h"

#include <algorithm>
#include <cmath>

namespace {

std::int64_t right(const UXRect& rect) { return std::int64_t{rect.x} + rect.width; }
std::int64_t bottom(const UXRect& rect) { return std::int64_t{rect.y} + rect.height; }

// A width or height that is not a number makes a rectangle empty, too.
bool isEmpty(const UXDoubleRect& rect) { return !(rect.width > 0 && rect.height > 0); }

/** @return where a piece of that length has to start to lie in the room that starts at low */
int shiftInto(int start, int length, int low, int room)
{
    const std::int64_t high = std::int64_t{low} + room - length;
    return uxSaturateToInt(std::clamp<std::int64_t>(start, low, high));
}

} // namespace

bool uxIsFiniteDoubleRect(const UXDoubleRect& rect)
{
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) &&
           std::isfinite(rect.height);
}

UXRect uxUnionRect(const UXRect& a, const UXRect& b)
{
    if (uxIsEmptyRect(a))
        return b;
    if (uxIsEmptyRect(b))
        return a;
    const int left = std::min(a.x, b.x), top = std::min(a.y, b.y);
    return {left, top, uxSaturateToInt(std::max(right(a), right(b)) - left),
            uxSaturateToInt(std::max(bottom(a), bottom(b)) - top)};
}

UXDoubleRect uxUnionDoubleRect(const UXDoubleRect& a, const UXDoubleRect& b)
{
    if (isEmpty(a))
        return b;
    if (isEmpty(b))
        return a;
    const double left = std::min(a.x, b.x), top = std::min(a.y, b.y);
    return {left, top, std::max(uxMaxDoubleX(a), uxMaxDoubleX(b)) - left,
            std::max(uxMaxDoubleY(a), uxMaxDoubleY(b)) - top};
}

UXRect uxSurroundingRect(const UXDoubleRect& rect)
{
    const int left = uxSaturateToInt(std::floor(rect.x)), top = uxSaturateToInt(std::floor(rect.y));
    return {left, top, uxSaturateToInt(std::ceil(uxMaxDoubleX(rect)) - left),
            uxSaturateToInt(std::ceil(uxMaxDoubleY(rect)) - top)};
}

UXRect uxIntersectionRect(const UXRect& a, const UXRect& b)
{
    const int left = std::max(a.x, b.x), top = std::max(a.y, b.y);
    const UXRect common{left, top, uxSaturateToInt(std::min(right(a), right(b)) - left),
                        uxSaturateToInt(std::min(bottom(a), bottom(b)) - top)};
    return uxIsEmptyRect(common) ? UXRect() : common;
}

UXDoubleRect uxIntersectionDoubleRect(const UXDoubleRect& a, const UXDoubleRect& b)
{
    const double left = std::max(a.x, b.x), top = std::max(a.y, b.y);
    const UXDoubleRect common{left, top, std::min(uxMaxDoubleX(a), uxMaxDoubleX(b)) - left,
                              std::min(uxMaxDoubleY(a), uxMaxDoubleY(b)) - top};
    return isEmpty(a) || isEmpty(b) || isEmpty(common) ? UXDoubleRect() : common;
}

bool uxIntersectsRect(const UXRect& a, const UXRect& b) { return !uxIsEmptyRect(uxIntersectionRect(a, b)); }

bool uxContainsRect(const UXRect& outer, const UXRect& inner)
{
    return !uxIsEmptyRect(inner) && uxIntersectionRect(outer, inner) == inner;
}

bool uxPointInRect(const UXPoint& point, const UXRect& rect)
{
    return point.x >= rect.x && point.x < right(rect) && point.y >= rect.y && point.y < bottom(rect);
}

bool uxPointInDoubleRect(const UXDoublePoint& point, const UXDoubleRect& rect)
{
    return point.x >= rect.x && point.x < uxMaxDoubleX(rect) && point.y >= rect.y &&
           point.y < uxMaxDoubleY(rect);
}

bool uxEqualDoubleRects(const UXDoubleRect& a, const UXDoubleRect& b)
{
    return utCompareDoubles(a.x, b.x) == 0 && utCompareDoubles(a.y, b.y) == 0 &&
           utCompareDoubles(a.width, b.width) == 0 && utCompareDoubles(a.height, b.height) == 0;
}

UXRect uxShiftAndBoundInRect(const UXRect& rect, const UXRect& bound)
{
    const int room = std::max(bound.width, 0), depth = std::max(bound.height, 0);
    const int width = std::clamp(rect.width, 0, room), height = std::clamp(rect.height, 0, depth);
    return {shiftInto(rect.x, width, bound.x, room), shiftInto(rect.y, height, bound.y, depth), width,
            height};
}
