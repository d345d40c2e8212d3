#include "ux/ux_control.h"

#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_event_dispatch_scope.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_saturate.h"
#include "ux/ux_timer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr double UXControl::minZoomRatio;
constexpr double UXControl::maxZoomRatio;

namespace {

constexpr double zoomStep = 1.25;
// What lies this close to a whole number is meant to be it: zooming in and out again leaves such traces.
constexpr double roundingTrace = 1e-6;

/** @return the smallest whole rectangle around an exact one */
template <class Rect, class DoubleRect>
Rect enclose(const DoubleRect& exact)
{
    const auto low = [](double value) { return uxSaturateToInt(std::floor(value + roundingTrace)); };
    const auto high = [](double value) { return uxSaturateToInt(std::ceil(value - roundingTrace)); };
    const int x = low(exact.x), y = low(exact.y);
    return {x, y, uxSaturateToInt(std::int64_t{high(exact.x + exact.width)} - x),
            uxSaturateToInt(std::int64_t{high(exact.y + exact.height)} - y)};
}

} // namespace

UXControl::UXControl() : m_life(std::make_shared<const bool>(true)) {}

UXControl::~UXControl()
{
    // First what still calls back: a part that the pointer leaves may start a timer here.
    if (m_context)
        m_context->removeControl(this);
    while (!m_timers.empty())
        m_timers.back()->stop();
}

void UXControl::setUseCases(const std::vector<int>& useCases) { m_useCases = useCases; }

bool UXControl::containUseCase(int useCase) const
{
    return std::ranges::find(m_useCases, useCase) != m_useCases.end();
}

UXControlRect UXControl::getControlRect() const { return m_controlRect; }

void UXControl::setControlRect(const UXControlRect& rect)
{
    if (rect == m_controlRect)
        return;
    const bool resized = rect.width != m_controlRect.width || rect.height != m_controlRect.height;
    const UXNotificationScope scope;
    m_controlRect = rect;
    const std::weak_ptr<const bool> life = m_life;
    resizeDiagramAlignClient();
    if (!life.expired() && resized)
        _send(&UXObject::controlSize, UXEvent());
    if (!life.expired())
        UXNotificationScope::post(UXNotification::ResetScroller, this);
}

UXControlRect UXControl::getControlRectWithoutScalingFactor() const
{
    const auto unscale = [this](int value) { return uxRoundToInt(value / m_scalingFactor); };
    return {unscale(m_controlRect.x), unscale(m_controlRect.y), unscale(m_controlRect.width),
            unscale(m_controlRect.height)};
}

void UXControl::setScalingFactor(double factor)
{
    if (!std::isfinite(factor) || factor <= 0 || factor == m_scalingFactor)
        return;
    // What the diagram shows stays where it is, measured in its own units.
    m_origin = {m_origin.x / m_scalingFactor * factor, m_origin.y / m_scalingFactor * factor};
    const UXNotificationScope scope;
    m_scalingFactor = factor;
    const std::weak_ptr<const bool> life = m_life;
    resizeDiagramAlignClient();
    if (!life.expired())
        _originChanged();
}

double UXControl::getZoomRatioWithScalingFactor() const { return m_zoomRatio * m_scalingFactor; }

void UXControl::setZoomRatio(double ratio) { _setZoomRatioAround(ratio, m_origin); }

void UXControl::zoomIn(bool keepMousePoint, const UXEvent& event)
{
    _zoomStep(zoomStep, keepMousePoint, event);
}

void UXControl::zoomOut(bool keepMousePoint, const UXEvent& event)
{
    _zoomStep(1 / zoomStep, keepMousePoint, event);
}

void UXControl::zoomReset()
{
    const UXNotificationScope scope;
    const std::weak_ptr<const bool> life = m_life;
    setZoomRatio(1);
    if (!life.expired())
        setDiagramDoubleOriginInControlSpace({});
}

void UXControl::_zoomStep(double factor, bool keepMousePoint, const UXEvent& event)
{
    const std::weak_ptr<const bool> life = m_life;
    const UXEvent asked = event;
    const bool responds = m_activeDiagram &&
                          m_activeDiagram->triggerEventResponder(UXEventResponderType::Zoom, asked);
    UXEventDispatchScope(asked).finish();
    if (responds || life.expired())
        return;
    const UXDoubleControlPoint middle{m_controlRect.width / 2.0, m_controlRect.height / 2.0};
    const UXDoubleControlPoint mouse = diagramSpaceToControlSpace(UXDoublePoint(asked.getMousePoint()));
    _setZoomRatioAround(m_zoomRatio * factor, keepMousePoint ? mouse : middle);
}

