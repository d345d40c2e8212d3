#include "kx_axis_chart_zoom.h"

#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_chart_items.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace {

/** A press that moves less far is a click, in logical units. */
constexpr int leastDrag = 4;
/** A smaller box is none. */
constexpr int leastBox = 4;
/** A notch of the wheel shows so much more. */
constexpr double wheelFactor = 1.25;
constexpr double greatestNotches = 10;
/** A key shows half or twice as much, and moves by this part of it. */
constexpr double keyFactor = 2, keyPart = 0.1;
constexpr UXColor boxColor(90, 110, 140, 0.15), boxLineColor(90, 110, 140, 0.8);

bool liesAlongX(const KXAxis& axis) { return axis.getVectorNotationX() != 0; }

/** @return what an axis tells at a place of the plot */
double obtainValueAt(const KXAxis& axis, const KXVisibleRange& shown, double start, double end, UXPoint place)
{
    const double share = ((liesAlongX(axis) ? place.x : place.y) - start) / (end - start);
    return shown.from + std::clamp(share, 0.0, 1.0) * shown.obtainLength();
}

} // namespace

std::vector<KXAxisChartZoom::Held> KXAxisChartZoom::_hold() const
{
    std::vector<Held> held;
    if (!m_chart.isInteractionEnabled())
        return held;
    for (KXAxis* axis : m_chart.obtainZoomedAxes()) {
        const UXDoublePoint start = axis->obtainDoubleValuePositionInAxis(axis->getMinValue());
        const UXDoublePoint end = axis->obtainDoubleValuePositionInAxis(axis->getMaxValue());
        const bool alongX = liesAlongX(*axis);
        const Held own{axis, m_chart.obtainShownRange(*axis), alongX ? start.x : start.y,
                       alongX ? end.x : end.y};
        if (own.start != own.end)
            held.push_back(own);
    }
    return held;
}

UXPoint KXAxisChartZoom::_obtainPlace(const UXEvent& event) const
{
    return m_chart.translatePoint(m_chart.getTranslatedPointFromEvent(event, &m_chart), m_chart.getPlot());
}

bool KXAxisChartZoom::_isInMarks(const UXEvent& event) const
{
    return uxPointInRect(_obtainPlace(event), m_chart.getMarksArea());
}

void KXAxisChartZoom::_zoom(const std::vector<Held>& axes, UXPoint about, double factor)
{
    const UXNotificationScope scope;
    const UXObjectWatcher chart(&m_chart);
    for (const Held& held : axes) {
        const double value = obtainValueAt(*held.axis, held.shown, held.start, held.end, about);
        m_chart.showRange(*held.axis, kxZoomVisibleRange(held.shown, value, factor));
        if (!chart.isAlive())
            return;
    }
}

bool KXAxisChartZoom::turnWheel(const UXEvent& event)
{
    const double notches = std::clamp(event.getWheelDelta().y, -greatestNotches, greatestNotches);
    if (!event.containsEventKey(UXEventKey::Ctrl) || !(std::abs(notches) > 0) || !_isInMarks(event))
        return false;
    const std::vector<Held> axes = _hold();
    if (axes.empty())
        return false;
    _zoom(axes, _obtainPlace(event), std::pow(wheelFactor, notches));
    return true;
}

bool KXAxisChartZoom::doubleClick(const UXEvent& event)
{
    const UXPoint point = m_chart.getTranslatedPointFromEvent(event, &m_chart);
    if (!m_chart.isZoomed() || _hold().empty() || !_isInMarks(event) || m_chart.obtainItemAt(point))
        return false;
    m_chart.showAll();
    return true;
}

/** @return where the keyboard is, else the middle of the marks */
UXPoint KXAxisChartZoom::_obtainFocus() const
{
    const UXRect& area = m_chart.getMarksArea();
    const auto& focused = m_chart.getItems()->getFocused();
    if (!focused || !m_chart.hasItem(*focused))
        return {uxMidX(area), uxMidY(area)};
    return m_chart.translatePoint(m_chart.obtainItemHintPoint(*focused), m_chart.getPlot());
}

bool KXAxisChartZoom::pressKey(const UXEvent& event)
{
    // Alt and Ctrl make other commands of these keys.
    if (event.containsEventKey(UXEventKey::Ctrl) || event.containsEventKey(UXEventKey::Alt))
        return false;
    const std::vector<Held> axes = _hold();
    if (axes.empty())
        return false;
    const std::string& text = event.getKeyText();
    if (text == "+" || text == "-") {
        _zoom(axes, _obtainFocus(), text == "+" ? 1 / keyFactor : keyFactor);
        return true;
    }
    if (!m_chart.isZoomed())
        return false;
    if (text == "0") {
        m_chart.showAll();
        return true;
    }
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool alongX = key == UXKeyCode::Left || key == UXKeyCode::Right;
    const bool alongY = key == UXKeyCode::Up || key == UXKeyCode::Down;
    if (!event.containsEventKey(UXEventKey::Shift) || (!alongX && !alongY))
        return false;
    for (const Held& held : axes) {
        if (liesAlongX(*held.axis) != alongX)
            continue;
        const bool forwards = (key == UXKeyCode::Right || key == UXKeyCode::Down) == (held.end > held.start);
        const double distance = keyPart * held.shown.obtainLength();
        m_chart.showRange(*held.axis, kxMoveVisibleRange(held.shown, forwards ? distance : -distance));
        return true;
    }
    return false;
}

