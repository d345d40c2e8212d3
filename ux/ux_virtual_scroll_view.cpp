#include "ux/ux_virtual_scroll_view.h"

#include "ux/ux_child_walk.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

// Hosts may refer to it, on Windows too
constexpr int UXVirtualScrollView::extraExtent;

namespace {

constexpr double wheelStep = 48; // logical units to a notch of the wheel
constexpr double keyStep = 40;
/** The share of the shown extent that a page moves on; the rest stays, so that the eye finds its place. */
constexpr double pageShare = 0.9;

/** How far a key scrolls, in logical units, or all the way for infinity. */
struct KeyScroll {
    bool horizontal = false;
    double distance = 0;
};

KeyScroll obtainKeyScroll(const UXEvent& event, const UXSize& shown, bool pagesHorizontally)
{
    constexpr double allTheWay = std::numeric_limits<double>::infinity();
    const double page = std::max(pageShare * (pagesHorizontally ? shown.width : shown.height), 1.0);
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Left:
        return {true, -keyStep};
    case UXKeyCode::Right:
        return {true, keyStep};
    case UXKeyCode::Up:
        return {false, -keyStep};
    case UXKeyCode::Down:
        return {false, keyStep};
    case UXKeyCode::PageUp:
        return {pagesHorizontally, -page};
    case UXKeyCode::PageDown:
        return {pagesHorizontally, page};
    case UXKeyCode::Space:
        return {pagesHorizontally, event.containsEventKey(UXEventKey::Shift) ? -page : page};
    case UXKeyCode::Home:
        return {pagesHorizontally, -allTheWay};
    case UXKeyCode::End:
        return {pagesHorizontally, allTheWay};
    default:
        return {};
    }
}

} // namespace

UXVirtualScrollView::UXVirtualScrollView()
{
    registerEventResponder(UXEventResponderType::Scroll,
                           [this](const UXEvent& event) { return _wantsWheel(event); });
}

UXVirtualScrollView::~UXVirtualScrollView() = default;

void UXVirtualScrollView::setContentWidth(std::int64_t width) { _setExtent(m_horizontal, width); }

void UXVirtualScrollView::setContentHeight(std::int64_t height) { _setExtent(m_vertical, height); }

void UXVirtualScrollView::setContentOffsetX(std::int64_t x)
{
    _setOffsets(x, m_vertical.offset, UXEvent(), nullptr);
}

void UXVirtualScrollView::setContentOffsetY(std::int64_t y)
{
    _setOffsets(m_horizontal.offset, y, UXEvent(), nullptr);
}

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

void UXVirtualScrollView::setScrollBarColor(const std::optional<UXColor>& color)
{
    m_barColor = color;
    _colorBars();
}

void UXVirtualScrollView::setScrollBarSliderColor(const std::optional<UXColor>& color)
{
    m_barSliderColor = color;
    _colorBars();
}

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

UXScrollBar* UXVirtualScrollView::getHorizontalScrollBar() const
{
    auto* bar = static_cast<UXScrollBar*>(m_horizontal.bar.getObject());
    return bar && bar->getVisible() ? bar : nullptr;
}

UXScrollBar* UXVirtualScrollView::getVerticalScrollBar() const
{
    auto* bar = static_cast<UXScrollBar*>(m_vertical.bar.getObject());
    return bar && bar->getVisible() ? bar : nullptr;
}

void UXVirtualScrollView::linkedScroll(double distance, bool horizontal)
{
    const std::int64_t offset = uxMoveScrollOffset(_obtainRange(horizontal), distance);
    if (horizontal)
        setContentOffsetX(offset);
    else
        setContentOffsetY(offset);
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

void UXVirtualScrollView::addChild(UXObject* child)
{
    UXObjectWatcher watcher(this);
    UXObject::addChild(child);
    if (watcher.isAlive())
        _bringBarsToFront();
}

void UXVirtualScrollView::addChild(UXObject* child, int position)
{
    UXObjectWatcher watcher(this);
    UXObject::addChild(child, position);
    if (watcher.isAlive())
        _bringBarsToFront();
}

void UXVirtualScrollView::removeChildren()
{
    UXObjectWatcher watcher(this);
    while (UXObject* child = watcher.isAlive() ? _obtainLastContentChild() : nullptr)
        removeChild(child);
}

void UXVirtualScrollView::clearChildren()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    while (UXObject* child = watcher.isAlive() ? _obtainLastContentChild() : nullptr)
        delete child;
}

void UXVirtualScrollView::bringChildToFront(UXObject* child)
{
    UXObjectWatcher watcher(this);
    UXObject::bringChildToFront(child);
    if (watcher.isAlive())
        _bringBarsToFront();
}

