#include "kx_figure_drawing.h"

#include "ux/ux_painter.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

/** Of a text's font size: how wide and high its arrow is, and the same with the room behind it. */
constexpr double arrowShare = 0.6, arrowRoomShare = 0.9;
/** Of the height of a line: where the middle of its digits is. */
constexpr double digitMiddleShare = 0.53;

} // namespace

double kxObtainShareBefore(UXTextAlign align)
{
    switch (align) {
    case UXTextAlign::Left:
        return 0;
    case UXTextAlign::Right:
        return 1;
    case UXTextAlign::Center:
        break;
    }
    return 0.5;
}

UXDoubleRect kxPlaceFigureText(std::string& text, const UXTextProperty& property, const UXDoubleRect& room,
                               double indent, UXTextAlign align)
{
    const auto measure = [&property](std::string_view part) {
        return uxMeasureText(std::string(part), property).width;
    };
    const double most = std::max(room.width - indent, 0.0);
    text = uxShortenText(text, UXTextOption::EllipsisEnd, most, measure);
    // Where not even the ellipsis fits, nothing is written.
    const double wanted = measure(text);
    const double width = wanted <= most ? std::min(std::ceil(wanted), most) : 0;
    return {std::round(room.x + indent + kxObtainShareBefore(align) * (most - width)), std::round(room.y),
            width, room.height};
}

double kxObtainArrowRoom(const UXTextProperty& property)
{
    return std::round(property.font.size * arrowRoomShare);
}

UXDoubleRect kxPlaceArrow(const UXDoubleRect& text, const UXTextProperty& property, double indent)
{
    const double extent = property.font.size * arrowShare;
    return {text.x - indent, kxObtainDigitMiddle(text) - extent / 2, extent, extent};
}

double kxObtainDigitMiddle(const UXDoubleRect& text) { return text.y + text.height * digitMiddleShare; }

void kxDrawArrow(UXPainter& painter, const UXDoubleRect& rect, bool isUp)
{
    const double top = rect.y, bottom = rect.y + rect.height;
    painter.setStartPoint(rect.x, isUp ? bottom : top);
    painter.addLinePath(rect.x + rect.width / 2, isUp ? top : bottom);
    painter.addLinePath(rect.x + rect.width, isUp ? bottom : top);
    painter.closePath();
    painter.fill();
}
