#include "kx_chart_slider.h"

#include "kx_chart_data_format.h"
#include "kx_key_type.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_accessible_info.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <algorithm>
#include <cmath>
#include <utility>

// Hosts may refer to it, on Windows too
constexpr int KXChartSlider::trackInset;

namespace {

constexpr double thumbExtent = 16, trackHeight = 4; // logical units
constexpr UXColor trackColor(206, 210, 218), knobColor(255, 255, 255);
constexpr double stepsPerTrack = 100;
constexpr int stepsPerPage = 10;

} // namespace

KXChartSlider::KXChartSlider() : KXChartDataAction(this) {}
KXChartSlider::~KXChartSlider() { setParent(nullptr); }

void KXChartSlider::describe(UXAccessibleInfo& info) const
{
    info.role = UXAccessibleRole::Slider;
    const auto write = [this](double value, double end) {
        const double shown = std::isnan(value) ? end : value;
        return m_valueWriter ? m_valueWriter(shown) : KXChartDataFormat().formatNumber(shown);
    };
    if (m_type == KXChartSliderType::Val)
        info.value = write(m_from, m_lowest);
    else
        info.value = write(m_from, m_lowest) + " - " + write(m_to, m_greatest);
    info.actions = {UXAccessibleAction::Increase, UXAccessibleAction::Decrease};
}

void KXChartSlider::setType(KXChartSliderType type)
{
    if (m_type == type)
        return;
    m_type = type;
    m_active = obtainThumbs().empty() ? KXChartSliderThumbType::Lower : obtainThumbs().front();
    invalidate();
}

void KXChartSlider::setBounds(double lowest, double greatest)
{
    if (!std::isfinite(lowest) || !std::isfinite(greatest))
        lowest = greatest = 0;
    m_lowest = lowest;
    m_greatest = greatest;
    invalidate();
}

void KXChartSlider::setRange(double from, double to)
{
    m_from = from;
    m_to = to;
    invalidate();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
}

void KXChartSlider::setStep(double step) { m_step = std::isfinite(step) ? std::max(step, 0.0) : 0; }
void KXChartSlider::setValueWriter(std::function<std::string(double)> writer)
{
    m_valueWriter = std::move(writer);
}
void KXChartSlider::setSnap(std::function<double(double, int)> snap) { m_snap = std::move(snap); }

void KXChartSlider::setChangedHandler(std::function<void(bool, const UXEvent&)> handler)
{
    m_changedHandler = std::move(handler);
}

std::vector<KXChartSliderThumbType> KXChartSlider::obtainThumbs() const
{
    using enum KXChartSliderThumbType;
    if (!_hasTrack())
        return {};
    switch (m_type) {
    case KXChartSliderType::Val:
        return {Single};
    case KXChartSliderType::Min:
        return {Lower};
    case KXChartSliderType::Max:
        return {Upper};
    case KXChartSliderType::Range:
        break;
    }
    return {Lower, Upper};
}

double KXChartSlider::_obtainThumbValue(KXChartSliderThumbType thumb) const
{
    const bool isUpper = thumb == KXChartSliderThumbType::Upper;
    const double value = isUpper ? m_to : m_from;
    return std::isnan(value) ? (isUpper ? m_greatest : m_lowest) : std::clamp(value, m_lowest, m_greatest);
}

/** @return how far the thumb can go: to the track's end, or to the other thumb */
double KXChartSlider::_obtainLimit(KXChartSliderThumbType thumb, bool upper) const
{
    if (m_type == KXChartSliderType::Range && thumb == KXChartSliderThumbType::Lower && upper)
        return _obtainThumbValue(KXChartSliderThumbType::Upper);
    if (m_type == KXChartSliderType::Range && thumb == KXChartSliderThumbType::Upper && !upper)
        return _obtainThumbValue(KXChartSliderThumbType::Lower);
    return upper ? m_greatest : m_lowest;
}

double KXChartSlider::obtainPlace(double value) const
{
    const double width = std::max(getBoundingRect().width - 2.0 * trackInset, 0.0);
    const double share = _hasTrack() ? (value / 2 - m_lowest / 2) / (m_greatest / 2 - m_lowest / 2) : 0;
    return trackInset + width * std::clamp(share, 0.0, 1.0);
}

double KXChartSlider::obtainValue(double place) const
{
    const double width = std::max(getBoundingRect().width - 2.0 * trackInset, 1.0);
    return std::lerp(m_lowest, m_greatest, std::clamp((place - trackInset) / width, 0.0, 1.0));
}

