#include "kx_check_mark.h"

#include "kx_readable_color.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_unmirrored_space.h"

#include <algorithm>
#include <string>

namespace {

constexpr UXColor groundColor(255, 255, 255), hoveredColor(240, 244, 250), pressedColor(224, 231, 242);
constexpr UXColor edgeColor(122, 128, 140); // 3:1 on white
constexpr double disabledShare = 0.45;
constexpr double boxRadius = 3; // of the corners

UXColor fade(UXColor color, const KXCheckMarkLook& look)
{
    if (!look.isEnabled)
        color.alpha *= disabledShare;
    return color;
}

void addFrame(UXPainter& painter, const UXDoubleRect& square, bool isRound)
{
    uxAddRoundRectanglePath(painter, square, isRound ? square.width / 2 : boxRadius);
}

/** A tick, a line for a mixed state, or a dot in a round mark. */
void drawSign(UXPainter& painter, const UXDoubleRect& square, const KXCheckMarkLook& look)
{
    const double extent = square.width;
    painter.setColor(fade(kxObtainReadableColor(look.accent), look));
    if (look.state == KXToggleSwitchState::Mixed) {
        uxAddRoundRectanglePath(
            painter, {square.x + extent * 0.25, square.y + extent * 0.43, extent * 0.5, extent * 0.14},
            extent * 0.07);
        painter.fill();
    } else if (look.isRound) {
        addFrame(painter, uxInflateDoubleRect(square, -extent * 0.3, -extent * 0.3), true);
        painter.fill();
    } else {
        const UXUnmirroredSpace space(painter, uxMidDoubleX(square));
        painter.setLineWidth(extent * 0.13);
        painter.setLineCap(UXLineCapStyle::Round);
        painter.setLineJoin(UXLineJoinStyle::Round);
        painter.setStartPoint(square.x + extent * 0.24, square.y + extent * 0.52);
        painter.addLinePath(square.x + extent * 0.43, square.y + extent * 0.7);
        painter.addLinePath(square.x + extent * 0.76, square.y + extent * 0.32);
        painter.stroke();
    }
}

void drawMark(UXPainter& painter, const UXDoubleRect& square, const KXCheckMarkLook& look)
{
    painter.saveState();
    if (look.state == KXToggleSwitchState::Off) {
        painter.setColor(fade(look.isPressed   ? pressedColor
                              : look.isHovered ? hoveredColor
                                               : groundColor,
                              look));
        addFrame(painter, square, look.isRound);
        painter.fill();
        painter.setColor(fade(look.isHovered || look.isPressed ? look.accent : edgeColor, look));
        painter.setLineWidth(1);
        addFrame(painter, uxInflateDoubleRect(square, -0.5, -0.5), look.isRound);
        painter.stroke();
    } else {
        UXColor accent = look.accent;
        if (look.isHovered || look.isPressed)
            accent.alpha *= look.isPressed ? 0.75 : 0.88;
        painter.setColor(fade(accent, look));
        addFrame(painter, square, look.isRound);
        painter.fill();
        drawSign(painter, square, look);
    }
    painter.restoreState();
}

/** @return what tells this look from all others */
std::string makeName(const KXCheckMarkLook& look)
{
    std::string name = "check mark";
    for (const int part :
         {static_cast<int>(look.state), look.isRound ? 1 : 0, look.isEnabled ? 1 : 0, look.isHovered ? 1 : 0,
          look.isPressed ? 1 : 0, look.accent.red, look.accent.green, look.accent.blue})
        name.append(" ").append(std::to_string(part));
    return name.append(" ").append(std::to_string(look.accent.alpha));
}

} // namespace

void kxDrawCheckMark(UXPainter& painter, const UXDoubleRect& bounds, const KXCheckMarkLook& look)
{
    const double extent = std::min(bounds.width, bounds.height);
    if (!(extent > 2))
        return;
    const UXDoubleRect square{uxMidDoubleX(bounds) - extent / 2, uxMidDoubleY(bounds) - extent / 2, extent,
                              extent};
    painter.drawStamp(makeName(look), square, [&](UXPainter* stamp) { drawMark(*stamp, square, look); });
}
