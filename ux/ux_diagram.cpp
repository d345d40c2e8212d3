#include "ux/ux_diagram.h"

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_event_dispatcher.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_ground.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config_watcher.h"
#include "ux/ux_use_case_diagram.h"

#include <algorithm>
#include <cmath>

namespace {

bool hasResponder(const std::vector<UXObject*>& objects, UXEventResponderType type)
{
    return std::ranges::any_of(objects, [type](const UXObject* object) {
        return object->getShouldResponse(type) || hasResponder(object->getChildren(), type);
    });
}

/** @return whether global is registered on diagram, or on one of those that are, and so on */
bool seesEventsOf(const UXDiagram& diagram, const UXDiagram* global)
{
    return std::ranges::any_of(diagram.getGlobalEventDiagrams(), [global](const UXGlobalEventDiagram* above) {
        return above == global || seesEventsOf(*above, global);
    });
}

/** @return whether both maps differ by whole pixels alone */
bool haveSamePixels(const UXTransform& a, const UXTransform& b)
{
    const auto isWhole = [](double distance) { return distance == std::round(distance); };
    return a.xx == b.xx && a.xy == b.xy && a.yx == b.yx && a.yy == b.yy && isWhole(a.dx - b.dx) &&
           isWhole(a.dy - b.dy);
}

} // namespace

UXDiagram::UXDiagram(UXContext* context)
    : m_context(context), m_contextWatcher(context), m_dispatcher(std::make_shared<UXEventDispatcher>(this))
{
}

UXDiagram::~UXDiagram()
{
    while (!m_globalEventDiagrams.empty())
        unregisterGlobalEventDiagram(m_globalEventDiagrams.back());
    if (UXContext* context = getContext())
        context->_forgetDiagram(this);
    m_dispatcher->abandon();
    detachChildren();
}

void UXDiagram::customSerialize()
{
    UXObject::customSerialize();
    serializeObjectList("m_objects", {getChildren().begin(), getChildren().end()});
}

std::string UXDiagram::customSerializeTypeID() { return "UXDiagram"; }

bool UXDiagram::customDeserialize()
{
    const bool complete = UXObject::customDeserialize();
    return deserializeExistingObjectList("m_objects", {getChildren().begin(), getChildren().end()}) &&
           complete;
}

UXObject* UXDiagram::getParent() const { return nullptr; }

void UXDiagram::setAlign(UXAlign align)
{
    if (align == getAlign())
        return;
    UXObject::setAlign(align);
    if (UXContext* context = getContext())
        context->notifyDiagramAlignChanged(this);
}

void UXDiagram::setRect(UXRect rect)
{
    const UXNotificationScope scope;
    const UXRect old = getRect();
    UXObjectWatcher watcher(this);
    UXObject::setRect(rect);
    if (!watcher.isAlive() || (old.width == rect.width && old.height == rect.height))
        return;
    if (UXContext* context = getContext())
        context->notifyDiagramSizeChanged(this);
}

void UXDiagram::layout()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    UXObject::layout();
    if (watcher.isAlive())
        _forEachGlobalEventDiagram([](UXGlobalEventDiagram& diagram) { diagram.layout(); });
}

void UXDiagram::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXNotificationScope scope;
    const UXObjectWatcher watcher(this);
    const UXPaintConfigWatcher configWatcher(config);
    UXObject::paint(config, dirtyRect);
    if (!watcher.isAlive())
        return;
    _forEachGlobalEventDiagramFromBack([&](UXGlobalEventDiagram& diagram) {
        if (!configWatcher.isGone() && diagram.getVisible() && diagram.isInDiagramSpace())
            diagram.paint(config, dirtyRect);
    });
}

void UXDiagram::paintBackground(UXPaintConfig* config)
{
    UXPainter* painter = uxCreatePainterWithObject(config, this);
    if (painter)
        uxDrawGround(*painter, *this, 0);
    uxDestroyPainter(painter);
}

void UXDiagram::setDeviceTransform(const UXTransform& toDevice)
{
    const bool liesAsBefore = haveSamePixels(m_deviceTransform, toDevice);
    m_deviceTransform = toDevice;
    if (!liesAsBefore)
        requireLayoutOfAll();
}

