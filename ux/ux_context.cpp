#include "ux/ux_context.h"

#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_text_file.h"
#include "ux/ux_use_case_diagram.h"

#include <algorithm>
#include <utility>

namespace {

/** @return the visible diagrams over diagram that are in the space of its controls */
std::vector<UXGlobalControlSpaceEventDiagram*> obtainDiagramsOver(const UXDiagram& diagram)
{
    std::vector<UXGlobalControlSpaceEventDiagram*> found;
    for (UXGlobalEventDiagram* global : diagram.getGlobalEventDiagrams()) {
        auto* over = dynamic_cast<UXGlobalControlSpaceEventDiagram*>(global);
        if (over && over->getVisible())
            found.push_back(over);
    }
    return found;
}

bool isDirty(const UXDiagram& diagram)
{
    return !diagram.getDirtyRegion().isEmpty() ||
           std::ranges::any_of(obtainDiagramsOver(diagram), [](const UXGlobalControlSpaceEventDiagram* over) {
               return !over->getDirtyRegion().isEmpty();
           });
}

/** @return what is dirty on diagram, and over it on control, in the diagram's space */
UXDirtyRegion obtainDirtyRegion(const UXDiagram& diagram, const UXControl& control)
{
    UXDirtyRegion region = diagram.getDirtyRegion();
    for (const UXGlobalControlSpaceEventDiagram* over : obtainDiagramsOver(diagram)) {
        for (const UXRect& rect : over->getDirtyRegion().getRects())
            region.add(
                control.controlSpaceToDiagramSpace(UXControlRect(rect.x, rect.y, rect.width, rect.height)));
    }
    return region;
}

void clearDirtyRegion(UXDiagram& diagram)
{
    diagram.clearDirtyRect();
    for (UXGlobalControlSpaceEventDiagram* over : obtainDiagramsOver(diagram))
        over->clearDirtyRect();
}

} // namespace

UXContext::UXContext() = default;

UXContext::~UXContext()
{
    while (!m_controls.empty())
        removeControl(m_controls.back());
    while (!m_diagrams.empty())
        removeDiagram(m_diagrams.back());
}

void UXContext::customSerialize()
{
    serializeObjectList("m_diagrams", {m_diagrams.begin(), m_diagrams.end()});
}

std::string UXContext::customSerializeTypeID() { return "UXContext"; }

bool UXContext::customDeserialize()
{
    return deserializeExistingObjectList("m_diagrams", {m_diagrams.begin(), m_diagrams.end()});
}

void UXContext::addDiagram(UXDiagram* diagram)
{
    if (!_hasDiagram(diagram))
        addDiagram(diagram, uxSaturateToInt(m_diagrams.size()));
}

void UXContext::addDiagram(UXDiagram* diagram, int position)
{
    if (!diagram)
        return;
    UXContext* other = diagram->getContext();
    if (other && other != this)
        other->removeDiagram(diagram);
    std::erase(m_diagrams, diagram);
    const auto place = std::clamp<std::ptrdiff_t>(position, 0, std::ssize(m_diagrams));
    m_diagrams.insert(m_diagrams.begin() + place, diagram);
    diagram->_setContext(this);
}

void UXContext::removeDiagram(UXDiagram* diagram)
{
    if (!diagram || diagram->getContext() != this)
        return;
    _forgetDiagram(diagram);
    diagram->_setContext(nullptr);
}

void UXContext::_forgetDiagram(UXDiagram* diagram)
{
    std::erase(m_diagrams, diagram);
    for (UXControl* control : m_controls) {
        if (control->m_activeDiagram == diagram)
            control->m_activeDiagram = nullptr;
    }
}

void UXContext::addControl(UXControl* control)
{
    if (!control || _hasControl(control))
        return;
    if (control->m_context)
        control->m_context->removeControl(control);
    m_controls.push_back(control);
    control->m_context = this;
}

void UXContext::removeControl(UXControl* control)
{
    if (std::erase(m_controls, control) == 0)
        return;
    control->m_context = nullptr;
    control->m_activeDiagram = nullptr;
}

