#include "ux/ux_virtual_scroll_view.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/** @return offset moved by distance, rounded; at 0 or int64's limit where that does not fit, not moved by NaN
 */
std::int64_t moveOffset(std::int64_t offset, double distance)
{
    using Limits = std::numeric_limits<std::int64_t>;
    if (std::isnan(distance))
        return offset;
    const double rounded = std::round(distance);
    if (rounded >= static_cast<double>((Limits::max)() - offset))
        return (Limits::max)();
    return rounded <= -static_cast<double>(offset) ? 0 : offset + static_cast<std::int64_t>(rounded);
}

} // namespace

UXVirtualScrollView::UXVirtualScrollView() = default;

UXVirtualScrollView::~UXVirtualScrollView() = default;

void UXVirtualScrollView::setContentWidth(std::int64_t width) { _setExtent(m_horizontal, width); }

void UXVirtualScrollView::setContentHeight(std::int64_t height) { _setExtent(m_vertical, height); }

void UXVirtualScrollView::setContentOffsetX(std::int64_t x) { _setOffsets(x, m_vertical.offset); }

void UXVirtualScrollView::setContentOffsetY(std::int64_t y) { _setOffsets(m_horizontal.offset, y); }

void UXVirtualScrollView::setEnableHorizontalScrollBar(bool enable, bool repaint)
{
    m_horizontal.barEnabled = enable;
    UXObjectWatcher watcher(this);
    _areaChanged();
    if (repaint && watcher.isAlive())
        invalidate();
}

void UXVirtualScrollView::setEnableVerticalScrollBar(bool enable, bool repaint)
{
    m_vertical.barEnabled = enable;
    UXObjectWatcher watcher(this);
    _areaChanged();
    if (repaint && watcher.isAlive())
        invalidate();
}

void UXVirtualScrollView::setAlwaysShowScrollBar(bool alwaysShow)
{
    m_alwaysShowScrollBar = alwaysShow;
    _areaChanged();
}

bool UXVirtualScrollView::hasScrollBars() const
{
    const ShownBars bars = _obtainShownBars();
    return bars.horizontal || bars.vertical;
}

bool UXVirtualScrollView::hasHorizontalScrollBar() const { return _obtainShownBars().horizontal; }

bool UXVirtualScrollView::hasVerticalScrollBar() const { return _obtainShownBars().vertical; }

void UXVirtualScrollView::setScrollPadding(const UXPadding& padding)
{
    m_scrollPadding = padding;
    _areaChanged();
}

UXSize UXVirtualScrollView::obtainDisplayArea() const
{
    const UXRect area = obtainScrollContentRect();
    return {area.width, area.height};
}

UXRect UXVirtualScrollView::obtainScrollContentRect() const
{
    UXRect area = _obtainAreaWithBars();
    const ShownBars bars = _obtainShownBars();
    area.width = std::max(area.width - (bars.vertical ? extraExtent : 0), 0);
    area.height = std::max(area.height - (bars.horizontal ? extraExtent : 0), 0);
    return area;
}

void UXVirtualScrollView::linkedScroll(double distance, bool horizontal)
{
    if (horizontal)
        _setOffsets(moveOffset(m_horizontal.offset, distance), m_vertical.offset);
    else
        _setOffsets(m_horizontal.offset, moveOffset(m_vertical.offset, distance));
}

std::string UXVirtualScrollView::customSerializeTypeID() { return "UXVirtualScrollView"; }

void UXVirtualScrollView::setRect(UXRect rect)
{
    UXObjectWatcher watcher(this);
    UXObject::setRect(rect);
    if (watcher.isAlive())
        _areaChanged();
}

void UXVirtualScrollView::setPadding(const UXPadding& padding)
{
    UXObjectWatcher watcher(this);
    UXObject::setPadding(padding);
    if (watcher.isAlive())
        _areaChanged();
}

void UXVirtualScrollView::contentOffsetChanged(const UXEvent& event, UXScrollBar*)
{
    const std::int64_t movedX = m_movedX, movedY = m_movedY;
    UXObjectWatcher watcher(this);
    if (m_delegate)
        m_delegate->virtualScrollViewContentOffsetChanged(this, event);
    if (watcher.isAlive() && m_delegate)
        m_delegate->virtualScrollViewContentOffsetChanged(this);
    if (watcher.isAlive() && m_delegate)
        m_delegate->virtualScrollViewContentOffsetChanged(this, movedX, movedY, event);
}

/** @return the area that content and scroll bars share */
UXRect UXVirtualScrollView::_obtainAreaWithBars() const
{
    const UXRect area = getContentRect();
    const std::int64_t left = m_scrollPadding.left, top = m_scrollPadding.top;
    return {uxSaturateToInt(area.x + left), uxSaturateToInt(area.y + top),
            std::max(uxSaturateToInt(area.width - left - m_scrollPadding.right), 0),
            std::max(uxSaturateToInt(area.height - top - m_scrollPadding.bottom), 0)};
}

UXVirtualScrollView::ShownBars UXVirtualScrollView::_obtainShownBars() const
{
    // A bar takes room from the other direction, where the content may then fit no longer.
    const UXRect area = _obtainAreaWithBars();
    ShownBars bars{_shouldShowBar(m_horizontal, area.width), _shouldShowBar(m_vertical, area.height)};
    if (bars.vertical && !bars.horizontal)
        bars.horizontal = _shouldShowBar(m_horizontal, std::max(area.width - extraExtent, 0));
    else if (bars.horizontal && !bars.vertical)
        bars.vertical = _shouldShowBar(m_vertical, std::max(area.height - extraExtent, 0));
    return bars;
}

bool UXVirtualScrollView::_shouldShowBar(const Direction& direction, std::int64_t extent) const
{
    return direction.barEnabled && (m_alwaysShowScrollBar || direction.contentExtent > extent);
}

void UXVirtualScrollView::_setExtent(Direction& direction, std::int64_t extent)
{
    extent = std::max<std::int64_t>(extent, 0);
    if (extent == direction.contentExtent)
        return;
    direction.contentExtent = extent;
    _areaChanged();
}

void UXVirtualScrollView::_setOffsets(std::int64_t x, std::int64_t y)
{
    const UXSize shown = obtainDisplayArea();
    const auto bound = [](std::int64_t offset, std::int64_t content, int extent) {
        return std::clamp<std::int64_t>(offset, 0, std::max<std::int64_t>(content - extent, 0));
    };
    x = bound(x, m_horizontal.contentExtent, shown.width);
    y = bound(y, m_vertical.contentExtent, shown.height);
    m_movedX = x - m_horizontal.offset;
    m_movedY = y - m_vertical.offset;
    if (m_movedX == 0 && m_movedY == 0)
        return;
    m_horizontal.offset = x;
    m_vertical.offset = y;

    UXObjectWatcher watcher(this);
    contentOffsetChanged(UXEvent(), nullptr);
    if (watcher.isAlive())
        invalidate();
}

/** Another area can show another part of the content: an offset beyond its end moves back. */
void UXVirtualScrollView::_areaChanged() { _setOffsets(m_horizontal.offset, m_vertical.offset); }
