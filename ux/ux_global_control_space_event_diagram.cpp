#include "ux/ux_global_control_space_event_diagram.h"

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_hint.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_key_code.h"
#include "ux/ux_localize.h"
#include "ux/ux_notification_scope.h"

#include <algorithm>
#include <memory>
#include <utility>

UXGlobalControlSpaceEventDiagram::UXGlobalControlSpaceEventDiagram(UXContext* context)
    : UXGlobalEventDiagram(context)
{
}

UXGlobalControlSpaceEventDiagram::~UXGlobalControlSpaceEventDiagram()
{
    // Nobody is told any more.
    beginUpdate();
    m_hints.clear();
}

void UXGlobalControlSpaceEventDiagram::showHint(UXHintInfo* info, UXObject* target, UXPoint point,
                                                UXControl* control, UXRect area)
{
    if (!info)
        return;
    UXDiagram* diagram = uxObtainDiagram(target);
    UXContext* context = diagram ? diagram->getContext() : nullptr;
    if (!info->enabled || !context) {
        hideHint(info, control);
        return;
    }
    const std::vector<UXControl*> controls = control ? std::vector<UXControl*>{control}
                                                     : context->getControlsWithDiagram(diagram);
    for (UXControl* shown : controls)
        _obtainHint(info, shown).ask(info, target, point, area, _obtainPointer(shown));
    _requireUpdate();
}

void UXGlobalControlSpaceEventDiagram::hideHint(UXHintInfo* info, UXControl* control)
{
    for (const std::unique_ptr<UXHint>& hint : m_hints) {
        if ((!info || hint->getKey() == info) && (!control || hint->getControl() == control))
            hint->end();
    }
    _requireUpdate();
}

std::vector<UXHint*> UXGlobalControlSpaceEventDiagram::getVisibleHints(const UXControl* control) const
{
    std::vector<UXHint*> found;
    for (const std::unique_ptr<UXHint>& hint : m_hints) {
        if (hint->getVisible() && (!control || hint->getControl() == control))
            found.push_back(hint.get());
    }
    return found;
}

/** @return the hint that was asked for with key; or else one that is over, rather one that is still seen, so
 * that it changes in place; or else a new one */
UXHint& UXGlobalControlSpaceEventDiagram::_obtainHint(const UXHintInfo* key, UXControl* control)
{
    UXHint* over = nullptr;
    for (const std::unique_ptr<UXHint>& hint : m_hints) {
        const bool isHere = hint->getControl() == control;
        if (isHere && hint->isAsked() && hint->getKey() == key)
            return *hint;
        if (!hint->isAsked() && (isHere || !hint->getControl()) && (!over || hint->getVisible()))
            over = hint.get();
    }
    if (!over) {
        over = m_hints.emplace_back(std::make_unique<UXHint>()).get();
        addChild(over);
    }
    over->setControl(control);
    return *over;
}

bool UXGlobalControlSpaceEventDiagram::_serves(UXObject* target) const
{
    return std::ranges::count(getServedDiagrams(), uxObtainDiagram(target)) > 0;
}

/** During an event all changes wait for its end: a hint that goes from an item to its neighbour is hidden and
 * shown, and would flicker. */
void UXGlobalControlSpaceEventDiagram::_requireUpdate()
{
    if (m_hints.empty())
        return;
    if (!UXEventDispatchScope::isDispatching()) {
        _updateHints();
        return;
    }
    // Where a host's exception ends the event, what is posted never comes: the next event posts anew.
    if (m_updateDispatch == UXEventDispatchScope::getNumber())
        return;
    m_updateDispatch = UXEventDispatchScope::getNumber();
    UXEventDispatchScope::postAction([this, watcher = UXObjectWatcher(this)] {
        if (!watcher.isAlive())
            return;
        m_updateDispatch = 0;
        _updateHints();
    });
}

void UXGlobalControlSpaceEventDiagram::_updateHints()
{
    // A control that paints as soon as it is told lays out, which leads back here.
    if (m_updating)
        return;
    const UXNotificationScope scope;
    // Asked for before anything is begun: whoever translates may destroy the diagram, and its hints with it.
    const UXObjectWatcher watcher(this);
    const std::string moreText = uxLocalizeString("and %1 more");
    if (!watcher.isAlive())
        return;
    const UXFlagScope updating(this, m_updating);
    // The batch tells the controls once, when all is done.
    beginUpdate();
    for (const std::unique_ptr<UXHint>& hint : m_hints) {
        if (hint->isAsked() && !_serves(hint->getTarget()))
            hint->end();
        hint->update(_obtainPointer(hint->getControl()), moreText);
    }
    endUpdate();
}