void UXContext::setActiveDiagram(UXControl* control, UXDiagram* diagram)
{
    if (!control)
        return;
    addControl(control);
    if (diagram)
        addDiagram(diagram);
    if (control->m_activeDiagram == diagram)
        return;
    UXDiagram* left = control->m_activeDiagram;
    control->m_activeDiagram = diagram;

    // The release of a press goes elsewhere now: nothing may wait for it there.
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher watcher(diagram);
    if (left && getControlsWithDiagram(left).empty())
        left->cancelPress();
    if (!self.isAlive())
        return;
    _notify({control}, [](UXControl* shown) { shown->resizeDiagramAlignClient(); });
    if (self.isAlive() && watcher.isAlive())
        _notify({control}, [diagram](UXControl* shown) { shown->notifyFullScreenDirtyRect(diagram); });
}

UXDiagram* UXContext::getActiveDiagram(UXControl* control) const
{
    return _hasControl(control) ? control->m_activeDiagram : nullptr;
}

std::vector<UXControl*> UXContext::getControlsWithDiagram(UXDiagram* diagram) const
{
    std::vector<UXControl*> found;
    for (UXControl* control : m_controls) {
        if (diagram && control->m_activeDiagram == diagram)
            found.push_back(control);
    }
    return found;
}

std::vector<UXControl*> UXContext::getControlsWithDiagram(UXDiagram* diagram, int useCase) const
{
    return getControlsWithDiagramWithAnyUseCases(diagram, {useCase});
}

std::vector<UXControl*> UXContext::getControlsWithDiagramAnyRelated(UXDiagram* diagram) const
{
    std::vector<UXControl*> found;
    for (UXControl* control : m_controls) {
        const auto* made = dynamic_cast<const UXUseCaseDiagram*>(control->m_activeDiagram);
        if (diagram && (control->m_activeDiagram == diagram || (made && made->getSourceDiagram() == diagram)))
            found.push_back(control);
    }
    return found;
}

std::vector<UXControl*> UXContext::getControlsWithDiagramWithAnyUseCases(
    UXDiagram* diagram, const std::vector<int>& useCases) const
{
    std::vector<UXControl*> found = getControlsWithDiagram(diagram);
    std::erase_if(found, [&](const UXControl* control) {
        return std::ranges::none_of(useCases, [&](int useCase) { return control->containUseCase(useCase); });
    });
    return found;
}

std::vector<UXControl*> UXContext::getControlsWithDiagramWithOnlyUseCases(
    UXDiagram* diagram, const std::vector<int>& useCases) const
{
    const auto isGiven = [&](int useCase) { return std::ranges::count(useCases, useCase) > 0; };
    std::vector<UXControl*> found = getControlsWithDiagram(diagram);
    std::erase_if(found, [&](const UXControl* control) {
        return control->getUseCases().empty() || !std::ranges::all_of(control->getUseCases(), isGiven);
    });
    return found;
}

UXCoordinateMap UXContext::getCoordinateMap(UXControl* control, UXDiagram* diagram) const
{
    const UXDiagram* active = getActiveDiagram(control);
    const auto* made = dynamic_cast<const UXUseCaseDiagram*>(active);
    const bool related = made && made->getSourceDiagram() == diagram;
    if (!diagram || (active != diagram && !related))
        return {};
    const UXCoordinateMap map{control->getDiagramDoubleOriginInControlSpace(),
                              control->getZoomRatioWithScalingFactor()};
    if (active == diagram)
        return map;
    const UXPoint origin = made->getUseCaseOrigin();
    const UXRect shown = made->obtainShownRect();
    const double zoom = made->getUseCaseZoomRatio();
    return {map.toControlSpace({origin.x - shown.x * zoom, origin.y - shown.y * zoom}), map.zoomRatio * zoom};
}

void UXContext::setDirtyRect(UXDiagram* diagram, UXRect rect)
{
    if (!_hasDiagram(diagram))
        return;
    diagram->clearDirtyRect();
    diagram->addDirtyRect(rect);
}

UXRect UXContext::getDirtyRect(UXDiagram* diagram) const
{
    return _hasDiagram(diagram) ? diagram->getDirtyRegion().obtainBounds() : UXRect{};
}

