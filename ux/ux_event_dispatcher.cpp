#include "ux/ux_event_dispatcher.h"

#include "ux/ux_accessible_change.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object.h"
#include "ux/ux_transform.h"

#include <algorithm>
#include <utility>

/** A press on its way: whoever it reaches is told of its end, also where a handler of the host's throws. */
class UXEventDispatcher::PressScope {
public:
    PressScope(UXEventDispatcher& dispatcher, const Journey& journey)
        : m_dispatcher(dispatcher), m_journey(journey)
    {
    }
    ~PressScope()
    {
        m_dispatcher.m_refusedPress = m_journey.refused;
        m_dispatcher._rememberPressed(m_journey);
    }
    PressScope(const PressScope&) = delete;
    PressScope& operator=(const PressScope&) = delete;

private:
    UXEventDispatcher& m_dispatcher;
    const Journey& m_journey;
};

bool UXEventDispatcher::press(const UXEvent& event)
{
    _endPress();
    _exchange(m_hoverPath, _hit(event.getMousePoint()), UXEventType::MouseLeave, UXEventType::MouseEnter,
              event);
    const Path path = _hit(event.getMousePoint());
    if (path.empty())
        return false;
    m_pressPath = path;
    setFocusedObject(path.back().getObject());
    m_pressedButton = event.containsEventKey(UXEventKey::RightButton) ? UXEventKey::RightButton
                                                                      : UXEventKey::LeftButton;
    Journey journey{UXEventType::MouseDown, event, {}};
    const PressScope scope(*this, journey);
    return _send(journey, path);
}

/** Whoever the press or a drag has reached is told of its end. */
void UXEventDispatcher::_rememberPressed(const Journey& journey)
{
    for (const UXObjectWatcher& reached : journey.delivered) {
        if (reached.isAlive() && !_contains(m_pressedObjects, reached.getObject()))
            m_pressedObjects.push_back(reached);
    }
    // A callback has ended the press already.
    if (!isPressing())
        _endPress();
}

bool UXEventDispatcher::move(const UXEvent& event)
{
    if (isPressing())
        return _drag(event);
    Path path = _hit(event.getMousePoint());
    const bool stayed = std::ranges::equal(path, m_hoverPath, {}, &UXObjectWatcher::getObject,
                                           &UXObjectWatcher::getObject);
    if (stayed)
        return _send(UXEventType::MouseMove, event, std::move(path));
    // Whoever is told may change the tree.
    _exchange(m_hoverPath, path, UXEventType::MouseLeave, UXEventType::MouseEnter, event);
    return _sendToPoint(UXEventType::MouseMove, event);
}

/** Ends the press of objects, also where a handler of the host's throws. */
class UXEventDispatcher::ReleaseScope {
public:
    explicit ReleaseScope(const Path& pressed) : m_pressed(pressed) {}
    ~ReleaseScope()
    {
        for (const UXObjectWatcher& pressed : m_pressed) {
            if (UXObject* object = pressed.getObject())
                object->_noteMouseWent(UXEventType::MouseUp);
        }
    }
    ReleaseScope(const ReleaseScope&) = delete;
    ReleaseScope& operator=(const ReleaseScope&) = delete;

private:
    const Path& m_pressed;
};

bool UXEventDispatcher::release(const UXEvent& event)
{
    const bool captured = isPressing();
    const bool dragged = std::exchange(m_dragged, false);
    const Path pressPath = std::exchange(m_pressPath, {});
    const Path pressedObjects = std::exchange(m_pressedObjects, {});
    const UXEventKey button = m_pressedButton;

    Path refused = std::exchange(m_refusedPress, {});

    const Path path = captured ? pressPath : _hit(event.getMousePoint());
    Journey up{UXEventType::MouseUp, event, {}};
    bool handled = false;
    {
        const ReleaseScope scope(pressedObjects);
        handled = _send(up, path);
    }
    refused.insert(refused.end(), up.refused.begin(), up.refused.end());

    if (dragged) {
        Journey drop{UXEventType::MouseDrop, event, {}, false, pressPath.back()};
        handled = _send(drop, Path(m_dragPath)) || handled;
        _exchange(m_dragPath, {}, UXEventType::MouseDragLeave, UXEventType::MouseDragEnter, event,
                  pressPath.back());
    }
    if (captured && pressPath.back().isAlive()) {
        const Path under = _hit(event.getMousePoint());
        if (!under.empty() && under.back().getObject() == pressPath.back().getObject()) {
            UXEvent click = event;
            click.addEventKey(button);
            const UXEventType type = button == UXEventKey::RightButton ? UXEventType::RightClick
                                                                       : UXEventType::LeftClick;
            Journey clicking{type, click, {}, false, std::nullopt, {}, std::move(refused)};
            handled = _send(clicking, under) || handled;
        }
    }
    if (!isPressing()) {
        _exchange(m_hoverPath, _hit(event.getMousePoint()), UXEventType::MouseLeave, UXEventType::MouseEnter,
                  event);
    }
    return handled;
}

