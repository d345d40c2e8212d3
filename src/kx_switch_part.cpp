#include "kx_switch_part.h"

#include "ux/ux_accessible_change.h"
#include "ux/ux_accessible_info.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double textGap = 7; // between mark and text, in logical units
constexpr double ringRadius = 3;
constexpr double leastHeight = 18;

} // namespace

KXSwitchPart::KXSwitchPart()
{
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent&) {
        toggle();
        return true;
    });
}

KXSwitchPart::~KXSwitchPart() = default;

void KXSwitchPart::describe(UXAccessibleInfo& info) const
{
    info.role = UXAccessibleRole::CheckBox;
    info.name = m_text;
    info.checked = m_state == KXToggleSwitchState::On      ? UXAccessibleToggle::On
                   : m_state == KXToggleSwitchState::Mixed ? UXAccessibleToggle::Mixed
                                                           : UXAccessibleToggle::Off;
    info.actions = {UXAccessibleAction::Press};
}

void KXSwitchPart::setText(const std::string& text)
{
    if (m_text == text)
        return;
    m_text = text;
    invalidate();
}

void KXSwitchPart::setState(KXToggleSwitchState state)
{
    if (m_state == state)
        return;
    m_state = state;
    invalidate();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
}

void KXSwitchPart::setChangedHandler(std::function<void(KXToggleSwitchState)> handler)
{
    m_changedHandler = std::move(handler);
}

KXToggleSwitchState KXSwitchPart::_obtainNextState() const
{
    return m_state == KXToggleSwitchState::On ? KXToggleSwitchState::Off : KXToggleSwitchState::On;
}

void KXSwitchPart::toggle()
{
    const UXNotificationScope scope;
    if (!isEnabled())
        return;
    setState(_obtainNextState());
    // A copy: the handler may destroy this, and itself with it.
    const std::function<void(KXToggleSwitchState)> handler = m_changedHandler;
    if (handler)
        handler(m_state);
}

void KXSwitchPart::customSerialize()
{
    KXControlPart::customSerialize();
    serializeString("m_text", m_text);
    serializeInt64("m_state", static_cast<int>(m_state));
}

bool KXSwitchPart::customDeserialize()
{
    bool complete = KXControlPart::customDeserialize();
    complete = deserializeString("m_text", m_text) && complete;
    int state = static_cast<int>(m_state);
    complete = deserializeInt64("m_state", state) && complete;
    const bool isKnown = state >= 0 && state <= static_cast<int>(KXToggleSwitchState::Mixed);
    if (isKnown)
        m_state = static_cast<KXToggleSwitchState>(state);
    return complete && isKnown;
}

void KXSwitchPart::autoResize()
{
    const UXDoubleSize text = uxMeasureText(m_text, getTextProperty());
    const double width = _obtainMarkWidth() + (m_text.empty() ? 0 : textGap + text.width);
    UXRect rect = getRect();
    rect.width = uxSaturateToInt(std::ceil(width));
    rect.height = uxSaturateToInt(std::ceil(std::max(text.height, leastHeight)));
    setRect(rect);
}

void KXSwitchPart::_paintPart(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    const double markWidth = std::min(_obtainMarkWidth(), bounds.width);
    const double height = std::min(bounds.height, leastHeight);
    const UXDoubleRect mark{bounds.x, uxMidDoubleY(bounds) - height / 2, markWidth, height};
    _paintMark(painter, mark);
    const UXDoubleRect text{bounds.x + markWidth + textGap, bounds.y, bounds.width - markWidth - textGap,
                            bounds.height};
    if (text.width > 0 && !m_text.empty()) {
        UXTextProperty property = getTextProperty();
        property.option = UXTextOption::EllipsisEnd;
        property.textColor = _obtainShownColor(property.textColor);
        painter.drawText(m_text, text, property);
    }
    _paintRing(painter, m_text.empty() ? mark : bounds, ringRadius);
}

bool KXSwitchPart::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if ((key != UXKeyCode::Space && key != UXKeyCode::Enter) || !isEnabled())
        return KXControlPart::customKeyDown(event, stop);
    _showRing();
    toggle();
    return true;
}
