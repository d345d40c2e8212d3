#pragma once

#include "ux/ux_control_rect.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_scroll_bar.h"
#include "ux/ux_space.h"

#include <functional>

/** The bars at the edges of a view whose board is larger than itself. */
class ViewScrollBars : public UXGlobalControlSpaceEventDiagram {
public:
    /** @param scroll moves what the view shows by a distance in pixels, positive to the right and down */
    explicit ViewScrollBars(std::function<void(double dx, double dy)> scroll);

    /** Shows the bars that are needed.
     *  @param board where the board lies in the view, and view the view's rectangle, both in pixels
     *  @param scale pixels per logical unit */
    void update(const UXControlRect& board, const UXControlRect& view, double scale);

private:
    void _follow(UXScrollBar& bar);

    std::function<void(double dx, double dy)> m_scroll;
    UXSpace m_space; // bars are made for logical units, and the view counts pixels
    UXScrollBar m_across{UXArrangement::Row};
    UXScrollBar m_down{UXArrangement::Column};
};
