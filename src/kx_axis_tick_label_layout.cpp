#include "kx_axis_tick_label_layout.h"

#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_utf8.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

/** Less than anyone sees; what the sums of lengths may be wrong by. */
constexpr double noise = 1e-6;
/** The part of a line's height above and below its letters, where lines may meet. */
constexpr double blankHeight = 1;
constexpr double sqrt2 = std::numbers::sqrt2;

UXPosition obtainSide(UXPosition position)
{
    switch (position) {
    case UXPosition::Top:
    case UXPosition::Left:
    case UXPosition::Right:
        return position;
    case UXPosition::TopRight:
    case UXPosition::BottomRight:
        return UXPosition::Right;
    default:
        return UXPosition::Bottom;
    }
}

/** @return whether no word goes on from a line to the next one */
bool endsBetweenWords(std::string_view line, std::string_view next)
{
    if (line.data() + line.size() != next.data())
        return true; // there are blanks between them
    std::size_t last = line.size(), first = 0;
    while (last > 0 && (static_cast<unsigned char>(line[--last]) & 0xC0U) == 0x80U)
        continue;
    return uxIsWideCharacter(uxDecodeUtf8(line, last)) || uxIsWideCharacter(uxDecodeUtf8(next, first));
}

int ceilToInt(double length) { return uxSaturateToInt(std::ceil(length - noise)); }

} // namespace

double kxObtainTickLabelDegrees(UXPosition position, KXAxisTickLabelRotationType rotation)
{
    if (position != UXPosition::Top && position != UXPosition::Bottom)
        return 0;
    if (rotation == KXAxisTickLabelRotationType::Vertical)
        return 270;
    return rotation == KXAxisTickLabelRotationType::Degrees45 ? -45 : 0;
}

double kxObtainTickLabelInterval(double extent, double gap, double distance)
{
    if (!(distance > 0))
        return 1;
    // Whole noise is no reason for one more: 0.3 / 0.1 is 3.
    return (std::max)(1.0, std::ceil((extent + gap) / distance - 1e-9));
}

bool kxIsNumberLabel(std::string_view text)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return std::any_of(text.begin(), text.end(), isDigit) &&
           std::count_if(text.begin(), text.end(), isLetter) <= 1;
}

std::string kxWrapTickLabel(const std::string& text, const UXTextWidthFunction& widthOf)
{
    if (kxIsNumberLabel(text))
        return text;
    double tooNarrow = widthOf(text) / 2, wideEnough = 2 * tooNarrow;
    std::string wrapped = text;
    while (wideEnough - tooNarrow > 1) {
        const double limit = (tooNarrow + wideEnough) / 2;
        const std::vector<std::string_view> lines = uxBreakTextLines(text, limit, widthOf);
        const bool fits = lines.size() == 2 && endsBetweenWords(lines[0], lines[1]);
        (fits ? wideEnough : tooNarrow) = limit;
        if (fits)
            wrapped = std::string(lines[0]).append("\n").append(lines[1]);
    }
    return wrapped;
}

KXAxisTickLabelLayout::KXAxisTickLabelLayout(UXPosition position, KXAxisTickLabelRotationType rotation)
    : m_side(obtainSide(position)), m_degrees(kxObtainTickLabelDegrees(position, rotation)),
      m_cos(m_degrees == 270 ? 0 : std::cos(m_degrees * std::numbers::pi / 180)),
      m_sin(m_degrees == 270 ? -1 : std::sin(m_degrees * std::numbers::pi / 180))
{
}

bool KXAxisTickLabelLayout::isAlongX() const
{
    return m_side == UXPosition::Top || m_side == UXPosition::Bottom;
}

UXTextAlign KXAxisTickLabelLayout::obtainAlign() const
{
    if (isAlongX())
        return UXTextAlign::Center;
    return m_side == UXPosition::Left ? UXTextAlign::Right : UXTextAlign::Left;
}

UXDoubleSize KXAxisTickLabelLayout::obtainTurnedSize(const UXDoubleSize& text) const
{
    const double across = std::abs(m_cos), along = std::abs(m_sin);
    return {text.width * across + text.height * along, text.width * along + text.height * across};
}

double KXAxisTickLabelLayout::obtainBandLength(const UXDoubleSize& text) const
{
    const UXDoubleSize turned = obtainTurnedSize(text);
    return isAlongX() ? turned.height : turned.width;
}

double KXAxisTickLabelLayout::obtainLengthAlong(const UXDoubleSize& text) const
{
    if (!isAlongX())
        return text.height;
    // Turned texts lie beside each other like the lines of a page.
    return m_degrees == 0 ? text.width : (std::max)(text.height - blankHeight, 0.0) / std::abs(m_sin);
}

double KXAxisTickLabelLayout::obtainReach(const UXDoubleSize& text, int direction) const
{
    if (!isAlongX() || m_degrees == 270)
        return text.height / 2;
    if (m_degrees == 0)
        return text.width / 2;
    // A sloping text is shortened on the side to which it reaches away from its tick.
    const int end = m_side == UXPosition::Top ? -1 : 1;
    return direction == end ? text.height / 2 * std::abs(m_sin) : 0;
}

