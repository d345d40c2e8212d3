#include "ux/ux_object.h"

#include "ux/ux_child_walk.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_key_code.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <array>
#include <deque>
#include <utility>

namespace {

/** Exchanges left and right in what an event says beside its point. */
void mirrorEvent(UXEvent& event)
{
    const UXDoublePoint& wheel = event.getWheelDelta();
    event.setWheelDelta({0 - wheel.x, wheel.y});
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if (key == UXKeyCode::Left)
        event.setKeyCode(static_cast<int>(UXKeyCode::Right));
    else if (key == UXKeyCode::Right)
        event.setKeyCode(static_cast<int>(UXKeyCode::Left));
}

} // namespace

struct UXObject::EventRegistry {
    struct Handler {
        UXEventType type;
        std::function<bool(const UXEvent&)> handle;
    };
    struct Responder {
        UXEventResponderType type;
        std::vector<UXEventKey> keys;
        std::function<bool(const UXEvent&)> responds;
    };

    // Adding to a deque leaves the entry that runs where it is.
    std::deque<Handler> handlers;
    std::deque<Responder> responders;
};

bool UXObject::shouldForwardEventToNeighbors(const UXEvent&) { return false; }

bool UXObject::shouldTriggerMouseDown(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseMove(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseUp(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseEnter(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseLeave(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseWheel(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDoubleClick(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDragging(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDrop(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDragEnter(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDragOver(const UXEvent&) { return true; }

bool UXObject::shouldTriggerMouseDragLeave(const UXEvent&) { return true; }

bool UXObject::shouldTriggerKeyDown(const UXEvent&) { return true; }

bool UXObject::shouldTriggerKeyUp(const UXEvent&) { return true; }

bool UXObject::customMouseDown(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseMove(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseUp(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseEnter(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseLeave(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseWheel(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDoubleClick(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDragging(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDrop(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDragEnter(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDragOver(const UXEvent&, bool&) { return false; }

bool UXObject::customMouseDragLeave(const UXEvent&, bool&) { return false; }

bool UXObject::customKeyDown(const UXEvent&, bool&) { return false; }

bool UXObject::customKeyUp(const UXEvent&, bool&) { return false; }

bool UXObject::mouseDown(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseDown, event); }

bool UXObject::mouseMove(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseMove, event); }

bool UXObject::mouseUp(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseUp, event); }

bool UXObject::mouseEnter(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseEnter, event); }

bool UXObject::mouseLeave(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseLeave, event); }

bool UXObject::mouseWheel(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseWheel, event); }

bool UXObject::mouseDoubleClick(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDoubleClick, event);
}

bool UXObject::mouseDragging(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDragging, event);
}

bool UXObject::mouseDragEnter(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDragEnter, event);
}

bool UXObject::mouseDragOver(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDragOver, event);
}

bool UXObject::mouseDragLeave(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDragLeave, event);
}

bool UXObject::mouseDrop(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseDrop, event); }

bool UXObject::keyDown(const UXEvent& event) { return _dispatchEvent(UXEventType::KeyDown, event); }

bool UXObject::keyUp(const UXEvent& event) { return _dispatchEvent(UXEventType::KeyUp, event); }

bool UXObject::controlSize(const UXEvent& event)
{
    const UXEvent own = event;
    bool handled = false;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next()) {
        if (child->getVisible())
            handled = child->controlSize(own) || handled;
    }
    return handled;
}

bool UXObject::externalDragging(const UXEvent& event)
{
    return _dispatchEvent(UXEventType::MouseDragOver, event);
}

bool UXObject::externalDrop(const UXEvent& event) { return _dispatchEvent(UXEventType::MouseDrop, event); }

void UXObject::registerEventHandler(UXEventType type, std::function<bool(const UXEvent&)> handler)
{
    if (!handler)
        return;
    if (!m_eventRegistry)
        m_eventRegistry = std::make_shared<EventRegistry>();
    m_eventRegistry->handlers.push_back({type, std::move(handler)});
}

bool UXObject::triggerEventHandler(const UXEvent& event)
{
    // A handler may destroy the object, its registry and the event, and may register more, which run from the
    // next event on.
    const std::shared_ptr<EventRegistry> registry = m_eventRegistry;
    if (!registry)
        return false;
    const UXEvent own = event;
    UXObjectWatcher watcher(this);
    bool handled = false;
    const std::size_t count = registry->handlers.size();
    for (std::size_t i = 0; i < count && watcher.isAlive(); ++i) {
        const EventRegistry::Handler& handler = registry->handlers[i];
        if (handler.type == own.getEventType())
            handled = handler.handle(own) || handled;
    }
    return handled;
}

void UXObject::registerEventResponder(UXEventResponderType type, const std::vector<UXEventKey>& keys,
                                      std::function<bool(const UXEvent&)> predicate)
{
    if (!predicate)
        return;
    if (!m_eventRegistry)
        m_eventRegistry = std::make_shared<EventRegistry>();
    m_eventRegistry->responders.push_back({type, keys, std::move(predicate)});
}

void UXObject::registerEventResponder(UXEventResponderType type,
                                      std::function<bool(const UXEvent&)> predicate)
{
    registerEventResponder(type, {}, std::move(predicate));
}

bool UXObject::triggerEventResponder(UXEventResponderType type, const UXEvent& event)
{
    const std::shared_ptr<EventRegistry> registry = m_eventRegistry;
    if (!registry)
        return false;
    const UXEvent own = event;
    UXObjectWatcher watcher(this);
    const auto holdsKey = [&own](UXEventKey key) { return own.containsEventKey(key); };
    const std::size_t count = registry->responders.size();
    for (std::size_t i = 0; i < count && watcher.isAlive(); ++i) {
        const EventRegistry::Responder& responder = registry->responders[i];
        if (responder.type == type && std::ranges::all_of(responder.keys, holdsKey) &&
            responder.responds(own))
            return true;
    }
    return false;
}

bool UXObject::getShouldResponse(UXEventResponderType type) const
{
    const auto isOfType = [type](const EventRegistry::Responder& responder) {
        return responder.type == type;
    };
    return m_eventRegistry && std::ranges::any_of(m_eventRegistry->responders, isOfType);
}

UXPoint UXObject::getTranslatedPointFromEvent(const UXEvent& event, UXObject* object) const
{
    const UXObject* target = object ? object : this;
    return translatePoint(event.getMousePoint(), nullptr, const_cast<UXObject*>(target));
}

/** What an object keeps of an event that it has received: handlers still see the press that their release
 * ends. */
class UXObject::DeliveryScope {
public:
    DeliveryScope(UXObject& object, UXEventType type, bool accepted)
        : m_watcher(&object), m_type(type), m_accepted(accepted)
    {
    }
    ~DeliveryScope()
    {
        UXObject* object = m_watcher.getObject();
        if (!object)
            return;
        object->_noteMouseWent(m_type);
        object->m_tookLastEvent = m_accepted;
    }
    DeliveryScope(const DeliveryScope&) = delete;
    DeliveryScope& operator=(const DeliveryScope&) = delete;

private:
    UXObjectWatcher m_watcher;
    UXEventType m_type;
    bool m_accepted;
};

bool UXObject::deliverEvent(UXEventType type, const UXEvent& event, bool& stop)
{
    UXEvent own = event;
    own.setEventType(type);
    if (isRightToLeft())
        mirrorEvent(own);
    UXObjectWatcher watcher(this);
    const bool accepted = _shouldTriggerEvent(type, own);
    if (!watcher.isAlive())
        return false;

    bool handled = false;
    const DeliveryScope scope(*this, type, accepted);
    if (accepted) {
        _noteMouseCame(type);
        handled = _customEvent(type, own, stop);
        if (watcher.isAlive() && !stop)
            handled = triggerEventHandler(own) || handled;
    }
    return handled;
}

bool UXObject::_dispatchEvent(UXEventType type, const UXEvent& event)
{
    UXEventDispatchScope scope(event);
    bool stop = false;
    const bool handled = deliverEvent(type, event, stop);
    scope.finish();
    return handled;
}

bool UXObject::_shouldTriggerEvent(UXEventType type, const UXEvent& event)
{
    static constexpr auto filters = std::to_array<bool (UXObject::*)(const UXEvent&)>({
        &UXObject::shouldTriggerMouseDown,
        &UXObject::shouldTriggerMouseMove,
        &UXObject::shouldTriggerMouseUp,
        &UXObject::shouldTriggerMouseEnter,
        &UXObject::shouldTriggerMouseLeave,
        &UXObject::shouldTriggerMouseWheel,
        &UXObject::shouldTriggerMouseDoubleClick,
        &UXObject::shouldTriggerMouseDragging,
        &UXObject::shouldTriggerMouseDrop,
        &UXObject::shouldTriggerMouseDragEnter,
        &UXObject::shouldTriggerMouseDragOver,
        &UXObject::shouldTriggerMouseDragLeave,
        &UXObject::shouldTriggerKeyDown,
        &UXObject::shouldTriggerKeyUp,
    });
    const auto index = static_cast<std::size_t>(type);
    return index >= filters.size() || (this->*filters[index])(event);
}

bool UXObject::_customEvent(UXEventType type, const UXEvent& event, bool& stop)
{
    static constexpr auto handlers = std::to_array<bool (UXObject::*)(const UXEvent&, bool&)>({
        &UXObject::customMouseDown,
        &UXObject::customMouseMove,
        &UXObject::customMouseUp,
        &UXObject::customMouseEnter,
        &UXObject::customMouseLeave,
        &UXObject::customMouseWheel,
        &UXObject::customMouseDoubleClick,
        &UXObject::customMouseDragging,
        &UXObject::customMouseDrop,
        &UXObject::customMouseDragEnter,
        &UXObject::customMouseDragOver,
        &UXObject::customMouseDragLeave,
        &UXObject::customKeyDown,
        &UXObject::customKeyUp,
    });
    const auto index = static_cast<std::size_t>(type);
    return index < handlers.size() && (this->*handlers[index])(event, stop);
}

/** Only an object that takes the event begins to be pressed, hovered or dragged. */
void UXObject::_noteMouseCame(UXEventType type)
{
    m_mousePressing = m_mousePressing || type == UXEventType::MouseDown;
    m_mouseOvering = m_mouseOvering || type == UXEventType::MouseEnter;
    m_mouseDragging = m_mouseDragging || type == UXEventType::MouseDragging;
    m_mouseDraggingOver = m_mouseDraggingOver || type == UXEventType::MouseDragEnter;
}

/** What has ended has ended, whether or not the object takes the event that says so. */
void UXObject::_noteMouseWent(UXEventType type)
{
    const bool up = type == UXEventType::MouseUp;
    m_mousePressing = m_mousePressing && !up;
    m_mouseDragging = m_mouseDragging && !up;
    m_mouseOvering = m_mouseOvering && type != UXEventType::MouseLeave;
    m_mouseDraggingOver = m_mouseDraggingOver && type != UXEventType::MouseDragLeave &&
                          type != UXEventType::MouseDrop;
}