void UXControl::_setZoomRatioAround(double ratio, const UXDoubleControlPoint& fixedPoint)
{
    if (!std::isfinite(ratio))
        return;
    const double bounded = std::clamp(ratio, minZoomRatio, maxZoomRatio);
    if (bounded == m_zoomRatio)
        return;

    const UXNotificationScope scope;
    const std::weak_ptr<const bool> life = m_life;
    const UXObjectWatcher diagram(m_activeDiagram);
    if (diagram.isAlive())
        m_activeDiagram->zoomRatioWillChange(bounded);
    if (life.expired())
        return;
    const double growth = bounded / m_zoomRatio;
    m_zoomRatio = bounded;
    m_origin = {fixedPoint.x - (fixedPoint.x - m_origin.x) * growth,
                fixedPoint.y - (fixedPoint.y - m_origin.y) * growth};
    if (diagram.isAlive())
        static_cast<UXDiagram*>(diagram.getObject())->zoomRatioDidChange(bounded);
    if (!life.expired())
        resizeDiagramAlignClient();
    if (!life.expired())
        _originChanged();
}

UXPoint UXControl::getDiagramOrigin() const
{
    const double zoom = getZoomRatioWithScalingFactor();
    return {uxRoundToInt(m_origin.x / zoom), uxRoundToInt(m_origin.y / zoom)};
}

void UXControl::setDiagramOrigin(UXPoint origin)
{
    const double zoom = getZoomRatioWithScalingFactor();
    setDiagramDoubleOriginInControlSpace({origin.x * zoom, origin.y * zoom});
}

UXControlPoint UXControl::getDiagramOriginInControlSpace() const
{
    return {uxRoundToInt(m_origin.x), uxRoundToInt(m_origin.y)};
}

void UXControl::setDiagramOriginInControlSpace(const UXControlPoint& origin)
{
    setDiagramDoubleOriginInControlSpace({static_cast<double>(origin.x), static_cast<double>(origin.y)});
}

UXDoubleControlPoint UXControl::getDiagramDoubleOriginInControlSpace() const { return m_origin; }

void UXControl::setDiagramDoubleOriginInControlSpace(const UXDoubleControlPoint& origin)
{
    if (!std::isfinite(origin.x) || !std::isfinite(origin.y) || origin == m_origin)
        return;
    m_origin = origin;
    _originChanged();
}

/** The screen's pixels are whole ones, also where the origin lies between two of them. */
void UXControl::_tellDevice()
{
    const double zoom = getZoomRatioWithScalingFactor();
    const UXControlPoint origin = getDiagramOriginInControlSpace();
    if (m_activeDiagram)
        m_activeDiagram->setDeviceTransform(UXTransform{}.translated(origin.x, origin.y).scaled(zoom, zoom));
}

void UXControl::_originChanged()
{
    const UXNotificationScope scope;
    const std::weak_ptr<const bool> life = m_life;
    _tellDevice();
    if (!life.expired() && m_activeDiagram)
        m_activeDiagram->originDidChange();
    if (life.expired())
        return;
    UXNotificationScope::post(UXNotification::ResetScroller, this);
    if (m_activeDiagram)
        UXNotificationScope::post(UXNotification::FullScreenDirtyRect, this, m_activeDiagram);
}

bool UXControl::getCanScrollDiagram() const
{
    if (!m_activeDiagram)
        return false;
    const UXControlRect shown = diagramSpaceToControlSpace(m_activeDiagram->getBoundingRect());
    return shown.x < 0 || shown.y < 0 || std::int64_t{shown.x} + shown.width > m_controlRect.width ||
           std::int64_t{shown.y} + shown.height > m_controlRect.height;
}

UXPoint UXControl::controlSpaceToDiagramSpace(const UXControlPoint& point) const
{
    const UXDoublePoint exact = controlSpaceToDiagramSpace(
        UXDoubleControlPoint{static_cast<double>(point.x), static_cast<double>(point.y)});
    return {uxRoundToInt(exact.x), uxRoundToInt(exact.y)};
}

UXRect UXControl::controlSpaceToDiagramSpace(const UXControlRect& rect) const
{
    return enclose<UXRect>(controlSpaceToDiagramSpace(
        UXDoubleControlRect{static_cast<double>(rect.x), static_cast<double>(rect.y),
                            static_cast<double>(rect.width), static_cast<double>(rect.height)}));
}

