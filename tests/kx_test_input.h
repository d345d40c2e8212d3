#pragma once

#include "kx_menu_entry.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"

#include <string>
#include <utility>

/** What a host sends to a diagram when its user moves the pointer, presses and types. */
struct KXTestInput {
    UXDiagram& diagram;

    static UXEvent at(UXPoint point, UXEventKey button = UXEventKey::LeftButton)
    {
        UXEvent event;
        event.setMousePoint(point);
        event.addEventKey(button);
        return event;
    }
    bool move(UXPoint point) const
    {
        UXEvent event;
        event.setMousePoint(point);
        return diagram.mouseMove(event);
    }
    bool press(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        return diagram.mouseDown(at(point, button));
    }
    bool release(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        return diagram.mouseUp(at(point, button));
    }
    void click(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        move(point);
        press(point, button);
        release(point, button);
    }
    bool type(UXKeyCode key) const
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        return diagram.keyDown(event);
    }
    bool type(const std::string& text) const
    {
        UXEvent event;
        event.setKeyText(text);
        return diagram.keyDown(event);
    }
};

inline KXMenuEntry makeEntry(const std::string& text, std::function<void()> action = {},
                             std::vector<KXMenuEntry> entries = {})
{
    KXMenuEntry entry;
    entry.text = text;
    entry.action = std::move(action);
    entry.entries = std::move(entries);
    return entry;
}

inline UXPoint middleOf(const UXObject& object)
{
    const UXRect rect = object.getBoundingRect();
    return object.translatePointToParent({rect.width / 2, rect.height / 2}, nullptr);
}
