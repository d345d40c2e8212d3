#pragma once

#include "ux/ux_color.h"

/** How an item is drawn just now, its highlight and the host's effects included. */
struct KXChartItemLook {
    UXColor fill;
    UXColor line{0, 0, 0, 0}; /**< around what is filled; nothing where its alpha is 0 */
    double sizeRatio = 1;     /**< about its middle, to its usual size */

    /** @return whether more is different than the colour */
    bool standsOut() const { return line.alpha > 0 || sizeRatio != 1; }

    friend bool operator==(const KXChartItemLook&, const KXChartItemLook&) = default;
};
