#pragma once

#include "kx_export.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"

class KXChartProperty;

/** A place inside of a chart for a legend that is no list of cells, and what is left for the chart. */
struct KXLegendPlace {
    UXRect own, left;
};

/** @param side of the area at which the legend lies
 *  @param align where it lies along that side: Left, Center or Right; Top, Center or Bottom
 *  @param length along that side, cut where there is no room for it; thickness across it
 *  @return nothing of the area where it is not large enough for both */
[[nodiscard]] KX_EXPORT KXLegendPlace kxPlaceLegend(const UXRect& area, UXPosition side, UXPosition align,
                                                    int length, int thickness);

/** @return where the user wants a legend to lie along its side */
[[nodiscard]] KX_EXPORT UXPosition kxObtainLegendAlign(const KXChartProperty& property);