UXDoubleRect KXChartSlider::obtainThumbRect(KXChartSliderThumbType thumb) const
{
    const double middle = obtainPlace(_obtainThumbValue(thumb));
    return {middle - thumbExtent / 2, uxMidDoubleY(UXDoubleRect(getBoundingRect())) - thumbExtent / 2,
            thumbExtent, thumbExtent};
}

/** Of two thumbs at one place the one that can go on from there. */
KXChartSliderThumbType KXChartSlider::_obtainNearestThumb(double place) const
{
    const std::vector<KXChartSliderThumbType> thumbs = obtainThumbs();
    if (thumbs.size() < 2)
        return thumbs.empty() ? m_active : thumbs.front();
    const double lower = obtainPlace(_obtainThumbValue(thumbs[0]));
    const double upper = obtainPlace(_obtainThumbValue(thumbs[1]));
    if (lower == upper)
        return place < lower || _obtainThumbValue(thumbs[0]) >= m_greatest ? thumbs[0] : thumbs[1];
    return std::abs(place - lower) <= std::abs(place - upper) ? thumbs[0] : thumbs[1];
}

double KXChartSlider::_snap(double value, int direction) const
{
    // A copy: what it asks may destroy this, and itself with it.
    const std::function<double(double, int)> snap = m_snap;
    if (snap)
        return snap(value, direction);
    return m_step > 0 ? std::round(value / m_step) * m_step : value;
}

void KXChartSlider::_moveThumb(double value, int direction, bool isFinal, const UXEvent& event)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    const double snapped = _snap(value, direction);
    if (!self.isAlive())
        return;
    const double low = _obtainLimit(m_active, false), high = _obtainLimit(m_active, true);
    const double taken = std::clamp(std::isnan(snapped) ? value : snapped, low, std::max(low, high));
    if (m_active == KXChartSliderThumbType::Single)
        m_from = m_to = taken;
    else if (m_active == KXChartSliderThumbType::Lower)
        m_from = taken <= m_lowest ? std::numeric_limits<double>::quiet_NaN() : taken;
    else
        m_to = taken >= m_greatest ? std::numeric_limits<double>::quiet_NaN() : taken;
    invalidate();
    // A copy: the handler may destroy this, and itself with it.
    const std::function<void(bool, const UXEvent&)> handler = m_changedHandler;
    if (handler)
        handler(isFinal, event);
}

void KXChartSlider::_paintPart(UXPainter& painter) const
{
    _paintTrack(painter);
    for (const KXChartSliderThumbType thumb : obtainThumbs())
        if (thumb != m_active)
            _paintThumb(painter, thumb);
    for (const KXChartSliderThumbType thumb : obtainThumbs())
        if (thumb == m_active)
            _paintThumb(painter, thumb);
}

void KXChartSlider::_paintTrack(UXPainter& painter) const
{
    const double middle = uxMidDoubleY(UXDoubleRect(getBoundingRect()));
    const auto drawPart = [&](double left, double right, const UXColor& color) {
        painter.setColor(_obtainShownColor(color));
        uxAddRoundRectanglePath(painter,
                                uxMakeDoubleRect(left, middle - trackHeight / 2, right - left, trackHeight),
                                trackHeight / 2);
        painter.fill();
    };
    drawPart(trackInset, getBoundingRect().width - trackInset, trackColor);
    if (!_hasTrack() || m_type == KXChartSliderType::Val)
        return;
    const bool hasLower = m_type != KXChartSliderType::Max, hasUpper = m_type != KXChartSliderType::Min;
    drawPart(hasLower ? obtainPlace(_obtainThumbValue(KXChartSliderThumbType::Lower)) : trackInset,
             hasUpper ? obtainPlace(_obtainThumbValue(KXChartSliderThumbType::Upper))
                      : getBoundingRect().width - trackInset,
             getAccentColor());
}

void KXChartSlider::_paintThumb(UXPainter& painter, KXChartSliderThumbType thumb) const
{
    const bool isHeld = m_isDragged && thumb == m_active;
    const UXDoubleRect rect = uxInflateDoubleRect(obtainThumbRect(thumb), isHeld ? 0.0 : -1.0,
                                                  isHeld ? 0.0 : -1.0);
    painter.setColor(knobColor);
    uxAddRoundRectanglePath(painter, rect, rect.width / 2);
    painter.fill();
    painter.setColor(_obtainShownColor(getAccentColor()));
    painter.setLineWidth(isHeld || _isHovered() ? 3 : 2);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(rect, -1.0, -1.0), rect.width / 2 - 1);
    painter.stroke();
    if (thumb == m_active)
        _paintRing(painter, rect, rect.width / 2);
}