void KXAxisChartZoom::press(const UXEvent& event)
{
    m_drag = Drag::None;
    m_held.clear();
    if (event.containsEventKey(UXEventKey::RightButton) || !_isInMarks(event))
        return;
    const UXObjectWatcher chart(&m_chart);
    const bool selects = !event.containsEventKey(UXEventKey::Shift) && m_chart.shouldSelectByBox();
    if (!chart.isAlive())
        return;
    m_selects = selects;
    m_held = _hold();
    m_from = m_to = _obtainPlace(event);
    m_drag = m_held.empty() && !m_selects ? Drag::None : Drag::Pressed;
}

bool KXAxisChartZoom::drag(const UXEvent& event)
{
    if (m_drag == Drag::None)
        return false;
    const UXPoint place = _obtainPlace(event);
    if (m_drag == Drag::Pressed) {
        if (std::max(std::abs(place.x - m_from.x), std::abs(place.y - m_from.y)) < leastDrag)
            return false;
        const bool boxes = m_selects || event.containsEventKey(UXEventKey::Shift);
        if (!boxes && !m_chart.isZoomed())
            return false; // there is nothing beside what is shown
        m_drag = boxes ? Drag::Boxing : Drag::Panning;
        const UXObjectWatcher chart(&m_chart);
        m_chart.getItems()->leave(event);
        if (!chart.isAlive())
            return true;
    }
    m_to = place;
    if (m_drag == Drag::Panning)
        _pan(place);
    else
        m_chart.invalidate();
    return true;
}

void KXAxisChartZoom::_pan(UXPoint place)
{
    const UXNotificationScope scope;
    const UXObjectWatcher chart(&m_chart);
    const std::vector<Held> axes = m_held;
    for (const Held& held : axes) {
        const double moved = liesAlongX(*held.axis) ? place.x - m_from.x : place.y - m_from.y;
        const double distance = moved / (held.end - held.start) * held.shown.obtainLength();
        m_chart.showRange(*held.axis, kxMoveVisibleRange(held.shown, -distance));
        if (!chart.isAlive())
            return;
    }
}

void KXAxisChartZoom::_showBox()
{
    const UXNotificationScope scope;
    const UXObjectWatcher chart(&m_chart);
    const std::vector<Held> axes = m_held;
    for (const Held& held : axes) {
        if (std::abs(liesAlongX(*held.axis) ? m_to.x - m_from.x : m_to.y - m_from.y) < leastBox)
            continue;
        const double first = obtainValueAt(*held.axis, held.shown, held.start, held.end, m_from);
        const double second = obtainValueAt(*held.axis, held.shown, held.start, held.end, m_to);
        m_chart.showRange(*held.axis, {std::min(first, second), std::max(first, second)});
        if (!chart.isAlive())
            return;
    }
}

bool KXAxisChartZoom::release(const UXEvent& event)
{
    const Drag drag = m_drag;
    m_drag = Drag::None;
    if (drag != Drag::Panning && drag != Drag::Boxing)
        return false;
    if (drag == Drag::Boxing) {
        m_to = _obtainPlace(event);
        m_chart.invalidate();
        if (m_selects)
            m_chart.selectInBox(_obtainBox(), event);
        else
            _showBox();
    }
    return true;
}

/** @return what is boxed, in the plot's space; what is not zoomed along is boxed as a whole */
UXDoubleRect KXAxisChartZoom::_obtainBox() const
{
    const UXRect& area = m_chart.getMarksArea();
    const UXDoubleRect whole(area);
    const double left = std::clamp(std::min(m_from.x, m_to.x), area.x, uxMaxX(area));
    const double right = std::clamp(std::max(m_from.x, m_to.x), area.x, uxMaxX(area));
    const double top = std::clamp(std::min(m_from.y, m_to.y), area.y, area.getBottom());
    const double bottom = std::clamp(std::max(m_from.y, m_to.y), area.y, area.getBottom());
    const auto boxes = [this](bool alongX) {
        return m_selects || std::ranges::any_of(m_held, [alongX](const Held& held) {
                   return liesAlongX(*held.axis) == alongX;
               });
    };
    UXDoubleRect box = whole;
    if (boxes(true)) {
        box.x = left;
        box.width = right - left;
    }
    if (boxes(false)) {
        box.y = top;
        box.height = bottom - top;
    }
    return box;
}

void KXAxisChartZoom::paint(UXPainter& painter) const
{
    if (m_drag != Drag::Boxing)
        return;
    const UXDoubleRect box = _obtainBox();
    painter.setColor(boxColor);
    painter.addRectanglePath(box.x, box.y, box.width, box.height);
    painter.fill();
    painter.setColor(boxLineColor);
    painter.setLineWidth(1);
    painter.addRectanglePath(box.x + 0.5, box.y + 0.5, std::max(box.width - 1, 0.0),
                             std::max(box.height - 1, 0.0));
    painter.stroke();
}
