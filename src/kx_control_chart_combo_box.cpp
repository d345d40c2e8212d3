#include "kx_control_chart_combo_box.h"

#include "kx_menu_style.h"
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

constexpr double inset = 9, arrowExtent = 10, lineGap = 10; // logical units
constexpr UXColor edgeColor(150, 155, 166);

} // namespace

KXControlChartComboBox::KXControlChartComboBox()
{
    setCursor(UXCursor::PointingHand);
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent&) {
        _callHandler();
        return true;
    });
}

KXControlChartComboBox::~KXControlChartComboBox() = default;

void KXControlChartComboBox::describe(UXAccessibleInfo& info) const
{
    info.role = UXAccessibleRole::ComboBox;
    info.value = m_text;
    info.expanded = m_open;
    info.actions = {UXAccessibleAction::Press};
}

void KXControlChartComboBox::setText(const std::string& text)
{
    if (m_text == text)
        return;
    m_text = text;
    invalidate();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
}

void KXControlChartComboBox::setOpen(bool open)
{
    if (m_open == open)
        return;
    m_open = open;
    invalidate();
    uxTellAccessibleChange(*this, UXAccessibleChange::Content);
}

void KXControlChartComboBox::setOpenHandler(std::function<void()> handler)
{
    m_openHandler = std::move(handler);
}

void KXControlChartComboBox::_callHandler()
{
    const UXNotificationScope scope;
    // A copy: the handler may destroy this, and itself with it.
    const std::function<void()> handler = m_openHandler;
    if (isEnabled() && handler)
        handler();
}

void KXControlChartComboBox::customSerialize()
{
    KXControlPart::customSerialize();
    serializeString("m_text", m_text);
}

std::string KXControlChartComboBox::customSerializeTypeID() { return "KXControlChartComboBox"; }

bool KXControlChartComboBox::customDeserialize()
{
    const bool complete = KXControlPart::customDeserialize();
    return deserializeString("m_text", m_text) && complete;
}

void KXControlChartComboBox::autoResize()
{
    UXRect rect = getRect();
    rect.height = uxSaturateToInt(std::ceil(uxMeasureText("Wp", getTextProperty()).height + lineGap));
    setRect(rect);
}

void KXControlChartComboBox::_paintPart(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    painter.setColor(_obtainShownColor(_isPressed() || m_open ? kxMenuPressedColor
                                       : _isHovered()         ? kxMenuHoverColor
                                                              : kxMenuGroundColor));
    uxAddRoundRectanglePath(painter, bounds, kxMenuHoverRadius);
    painter.fill();
    painter.setColor(_obtainShownColor(m_open ? getAccentColor() : edgeColor));
    painter.setLineWidth(1);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -0.5, -0.5), kxMenuHoverRadius);
    painter.stroke();

    const double right = bounds.width - inset, middle = uxMidDoubleY(bounds);
    painter.setColor(_obtainShownColor(kxMenuIconColor));
    painter.setLineWidth(1.5);
    painter.setStartPoint(right - arrowExtent, middle - arrowExtent / 4);
    painter.addLinePath(right - arrowExtent / 2, middle + arrowExtent / 4);
    painter.addLinePath(right, middle - arrowExtent / 4);
    painter.stroke();

    UXTextProperty property = getTextProperty();
    property.option = UXTextOption::EllipsisEnd;
    property.textColor = _obtainShownColor(property.textColor);
    const UXDoubleRect text{inset, bounds.y, right - arrowExtent - 2 * inset, bounds.height};
    if (text.width > 0)
        painter.drawText(m_text, text, property);
    _paintRing(painter, uxInflateDoubleRect(bounds, -2.0, -2.0), kxMenuHoverRadius - 1);
}

bool KXControlChartComboBox::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if ((key != UXKeyCode::Space && key != UXKeyCode::Enter && key != UXKeyCode::Down) || !isEnabled())
        return KXControlPart::customKeyDown(event, stop);
    _showRing();
    _callHandler();
    return true;
}
