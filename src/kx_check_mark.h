#pragma once

#include "kx_control_chart_options.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"

class UXPainter;

/** How a check mark looks just now. */
struct KXCheckMarkLook {
    KXToggleSwitchState state = KXToggleSwitchState::Off;
    bool isRound = false; /**< a mark for one of many, otherwise a box */
    bool isEnabled = true;
    bool isHovered = false;
    bool isPressed = false;
    UXColor accent{38, 103, 198}; /**< of what is on or mixed */
};

/** Draws a check box or a round mark into the largest square in the middle of bounds. */
KX_EXPORT void kxDrawCheckMark(UXPainter& painter, const UXDoubleRect& bounds, const KXCheckMarkLook& look);
