#pragma once

#include "ux/ux_object.h"

#include <functional>
#include <string>

/** Writes every event that reaches it into a log, as "name.type ", answers what a test tells it to, and lets
 * the test act in every callback. */
class UXEventProbe : public UXObject {
public:
    bool handles = false, stops = false, accepts = true, acceptsRelease = true, forwards = false;
    std::function<void(const UXEvent&)> whenReached;

    /** @param log stays its owner's; null for none */
    explicit UXEventProbe(const std::string& name = "", std::string* log = nullptr) : m_log(log)
    {
        setName(name);
    }

    bool hasPointerState() const
    {
        return getMousePressing() || getMouseOvering() || getMouseDragging() || getMouseDraggingOver();
    }

protected:
    bool shouldForwardEventToNeighbors(const UXEvent&) override { return forwards; }
    bool shouldTriggerMouseDown(const UXEvent&) override { return accepts; }
    bool shouldTriggerMouseUp(const UXEvent&) override { return acceptsRelease; }
    bool shouldTriggerMouseEnter(const UXEvent&) override { return accepts; }
    bool customMouseDown(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseMove(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseUp(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseEnter(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseLeave(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseWheel(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDoubleClick(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDragging(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDrop(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDragEnter(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDragOver(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customMouseDragLeave(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customKeyDown(const UXEvent& e, bool& stop) override { return _reach(e, stop); }
    bool customKeyUp(const UXEvent& e, bool& stop) override { return _reach(e, stop); }

private:
    bool _reach(const UXEvent& event, bool& stop)
    {
        static const char* const names[] = {"down", "move", "up",     "enter", "leave",  "wheel", "double",
                                            "drag", "drop", "denter", "dover", "dleave", "key",   "keyup"};
        if (m_log)
            *m_log += getName() + "." + names[static_cast<int>(event.getEventType())] + " ";
        // The test may destroy the probe.
        stop = stops;
        const bool answer = handles;
        if (const auto act = whenReached)
            act(event);
        return answer;
    }

    std::string* m_log;
};
