#include "ux/ux_global_smooth_scrolling_event_diagram.h"

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int frameMilliseconds = 16;
constexpr int dragThreshold = 4;       // pixels that a press may shake before it becomes a drag
constexpr double wheelStep = 48;       // pixels to a notch of the wheel
constexpr double approachShare = 0.3;  // of what is left, in a frame
constexpr double glideFriction = 0.93; // what a frame leaves of the speed
constexpr double slowest = 0.5;        // pixels in a frame, below which motion ends
constexpr double newShare = 0.6;       // of the last frame in the speed of a drag

double length(const UXDoublePoint& vector) { return std::hypot(vector.x, vector.y); }

UXDoublePoint scaled(const UXDoublePoint& vector, double factor)
{
    return {vector.x * factor, vector.y * factor};
}

/** @return how far content of an extent, shown from origin on, may move by distance in a window */
double bound(double distance, double origin, double extent, double window)
{
    if (extent <= window || !std::isfinite(distance))
        return 0;
    return std::clamp(distance, std::min(window - extent - origin, 0.0), std::max(-origin, 0.0));
}

} // namespace

UXGlobalSmoothScrollingEventDiagram::UXGlobalSmoothScrollingEventDiagram(UXContext* context)
    : UXGlobalEventDiagram(context), m_timer([this] { _frame(); })
{
}

UXGlobalSmoothScrollingEventDiagram::~UXGlobalSmoothScrollingEventDiagram() = default;

void UXGlobalSmoothScrollingEventDiagram::endActions()
{
    m_timer.stop();
    m_control = nullptr;
    m_state = State::Resting;
    m_velocity = m_wheelRest = m_movedInFrame = m_unitRest = {};
}

std::string UXGlobalSmoothScrollingEventDiagram::customSerializeTypeID()
{
    return "UXGlobalSmoothScrollingEventDiagram";
}

/** A release that went elsewhere leaves a move without the button that began the press. */
void UXGlobalSmoothScrollingEventDiagram::customAfterEvent(const UXEvent& event)
{
    const bool dragging = m_state == State::Pressed || m_state == State::Panning;
    if (dragging && m_pressedWithButton && event.getEventType() == UXEventType::MouseMove &&
        !event.containsEventKey(UXEventKey::LeftButton))
        endActions();
}

bool UXGlobalSmoothScrollingEventDiagram::customMouseDown(const UXEvent& event, bool&)
{
    const bool stopped = isGliding();
    endActions();
    if (stopped)
        return true;
    UXObjectWatcher watcher(this);
    UXDiagram* diagram = getActiveDiagram();
    UXControl* control = event.getControl();
    if (!control || !diagram || event.containsEventKey(UXEventKey::RightButton) ||
        !control->getCanScrollDiagram() ||
        diagram->triggerEventResponder(UXEventResponderType::Drag, _obtainActiveDiagramEvent(event)) ||
        !watcher.isAlive())
        return false;
    m_pressPoint = m_lastPoint = event.getControlPoint();
    m_pressedWithButton = event.containsEventKey(UXEventKey::LeftButton);
    m_state = State::Pressed;
    return false;
}

bool UXGlobalSmoothScrollingEventDiagram::customMouseMove(const UXEvent& event, bool&) { return _pan(event); }

bool UXGlobalSmoothScrollingEventDiagram::customMouseDragging(const UXEvent& event, bool&)
{
    return _pan(event);
}

bool UXGlobalSmoothScrollingEventDiagram::customMouseUp(const UXEvent& event, bool&)
{
    const bool panned = m_state == State::Panning;
    UXControl* control = m_timer.isRunning() ? m_control : nullptr;
    if (panned && control && !control->shouldReduceMotion() && length(m_velocity) >= slowest)
        _start(State::Gliding, control);
    else if (panned || m_state == State::Pressed)
        endActions();
    return panned && event.getControl();
}

bool UXGlobalSmoothScrollingEventDiagram::customMouseWheel(const UXEvent& event, bool&)
{
    UXObjectWatcher watcher(this);
    UXDiagram* diagram = getActiveDiagram();
    UXControl* control = event.getControl();
    if (!control || !diagram || event.containsEventKey(UXEventKey::Ctrl) || !control->getCanScrollDiagram() ||
        diagram->triggerEventResponder(UXEventResponderType::Scroll, _obtainActiveDiagramEvent(event)) ||
        !watcher.isAlive() || !event.getControl())
        return false;

    UXDoublePoint distance = scaled(event.getWheelDelta(), -wheelStep * control->getScalingFactor());
    if (event.containsEventKey(UXEventKey::Shift))
        std::swap(distance.x, distance.y);
    if (control->shouldReduceMotion()) {
        endActions();
        _move(*control, distance);
        return true;
    }
    const bool goesOn = m_state == State::Approaching && m_timer.isRunning() && m_control == control;
    const UXDoublePoint rest = goesOn ? m_wheelRest : UXDoublePoint{};
    _start(State::Approaching, control);
    m_wheelRest = rest + distance;
    return true;
}

