#pragma once

#include "ux/ux_cursor.h"
#include "ux/ux_event.h"
#include "ux/ux_event_type.h"
#include "ux/ux_object_watcher.h"

#include <optional>
#include <vector>

class UXObject;

/**
 * Finds who receives an event on one diagram, and remembers between events who is hovered, pressed, dragged
 * over and focused.
 *
 * An event goes to the deepest visible object under the point and from there up to the diagram, until one
 * handles it. A press captures the pointer: until the release its object receives what the pointer does.
 * Whoever is remembered is watched, and is left out once it is gone or no longer on the diagram.
 */
class UXEventDispatcher {
public:
    /** @param root the diagram, which may go at any time */
    explicit UXEventDispatcher(UXObject* root) : m_root(root) {}

    // Each returns whether the event was handled.
    bool press(const UXEvent& event);
    /** Moves the pointer: hovers, or drags while something is pressed. */
    bool move(const UXEvent& event);
    bool release(const UXEvent& event);
    /** The pointer left the diagram: nothing is hovered or dragged over any more. */
    bool leave(const UXEvent& event);
    /** Sends an event that changes no state to what lies under its point. */
    bool sendToPoint(const UXEvent& event);
    /** Sends a key to the focused object, or to the diagram without one. */
    bool sendKey(const UXEvent& event);
    bool dragExternal(const UXEvent& event);
    bool dropExternal(const UXEvent& event);

    /** @return the visible objects under point, which is in the diagram's space; the deepest first */
    std::vector<UXObjectWatcher> obtainObjectsUnder(UXPoint point) const;
    /** @return the cursor of what is pressed, or else hovered; AsParent where that has none */
    UXCursor obtainCursor() const;
    /** Forgets the press: neither a drop nor a click comes of it.
     *  @param event with which whoever is dragged over is told that the drag has left */
    void cancelPress(const UXEvent& event);

    /** The diagram goes: nothing on it is hovered, pressed or dragged over any more, and nothing is told. */
    void abandon();

    bool isPressing() const { return !m_pressPath.empty(); }
    UXObject* getFocusedObject() const { return m_focus.getObject(); }
    void setFocusedObject(UXObject* object);

private:
    /** From the diagram to the deepest object. */
    using Path = std::vector<UXObjectWatcher>;
    /** One event on its way: whom it has reached so far, and whether one of them ended it. */
    struct Journey {
        UXEventType type;
        UXEvent event;
        Path delivered;
        bool stop = false;
        std::optional<UXObjectWatcher> source = std::nullopt; // what is dragged, if the drag began here
        Path refused = {};                                    // whose filters did not take it
        Path leftOut = {};                                    // who is not to receive it

        /** Takes what is dragged out of the event once a handler has destroyed it. */
        void followSource()
        {
            if (source)
                event.setSourceObject(source->getObject());
        }
    };

    class PressScope;
    class ReleaseScope;

    bool _isOnDiagram(const UXObject* object) const;
    static bool _contains(const Path& path, const UXObject* object);
    /** Appends object and what lies deepest in it under point, which is in the diagram's space. */
    static void _appendHit(Path& path, UXObject* object, UXPoint point, const UXObject* skipped);
    Path _hit(UXPoint point, const UXObject* skipped = nullptr) const;
    Path _obtainPathTo(UXObject* object) const;
    bool _deliver(Journey& journey, const UXObjectWatcher& target);
    bool _send(Journey& journey, Path path);
    bool _send(UXEventType type, const UXEvent& event, Path path);
    bool _sendToPoint(UXEventType type, const UXEvent& event);
    Path _obtainPathBehind(Journey& journey, const UXObjectWatcher& from);
    /** Tells who is in one of the two paths only that the pointer left or entered it. */
    void _exchange(Path& current, const Path& next, UXEventType left, UXEventType entered,
                   const UXEvent& event, const std::optional<UXObjectWatcher>& source = {});
    void _rememberPressed(const Journey& journey);
    bool _drag(const UXEvent& event);
    void _endPress();

    UXObjectWatcher m_root;
    UXObjectWatcher m_focus{nullptr};
    Path m_hoverPath;
    Path m_pressPath;
    Path m_pressedObjects;
    Path m_refusedPress; // whose filters did not take the press: no click comes of it for them
    Path m_dragPath;
    UXEventKey m_pressedButton = UXEventKey::LeftButton;
    bool m_dragged = false;
};
