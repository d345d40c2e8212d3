#include "ux/ux_context.h"

#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_json_object_watcher.h"
#include "ux/ux_notification_scope.h"
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
    std::vector<UXObjectWatcher> shown;
    for (UXControl* control : m_controls) {
        shown.emplace_back(std::exchange(control->m_activeDiagram, nullptr));
        control->m_context = nullptr;
    }
    for (UXDiagram* diagram : m_diagrams)
        diagram->_setContext(nullptr);
    m_controls.clear();
    m_diagrams.clear();
    // Callbacks can run from here on, and none of them can reach this context any more.
    for (const UXObjectWatcher& watcher : shown) {
        if (watcher.isAlive())
            static_cast<UXDiagram*>(watcher.getObject())->_endPointer();
    }
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
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher added(diagram);
    UXContext* other = diagram->getContext();
    if (other && other != this)
        other->removeDiagram(diagram);
    // A callback of the removal may have added it to another context.
    if (!self.isAlive() || !added.isAlive() || (diagram->getContext() && diagram->getContext() != this))
        return;
    std::erase(m_diagrams, diagram);
    const auto place = std::clamp<std::ptrdiff_t>(position, 0, std::ssize(m_diagrams));
    m_diagrams.insert(m_diagrams.begin() + place, diagram);
    diagram->_setContext(this);
}

void UXContext::removeDiagram(UXDiagram* diagram)
{
    if (!diagram || diagram->getContext() != this)
        return;
    const bool wasShown = !getControlsWithDiagram(diagram).empty();
    _forgetDiagram(diagram);
    diagram->_setContext(nullptr);
    if (wasShown)
        diagram->_endPointer();
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
    const UXJsonObjectWatcher self(this);
    const std::weak_ptr<const bool> life = control->m_life;
    if (control->m_context)
        control->m_context->removeControl(control);
    if (!self.isAlive() || life.expired() || control->m_context)
        return;
    m_controls.push_back(control);
    control->m_context = this;
}

void UXContext::removeControl(UXControl* control)
{
    if (std::erase(m_controls, control) == 0)
        return;
    control->m_context = nullptr;
    _endPointer(control->m_hasPointer, std::exchange(control->m_activeDiagram, nullptr));
}

/** Ends hover and press on a diagram that a control has ceased to show: the release and the next move will
 * not come there. Where another control still shows it, its pointer's hover and press stay.
 *  @param wasThere whether the pointer was on the control that has left it */
void UXContext::_endPointer(bool wasThere, UXDiagram* left)
{
    if (left && (wasThere || getControlsWithDiagram(left).empty()))
        left->_endPointer();
}

