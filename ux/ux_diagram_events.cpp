#include "ux/ux_diagram.h"

#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_event_dispatcher.h"
#include "ux/ux_global_event_diagram.h"

bool UXDiagram::mouseDown(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDown, event, &UXObject::mouseDown,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.press(own); });
}

bool UXDiagram::mouseMove(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseMove, event, &UXObject::mouseMove,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.move(own); });
}

bool UXDiagram::mouseUp(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseUp, event, &UXObject::mouseUp,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.release(own); });
}

bool UXDiagram::mouseEnter(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseEnter, event, &UXObject::mouseEnter,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.move(own); });
}

bool UXDiagram::mouseLeave(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseLeave, event, &UXObject::mouseLeave,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.leave(own); });
}

bool UXDiagram::mouseWheel(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseWheel, event, &UXObject::mouseWheel,
                     [](UXEventDispatcher& to, const UXEvent& own) {
                         return to.sendToPoint(UXEventType::MouseWheel, own);
                     });
}

bool UXDiagram::mouseDoubleClick(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDoubleClick, event, &UXObject::mouseDoubleClick,
                     [](UXEventDispatcher& to, const UXEvent& own) {
                         return to.sendToPoint(UXEventType::MouseDoubleClick, own);
                     });
}

bool UXDiagram::mouseDragging(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragging, event, &UXObject::mouseDragging,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.move(own); });
}

bool UXDiagram::mouseDragEnter(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragEnter, event, &UXObject::mouseDragEnter,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.dragExternal(own); });
}

bool UXDiagram::mouseDragOver(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragOver, event, &UXObject::mouseDragOver,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.dragExternal(own); });
}

bool UXDiagram::mouseDragLeave(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragLeave, event, &UXObject::mouseDragLeave,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.leave(own); });
}

bool UXDiagram::mouseDrop(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDrop, event, &UXObject::mouseDrop,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.dropExternal(own); });
}

bool UXDiagram::keyDown(const UXEvent& event)
{
    return _dispatch(
        UXEventType::KeyDown, event, &UXObject::keyDown,
        [](UXEventDispatcher& to, const UXEvent& own) { return to.sendKey(UXEventType::KeyDown, own); });
}

bool UXDiagram::keyUp(const UXEvent& event)
{
    return _dispatch(
        UXEventType::KeyUp, event, &UXObject::keyUp,
        [](UXEventDispatcher& to, const UXEvent& own) { return to.sendKey(UXEventType::KeyUp, own); });
}

bool UXDiagram::externalDragging(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDragOver, event, &UXObject::externalDragging,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.dragExternal(own); });
}

bool UXDiagram::externalDrop(const UXEvent& event)
{
    return _dispatch(UXEventType::MouseDrop, event, &UXObject::externalDrop,
                     [](UXEventDispatcher& to, const UXEvent& own) { return to.dropExternal(own); });
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
    dispatcher->cancelPress();
}

bool UXDiagram::triggerEventResponder(UXEventResponderType type, const UXEvent& event)
{
    const std::shared_ptr<UXEventDispatcher> dispatcher = m_dispatcher;
    for (const UXObjectWatcher& asked : dispatcher->obtainObjectsUnder(event.getMousePoint())) {
        UXObject* object = asked.getObject();
        if (object == this ? UXObject::triggerEventResponder(type, event)
                           : object && object->triggerEventResponder(type, event))
            return true;
    }
    return false;
}

bool UXDiagram::_dispatch(UXEventType type, const UXEvent& event, Entry entry,
                          const std::function<bool(UXEventDispatcher&, const UXEvent&)>& act)
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
        handled = act(*dispatcher, own) || handled;
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
