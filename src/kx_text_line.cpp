#include "kx_text_line.h"

#include "ux/ux_accessible_change.h"
#include "ux/ux_accessible_info.h"
#include "ux/ux_color_contrast.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace {

constexpr UXColor groundColor(255, 255, 255), edgeColor(150, 155, 166), signColor(104, 110, 122);
constexpr UXColor invalidColor(190, 40, 40);
constexpr double fadedShare = 0.62; // of the text's colour in a placeholder
constexpr double selectionShare = 0.25;
constexpr double radius = 4, inset = 7, lineGap = 10; // logical units
constexpr double signExtent = 16, signGap = 5;

/** A copy of the handler is called: it may destroy who has it. */
void call(const std::function<void()>& handler)
{
    const std::function<void()> own = handler;
    if (own)
        own();
}

void drawGlass(UXPainter& painter, const UXDoubleRect& rect)
{
    const double extent = rect.width;
    painter.setLineWidth(1.5);
    painter.addCircleArcPath(rect.x + extent * 0.42, rect.y + extent * 0.42, extent * 0.28, 0, 360);
    painter.stroke();
    painter.addLinePath(rect.x + extent * 0.63, rect.y + extent * 0.63, rect.x + extent * 0.86,
                        rect.y + extent * 0.86);
    painter.stroke();
}

void drawCross(UXPainter& painter, const UXDoubleRect& rect)
{
    const double near = rect.width * 0.3, far = rect.width * 0.7;
    painter.setLineWidth(1.5);
    painter.addLinePath(rect.x + near, rect.y + near, rect.x + far, rect.y + far);
    painter.addLinePath(rect.x + far, rect.y + near, rect.x + near, rect.y + far);
    painter.stroke();
}

} // namespace

KXTextLine::KXTextLine() : UXInputDelegate(this)
{
    setCursor(UXCursor::Text);
    // A caret goes by the places of the letters, which no direction mirrors.
    setDirection(UXDirection::LeftToRight);
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        if (!_isOnClear(event) || getInputText().empty() || !isEnabled())
            return false;
        setText({});
        call(m_changedHandler);
        return true;
    });
}

KXTextLine::~KXTextLine() { setParent(nullptr); }

void KXTextLine::describe(UXAccessibleInfo& info) const
{
    info.role = UXAccessibleRole::TextLine;
    info.name = getName().empty() ? m_placeholder : getName();
    info.value = getInputText();
}

void KXTextLine::setPlaceholder(const std::string& text)
{
    m_placeholder = text;
    invalidate();
}

void KXTextLine::setForSearch(bool forSearch)
{
    m_forSearch = forSearch;
    invalidate();
}

void KXTextLine::setValid(bool valid)
{
    if (m_valid == valid)
        return;
    m_valid = valid;
    invalidate();
}

void KXTextLine::setText(const std::string& text)
{
    if (getInputText() == text)
        return;
    setInputText(text);
    m_scroll = 0; // the user reads it from its beginning
    invalidate();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
}

void KXTextLine::setRect(UXRect rect)
{
    const bool isResized = rect.width != getRect().width;
    KXControlPart::setRect(rect);
    if (isResized)
        _showCaret();
}

void KXTextLine::setChangedHandler(std::function<void()> handler) { m_changedHandler = std::move(handler); }

void KXTextLine::setFinishedHandler(std::function<void(const UXEvent&)> handler)
{
    m_finishedHandler = std::move(handler);
}

void KXTextLine::setCancelledHandler(std::function<void()> handler)
{
    m_cancelledHandler = std::move(handler);
}

std::string KXTextLine::customSerializeTypeID() { return "KXTextLine"; }

void KXTextLine::autoResize()
{
    UXRect rect = getRect();
    rect.height = uxSaturateToInt(std::ceil(uxMeasureText("Wp", getTextProperty()).height + lineGap));
    setRect(rect);
}

UXDoubleRect KXTextLine::_obtainTextRect() const
{
    UXDoubleRect rect = uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), -inset, 0.0);
    const double signs = signExtent + signGap;
    if (m_forSearch)
        rect = {rect.x + signs, rect.y, rect.width - 2 * signs, rect.height};
    rect.width = std::max(rect.width, 0.0);
    return rect;
}