bool UXGlobalSmoothScrollingEventDiagram::customMouseDoubleClick(const UXEvent&, bool&)
{
    endActions();
    return false;
}

/** @return event as the active diagram sees it, to ask its responders */
UXEvent UXGlobalSmoothScrollingEventDiagram::_obtainActiveDiagramEvent(const UXEvent& event) const
{
    UXEvent seen = event;
    seen.setMousePoint(globalDiagramSpaceToDiagramSpace(event));
    return seen;
}

bool UXGlobalSmoothScrollingEventDiagram::_pan(const UXEvent& event)
{
    UXControl* control = event.getControl();
    if (!control || (m_state != State::Pressed && m_state != State::Panning))
        return false;
    const UXControlPoint point = event.getControlPoint();
    if (m_state == State::Pressed) {
        const UXDoublePoint shaken{static_cast<double>(point.x) - m_pressPoint.x,
                                   static_cast<double>(point.y) - m_pressPoint.y};
        if (length(shaken) < dragThreshold)
            return false;
        UXObjectWatcher watcher(this);
        if (UXDiagram* diagram = getActiveDiagram())
            diagram->cancelPress();
        if (!watcher.isAlive() || !event.getControl())
            return true;
        _start(State::Panning, control);
    }
    const UXDoublePoint distance{static_cast<double>(point.x) - m_lastPoint.x,
                                 static_cast<double>(point.y) - m_lastPoint.y};
    m_lastPoint = point;
    m_movedInFrame = m_movedInFrame + distance;
    _move(*control, distance);
    return true;
}

void UXGlobalSmoothScrollingEventDiagram::_start(State state, UXControl* control)
{
    // The timer runs on the control that moves, whose end then stops it.
    if (!m_timer.isRunning() || m_control != control)
        m_timer.start(control, frameMilliseconds);
    m_state = state;
    m_control = control;
}

void UXGlobalSmoothScrollingEventDiagram::_frame()
{
    if (m_state == State::Panning) {
        m_velocity = scaled(m_velocity, 1 - newShare) + scaled(std::exchange(m_movedInFrame, {}), newShare);
        return;
    }
    if (!isGliding() || !getActiveDiagram()) {
        endActions();
        return;
    }
    const bool approaching = m_state == State::Approaching;
    UXDoublePoint step = approaching ? scaled(m_wheelRest, approachShare) : m_velocity;
    if (approaching && length(m_wheelRest) < 1)
        step = m_wheelRest;
    m_wheelRest = m_wheelRest + scaled(step, -1);
    m_velocity = scaled(m_velocity, glideFriction);

    UXObjectWatcher watcher(this);
    const UXDoublePoint left = _move(*m_control, step);
    if (!watcher.isAlive())
        return;
    const bool blocked = length(left) >= length(step);
    if (blocked || length(approaching ? m_wheelRest : m_velocity) < (approaching ? 1e-6 : slowest))
        endActions();
}

UXDoublePoint UXGlobalSmoothScrollingEventDiagram::_move(UXControl& control, const UXDoublePoint& distance)
{
    UXDiagram* diagram = getActiveDiagram();
    if (!diagram)
        return distance;
    const UXDoubleControlRect shown = control.diagramSpaceToControlSpace(
        UXDoubleRect(diagram->getBoundingRect()));
    const UXControlRect window = control.getControlRect();
    const UXDoublePoint bounded{bound(distance.x, shown.x, shown.width, window.width),
                                bound(distance.y, shown.y, shown.height, window.height)};
    const double zoom = control.getZoomRatioWithScalingFactor();
    const UXDoublePoint wanted = scaled(bounded, 1 / zoom) + m_unitRest;
    const UXPoint units{uxSaturateToInt(wanted.x), uxSaturateToInt(wanted.y)};
    m_unitRest = {wanted.x - units.x, wanted.y - units.y};
    if (units != UXPoint()) {
        if (UXContext* context = diagram->getContext())
            context->notifyDiagramMove(diagram, &control, units);
        else
            control.notifyDiagramMove(diagram, units);
    }
    return {distance.x - bounded.x, distance.y - bounded.y};
}
