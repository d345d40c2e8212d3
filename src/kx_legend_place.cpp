#include "kx_legend_place.h"

#include "kx_chart_property.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

namespace {

// Logical units, those of a legend of cells
constexpr int partGap = 15;
constexpr int leastHeight = 100, leastWidth = 300;

/** @return where an extent begins that is aligned in a room */
int align(int start, int room, int extent, UXPosition position)
{
    if (position == UXPosition::Left || position == UXPosition::Top)
        return start;
    return position == UXPosition::Center ? start + (room - extent) / 2 : start + room - extent;
}

bool isUpright(UXPosition side) { return side == UXPosition::Left || side == UXPosition::Right; }

} // namespace

KXLegendPlace kxPlaceLegend(const UXRect& area, UXPosition side, UXPosition position, int length,
                            int thickness)
{
    if (isUpright(side) ? area.width < leastWidth : area.height < leastHeight)
        return {uxMakeRect(area.x, area.y, 0, 0), area};
    KXLegendPlace place{{}, area};
    if (isUpright(side)) {
        const int height = std::min(area.height, length);
        place.own = {side == UXPosition::Left ? area.x : uxMaxX(area) - thickness,
                     align(area.y, area.height, height, position), thickness, height};
        place.left.x += side == UXPosition::Left ? thickness + partGap : 0;
        place.left.width = std::max(area.width - thickness - partGap, 0);
    } else {
        const int width = std::min(area.width, length);
        place.own = {align(area.x, area.width, width, position),
                     side == UXPosition::Top ? area.y : area.getBottom() - thickness, width, thickness};
        place.left.y += side == UXPosition::Top ? thickness + partGap : 0;
        place.left.height = std::max(area.height - thickness - partGap, 0);
    }
    return place;
}

UXPosition kxObtainLegendAlign(const KXChartProperty& property)
{
    return isUpright(property.getLegendPosition()) ? property.getLegendVerticalAlign()
                                                   : property.getLegendHorizontalAlign();
}
