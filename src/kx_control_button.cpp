#include "kx_control_button.h"

#include "kx_menu_style.h"
#include "kx_readable_color.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_accessible_info.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <cmath>
#include <utility>

namespace {

constexpr double textInset = 9, lineGap = 8; // logical units
constexpr UXColor edgeColor(150, 155, 166);

} // namespace

KXControlButton::KXControlButton()
{
    setCursor(UXCursor::PointingHand);
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        click(event);
        return true;
    });
}

KXControlButton::~KXControlButton() = default;

void KXControlButton::describe(UXAccessibleInfo& info) const
{
    info.role = UXAccessibleRole::Button;
    info.name = m_text;
    info.actions = {UXAccessibleAction::Press};
}

void KXControlButton::setText(const std::string& text)
{
    if (m_text == text)
        return;
    m_text = text;
    invalidate();
}

void KXControlButton::setPrimary(bool primary) { m_primary = primary; }
void KXControlButton::setQuiet(bool quiet) { m_quiet = quiet; }

void KXControlButton::setAction(std::function<void(const UXEvent&)> action) { m_action = std::move(action); }

std::string KXControlButton::customSerializeTypeID() { return "KXControlButton"; }

void KXControlButton::click(const UXEvent& event)
{
    const UXNotificationScope scope;
    // A copy: the action may destroy this, and itself with it.
    const std::function<void(const UXEvent&)> action = m_action;
    if (isEnabled() && action)
        action(event);
}

void KXControlButton::autoResize()
{
    const UXDoubleSize text = uxMeasureText(m_text, getTextProperty());
    UXRect rect = getRect();
    rect.width = uxSaturateToInt(std::ceil(text.width + 2 * textInset));
    rect.height = uxSaturateToInt(std::ceil(text.height + lineGap));
    setRect(rect);
}

void KXControlButton::_paintPart(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    UXColor ground = m_primary ? getAccentColor() : kxMenuGroundColor;
    if (m_primary && (_isHovered() || _isPressed()))
        ground.alpha *= _isPressed() ? 0.75 : 0.88;
    else if (_isHovered() || _isPressed())
        ground = _isPressed() ? kxMenuPressedColor : kxMenuHoverColor;
    if (!m_quiet || _isHovered() || _isPressed()) {
        painter.setColor(_obtainShownColor(ground));
        uxAddRoundRectanglePath(painter, bounds, kxMenuHoverRadius);
        painter.fill();
    }
    if (!m_quiet && !m_primary) {
        painter.setColor(_obtainShownColor(edgeColor));
        painter.setLineWidth(1);
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -0.5, -0.5), kxMenuHoverRadius);
        painter.stroke();
    }
    UXTextProperty property = getTextProperty();
    property.align = UXTextAlign::Center;
    property.option = UXTextOption::EllipsisEnd;
    if (m_primary)
        property.textColor = kxObtainReadableColor(getAccentColor());
    else if (m_quiet)
        property.textColor = getAccentColor();
    property.textColor = _obtainShownColor(property.textColor);
    painter.drawText(m_text, bounds, property);
    _paintRing(painter, uxInflateDoubleRect(bounds, -2.0, -2.0), kxMenuHoverRadius - 1);
}

bool KXControlButton::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if ((key != UXKeyCode::Space && key != UXKeyCode::Enter) || !isEnabled())
        return KXControlPart::customKeyDown(event, stop);
    _showRing();
    click(event);
    return true;
}
