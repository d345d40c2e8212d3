#include "ux/ux_scroll_bar.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_scroll_bar_slider.h"

#include <algorithm>
#include <utility>

// Hosts may refer to it, on Windows too
constexpr int UXScrollBar::thickness;

namespace {

constexpr int minSliderLength = 24; // logical units, inset included
constexpr UXColor trackColor{120, 124, 135, 0.08};

} // namespace

UXScrollBar::UXScrollBar(UXArrangement direction) : m_direction(direction), m_slider(nullptr)
{
    auto* slider = new UXScrollBarSlider;
    m_slider = UXObjectWatcher(slider);
    addChild(slider);
}

UXScrollBar::~UXScrollBar() = default;

void UXScrollBar::setRange(const UXScrollRange& range)
{
    if (m_range == range)
        return;
    m_range = range;
    _placeSlider();
}

UXRect UXScrollBar::obtainSliderRect() const
{
    if (uxObtainScrollLimit(m_range) == 0)
        return {};
    const UXSliderSpan span = uxObtainSliderSpan(m_range, _obtainTrack(), minSliderLength);
    const UXRect bounds = getBoundingRect();
    return m_direction == UXArrangement::Row ? UXRect(span.start, 0, span.length, bounds.height)
                                             : UXRect(0, span.start, bounds.width, span.length);
}

UXScrollBarSlider* UXScrollBar::getSlider() const
{
    return static_cast<UXScrollBarSlider*>(m_slider.getObject());
}

void UXScrollBar::beginDrag(const UXEvent& event)
{
    // The drag is measured from here, so that a pointer that comes back brings back the very same offset.
    m_dragging = true;
    m_grabbedRange = m_range;
    m_grabbedSpan = uxObtainSliderSpan(m_range, _obtainTrack(), minSliderLength);
    m_grabbedAlong = _obtainAlong(event);
    const auto willStart = m_handlers.willStart;
    if (willStart)
        willStart(event);
}

void UXScrollBar::drag(const UXEvent& event)
{
    if (!m_dragging)
        return;
    // Content that grew or shrank meanwhile is dragged on from where it is now.
    if (m_grabbedRange.contentExtent != m_range.contentExtent ||
        m_grabbedRange.shownExtent != m_range.shownExtent) {
        m_grabbedRange = m_range;
        m_grabbedSpan = uxObtainSliderSpan(m_range, _obtainTrack(), minSliderLength);
        m_grabbedAlong = _obtainAlong(event);
    }
    const int distance = uxSaturateToInt(std::int64_t{_obtainAlong(event)} - m_grabbedAlong);
    const std::int64_t offset = uxObtainDraggedOffset(m_grabbedRange, m_grabbedSpan, _obtainTrack(),
                                                      distance);
    const auto offsetRequested = m_handlers.offsetRequested;
    if (offsetRequested && offset != m_range.offset)
        offsetRequested(offset, event);
}

void UXScrollBar::endDrag(const UXEvent& event)
{
    if (!std::exchange(m_dragging, false))
        return;
    const auto didEnd = m_handlers.didEnd;
    if (didEnd)
        didEnd(event);
}

std::string UXScrollBar::customSerializeTypeID() { return "UXScrollBar"; }

void UXScrollBar::setRect(UXRect rect)
{
    UXObjectWatcher watcher(this);
    UXObject::setRect(rect);
    if (watcher.isAlive())
        _placeSlider();
}

void UXScrollBar::setVisible(bool visible)
{
    // A bar that goes away takes its drag with it: no release will come.
    if (!visible)
        m_dragging = false;
    UXObject::setVisible(visible);
}

void UXScrollBar::setTrackColor(const std::optional<UXColor>& color)
{
    m_trackColor = color;
    invalidate();
}

void UXScrollBar::setSliderColor(const std::optional<UXColor>& color)
{
    m_sliderColor = color;
    invalidate();
}

void UXScrollBar::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const bool showsTrack = getMouseOvering() || m_dragging || m_trackColor;
    if (UXPainter* painter = showsTrack ? uxCreatePainterWithObject(config, this) : nullptr) {
        const UXDoubleRect track = uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), -1.0, -1.0);
        painter->setColor(m_trackColor.value_or(trackColor));
        uxAddRoundRectanglePath(*painter, track, std::min(track.width, track.height) / 2);
        painter->fill();
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

bool UXScrollBar::customMouseDown(const UXEvent& event, bool&)
{
    if (event.containsEventKey(UXEventKey::RightButton) || uxObtainScrollLimit(m_range) == 0)
        return false;
    const int along = _obtainAlong(event);
    const UXSliderSpan span = uxObtainSliderSpan(m_range, _obtainTrack(), minSliderLength);
    if (along >= span.start && along < span.start + span.length)
        return true;

    // A page keeps a bit of what was shown, so that the eye finds its place.
    const double page = std::max(static_cast<double>(m_range.shownExtent) * 0.9, 1.0);
    const std::int64_t offset = uxMoveScrollOffset(m_range, along < span.start ? -page : page);
    const Handlers handlers = m_handlers;
    UXObjectWatcher watcher(this);
    if (handlers.willStart)
        handlers.willStart(event);
    if (watcher.isAlive() && handlers.offsetRequested)
        handlers.offsetRequested(offset, event);
    if (watcher.isAlive() && handlers.didEnd)
        handlers.didEnd(event);
    return true;
}

bool UXScrollBar::customMouseEnter(const UXEvent&, bool&)
{
    invalidate();
    return false;
}

bool UXScrollBar::customMouseLeave(const UXEvent&, bool&)
{
    invalidate();
    return false;
}

int UXScrollBar::_obtainTrack() const
{
    return m_direction == UXArrangement::Row ? getRect().width : getRect().height;
}

int UXScrollBar::_obtainAlong(const UXEvent& event) const
{
    const UXPoint point = getTranslatedPointFromEvent(event);
    return m_direction == UXArrangement::Row ? point.x : point.y;
}

void UXScrollBar::_placeSlider()
{
    UXScrollBarSlider* slider = getSlider();
    if (!slider)
        return;
    slider->setRect(obtainSliderRect());
}