/** @return the place of the cross, empty where there is none */
UXDoubleRect KXTextLine::_obtainClearRect() const
{
    if (!m_forSearch || getInputText().empty())
        return {};
    return _obtainSignRect(!_beginsAtRight());
}

/** @return whether point is on the cross or between it and the line's end */
bool KXTextLine::_isOnClear(const UXEvent& event) const
{
    const UXDoubleRect clear = _obtainClearRect();
    const double x = getTranslatedPointFromEvent(event).x;
    return clear.width > 0 && (_beginsAtRight() ? x < uxMaxDoubleX(clear) : x >= clear.x);
}

/** @return the place of a sign beside the text */
UXDoubleRect KXTextLine::_obtainSignRect(bool isAtRight) const
{
    const UXDoubleRect bounds(getBoundingRect());
    return {isAtRight ? bounds.width - inset - signExtent : inset, uxMidDoubleY(bounds) - signExtent / 2,
            signExtent, signExtent};
}

/** @return whether what stands around runs from right to left: text and signs then begin at the right, each
 * of them unmirrored */
bool KXTextLine::_beginsAtRight() const { return getParent() && getParent()->isRightToLeft(); }

/** @return where the text begins, scrolled as it is */
double KXTextLine::_obtainTextLeft() const
{
    const UXDoubleRect rect = _obtainTextRect();
    if (!_beginsAtRight())
        return rect.x - m_scroll;
    const double whole = uxMeasureText(getInputText() + getInputComposition(), getTextProperty()).width;
    return rect.x - m_scroll + std::max(rect.width - 1 - whole, 0.0);
}

double KXTextLine::_measure(std::size_t begin, std::size_t end) const
{
    return uxMeasureText(getInputText().substr(begin, end - begin), getTextProperty()).width;
}

/** @return how far the caret is from where the text begins, with what is composed before it */
double KXTextLine::_measureCaret() const
{
    const std::string before = getInputText().substr(0, getCaretPosition());
    return uxMeasureText(before + getInputComposition().substr(0, getInputCompositionCaret()),
                         getTextProperty())
        .width;
}

/** @return the position between characters that is nearest to the event's point */
std::size_t KXTextLine::_obtainPosition(const UXEvent& event) const
{
    const double x = getTranslatedPointFromEvent(event).x - _obtainTextLeft();
    const std::string& text = getInputText();
    std::size_t nearest = 0;
    double distance = std::abs(x);
    for (std::size_t i = 1; i <= text.size(); ++i) {
        if (i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U)
            continue; // inside of a character
        const double other = std::abs(_measure(0, i) - x);
        if (other > distance)
            break;
        nearest = i;
        distance = other;
    }
    return nearest;
}

/** Scrolls as little as brings the caret into sight. */
void KXTextLine::_showCaret()
{
    if (!isFocused()) {
        m_scroll = 0;
        return;
    }
    const double width = _obtainTextRect().width, caret = _measureCaret();
    const double whole = uxMeasureText(getInputText() + getInputComposition(), getTextProperty()).width;
    const double most = std::max(whole + 1 - width, 0.0);
    m_scroll = std::clamp(std::clamp(m_scroll, caret + 1 - width, caret), 0.0, most);
    invalidate();
}

void KXTextLine::_paintPart(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    // A light text is for a dark ground, which shows.
    if (uxObtainContrast(getTextProperty().textColor, groundColor) >= uxReadableContrast) {
        painter.setColor(_obtainShownColor(groundColor));
        uxAddRoundRectanglePath(painter, bounds, radius);
        painter.fill();
    }
    painter.setColor(_obtainShownColor(!m_valid                      ? invalidColor
                                       : isFocused() || _isHovered() ? getAccentColor()
                                                                     : edgeColor));
    const double width = isFocused() ? 2 : 1;
    painter.setLineWidth(width);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -width / 2, -width / 2), radius);
    painter.stroke();
    if (m_forSearch) {
        painter.setColor(_obtainShownColor(signColor));
        drawGlass(painter, _obtainSignRect(_beginsAtRight()));
        if (!getInputText().empty())
            drawCross(painter, _obtainClearRect());
    }
    painter.saveState();
    const UXDoubleRect rect = _obtainTextRect();
    painter.addRectanglePath(uxInflateDoubleRect(rect, 1.0, -1.0));
    painter.clip();
    _paintText(painter, rect);
    painter.restoreState();
}