void UXContext::clearDirtyRect(UXDiagram* diagram)
{
    if (_hasDiagram(diagram))
        diagram->clearDirtyRect();
}

void UXContext::repaint()
{
    const UXJsonObjectWatcher watcher(this);
    const std::vector<UXDiagram*> diagrams = m_diagrams;
    for (UXDiagram* diagram : diagrams) {
        if (!watcher.isAlive())
            return;
        repaint(diagram);
    }
}

void UXContext::repaint(UXDiagram* diagram)
{
    if (_hasDiagram(diagram))
        diagram->repaint();
}

void UXContext::repaintDirtyRect(UXDiagram* diagram)
{
    if (!diagram || diagram->getContext() != this)
        return;
    // 1. The pass can make more dirty, and ends the story when it destroys the diagram or this context.
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    diagram->layout();
    const auto isAlive = [&] { return self.isAlive() && shown.isAlive(); };
    if (!isAlive() || !isDirty(*diagram))
        return;

    // 2. Ask each control for its configuration. Whoever paints later finds the areas where they were.
    const std::vector<UXControl*> controls = getControlsWithDiagram(diagram);
    std::vector<Painting> paintings;
    bool paintedAll = !controls.empty();
    for (UXControl* control : controls) {
        if (!isAlive())
            return;
        if (getActiveDiagram(control) != diagram)
            continue;
        UXPaintConfig* config = control->obtainPaintConfig(diagram);
        if (!isAlive())
            return;
        if (getActiveDiagram(control) != diagram)
            continue;
        if (config && config->isPaintConfigValid()) {
            paintings.push_back({control, config, obtainDirtyRegion(*diagram, *control)});
        } else {
            paintedAll = false;
            control->notifyDirtyRect(diagram);
        }
    }
    if (!isAlive())
        return;

    // 3. Paint on those that can now. The areas are cleared first, so that what painting makes dirty stays.
    if (paintedAll)
        clearDirtyRegion(*diagram);
    for (const Painting& painting : paintings) {
        for (const UXRect& rect : painting.region.getRects()) {
            if (!isAlive())
                return;
            if (getActiveDiagram(painting.control) != diagram)
                break;
            _paint(painting, diagram, rect);
        }
    }
}

/** Paints an area of diagram on a control, and over it what is in the control's own space. */
void UXContext::_paint(const Painting& painting, UXDiagram* diagram, const UXRect& rect)
{
    UXControl* control = painting.control;
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    {
        const UXPaintClip clip(*painting.config, UXDoubleRect(rect));
        if (!control->hasDefaultBackground())
            diagram->paintBackground(painting.config);
        diagram->paint(painting.config, rect);
    }
    const auto isShown = [&] {
        return self.isAlive() && shown.isAlive() && getActiveDiagram(control) == diagram;
    };
    if (!isShown())
        return;
    const std::vector<UXGlobalControlSpaceEventDiagram*> all = obtainDiagramsOver(*diagram);
    const std::vector<UXObjectWatcher> diagramsOver(all.begin(), all.end());
    for (const UXObjectWatcher& watcher : diagramsOver) {
        auto* over = static_cast<UXGlobalControlSpaceEventDiagram*>(watcher.getObject());
        UXPaintConfig* config = over && isShown() ? control->obtainPaintConfig(over) : nullptr;
        if (!config || !config->isPaintConfigValid() || !watcher.isAlive())
            continue;
        const UXDoubleControlRect exact = control->diagramSpaceToControlSpace(UXDoubleRect(rect));
        const UXControlRect pixels = control->diagramSpaceToControlSpace(rect);
        const UXPaintClip clip(*config, UXDoubleRect(exact.x, exact.y, exact.width, exact.height));
        over->paintOver(control, config, UXRect(pixels.x, pixels.y, pixels.width, pixels.height));
    }
}

template <class Notify>
void UXContext::_notify(const std::vector<UXControl*>& controls, const Notify& notify)
{
    const UXJsonObjectWatcher watcher(this);
    for (UXControl* control : controls) {
        if (!watcher.isAlive())
            return;
        if (_hasControl(control))
            notify(control);
    }
}

void UXContext::notifyDirtyRect()
{
    _notify(std::vector(m_controls),
            [](UXControl* control) { control->notifyDirtyRect(control->getActiveDiagram()); });
}