void UXContext::setActiveDiagram(UXControl* control, UXDiagram* diagram)
{
    if (!control)
        return;
    const UXNotificationScope scope;
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher watcher(diagram);
    addControl(control);
    if (self.isAlive() && watcher.isAlive())
        addDiagram(diagram);
    const auto isHere = [&] {
        return self.isAlive() && watcher.getObject() == diagram && _hasControl(control) &&
               (!diagram || _hasDiagram(diagram));
    };
    if (!isHere() || control->m_activeDiagram == diagram)
        return;

    _endPointer(control->m_hasPointer, std::exchange(control->m_activeDiagram, diagram));
    if (!isHere() || control->m_activeDiagram != diagram)
        return;
    _notify({control}, [](UXControl* shown) { shown->_tellDevice(); });
    if (self.isAlive() && watcher.isAlive())
        _notify({control}, [](UXControl* shown) { shown->resizeDiagramAlignClient(); });
    if (self.isAlive() && watcher.isAlive() && _hasControl(control))
        UXNotificationScope::post(UXNotification::FullScreenDirtyRect, control, diagram);
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
    const UXNotificationScope scope;
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

/** While a diagram is laid out and painted, further requests to repaint it are kept for afterwards. */
class UXContext::RepaintScope {
public:
    explicit RepaintScope(UXDiagram* diagram) : m_watcher(diagram) { diagram->m_isRepainting = true; }
    ~RepaintScope()
    {
        if (m_watcher.isAlive())
            static_cast<UXDiagram*>(m_watcher.getObject())->m_isRepainting = false;
    }
    RepaintScope(const RepaintScope&) = delete;
    RepaintScope& operator=(const RepaintScope&) = delete;

private:
    UXObjectWatcher m_watcher;
};

void UXContext::repaintDirtyRect(UXDiagram* diagram)
{
    if (!diagram || diagram->getContext() != this)
        return;
    if (diagram->m_isRepainting) {
        diagram->m_repaintAsked = true;
        return;
    }
    const UXNotificationScope scope;
    // What painting asks for gets one more pass. What asks again in that pass stays dirty until the next
    // repaint, so that this always ends.
    if (_repaintDirtyRectOnce(diagram))
        _repaintDirtyRectOnce(diagram);
}

/** @return whether a repaint was asked for while the diagram was painted, and both are still there */
bool UXContext::_repaintDirtyRectOnce(UXDiagram* diagram)
{
    // 1. Lay out, which can make more areas dirty and can destroy the diagram or this context.
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    {
        const RepaintScope scope(diagram);
        diagram->layout();
    }
    UXNotificationScope::runPostedActions();
    const auto isAlive = [&] { return self.isAlive() && shown.isAlive(); };
    if (!isAlive() || !isDirty(*diagram))
        return false;

    // 2. Ask each control for its configuration. Whoever paints later finds the areas where they were.
    const std::vector<UXControl*> controls = getControlsWithDiagram(diagram);
    std::vector<Painting> paintings;
    bool paintedAll = !controls.empty();
    for (UXControl* control : controls) {
        const bool isPainted = getActiveDiagram(control) != diagram || _prepare(diagram, control, paintings);
        if (!isAlive())
            return false;
        paintedAll = paintedAll && isPainted;
    }

    // 3. Paint on those that can now. The areas are cleared first, so that what painting makes dirty stays.
    if (paintedAll)
        clearDirtyRegion(*diagram);
    const RepaintScope scope(diagram);
    diagram->m_repaintAsked = false;
    return _paint(paintings, diagram) && std::exchange(diagram->m_repaintAsked, false);
}

/** Adds what is to be painted on control, or tells it that it has to paint.
 *  @return whether nothing is left for it to do later; this context and the diagram may be gone */
bool UXContext::_prepare(UXDiagram* diagram, UXControl* control, std::vector<Painting>& paintings)
{
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    const auto isShown = [&] {
        return self.isAlive() && shown.isAlive() && getActiveDiagram(control) == diagram;
    };
    UXPaintConfig* config = control->obtainPaintConfig(diagram);
    const bool isValid = config && isShown() && config->isPaintConfigValid();
    if (!isShown())
        return true;
    if (isValid)
        paintings.push_back(
            {control, config, UXPaintConfigWatcher(config), obtainDirtyRegion(*diagram, *control)});
    else
        UXNotificationScope::post(UXNotification::DirtyRect, control, diagram);
    return isValid;
}

/** @return whether this context and the diagram have outlived it */
bool UXContext::_paint(const std::vector<Painting>& paintings, UXDiagram* diagram)
{
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    for (const Painting& painting : paintings) {
        for (const UXRect& rect : painting.region.getRects()) {
            if (!self.isAlive() || !shown.isAlive())
                return false;
            if (getActiveDiagram(painting.control) != diagram || painting.watcher.isGone())
                break;
            _paint(painting, diagram, rect);
        }
    }
    return self.isAlive() && shown.isAlive();
}

/** Paints an area of diagram on a control, and over it what is in the control's own space. */
void UXContext::_paint(const Painting& painting, UXDiagram* diagram, const UXRect& rect)
{
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    {
        const UXPaintClip clip(*painting.config, UXDoubleRect(rect));
        if (!painting.control->hasDefaultBackground())
            diagram->paintBackground(painting.config);
        if (shown.isAlive() && !painting.watcher.isGone())
            diagram->paint(painting.config, rect);
    }
    if (self.isAlive() && shown.isAlive() && getActiveDiagram(painting.control) == diagram)
        _paintOver(painting, diagram, rect);
}

void UXContext::_paintOver(const Painting& painting, UXDiagram* diagram, const UXRect& rect)
{
    UXControl* control = painting.control;
    const UXJsonObjectWatcher self(this);
    const UXObjectWatcher shown(diagram);
    const auto isShown = [&] {
        return self.isAlive() && shown.isAlive() && getActiveDiagram(control) == diagram;
    };
    const std::vector<UXGlobalControlSpaceEventDiagram*> all = obtainDiagramsOver(*diagram);
    const std::vector<UXObjectWatcher> diagramsOver(all.begin(), all.end());
    for (const UXObjectWatcher& watcher : diagramsOver) {
        auto* over = static_cast<UXGlobalControlSpaceEventDiagram*>(watcher.getObject());
        UXPaintConfig* config = over && isShown() ? control->obtainPaintConfig(over) : nullptr;
        if (!config || !config->isPaintConfigValid() || !watcher.isAlive() || !isShown())
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

void UXContext::_post(UXNotification notification, UXDiagram* diagram)
{
    const UXNotificationScope scope;
    for (UXControl* control : getControlsWithDiagram(diagram))
        UXNotificationScope::post(notification, control, diagram);
}

void UXContext::notifyDirtyRect()
{
    const UXNotificationScope scope;
    for (UXControl* control : m_controls)
        notifyDirtyRect(control);
}

void UXContext::notifyDirtyRect(UXControl* control)
{
    if (_hasControl(control))
        UXNotificationScope::post(UXNotification::DirtyRect, control, control->getActiveDiagram());
}

void UXContext::notifyDirtyRect(UXDiagram* diagram) { _post(UXNotification::DirtyRect, diagram); }

void UXContext::notifyFullScreenDirtyRect()
{
    const UXNotificationScope scope;
    for (UXControl* control : m_controls)
        notifyFullScreenDirtyRect(control);
}

void UXContext::notifyFullScreenDirtyRect(UXControl* control)
{
    if (_hasControl(control))
        UXNotificationScope::post(UXNotification::FullScreenDirtyRect, control, control->getActiveDiagram());
}

void UXContext::notifyFullScreenDirtyRect(UXDiagram* diagram)
{
    _post(UXNotification::FullScreenDirtyRect, diagram);
}

void UXContext::notifyCursorChange(int cursor)
{
    const UXNotificationScope scope;
    for (UXControl* control : m_controls)
        notifyCursorChange(control, cursor);
}

void UXContext::notifyCursorChange(UXControl* control, int cursor)
{
    if (_hasControl(control))
        UXNotificationScope::post(UXNotification::CursorChange, control, nullptr, cursor);
}

void UXContext::notifyCursorChange(UXDiagram* diagram, int cursor)
{
    const UXNotificationScope scope;
    for (UXControl* control : getControlsWithDiagram(diagram))
        notifyCursorChange(control, cursor);
}

void UXContext::notifyDiagramAlignChanged(UXDiagram* diagram)
{
    _post(UXNotification::DiagramAlignChanged, diagram);
}

void UXContext::notifyDiagramSizeChanged(UXDiagram* diagram)
{
    _post(UXNotification::DiagramSizeChanged, diagram);
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

void UXContext::notifyRightClickMenu(UXControl* control, UXMessageRightClickParam* param, UXPoint point)
{
    _notify({control}, [=](UXControl* told) { told->notifyRightClickMenu(param, point); });
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
