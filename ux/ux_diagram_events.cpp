#include "ux/ux_diagram.h"

#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_event_dispatcher.h"
#include "ux/ux_global_event_diagram.h"

bool UXDiagram::mouseDown(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDown, event, &UXObject::mouseDown, &UXEventDispatcher::press);
}

bool UXDiagram::mouseMove(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseMove, event, &UXObject::mouseMove, &UXEventDispatcher::move);
}

bool UXDiagram::mouseUp(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseUp, event, &UXObject::mouseUp, &UXEventDispatcher::release);
}

bool UXDiagram::mouseEnter(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseEnter, event, &UXObject::mouseEnter, &UXEventDispatcher::move);
}

bool UXDiagram::mouseLeave(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseLeave, event, &UXObject::mouseLeave, &UXEventDispatcher::leave);
}

bool UXDiagram::mouseWheel(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseWheel, event, &UXObject::mouseWheel, &UXEventDispatcher::sendToPoint);
}

bool UXDiagram::mouseDoubleClick(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDoubleClick, event, &UXObject::mouseDoubleClick,
                     &UXEventDispatcher::sendToPoint);
}

bool UXDiagram::mouseDragging(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragging, event, &UXObject::mouseDragging, &UXEventDispatcher::move);
}

bool UXDiagram::mouseDragEnter(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragEnter, event, &UXObject::mouseDragEnter,
                     &UXEventDispatcher::dragExternal);
}

bool UXDiagram::mouseDragOver(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragOver, event, &UXObject::mouseDragOver,
                     &UXEventDispatcher::dragExternal);
}

bool UXDiagram::mouseDragLeave(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragLeave, event, &UXObject::mouseDragLeave,
                     &UXEventDispatcher::leave);
}

bool UXDiagram::mouseDrop(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDrop, event, &UXObject::mouseDrop, &UXEventDispatcher::dropExternal);
}

bool UXDiagram::keyDown(const UXEvent& event)
{
    return _dispatch(UXEventType::KeyDown, event, &UXObject::keyDown, &UXEventDispatcher::sendKey);
}

bool UXDiagram::keyUp(const UXEvent& event)
{
    return _dispatch(UXEventType::KeyUp, event, &UXObject::keyUp, &UXEventDispatcher::sendKey);
}

bool UXDiagram::externalDragging(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragOver, event, &UXObject::externalDragging,
                     &UXEventDispatcher::dragExternal);
}

bool UXDiagram::externalDrop(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDrop, event, &UXObject::externalDrop,
                     &UXEventDispatcher::dropExternal);
}

UXObject* UXDiagram::getFocusedObject() const { return m_dispatcher->getFocusedObject(); }

void UXDiagram::setFocusedObject(UXObject* object) { m_dispatcher->setFocusedObject(object); }

std::vector<UXObjectWatcher> UXDiagram::obtainObjectsUnder(UXPoint point) const
{
    return m_dispatcher->obtainObjectsUnder(point);
}

UXCursor UXDiagram::obtainCursor() const
{
    for (const UXGlobalEventDiagram* diagram : m_globalEventDiagrams) {
        const UXCursor cursor = diagram->obtainCursor();
        if (cursor != UXCursor::AsParent)
            return cursor;
    }
    return m_dispatcher->obtainCursor();
}

void UXDiagram::cancelPress()
{
    // What hears that a drag has left may destroy the diagram.
    const std::shared_ptr<UXEventDispatcher> dispatcher = m_dispatcher;
    const UXEvent event(UXEventType::MouseDragLeave);
    UXEventDispatchScope scope(event);
    dispatcher->cancelPress(event);
    scope.finish();
}

void UXDiagram::_endPointer()
{
    const UXEvent event(UXEventType::MouseLeave);
    UXEventDispatchScope scope(event);
    const std::shared_ptr<UXEventDispatcher> dispatcher = m_dispatcher;
    _forEachGlobalEventDiagram([this, &event](UXGlobalEventDiagram& above) {
        if (above.getActiveDiagram() != this)
            return;
        const UXObjectWatcher watcher(&above);
        above.cancelPress();
        if (watcher.isAlive())
            above.mouseLeave(event);
    });
    dispatcher->cancelPress(event);
    dispatcher->leave(event);
    scope.finish();
}

bool UXDiagram::triggerEventResponder(UXEventResponderType type, const UXEvent& event)
{
    const UXEvent own = event;
    for (const UXObjectWatcher& asked : obtainObjectsUnder(own.getMousePoint())) {
        UXObject* object = asked.getObject();
        if (object == this ? UXObject::triggerEventResponder(type, own)
                           : object && object->triggerEventResponder(type, own))
            return true;
    }
    return false;
}

bool UXDiagram::_dispatch(UXEventType type, const UXEvent& event, Entry entry, Act act)
{
    UXEvent own = event;
    own.setEventType(type);
    UXEventDispatchScope scope(own);
    UXObjectWatcher watcher(this);
    const std::shared_ptr<UXEventDispatcher> dispatcher = m_dispatcher;
    // A pointer that the tree has captured is released there even when a global diagram keeps the event.
    const bool releases = type == UXEventType::MouseUp && dispatcher->isPressing();

    bool handled = _offerToGlobalEventDiagrams(own, entry);
    if (watcher.isAlive() && (!handled || releases))
        handled = ((*dispatcher).*act)(own) || handled;
    else if (watcher.isAlive() && type == UXEventType::MouseMove && !dispatcher->isPressing())
        dispatcher->leave(own);
    if (watcher.isAlive())
        afterEvent(own, handled);
    scope.finish();
    return handled;
}

bool UXDiagram::_offerToGlobalEventDiagrams(const UXEvent& event, Entry entry)
{
    bool handled = false;
    _forEachGlobalEventDiagram([&](UXGlobalEventDiagram& diagram) {
        const bool moves = event.getEventType() == UXEventType::MouseMove;
        const bool releases = event.getEventType() == UXEventType::MouseUp &&
                              diagram.m_dispatcher->isPressing();
        if (handled && !moves && !releases)
            return;
        UXObjectWatcher watcher(&diagram);
        diagram.setActiveDiagram(this);
        if (!watcher.isAlive())
            return;
        UXEvent translated = event;
        // A control's own pixel is finer than what it became in the diagram's space.
        const bool keepsPixel = !diagram.isInDiagramSpace() && event.getControl();
        translated.setMousePoint(
            keepsPixel ? UXPoint(event.getControlPoint().x, event.getControlPoint().y)
                       : diagram.diagramSpaceToGlobalDiagramSpace(event.getMousePoint(), event.getControl()));
        // The pointer is over one thing only: what lies behind is not hovered any more.
        if (handled && moves)
            diagram.mouseLeave(translated);
        else
            handled = (diagram.*entry)(translated) || handled;
    });
    return handled;
}