bool UXEventDispatcher::leave(const UXEvent& event)
{
    _exchange(m_hoverPath, {}, UXEventType::MouseLeave, UXEventType::MouseEnter, event);
    _exchange(m_dragPath, {}, UXEventType::MouseDragLeave, UXEventType::MouseDragEnter, event);
    return false;
}

bool UXEventDispatcher::sendToPoint(const UXEvent& event)
{
    return _sendToPoint(event.getEventType(), event);
}

bool UXEventDispatcher::sendKey(const UXEvent& event)
{
    UXObject* focus = m_focus.getObject();
    return _send(event.getEventType(), event,
                 _obtainPathTo(focus && _isOnDiagram(focus) ? focus : m_root.getObject()));
}

bool UXEventDispatcher::dragExternal(const UXEvent& event)
{
    _exchange(m_dragPath, _hit(event.getMousePoint()), UXEventType::MouseDragLeave,
              UXEventType::MouseDragEnter, event);
    return _sendToPoint(UXEventType::MouseDragOver, event);
}

bool UXEventDispatcher::dropExternal(const UXEvent& event)
{
    const bool handled = _sendToPoint(UXEventType::MouseDrop, event);
    _exchange(m_dragPath, {}, UXEventType::MouseDragLeave, UXEventType::MouseDragEnter, event);
    return handled;
}

std::vector<UXObjectWatcher> UXEventDispatcher::obtainObjectsUnder(UXPoint point) const
{
    Path path = _hit(point);
    std::ranges::reverse(path);
    return path;
}

UXCursor UXEventDispatcher::obtainCursor() const
{
    const Path& path = isPressing() ? m_pressPath : m_hoverPath;
    for (auto watcher = path.rbegin(); watcher != path.rend(); ++watcher) {
        const UXObject* object = watcher->getObject();
        if (object && object->getCursor() != UXCursor::AsParent)
            return object->getCursor();
    }
    return UXCursor::AsParent;
}

void UXEventDispatcher::abandon()
{
    _endPress();
    for (Path* path : {&m_hoverPath, &m_dragPath}) {
        for (const UXObjectWatcher& watcher : std::exchange(*path, {})) {
            if (UXObject* object = watcher.getObject()) {
                object->_noteMouseWent(UXEventType::MouseLeave);
                object->_noteMouseWent(UXEventType::MouseDragLeave);
            }
        }
    }
}

void UXEventDispatcher::cancelPress(const UXEvent& event)
{
    _exchange(m_dragPath, {}, UXEventType::MouseDragLeave, UXEventType::MouseDragEnter, event);
    _endPress();
}

void UXEventDispatcher::setFocusedObject(UXObject* object)
{
    const UXObjectWatcher old = m_focus;
    if (old.getObject() == object)
        return;
    const UXNotificationScope scope;
    m_focus = UXObjectWatcher(object);
    for (const UXObjectWatcher& changed : {old, UXObjectWatcher(m_focus)})
        if (changed.isAlive() && changed.getObject()->getShowsFocus())
            changed.getObject()->invalidate();
    if (m_focus.isAlive())
        uxTellAccessibleChange(*m_focus.getObject(), UXAccessibleChange::Focus);
}

bool UXEventDispatcher::_isOnDiagram(const UXObject* object) const
{
    UXObject* root = m_root.getObject();
    return root && (object == root || object->hasParent(root));
}

bool UXEventDispatcher::_contains(const Path& path, const UXObject* object)
{
    return std::ranges::any_of(
        path, [object](const UXObjectWatcher& watcher) { return watcher.getObject() == object; });
}

void UXEventDispatcher::_appendHit(Path& path, UXObject* object, UXPoint point, const UXObject* skipped)
{
    // Step by step: each object is asked with the map of its parent at hand, however deep it stands.
    UXTransform fromRoot = object->obtainTransformToParent(nullptr).inverted();
    for (UXObject* hit = object; hit;) {
        path.emplace_back(hit);
        const std::vector<UXObject*>& children = hit->getChildren();
        UXTransform toChild;
        const auto found = std::find_if(children.rbegin(), children.rend(), [&](const UXObject* child) {
            if (child == skipped || !child->getVisible())
                return false;
            toChild = child->_obtainTransformToNextParent().inverted().combined(fromRoot);
            return child->ptInRect(UXObject::_mapPoint(toChild, point));
        });
        hit = found == children.rend() ? nullptr : *found;
        fromRoot = toChild;
    }
}

UXEventDispatcher::Path UXEventDispatcher::_hit(UXPoint point, const UXObject* skipped) const
{
    Path path;
    UXObject* root = m_root.getObject();
    if (root && root->getVisible())
        _appendHit(path, root, point, skipped);
    return path;
}

UXEventDispatcher::Path UXEventDispatcher::_obtainPathTo(UXObject* object) const
{
    Path path;
    for (UXObject* step = object; step; step = step->getParent())
        path.emplace_back(step);
    std::ranges::reverse(path);
    return path;
}