void KXTextLine::_paintText(UXPainter& painter, const UXDoubleRect& rect) const
{
    UXTextProperty property = getTextProperty();
    property.textColor = _obtainShownColor(property.textColor);
    std::string text = getInputText();
    if (isFocused())
        text.insert(getCaretPosition(), getInputComposition());
    const double left = _obtainTextLeft();
    const double height = uxMeasureText("Wp", property).height, top = uxMidDoubleY(rect) - height / 2;
    if (text.empty()) {
        property.textColor.alpha *= fadedShare;
        property.option = UXTextOption::EllipsisEnd;
        property.align = _beginsAtRight() ? UXTextAlign::Right : property.align;
        painter.drawText(m_placeholder, rect, property);
    }
    const auto [begin, end] = getInputSelection();
    if (isFocused() && !getInputComposition().empty()) {
        const double from = _measure(0, getCaretPosition());
        const double length = uxMeasureText(getInputComposition(), property).width;
        painter.setColor(property.textColor);
        painter.addRectanglePath(left + from, top + height - 1, length, 1);
        painter.fill();
    } else if (isFocused() && begin != end) {
        UXColor selected = getAccentColor();
        selected.alpha *= selectionShare;
        painter.setColor(selected);
        const double from = _measure(0, begin);
        painter.addRectanglePath(left + from, top, _measure(0, end) - from, height);
        painter.fill();
    }
    if (!text.empty())
        painter.drawText(text, {left, rect.y, uxMeasureText(text, property).width + 1, rect.height},
                         property);
    if (isFocused()) {
        painter.setColor(getTextProperty().textColor);
        const double caret = left + _measureCaret();
        painter.drawVerticalLines(std::span(&caret, 1), top, top + height, 1);
    }
}

bool KXTextLine::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const std::function<void(const UXEvent&)> finished = m_finishedHandler;
    if (isEnabled() && finished && (key == UXKeyCode::Enter || (key == UXKeyCode::Tab && !m_forSearch))) {
        finished(event);
        if (key == UXKeyCode::Enter || !self.isAlive())
            return true;
    }
    const bool isEscape = key == UXKeyCode::Escape;
    const bool isCancelled = m_forSearch ? !getInputText().empty() : static_cast<bool>(m_cancelledHandler);
    if (!isEnabled() || (isEscape && !isCancelled) || !inputKeyDown(event))
        return self.isAlive() && KXControlPart::customKeyDown(event, stop);
    if (self.isAlive())
        _showCaret();
    return true;
}

bool KXTextLine::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool handled = KXControlPart::customMouseDown(event, stop);
    if (!self.isAlive() || !isEnabled())
        return handled;
    const std::size_t position = _obtainPosition(event);
    selectInputText(event.containsEventKey(UXEventKey::Shift) ? getInputSelection().first : position,
                    position);
    invalidate();
    return handled;
}

bool KXTextLine::customMouseDragging(const UXEvent& event, bool&)
{
    if (!isEnabled())
        return false;
    const auto [begin, end] = getInputSelection();
    selectInputText(begin == getCaretPosition() ? end : begin, _obtainPosition(event));
    _showCaret();
    return true;
}

bool KXTextLine::customMouseDoubleClick(const UXEvent& event, bool&)
{
    if (!isEnabled())
        return false;
    selectInputWord(_obtainPosition(event));
    invalidate();
    return true;
}

bool KXTextLine::customMouseMove(const UXEvent& event, bool& stop)
{
    setCursor(_isOnClear(event) ? UXCursor::PointingHand : UXCursor::Text);
    return KXControlPart::customMouseMove(event, stop);
}

void KXTextLine::inputTextChanged()
{
    m_valid = true;
    _showCaret();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
    call(m_changedHandler);
}

void KXTextLine::inputCompositionChanged() { _showCaret(); }

void KXTextLine::inputCancelled()
{
    if (m_forSearch)
        setText({});
    call(m_forSearch ? m_changedHandler : m_cancelledHandler);
}
