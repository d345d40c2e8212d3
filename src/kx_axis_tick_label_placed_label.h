#pragma once

#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_view.h"
#include "ux/ux_rect.h"
#include "ux/ux_text_property.h"

#include <string>

/** One label that shows. Painting, hits and hints go by it. */
struct KXAxisTickLabelView::PlacedLabel {
    int index = 0;              /**< of its tick */
    std::string wholeText;      /**< as the delegate gave it */
    std::string text;           /**< as it is drawn */
    bool isCut = false;         /**< says less than the whole one */
    int movedBy = 0;            /**< along the axis, to be inside the view */
    bool isScrolledOut = false; /**< has moved further than it does where the axis is not scrolled */
    UXTextProperty property;    /**< of this label alone */
    KXAxisTickLabelPlace place; /**< in the view's own space */
    UXRect rect;                /**< around the turned text */
};
