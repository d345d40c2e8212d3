#pragma once

#include "ux/ux_global_control_space_event_diagram.h"

/** A diagram over a board, in the pixels of the control that shows it. Its dirty areas wait here until the
 * control paints them. */
class ViewOverlay : public UXGlobalControlSpaceEventDiagram {
public:
    void flushDirtyRect() override {}
    void repaintDirtyRect() override {}
};