KXAxisTickLabelPlace KXAxisTickLabelLayout::obtainPlace(const UXDoubleSize& text, const UXPoint& tick) const
{
    const UXDoubleSize turned = obtainTurnedSize(text);
    UXDoublePoint center(tick);
    // A sloping text ends below its tick, and begins above it.
    const double slope = m_degrees == -45 ? text.width / 2 * m_cos : 0;
    switch (m_side) {
    case UXPosition::Top:
        center = {center.x + slope, center.y - turned.height / 2};
        break;
    case UXPosition::Left:
        center.x -= turned.width / 2;
        break;
    case UXPosition::Right:
        center.x += turned.width / 2;
        break;
    default:
        center = {center.x - slope, center.y + turned.height / 2};
    }
    return {center, text};
}

UXRect KXAxisTickLabelLayout::obtainRect(const KXAxisTickLabelPlace& place) const
{
    const UXDoubleSize turned = obtainTurnedSize(place.size);
    const int width = ceilToInt(turned.width), height = ceilToInt(turned.height);
    const int y = uxRoundToInt(place.center.y - height / 2.0);
    // Sloping texts keep their distances from line to line, however their lengths are rounded.
    const int x = m_degrees == -45
                      ? uxRoundToInt(place.center.x + place.center.y - height / 2.0 - width / 2.0 - y)
                      : uxRoundToInt(place.center.x - width / 2.0);
    return {x, y, width, height};
}

/** @return how far the area reaches from the tick away from the axis */
double KXAxisTickLabelLayout::_obtainRoomAcross(const UXPoint& tick, const UXRect& area) const
{
    switch (m_side) {
    case UXPosition::Top:
        return static_cast<double>(tick.y) - area.y;
    case UXPosition::Left:
        return static_cast<double>(tick.x) - area.x;
    case UXPosition::Right:
        return static_cast<double>(uxMaxX(area)) - tick.x;
    default:
        return static_cast<double>(uxMaxY(area)) - tick.y;
    }
}

double KXAxisTickLabelLayout::obtainWidthLimit(const UXDoubleSize& text, const UXPoint& tick,
                                               const UXRect& area, bool movesInside) const
{
    const double across = _obtainRoomAcross(tick, area);
    const double before = static_cast<double>(tick.x) - area.x;
    const double after = static_cast<double>(uxMaxX(area)) - tick.x;
    double limit = across;
    if (m_degrees == -45) {
        const double along = m_side == UXPosition::Top ? after : before;
        const double room = (std::min)(across, static_cast<double>(area.width));
        limit = (std::min)(room * sqrt2 - text.height, along * sqrt2 - text.height / 2);
    } else if (isAlongX() && m_degrees == 0) {
        limit = movesInside ? area.width
                            : (std::min)(before, text.width / 2) + (std::min)(after, text.width / 2);
    }
    return (std::max)(limit, 0.0);
}

UXRect KXAxisTickLabelLayout::obtainBand(const UXPoint& tick, const UXRect& area, double length) const
{
    const int limit = uxSaturateToInt((std::min)(length, (std::max)(_obtainRoomAcross(tick, area), 0.0)));
    switch (m_side) {
    case UXPosition::Top:
        return {area.x, tick.y - limit, area.width, limit};
    case UXPosition::Left:
        return {tick.x - limit, area.y, limit, area.height};
    case UXPosition::Right:
        return {tick.x, area.y, limit, area.height};
    default:
        return {area.x, tick.y, area.width, limit};
    }
}

bool KXAxisTickLabelLayout::hasRoomForHeight(double textHeight, const UXPoint& tick, const UXRect& area) const
{
    const double needed = textHeight - blankHeight;
    if (!isAlongX())
        return needed <= area.height;
    if (m_degrees == 0)
        return needed <= _obtainRoomAcross(tick, area);
    return needed <= area.width;
}

UXPoint KXAxisTickLabelLayout::obtainFoot(const UXPoint& point, double textHeight, const UXPoint& tick) const
{
    if (m_degrees != -45)
        return point;
    // The middle of a line lies beside its tick, so that its corner touches the edge.
    const int beside = uxRoundToInt(textHeight / 2 * m_cos) * (m_side == UXPosition::Top ? -1 : 1);
    return {uxSaturateToInt(std::int64_t{point.x} + point.y - tick.y - beside), tick.y};
}

/** @return a distance in the directions of the text: along its line, and down from line to line */
UXDoublePoint KXAxisTickLabelLayout::_turnBack(double dx, double dy) const
{
    return {dx * m_cos + dy * m_sin, dy * m_cos - dx * m_sin};
}

bool KXAxisTickLabelLayout::isOverlapping(const KXAxisTickLabelPlace& a, const KXAxisTickLabelPlace& b,
                                          double gap) const
{
    const UXDoublePoint apart = _turnBack(b.center.x - a.center.x, b.center.y - a.center.y);
    return std::abs(apart.x) < (a.size.width + b.size.width) / 2 + gap - noise &&
           std::abs(apart.y) < (a.size.height + b.size.height) / 2 - blankHeight - noise;
}

bool KXAxisTickLabelLayout::holdsPoint(const KXAxisTickLabelPlace& place, const UXPoint& point) const
{
    const UXDoublePoint apart = _turnBack(point.x - place.center.x, point.y - place.center.y);
    return std::abs(apart.x) <= place.size.width / 2 && std::abs(apart.y) <= place.size.height / 2;
}