UXDoublePoint UXControl::controlSpaceToDiagramSpace(const UXDoubleControlPoint& point) const
{
    const double zoom = getZoomRatioWithScalingFactor();
    return {(point.x - m_origin.x) / zoom, (point.y - m_origin.y) / zoom};
}

UXDoubleRect UXControl::controlSpaceToDiagramSpace(const UXDoubleControlRect& rect) const
{
    const double zoom = getZoomRatioWithScalingFactor();
    return {(rect.x - m_origin.x) / zoom, (rect.y - m_origin.y) / zoom, rect.width / zoom,
            rect.height / zoom};
}

double UXControl::controlSpaceToDiagramSpace(const UXControlDimension& dimension) const
{
    return dimension.value / getZoomRatioWithScalingFactor();
}

UXControlPoint UXControl::diagramSpaceToControlSpace(const UXPoint& point) const
{
    const UXDoubleControlPoint exact = diagramSpaceToControlSpace(UXDoublePoint(point));
    return {uxRoundToInt(exact.x), uxRoundToInt(exact.y)};
}

UXControlRect UXControl::diagramSpaceToControlSpace(const UXRect& rect) const
{
    return enclose<UXControlRect>(diagramSpaceToControlSpace(UXDoubleRect(rect)));
}

UXDoubleControlPoint UXControl::diagramSpaceToControlSpace(const UXDoublePoint& point) const
{
    const double zoom = getZoomRatioWithScalingFactor();
    return {m_origin.x + point.x * zoom, m_origin.y + point.y * zoom};
}

UXDoubleControlRect UXControl::diagramSpaceToControlSpace(const UXDoubleRect& rect) const
{
    const double zoom = getZoomRatioWithScalingFactor();
    return {m_origin.x + rect.x * zoom, m_origin.y + rect.y * zoom, rect.width * zoom, rect.height * zoom};
}

UXControlDimension UXControl::diagramSpaceToControlSpace(double dimension) const
{
    return UXControlDimension(dimension * getZoomRatioWithScalingFactor());
}

bool UXControl::mouseDown(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::mouseDown, point, event);
}

bool UXControl::mouseMove(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::mouseMove, point, event);
}

bool UXControl::mouseUp(const UXControlPoint& point, const UXEvent& event)
{
    const std::weak_ptr<const bool> life = m_life;
    const bool handled = _sendAt(&UXObject::mouseUp, point, event);
    if (handled || life.expired() || !m_activeDiagram || !event.containsEventKey(UXEventKey::RightButton))
        return handled;
    UXEvent asked = _locate(point, event);
    const bool responds = m_activeDiagram->triggerEventResponder(UXEventResponderType::ContextMenu, asked);
    if (responds && !life.expired()) {
        UXMessageRightClickParam param(&asked, nullptr);
        notifyRightClickMenu(&param, asked.getMousePoint());
    }
    UXEventDispatchScope(asked).finish();
    return responds;
}

bool UXControl::mouseEnter(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::mouseEnter, point, event);
}

bool UXControl::mouseLeave(const UXControlPoint& point, const UXEvent& event)
{
    m_hasPointer = false;
    return _send(&UXObject::mouseLeave, _locate(point, event));
}

bool UXControl::mouseWheel(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::mouseWheel, point, event);
}

bool UXControl::mouseDoubleClick(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::mouseDoubleClick, point, event);
}

bool UXControl::externalDragging(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::externalDragging, point, event);
}

bool UXControl::externalDrop(const UXControlPoint& point, const UXEvent& event)
{
    return _sendAt(&UXObject::externalDrop, point, event);
}

bool UXControl::keyDown(const UXEvent& event) { return _send(&UXObject::keyDown, event); }

bool UXControl::keyUp(const UXEvent& event) { return _send(&UXObject::keyUp, event); }

bool UXControl::_sendAt(Entry entry, const UXControlPoint& point, const UXEvent& event)
{
    m_hasPointer = true;
    return _send(entry, _locate(point, event));
}

/** @return event with point in both spaces and what the control adds to its events */
UXEvent UXControl::_locate(const UXControlPoint& point, const UXEvent& event)
{
    // The middle of the pixel: what ends at a pixel's edge does not take the pixel beyond it.
    const UXDoublePoint exact = controlSpaceToDiagramSpace(
        UXDoubleControlPoint{point.x + 0.5, point.y + 0.5});
    UXEvent own = event;
    own.setControlPoint(point);
    own.setMousePoint({uxSaturateToInt(std::floor(exact.x)), uxSaturateToInt(std::floor(exact.y))});
    _addOwn(own);
    return own;
}

