#pragma once

#include "ux/ux_export.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"

/** Knows what a hint has around it, and finds where it stands. All in the control's pixels. */
struct UX_EXPORT UXHintPlacement {
    UXRect bounds;    /**< what the hint never leaves */
    UXPoint point;    /**< what is explained */
    UXRect area;      /**< all of what is explained; empty for the point alone */
    UXRect object;    /**< the object that shows the hint */
    UXRect pointer;   /**< what the pointer covers; empty where it is elsewhere */
    int distance = 0; /**< free room between the hint and what it explains */
    UXHintPosition position = UXHintPosition::AboveValue;
    bool isRightToLeft = false; /**< of the sides beside, the left one comes first */

    /** @return where a hint of the given size stands: on the first side of the area, or else of the point, on
     * which it is inside the bounds and clear of the pointer; empty where there is none */
    [[nodiscard]] UXRect place(const UXSize& size) const;
    /** @return the size of the largest place beside the point and the pointer, 0 x 0 where there is none */
    [[nodiscard]] UXSize obtainRoom() const;
};