void UXVirtualScrollView::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (!config)
        return;
    const UXRect content = obtainScrollContentRect();
    const UXDoubleRect contentInRoot(translateRectToParent(content, nullptr));
    const UXObjectWatcher watcher(this);
    const UXPaintConfigWatcher configWatcher(config);
    UXChildWalk walk(this);
    while (UXObject* child = configWatcher.isGone() ? nullptr : walk.next()) {
        if (!child->getVisible())
            continue;
        const UXObjectWatcher childWatcher(child);
        const bool clips = !_isBar(child) && (!m_delegate || m_delegate->shouldClipInScrollArea(this, child));
        if (!watcher.isAlive() || configWatcher.isGone())
            return;
        if (!childWatcher.isAlive())
            continue;
        const UXRect visible = clips ? uxIntersectionRect(dirtyRect, content) : dirtyRect;
        const UXRect childRect = translateRectToChild(visible, child);
        if (uxIsEmptyRect(visible) || !child->inRect(childRect))
            continue;
        std::optional<UXPaintClip> clip;
        if (clips)
            clip.emplace(*config, contentInRoot);
        child->paint(config, childRect);
    }
}

bool UXVirtualScrollView::customMouseWheel(const UXEvent& event, bool&)
{
    const UXDoublePoint delta = _obtainWheelDelta(event);
    UXObjectWatcher watcher(this);
    const bool handledX = _scrollBy(true, delta.x * wheelStep, event);
    return (watcher.isAlive() && _scrollBy(false, delta.y * wheelStep, event)) || handledX;
}

bool UXVirtualScrollView::customKeyDown(const UXEvent& event, bool&)
{
    const bool pagesHorizontally = uxObtainScrollLimit(_obtainRange(false)) == 0;
    const KeyScroll scroll = obtainKeyScroll(event, obtainDisplayArea(), pagesHorizontally);
    return _scrollBy(scroll.horizontal, scroll.distance, event);
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

void UXVirtualScrollView::userScrollingWillStart(const UXEvent&) {}

void UXVirtualScrollView::userScrollingDidEnd(const UXEvent&) {}

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

UXScrollRange UXVirtualScrollView::_obtainRange(bool horizontal) const
{
    const UXSize shown = obtainDisplayArea();
    return horizontal ? UXScrollRange{m_horizontal.contentExtent, shown.width, m_horizontal.offset}
                      : UXScrollRange{m_vertical.contentExtent, shown.height, m_vertical.offset};
}

void UXVirtualScrollView::_setOffsets(std::int64_t x, std::int64_t y, const UXEvent& event, UXScrollBar* bar)
{
    x = std::clamp<std::int64_t>(x, 0, uxObtainScrollLimit(_obtainRange(true)));
    y = std::clamp<std::int64_t>(y, 0, uxObtainScrollLimit(_obtainRange(false)));
    m_movedX = x - m_horizontal.offset;
    m_movedY = y - m_vertical.offset;
    if (m_movedX == 0 && m_movedY == 0)
        return;
    const UXNotificationScope scope;
    m_horizontal.offset = x;
    m_vertical.offset = y;

    UXObjectWatcher watcher(this);
    _updateBars();
    if (watcher.isAlive())
        contentOffsetChanged(event, bar);
    if (watcher.isAlive())
        invalidate();
}

/** Another area can show another part of the content: an offset beyond its end moves back. */
void UXVirtualScrollView::_areaChanged()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    _updateBars();
    if (watcher.isAlive())
        _setOffsets(m_horizontal.offset, m_vertical.offset, UXEvent(), nullptr);
}

void UXVirtualScrollView::_colorBars()
{
    const UXObjectWatcher self(this);
    for (const bool horizontal : {true, false}) {
        const UXObjectWatcher watcher(self.isAlive() ? _obtainDirection(horizontal).bar.getObject()
                                                     : nullptr);
        auto* bar = static_cast<UXScrollBar*>(watcher.getObject());
        if (bar)
            bar->setTrackColor(m_barColor);
        if (self.isAlive() && watcher.isAlive())
            bar->setSliderColor(m_barSliderColor);
    }
}

void UXVirtualScrollView::_updateBars()
{
    const UXRect area = _obtainAreaWithBars(), content = obtainScrollContentRect();
    const ShownBars shown = _obtainShownBars();
    const int width = std::min(extraExtent, area.width), height = std::min(extraExtent, area.height);
    UXObjectWatcher watcher(this);
    _updateBar(true, shown.horizontal, {content.x, uxMaxY(area) - height, content.width, height});
    if (watcher.isAlive())
        _updateBar(false, shown.vertical, {uxMaxX(area) - width, content.y, width, content.height});
}

void UXVirtualScrollView::_updateBar(bool horizontal, bool shown, const UXRect& rect)
{
    auto* bar = static_cast<UXScrollBar*>(_obtainDirection(horizontal).bar.getObject());
    const bool isNew = !bar && shown;
    if (isNew)
        bar = _makeBar(horizontal);
    if (!bar)
        return;
    const UXObjectWatcher self(this), watcher(bar);
    const auto isAlive = [&] { return self.isAlive() && watcher.isAlive(); };
    if (isNew)
        UXObject::addChild(bar);
    if (isNew && isAlive())
        _bringBarsToFront(); // in one order, whichever was needed first
    if (isAlive())
        bar->setVisible(shown);
    if (isAlive() && shown)
        bar->setRect(rect);
    if (isAlive() && shown)
        bar->setRange(_obtainRange(horizontal));
}

