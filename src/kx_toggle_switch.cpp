#include "kx_toggle_switch.h"

#include "ux/ux_accessible_info.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

namespace {

constexpr double trackWidth = 32;
constexpr double knobGap = 3; // between knob and track
constexpr UXColor offColor(122, 128, 140), hoveredOffColor(104, 110, 122), knobColor(255, 255, 255);

} // namespace

KXToggleSwitch::KXToggleSwitch() = default;
KXToggleSwitch::~KXToggleSwitch() = default;

void KXToggleSwitch::describe(UXAccessibleInfo& info) const
{
    KXSwitchPart::describe(info);
    info.role = UXAccessibleRole::Switch;
}

std::string KXToggleSwitch::customSerializeTypeID() { return "KXToggleSwitch"; }
double KXToggleSwitch::_obtainMarkWidth() const { return trackWidth; }

void KXToggleSwitch::_paintMark(UXPainter& painter, const UXDoubleRect& rect) const
{
    UXColor track = getState() == KXToggleSwitchState::Off ? (_isHovered() ? hoveredOffColor : offColor)
                                                           : getAccentColor();
    if (getState() != KXToggleSwitchState::Off && (_isHovered() || _isPressed()))
        track.alpha *= 0.88;
    painter.setColor(_obtainShownColor(track));
    uxAddRoundRectanglePath(painter, rect, rect.height / 2);
    painter.fill();

    const double extent = rect.height - 2 * knobGap + (_isPressed() ? 2 : 0);
    const double reach = rect.width - rect.height;
    const double share = getState() == KXToggleSwitchState::Off  ? 0
                         : getState() == KXToggleSwitchState::On ? 1
                                                                 : 0.5;
    const double middle = rect.x + rect.height / 2 + reach * share;
    painter.setColor(knobColor);
    const UXDoubleRect knob{middle - extent / 2, uxMidDoubleY(rect) - extent / 2, extent, extent};
    uxAddRoundRectanglePath(painter, knob, extent / 2);
    painter.fill();
    if (getState() == KXToggleSwitchState::Mixed) {
        painter.setColor(getAccentColor());
        uxAddRoundRectanglePath(
            painter, uxMakeDoubleRect(middle - extent / 4, uxMidDoubleY(rect) - 0.75, extent / 2, 1.5), 0.75);
        painter.fill();
    }
}
