#pragma once

#include "ux/ux_hint_row_info.h"
#include "ux/ux_rect.h"

/** One line of a hint as it is drawn: a text alone, or a symbol, a label and a value. */
struct UXHintLine {
    UXHintRowInfo content; /**< with the text properties that are drawn */
    UXRect rect;           /**< in the frame */
    // In the line's own space; empty for what it does not show
    UXRect symbolRect;
    UXRect labelRect;
    UXRect valueRect;
    bool isDetails = false; /**< whether it is one of the rows, which share their columns */

    friend bool operator==(const UXHintLine&, const UXHintLine&) = default;
};