/** @return a bar that is not on the view yet */
UXScrollBar* UXVirtualScrollView::_makeBar(bool horizontal)
{
    auto* bar = new UXScrollBar(horizontal ? UXArrangement::Row : UXArrangement::Column);
    _obtainDirection(horizontal).bar = UXObjectWatcher(bar);
    bar->setHandlers({[this](const UXEvent& event) { userScrollingWillStart(event); },
                      [this, horizontal, bar](std::int64_t offset, const UXEvent& event) {
                          UXObjectWatcher watcher(this);
                          if (_shouldTriggerScroll(horizontal) && watcher.isAlive())
                              _scrollTo(horizontal, offset, event, bar);
                      },
                      [this](const UXEvent& event) { userScrollingDidEnd(event); }});
    bar->setTrackColor(m_barColor);
    bar->setSliderColor(m_barSliderColor);
    return bar;
}

void UXVirtualScrollView::_bringBarsToFront()
{
    const UXObjectWatcher self(this);
    for (const bool horizontal : {true, false}) {
        if (self.isAlive())
            UXObject::bringChildToFront(_obtainDirection(horizontal).bar.getObject());
    }
}

bool UXVirtualScrollView::_isBar(const UXObject* object) const
{
    return object && (object == m_horizontal.bar.getObject() || object == m_vertical.bar.getObject());
}

UXObject* UXVirtualScrollView::_obtainLastContentChild() const
{
    const auto& children = getChildren();
    const auto found = std::find_if(children.rbegin(), children.rend(),
                                    [this](const UXObject* child) { return !_isBar(child); });
    return found == children.rend() ? nullptr : *found;
}

/** An upright wheel scrolls sideways with Shift, and where there is nothing else to scroll. */
UXDoublePoint UXVirtualScrollView::_obtainWheelDelta(const UXEvent& event) const
{
    const UXDoublePoint delta = event.getWheelDelta();
    const bool onlyHorizontal = uxObtainScrollLimit(_obtainRange(false)) == 0;
    if (delta.x == 0 && (onlyHorizontal || event.containsEventKey(UXEventKey::Shift)))
        return {delta.y, 0};
    return delta;
}

/** @return whether a turn of the wheel is for this view, and not for what scrolls around it */
bool UXVirtualScrollView::_wantsWheel(const UXEvent& event) const
{
    const auto wants = [this](bool horizontal, double delta) {
        const UXScrollRange range = _obtainRange(horizontal);
        const std::int64_t limit = uxObtainScrollLimit(range);
        return delta != 0 && limit > 0 && (!m_autoJumpOut || range.offset != (delta > 0 ? limit : 0));
    };
    const UXDoublePoint delta = _obtainWheelDelta(event);
    return wants(true, delta.x) || wants(false, delta.y);
}

bool UXVirtualScrollView::_shouldTriggerScroll(bool horizontal)
{
    return !m_delegate || m_delegate->virtualScrollViewShouldTriggerScroll(this, horizontal);
}

/** @return whether the user's wish ends here: it does unless there is nothing to scroll at all, or the end is
 * reached and the view lets go of it there */
bool UXVirtualScrollView::_scrollBy(bool horizontal, double distance, const UXEvent& event)
{
    UXObjectWatcher watcher(this);
    UXScrollRange range = _obtainRange(horizontal);
    if (distance == 0 || std::isnan(distance) || uxObtainScrollLimit(range) == 0 ||
        !_shouldTriggerScroll(horizontal) || !watcher.isAlive())
        return false;

    range = _obtainRange(horizontal);
    double& rest = _obtainDirection(horizontal).wheelRest;
    if (range.offset == (distance > 0 ? uxObtainScrollLimit(range) : 0)) {
        rest = 0;
        return !m_autoJumpOut;
    }
    const double wanted = distance + rest;
    rest = std::isfinite(wanted) ? wanted - std::round(wanted) : 0;
    return _scrollOneStep(horizontal, uxMoveScrollOffset(range, wanted), event);
}

bool UXVirtualScrollView::_scrollOneStep(bool horizontal, std::int64_t offset, const UXEvent& event)
{
    UXObjectWatcher watcher(this);
    userScrollingWillStart(event);
    if (watcher.isAlive())
        _scrollTo(horizontal, offset, event, nullptr);
    if (watcher.isAlive())
        userScrollingDidEnd(event);
    return true;
}

void UXVirtualScrollView::_scrollTo(bool horizontal, std::int64_t offset, const UXEvent& event,
                                    UXScrollBar* bar)
{
    const std::int64_t before = _obtainDirection(horizontal).offset;
    UXObjectWatcher watcher(this);
    if (horizontal)
        _setOffsets(offset, m_vertical.offset, event, bar);
    else
        _setOffsets(m_horizontal.offset, offset, event, bar);
    if (!watcher.isAlive())
        return;

    const std::int64_t moved = _obtainDirection(horizontal).offset - before;
    if (moved == 0 || !m_delegate || !m_delegate->shouldLinkScrolling(this) || !watcher.isAlive())
        return;
    if (m_delegate)
        m_delegate->linkedScrollingRequested(this, static_cast<double>(moved), event, horizontal);
}