void UXContext::notifyDirtyRect(UXControl* control)
{
    _notify({control}, [](UXControl* told) { told->notifyDirtyRect(told->getActiveDiagram()); });
}

void UXContext::notifyDirtyRect(UXDiagram* diagram)
{
    _notify(getControlsWithDiagram(diagram),
            [diagram](UXControl* control) { control->notifyDirtyRect(diagram); });
}

void UXContext::notifyFullScreenDirtyRect()
{
    _notify(std::vector(m_controls),
            [](UXControl* control) { control->notifyFullScreenDirtyRect(control->getActiveDiagram()); });
}

void UXContext::notifyFullScreenDirtyRect(UXControl* control)
{
    _notify({control}, [](UXControl* told) { told->notifyFullScreenDirtyRect(told->getActiveDiagram()); });
}

void UXContext::notifyFullScreenDirtyRect(UXDiagram* diagram)
{
    _notify(getControlsWithDiagram(diagram),
            [diagram](UXControl* control) { control->notifyFullScreenDirtyRect(diagram); });
}

void UXContext::notifyCursorChange(int cursor)
{
    _notify(std::vector(m_controls), [cursor](UXControl* control) { control->notifyCursorChange(cursor); });
}

void UXContext::notifyCursorChange(UXControl* control, int cursor)
{
    _notify({control}, [cursor](UXControl* told) { told->notifyCursorChange(cursor); });
}

void UXContext::notifyCursorChange(UXDiagram* diagram, int cursor)
{
    _notify(getControlsWithDiagram(diagram),
            [cursor](UXControl* control) { control->notifyCursorChange(cursor); });
}

void UXContext::notifyDiagramAlignChanged(UXDiagram* diagram)
{
    _notify(getControlsWithDiagram(diagram),
            [diagram](UXControl* control) { control->notifyDiagramAlignChanged(diagram); });
}

void UXContext::notifyDiagramSizeChanged(UXDiagram* diagram)
{
    _notify(getControlsWithDiagram(diagram),
            [diagram](UXControl* control) { control->notifyDiagramSizeChanged(diagram); });
}

void UXContext::notifyDiagramMove(UXDiagram* diagram, UXControl* control, UXPoint distance)
{
    _notify({control}, [=](UXControl* told) { told->notifyDiagramMove(diagram, distance); });
}

void UXContext::notifyEvent(UXControl* control, const UXEvent& event)
{
    _notify({control}, [&event](UXControl* told) { told->notifyEvent(event); });
}

void UXContext::notifyEvent(UXControl* control, const UXEvent& event, UXObject* object, UXPoint point)
{
    _notify({control}, [&](UXControl* told) { told->notifyEvent(event, object, point); });
}

void UXContext::notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point)
{
    _notify(std::vector(m_controls),
            [=](UXControl* control) { control->notifyRightClickMenu(param, point); });
}

void UXContext::postAction(UXControl* control, const std::function<void()>& action)
{
    if (_hasControl(control))
        control->postAction(action);
}

void UXContext::postAction(UXDiagram* diagram, const std::function<void()>& action)
{
    const std::vector<UXControl*> controls = getControlsWithDiagramAnyRelated(diagram);
    const auto direct = std::ranges::find(controls, diagram, &UXControl::getActiveDiagram);
    if (!controls.empty())
        (direct != controls.end() ? *direct : controls.front())->postAction(action);
    else if (UXEventDispatchScope::isDispatching())
        UXEventDispatchScope::postAction(action);
}

int UXContext::load(const std::string& fileName)
{
    std::string text;
    if (!uxReadTextFile(fileName, text))
        return FileFailed;
    return deserialize(text) ? Done : DocumentFailed;
}

int UXContext::save(const std::string& fileName)
{
    return uxWriteTextFile(fileName, serialize()) ? Done : FileFailed;
}

bool UXContext::_hasControl(const UXControl* control) const
{
    return std::ranges::find(m_controls, control) != m_controls.end();
}

bool UXContext::_hasDiagram(const UXDiagram* diagram) const
{
    return std::ranges::find(m_diagrams, diagram) != m_diagrams.end();
}
