#pragma once

#include "ux/ux_control_point.h"
#include "ux/ux_double_point.h"
#include "ux/ux_event_key.h"
#include "ux/ux_event_type.h"
#include "ux/ux_export.h"
#include "ux/ux_point.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class UXControl;
class UXObject;

/**
 * One input event, a value that is passed on by copying. All copies of an event share one queue of posted
 * actions, so that whoever receives a copy can ask for work to be done once the outermost dispatch is over.
 * They are one event to the diagrams, too: in one dispatch no object receives it twice.
 */
class UX_EXPORT UXEvent {
public:
    UXEvent();
    explicit UXEvent(UXEventType type);
    // A moved-from event would have lost what its copies share: events are only ever copied.
    UXEvent(const UXEvent&) = default;
    UXEvent& operator=(const UXEvent&) = default;
    ~UXEvent() = default;

    UXEventType getEventType() const { return m_eventType; }
    void setEventType(UXEventType type) { m_eventType = type; }

    // Mouse
    /** @return the point in the diagram's space */
    const UXPoint& getMousePoint() const { return m_mousePoint; }
    void setMousePoint(const UXPoint& point) { m_mousePoint = point; }
    /** @return the same point in the space of the host control that received the event */
    const UXControlPoint& getControlPoint() const { return m_controlPoint; }
    void setControlPoint(const UXControlPoint& point) { m_controlPoint = point; }
    /** @return notches of the wheel or their fractions; positive scrolls to the right and down */
    const UXDoublePoint& getWheelDelta() const { return m_wheelDelta; }
    void setWheelDelta(const UXDoublePoint& delta) { m_wheelDelta = delta; }
    /** @return how often the button went down in quick succession, 0 for an event without a button */
    int getClickCount() const { return m_clickCount; }
    void setClickCount(int count) { m_clickCount = count; }

    /** @return the control that received the event; null for none, and once it is gone */
    UXControl* getControl() const { return m_controlLife.expired() ? nullptr : m_control; }
    void setControl(UXControl* control);

    // Keys and buttons
    bool containsEventKey(UXEventKey key) const { return (m_eventKeys & static_cast<int>(key)) != 0; }
    void addEventKey(UXEventKey key) { m_eventKeys |= static_cast<int>(key); }
    void removeEventKey(UXEventKey key) { m_eventKeys &= ~static_cast<int>(key); }
    void clearEventKeys() { m_eventKeys = 0; }
    /** @return the host's code of the key that went down or up, 0 for none */
    int getKeyCode() const { return m_keyCode; }
    void setKeyCode(int code) { m_keyCode = code; }
    /** @return what the key types, UTF-8, empty for keys that type nothing */
    const std::string& getKeyText() const { return m_keyText; }
    void setKeyText(const std::string& text) { m_keyText = text; }

    // Use cases
    bool containUseCase(int useCase) const;
    void addUseCase(int useCase);

    // Dragging
    /** @return what is dragged, whatever the dragging objects agree on; null for nothing, never owned */
    void* getDragData() const { return m_dragData; }
    void setDragData(void* data) { m_dragData = data; }
    /** @return where the event or the drag began; only the dispatch that set it knows that it lives */
    UXObject* getSourceObject() const { return m_sourceObject; }
    void setSourceObject(UXObject* object) { m_sourceObject = object; }

    // Posted actions
    /** Keeps action until the outermost dispatch of this event is over. An empty one is not kept. */
    void postAction(std::function<void()> action) const;
    /** Runs and forgets the posted actions in order, those included that they post themselves. An action may
     * destroy this very event. */
    void runPostedActions() const;
    /** @return a copy with a queue of its own, for an action that is posted on this event and holds it: over
     *  the shared queue the two would keep each other for good if the action never ran */
    UXEvent copyWithoutActions() const;

private:
    friend class UXEventDispatcher;
    friend class UXEventDispatchScope;
    struct Shared;

    /** @return whether object has not received an event of the type in this dispatch */
    bool _noteDelivery(UXEventType type, UXObject* object) const;
    void _beginDispatch() const;
    void _endDispatch() const;

    UXEventType m_eventType = UXEventType::MouseMove;
    UXPoint m_mousePoint;
    UXControlPoint m_controlPoint;
    UXControl* m_control = nullptr;
    std::weak_ptr<const bool> m_controlLife;
    UXDoublePoint m_wheelDelta;
    int m_clickCount = 0;
    int m_eventKeys = 0;
    int m_keyCode = 0;
    std::string m_keyText;
    std::vector<int> m_useCases;
    void* m_dragData = nullptr;
    UXObject* m_sourceObject = nullptr;
    std::shared_ptr<Shared> m_shared;
};
