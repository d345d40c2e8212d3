#pragma once

#include "ux/ux_event.h"
#include "ux/ux_key_code.h"

#include <string>

/** What a pointer at a place of the diagram sends, with a button held. */
inline UXEvent uxMakeEventAt(int x, int y, UXEventKey key = UXEventKey::LeftButton)
{
    UXEvent event;
    event.setMousePoint({x, y});
    event.addEventKey(key);
    return event;
}

inline UXEvent uxMakeWheelEvent(double dx, double dy)
{
    UXEvent event;
    event.setWheelDelta({dx, dy});
    return event;
}

inline UXEvent uxMakeKeyEvent(UXKeyCode code, const std::string& text = "")
{
    UXEvent event;
    event.setKeyCode(static_cast<int>(code));
    event.setKeyText(text);
    return event;
}