void UXGlobalControlSpaceEventDiagram::paintOver(const UXControl* control, UXPaintConfig* config,
                                                 UXRect dirtyRect)
{
    for (const std::unique_ptr<UXHint>& hint : m_hints)
        hint->setShownInPaint(hint->getControl() == control);
    const UXObjectWatcher watcher(this);
    paint(config, dirtyRect);
    if (!watcher.isAlive())
        return;
    for (const std::unique_ptr<UXHint>& hint : m_hints)
        hint->setShownInPaint(true);
}

UXPoint UXGlobalControlSpaceEventDiagram::diagramSpaceToGlobalDiagramSpace(UXPoint point,
                                                                           UXControl* control) const
{
    if (!control)
        return point;
    const UXControlPoint inControl = control->diagramSpaceToControlSpace(point);
    return {inControl.x, inControl.y};
}

UXPoint UXGlobalControlSpaceEventDiagram::globalDiagramSpaceToDiagramSpace(const UXEvent& event) const
{
    const UXPoint& point = event.getMousePoint();
    return event.getControl()
               ? event.getControl()->controlSpaceToDiagramSpace(UXControlPoint(point.x, point.y))
               : point;
}

bool UXGlobalControlSpaceEventDiagram::isInDiagramSpace() const { return false; }

std::string UXGlobalControlSpaceEventDiagram::customSerializeTypeID()
{
    return "UXGlobalControlSpaceEventDiagram";
}

void UXGlobalControlSpaceEventDiagram::layout()
{
    const UXObjectWatcher watcher(this);
    if (!m_hints.empty())
        _updateHints();
    if (watcher.isAlive())
        UXGlobalEventDiagram::layout();
}

void UXGlobalControlSpaceEventDiagram::flushDirtyRect()
{
    if (isUpdating() || getDirtyRegion().isEmpty())
        return;
    const UXNotificationScope scope;
    const std::vector<UXObjectWatcher> served(getServedDiagrams().begin(), getServedDiagrams().end());
    for (const UXObjectWatcher& watcher : served) {
        auto* diagram = static_cast<UXDiagram*>(watcher.getObject());
        if (UXContext* context = diagram ? diagram->getContext() : nullptr)
            context->notifyDirtyRect(diagram);
    }
}

bool UXGlobalControlSpaceEventDiagram::mouseDown(const UXEvent& event)
{
    const UXObjectWatcher watcher(this);
    hideHint(nullptr, event.getControl());
    return watcher.isAlive() && UXGlobalEventDiagram::mouseDown(event);
}

bool UXGlobalControlSpaceEventDiagram::mouseMove(const UXEvent& event)
{
    const UXObjectWatcher watcher(this);
    _notePointer(event);
    return watcher.isAlive() && UXGlobalEventDiagram::mouseMove(event);
}

bool UXGlobalControlSpaceEventDiagram::mouseEnter(const UXEvent& event)
{
    const UXObjectWatcher watcher(this);
    _notePointer(event);
    return watcher.isAlive() && UXGlobalEventDiagram::mouseEnter(event);
}

bool UXGlobalControlSpaceEventDiagram::mouseLeave(const UXEvent& event)
{
    const UXObjectWatcher watcher(this);
    _forgetPointer(event.getControl());
    hideHint(nullptr, event.getControl());
    return watcher.isAlive() && UXGlobalEventDiagram::mouseLeave(event);
}

bool UXGlobalControlSpaceEventDiagram::keyDown(const UXEvent& event)
{
    const std::vector<UXHint*> hints = getVisibleHints(event.getControl());
    if (event.getKeyCode() != static_cast<int>(UXKeyCode::Escape) || hints.empty())
        return UXGlobalEventDiagram::keyDown(event);
    for (UXHint* hint : hints)
        hint->dismiss();
    _requireUpdate();
    return true;
}

bool UXGlobalControlSpaceEventDiagram::controlSize(const UXEvent& event)
{
    const UXObjectWatcher watcher(this);
    hideHint(nullptr, event.getControl());
    return watcher.isAlive() && UXGlobalEventDiagram::controlSize(event);
}

void UXGlobalControlSpaceEventDiagram::servedDiagramLeft() { _requireUpdate(); }

std::optional<UXPoint> UXGlobalControlSpaceEventDiagram::_obtainPointer(const UXControl* control) const
{
    for (const Pointer& pointer : m_pointers) {
        if (pointer.control == control && !pointer.controlLife.expired())
            return pointer.point;
    }
    return std::nullopt;
}

void UXGlobalControlSpaceEventDiagram::_notePointer(const UXEvent& event)
{
    if (!event.getControl())
        return;
    _forgetPointer(event.getControl());
    m_pointers.push_back({event.getControl()->getLife(), event.getControl(), event.getMousePoint()});
    _requireUpdate();
}

void UXGlobalControlSpaceEventDiagram::_forgetPointer(const UXControl* control)
{
    std::erase_if(m_pointers, [control](const Pointer& pointer) {
        return pointer.control == control || pointer.controlLife.expired();
    });
}