void UXControl::_addOwn(UXEvent& event)
{
    event.setControl(this);
    for (const int useCase : m_useCases)
        event.addUseCase(useCase);
}

bool UXControl::_send(Entry entry, const UXEvent& event)
{
    if (!m_activeDiagram)
        return false;
    UXEvent own = event;
    _addOwn(own);
    const std::weak_ptr<const bool> life = m_life;
    const bool handled = (m_activeDiagram->*entry)(own);
    if (!life.expired())
        _updateCursor();
    if (!life.expired())
        customEvent();
    return handled;
}

void UXControl::_updateCursor()
{
    const UXCursor wanted = m_activeDiagram ? m_activeDiagram->obtainCursor() : UXCursor::Arrow;
    const UXCursor cursor = wanted == UXCursor::AsParent ? UXCursor::Arrow : wanted;
    if (cursor == m_cursor)
        return;
    m_cursor = cursor;
    UXNotificationScope::post(UXNotification::CursorChange, this, nullptr, static_cast<int>(cursor));
}

void UXControl::timer(std::int64_t nowMilliseconds)
{
    const std::weak_ptr<const bool> life = m_life;
    const std::vector<UXTimer*> timers = m_timers;
    for (UXTimer* timer : timers) {
        // An earlier one may have stopped or destroyed this one, or the control.
        if (life.expired())
            return;
        if (std::ranges::find(m_timers, timer) != m_timers.end())
            timer->_tick(nowMilliseconds);
    }
    if (!life.expired())
        runPostedActions();
}

std::optional<std::int64_t> UXControl::obtainNextTimer(std::int64_t nowMilliseconds) const
{
    if (!m_postedActions.empty())
        return 0;
    std::optional<std::int64_t> next;
    for (const UXTimer* timer : m_timers)
        next = std::min(next.value_or((std::numeric_limits<std::int64_t>::max)()),
                        timer->_obtainRest(nowMilliseconds));
    return next;
}

void UXControl::resizeDiagramAlignClient()
{
    if (!m_activeDiagram || m_activeDiagram->getAlign() != UXAlign::Client)
        return;
    const double zoom = getZoomRatioWithScalingFactor();
    const UXRect rect = m_activeDiagram->getRect();
    m_activeDiagram->setRect({rect.x, rect.y, uxSaturateToInt(std::floor(m_controlRect.width / zoom)),
                              uxSaturateToInt(std::floor(m_controlRect.height / zoom))});
}

void UXControl::postAction(const std::function<void()>& action)
{
    if (!action)
        return;
    m_postedActions.push_back(action);
    if (!UXEventDispatchScope::isDispatching())
        return;
    UXEventDispatchScope::postAction([this, life = std::weak_ptr<const bool>(m_life)] {
        if (!life.expired())
            runPostedActions();
    });
}

void UXControl::runPostedActions()
{
    const std::weak_ptr<const bool> life = m_life;
    while (!life.expired() && !m_postedActions.empty()) {
        const std::function<void()> action = std::move(m_postedActions.front());
        m_postedActions.pop_front();
        action();
    }
}

UXPaintConfig* UXControl::obtainPaintConfig(UXDiagram*) { return nullptr; }

void UXControl::customEvent() {}

bool UXControl::hasDefaultBackground() const { return false; }

bool UXControl::shouldReduceMotion() const { return false; }

void UXControl::notifyDirtyRect(UXDiagram*) {}

void UXControl::notifyFullScreenDirtyRect(UXDiagram*) {}

void UXControl::notifyCursorChange(int) {}

void UXControl::notifyDiagramAlignChanged(UXDiagram*) { resizeDiagramAlignClient(); }

void UXControl::notifyDiagramSizeChanged(UXDiagram*) { notifyResetScroller(); }

void UXControl::notifyDiagramMove(UXDiagram* diagram, UXPoint distance)
{
    if (!diagram || diagram != m_activeDiagram)
        return;
    const double zoom = getZoomRatioWithScalingFactor();
    setDiagramDoubleOriginInControlSpace({m_origin.x + distance.x * zoom, m_origin.y + distance.y * zoom});
}

void UXControl::notifyEvent(const UXEvent&) {}

void UXControl::notifyEvent(const UXEvent&, UXObject*, UXPoint) {}

void UXControl::notifyRightClickMenu(UXMessageRightClickParam*, UXPoint) {}

void UXControl::notifyResetScroller() {}
void UXControl::notifyAccessibleChange(UXObject*, UXAccessibleChange) {}
