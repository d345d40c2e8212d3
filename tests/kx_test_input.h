#pragma once

#include "kx_menu_entry.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"

#include <string>
#include <utility>

inline UXEvent kxMakeEvent(UXEventType type, UXPoint point = {})
{
    UXEvent event(type);
    event.setMousePoint(point);
    return event;
}

/** What a host sends to a diagram, or to a chart alone, when its user moves the pointer, presses and types.
 */
struct KXTestInput {
    UXObject& root;

    static UXEvent at(UXPoint point, UXEventKey button = UXEventKey::LeftButton)
    {
        UXEvent event = kxMakeEvent(UXEventType::MouseDown, point);
        event.addEventKey(button);
        return event;
    }
    bool move(UXPoint point) const { return root.mouseMove(kxMakeEvent(UXEventType::MouseMove, point)); }
    bool leave() const { return root.mouseLeave(UXEvent(UXEventType::MouseLeave)); }
    bool press(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        return root.mouseDown(at(point, button));
    }
    bool release(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        return root.mouseUp(at(point, button));
    }
    void click(UXPoint point, UXEventKey button = UXEventKey::LeftButton) const
    {
        move(point);
        press(point, button);
        release(point, button);
    }
    bool type(UXKeyCode key, const std::string& text = {}) const
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        event.setKeyText(text);
        return root.keyDown(event);
    }
    bool type(const std::string& text) const { return type(UXKeyCode(), text); }
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