bool KXChartSlider::_goToOtherThumb(bool forwards)
{
    const std::vector<KXChartSliderThumbType> thumbs = obtainThumbs();
    if (thumbs.size() < 2 || m_active == thumbs[forwards ? 1 : 0])
        return false;
    m_active = thumbs[forwards ? 1 : 0];
    invalidate();
    return true;
}

bool KXChartSlider::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool isShift = event.containsEventKey(UXEventKey::Shift);
    if (!isEnabled() || !_hasTrack())
        return KXControlPart::customKeyDown(event, stop);
    if (key == UXKeyCode::Tab && _goToOtherThumb(!isShift))
        return true;
    const double step = m_step > 0 ? m_step : (m_greatest / 2 - m_lowest / 2) / stepsPerTrack * 2;
    const auto move = [this, &event](double distance) {
        _showRing();
        _moveThumb(_obtainThumbValue(m_active) + distance, distance < 0 ? -1 : 1, true, event);
        return true;
    };
    switch (key) {
    case UXKeyCode::Left:
    case UXKeyCode::Down:
        return move(-step);
    case UXKeyCode::Right:
    case UXKeyCode::Up:
        return move(step);
    case UXKeyCode::PageDown:
        return move(-stepsPerPage * step);
    case UXKeyCode::PageUp:
        return move(stepsPerPage * step);
    case UXKeyCode::Home:
        return move(_obtainLimit(m_active, false) - _obtainThumbValue(m_active));
    case UXKeyCode::End:
        return move(_obtainLimit(m_active, true) - _obtainThumbValue(m_active));
    default:
        return KXControlPart::customKeyDown(event, stop);
    }
}

bool KXChartSlider::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool handled = KXControlPart::customMouseDown(event, stop);
    if (!self.isAlive() || !isEnabled() || !_hasTrack() || event.containsEventKey(UXEventKey::RightButton))
        return handled;
    const double place = getTranslatedPointFromEvent(event).x;
    m_active = _obtainNearestThumb(place);
    const double distance = place - obtainPlace(_obtainThumbValue(m_active));
    m_isDragged = true;
    // Held by its edge it stays where it is; a press beside it brings it there.
    m_grip = std::abs(distance) <= thumbExtent / 2 ? distance : 0;
    if (m_grip == 0 && distance != 0)
        _moveThumb(obtainValue(place), 0, false, event);
    return true;
}

bool KXChartSlider::customMouseDragging(const UXEvent& event, bool&)
{
    if (!m_isDragged)
        return false;
    _moveThumb(obtainValue(getTranslatedPointFromEvent(event).x - m_grip), 0, false, event);
    return true;
}

bool KXChartSlider::customMouseUp(const UXEvent& event, bool& stop)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    if (std::exchange(m_isDragged, false)) {
        const std::function<void(bool, const UXEvent&)> handler = m_changedHandler;
        invalidate();
        if (handler)
            handler(true, event);
    }
    return self.isAlive() && KXControlPart::customMouseUp(event, stop);
}

void KXChartSlider::customSerialize()
{
    KXControlPart::customSerialize();
    kxWriteKey(this, "m_type", m_type);
    serializeDouble("m_lowest", m_lowest);
    serializeDouble("m_greatest", m_greatest);
    // An open end is the track's.
    serializeDouble("m_from", std::isnan(m_from) ? m_lowest : m_from);
    serializeDouble("m_to", std::isnan(m_to) ? m_greatest : m_to);
    serializeDouble("m_step", m_step);
}

std::string KXChartSlider::customSerializeTypeID() { return "KXChartSlider"; }

bool KXChartSlider::customDeserialize()
{
    bool complete = KXControlPart::customDeserialize();
    complete = kxReadKey(this, "m_type", m_type) && complete;
    double lowest = m_lowest, greatest = m_greatest, from = m_from, to = m_to, step = m_step;
    complete = deserializeDouble("m_lowest", lowest) && complete;
    complete = deserializeDouble("m_greatest", greatest) && complete;
    complete = deserializeDouble("m_from", from) && complete;
    complete = deserializeDouble("m_to", to) && complete;
    complete = deserializeDouble("m_step", step) && complete;
    setBounds(lowest, greatest);
    const bool isLimit = m_type != KXChartSliderType::Val;
    const double open = std::numeric_limits<double>::quiet_NaN();
    setRange(isLimit && from <= m_lowest ? open : from, isLimit && to >= m_greatest ? open : to);
    setStep(step);
    m_active = obtainThumbs().empty() ? KXChartSliderThumbType::Lower : obtainThumbs().front();
    return complete;
}

KXChartDataPath* KXChartSlider::createDataPath() { return nullptr; }