void UXDiagram::addDirtyRect(UXRect rect)
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    UXObject::addDirtyRect(rect);
    if (!watcher.isAlive())
        return;
    const std::vector<UXObjectWatcher> shownBy(m_useCaseDiagrams.begin(), m_useCaseDiagrams.end());
    for (const UXObjectWatcher& made : shownBy) {
        if (made.isAlive())
            made.getObject()->invalidate();
    }
}

void UXDiagram::flushDirtyRect()
{
    UXContext* context = getContext();
    if (context && !isUpdating() && !getDirtyRegion().isEmpty())
        context->notifyDirtyRect(this);
}

void UXDiagram::repaintDirtyRect()
{
    if (isUpdating()) {
        UXObject::repaintDirtyRect();
        return;
    }
    if (UXContext* context = getContext())
        context->repaintDirtyRect(this);
}

bool UXDiagram::getShouldResponse(UXEventResponderType type) const
{
    return UXObject::getShouldResponse(type) || hasResponder(getChildren(), type);
}

bool UXDiagram::controlSize(const UXEvent& event)
{
    const UXEvent own = event;
    UXEventDispatchScope scope(own);
    UXObjectWatcher watcher(this);
    bool handled = UXObject::controlSize(own);
    if (watcher.isAlive()) {
        _forEachGlobalEventDiagram(
            [&](UXGlobalEventDiagram& diagram) { handled = diagram.controlSize(own) || handled; });
    }
    scope.finish();
    return handled;
}

void UXDiagram::_forEachGlobalEventDiagram(const std::function<void(UXGlobalEventDiagram&)>& act)
{
    _forEach({m_globalEventDiagrams.begin(), m_globalEventDiagrams.end()}, act);
}

void UXDiagram::_forEachGlobalEventDiagramFromBack(const std::function<void(UXGlobalEventDiagram&)>& act)
{
    _forEach({m_globalEventDiagrams.rbegin(), m_globalEventDiagrams.rend()}, act);
}

void UXDiagram::_forEach(const std::vector<UXObjectWatcher>& candidates,
                         const std::function<void(UXGlobalEventDiagram&)>& act)
{
    UXObjectWatcher watcher(this);
    for (const UXObjectWatcher& candidate : candidates) {
        if (!watcher.isAlive())
            return;
        // One that a callback has unregistered or destroyed is not among them any more.
        const auto registered = std::ranges::find_if(
            m_globalEventDiagrams,
            [&](const UXGlobalEventDiagram* diagram) { return diagram == candidate.getObject(); });
        if (registered != m_globalEventDiagrams.end())
            act(**registered);
    }
}

void UXDiagram::afterEvent(const UXEvent& event, bool) { customAfterEvent(event); }

void UXDiagram::customAfterEvent(const UXEvent&) {}

void UXDiagram::originDidChange() {}

void UXDiagram::zoomRatioWillChange(double) {}

void UXDiagram::zoomRatioDidChange(double) {}

void UXDiagram::registerGlobalEventDiagram(UXGlobalEventDiagram* diagram)
{
    if (!diagram || diagram == this || seesEventsOf(*diagram, this) ||
        std::ranges::count(m_globalEventDiagrams, diagram) > 0)
        return;
    m_globalEventDiagrams.push_back(diagram);
    diagram->m_servedDiagrams.push_back(this);
}

void UXDiagram::unregisterGlobalEventDiagram(UXGlobalEventDiagram* diagram)
{
    if (std::erase(m_globalEventDiagrams, diagram) > 0)
        diagram->_forgetServedDiagram(this);
}

void UXDiagram::bringGlobalEventDiagramToFront(UXGlobalEventDiagram* diagram)
{
    const auto found = std::ranges::find(m_globalEventDiagrams, diagram);
    if (found != m_globalEventDiagrams.end())
        std::rotate(m_globalEventDiagrams.begin(), found, found + 1);
}

UXGlobalControlSpaceEventDiagram* UXDiagram::getGlobalControlSpaceEventDiagram() const
{
    for (UXGlobalEventDiagram* diagram : m_globalEventDiagrams) {
        if (auto* found = dynamic_cast<UXGlobalControlSpaceEventDiagram*>(diagram))
            return found;
    }
    return nullptr;
}

void UXDiagram::_setContext(UXContext* context)
{
    m_context = context;
    m_contextWatcher = UXJsonObjectWatcher(context);
}
