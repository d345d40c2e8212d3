#include "ux/ux_hint_placement.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

enum class Side { Above, Below, Ahead, Behind }; // the last two as a line runs

/** Above a value is where a hand on the pointer hides least; at the top of an object a hint stands beside. */
constexpr std::array sidesAboveValue{Side::Above, Side::Below, Side::Ahead, Side::Behind};
constexpr std::array sidesAtTop{Side::Ahead, Side::Behind, Side::Above, Side::Below};

constexpr const std::array<Side, 4>& obtainSides(UXHintPosition position)
{
    return position == UXHintPosition::Top ? sidesAtTop : sidesAboveValue;
}

/** @return start moved by as little as brings start + length inside */
int shiftInside(std::int64_t start, int length, int low, int extent)
{
    const std::int64_t last = std::int64_t{low} + extent - length;
    return uxSaturateToInt(std::max<std::int64_t>(std::min(start, last), low));
}

UXRect obtainPointRect(const UXPoint& point) { return {point.x, point.y, 1, 1}; }

/** @return a rectangle of the given size on one side of around, level with anchor */
UXRect obtainPlace(const UXHintPlacement& placement, Side side, const UXRect& anchor, const UXRect& around,
                   const UXSize& size)
{
    const UXRect& bounds = placement.bounds;
    const std::int64_t distance = placement.distance;
    if (side == Side::Above || side == Side::Below) {
        const int x = shiftInside(std::int64_t{uxMidX(anchor)} - size.width / 2, size.width, bounds.x,
                                  bounds.width);
        const std::int64_t y = side == Side::Above ? around.y - distance - size.height
                                                   : uxMaxY(around) + distance;
        return {x, uxSaturateToInt(y), size.width, size.height};
    }
    const std::int64_t level = placement.position == UXHintPosition::Top
                                   ? placement.object.y
                                   : std::int64_t{uxMidY(anchor)} - size.height / 2;
    const bool isToTheRight = (side == Side::Ahead) != placement.isRightToLeft;
    const std::int64_t x = isToTheRight ? uxMaxX(around) + distance : around.x - distance - size.width;
    return {uxSaturateToInt(x), shiftInside(level, size.height, bounds.y, bounds.height), size.width,
            size.height};
}

} // namespace

UXRect UXHintPlacement::place(const UXSize& size) const
{
    // 1. All of what is explained stays in sight where there is room for it, otherwise the point does.
    const UXRect seenArea = uxIntersectionRect(area, bounds);
    for (const UXRect& anchor : {seenArea, obtainPointRect(point)}) {
        if (uxIsEmptyRect(anchor))
            continue;
        for (const Side side : obtainSides(position)) {
            // 2. The pointer lies inside or near it as a rule, and is passed by on the same side.
            for (const UXRect& around : {anchor, uxUnionRect(anchor, pointer)}) {
                const UXRect found = obtainPlace(*this, side, anchor, around, size);
                if (uxContainsRect(bounds, found) && !uxIntersectsRect(found, pointer))
                    return found;
            }
        }
    }
    return {};
}

UXSize UXHintPlacement::obtainRoom() const
{
    const UXRect around = uxUnionRect(obtainPointRect(point), pointer);
    const auto beside = [this](std::int64_t length) {
        return uxSaturateToInt(std::max<std::int64_t>(length - distance, 0));
    };
    const UXSize rooms[] = {
        {bounds.width, beside(std::int64_t{around.y} - bounds.y)},
        {bounds.width, beside(std::int64_t{uxMaxY(bounds)} - uxMaxY(around))},
        {beside(std::int64_t{uxMaxX(bounds)} - uxMaxX(around)), bounds.height},
        {beside(std::int64_t{around.x} - bounds.x), bounds.height},
    };
    return *std::ranges::max_element(
        rooms, {}, [](const UXSize& room) { return std::int64_t{room.width} * room.height; });
}