bool UXEventDispatcher::_deliver(Journey& journey, const UXObjectWatcher& target)
{
    UXObject* object = target.getObject();
    if (!object || !_isOnDiagram(object) || _contains(journey.leftOut, object) ||
        !journey.event._noteDelivery(journey.type, object))
        return false;
    journey.delivered.push_back(target);
    journey.followSource();
    const bool handled = object->deliverEvent(journey.type, journey.event, journey.stop);
    if (target.isAlive() && !object->m_tookLastEvent)
        journey.refused.push_back(target);
    return handled;
}

/** From the end of path up, and from each object that forwards the event to what lies behind it. */
bool UXEventDispatcher::_send(Journey& journey, Path path)
{
    struct Level {
        Path path;
        bool handled = false;
    };
    // A list instead of recursion: any number of objects that lie over one another may forward, and the call
    // stack must not grow with them.
    std::vector<Level> levels(1);
    levels.back().path = std::move(path);
    while (true) {
        Level& level = levels.back();
        if (level.handled || level.path.empty() || journey.stop) {
            const bool handled = level.handled;
            levels.pop_back();
            if (levels.empty())
                return handled;
            levels.back().handled = levels.back().handled || handled;
            continue;
        }
        const UXObjectWatcher target = level.path.back();
        level.path.pop_back();
        level.handled = _deliver(journey, target);
        Path behind = journey.stop ? Path() : _obtainPathBehind(journey, target);
        if (!behind.empty())
            levels.push_back({std::move(behind)});
    }
}

bool UXEventDispatcher::_send(UXEventType type, const UXEvent& event, Path path)
{
    Journey journey{type, event, {}};
    return _send(journey, std::move(path));
}

bool UXEventDispatcher::_sendToPoint(UXEventType type, const UXEvent& event)
{
    return _send(type, event, _hit(event.getMousePoint()));
}

/** @return the path from the next object behind one that forwards the event; empty where there is none */
UXEventDispatcher::Path UXEventDispatcher::_obtainPathBehind(Journey& journey, const UXObjectWatcher& from)
{
    journey.followSource();
    UXObject* object = from.getObject();
    if (!object || !_isOnDiagram(object) || !object->shouldForwardEventToNeighbors(journey.event))
        return {};
    object = from.getObject();
    UXObject* parent = object && _isOnDiagram(object) ? object->getParent() : nullptr;
    if (!parent)
        return {};

    const std::vector<UXObject*>& siblings = parent->getChildren();
    const auto own = std::find(siblings.rbegin(), siblings.rend(), object);
    const UXPoint point = journey.event.getMousePoint();
    const auto behind = std::find_if(
        own == siblings.rend() ? own : own + 1, siblings.rend(), [&](UXObject* sibling) {
            return sibling->getVisible() &&
                   sibling->ptInRect(sibling->translatePoint(point, nullptr, sibling));
        });
    Path path;
    if (behind != siblings.rend())
        _appendHit(path, *behind, point, nullptr);
    return path;
}

void UXEventDispatcher::_exchange(Path& current, const Path& next, UXEventType left, UXEventType entered,
                                  const UXEvent& event, const std::optional<UXObjectWatcher>& source)
{
    // Stored first: a callback may send another event, which then starts from here.
    const Path old = std::exchange(current, next);
    const auto tell = [&](UXEventType type, const UXObjectWatcher& target) {
        Journey journey{type, event, {}, false, source};
        _deliver(journey, target);
    };
    for (auto watcher = old.rbegin(); watcher != old.rend(); ++watcher) {
        UXObject* object = watcher->getObject();
        if (!object || _contains(next, object))
            continue;
        tell(left, *watcher);
        // What has been taken off the diagram is told nothing, but is not under the pointer any more.
        if (watcher->isAlive())
            watcher->getObject()->_noteMouseWent(left);
    }
    for (const UXObjectWatcher& watcher : next) {
        // One that an event inside a callback has left meanwhile is not entered late.
        if (watcher.isAlive() && !_contains(old, watcher.getObject()) &&
            _contains(current, watcher.getObject()))
            tell(entered, watcher);
    }
}

bool UXEventDispatcher::_drag(const UXEvent& event)
{
    const UXObjectWatcher source = m_pressPath.back();
    m_dragged = true;
    Journey dragging{UXEventType::MouseDragging, event, {}, false, source};
    bool handled = _send(dragging, Path(m_pressPath));
    _rememberPressed(dragging);
    if (!isPressing())
        return handled;
    // What is dragged usually lies under the pointer itself: the target is what lies behind it.
    const Path target = _hit(event.getMousePoint(), source.getObject());
    _exchange(m_dragPath, target, UXEventType::MouseDragLeave, UXEventType::MouseDragEnter, event, source);
    Journey over{UXEventType::MouseDragOver, event, {}, false, source};
    return _send(over, target) || handled;
}

void UXEventDispatcher::_endPress()
{
    m_pressPath.clear();
    m_dragged = false;
    for (const UXObjectWatcher& pressed : std::exchange(m_pressedObjects, {})) {
        if (UXObject* object = pressed.getObject())
            object->_noteMouseWent(UXEventType::MouseUp);
    }
}
