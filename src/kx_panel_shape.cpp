#include "kx_panel_shape.h"

#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <utility>

namespace {

constexpr double allAround = 360, quarter = 90;
/** Of the radius: where a text stands in a slice without a hole, which is wider outside. */
constexpr double middleOfSlice = 0.6;
constexpr double otherPlacesInSlice[] = {0.5, 0.7};
/** A smaller hole is none. */
constexpr double leastHole = 1;

UXDoublePoint obtainPlace(const KXSector& sector, double degrees, double radius)
{
    const double turn = degrees * std::numbers::pi / 180;
    return {sector.center.x + radius * std::cos(turn), sector.center.y + radius * std::sin(turn)};
}

bool isAllAround(const KXSector& sector) { return sector.sweepDegrees >= allAround; }

UXDoubleRect makeBounds(std::span<const UXDoublePoint> places)
{
    if (places.empty())
        return {};
    const auto [left, right] = std::ranges::minmax(places, {}, &UXDoublePoint::x);
    const auto [top, bottom] = std::ranges::minmax(places, {}, &UXDoublePoint::y);
    return {left.x, top.y, right.x - left.x, bottom.y - top.y};
}

/** A sector reaches furthest at its corners, or where it crosses one of the axes. */
UXDoubleRect makeBounds(const KXSector& sector)
{
    const double end = sector.startDegrees + sector.sweepDegrees;
    std::vector<UXDoublePoint> places;
    for (const double degrees : {sector.startDegrees, end})
        for (const double radius : {sector.innerRadius, sector.radius})
            places.push_back(obtainPlace(sector, degrees, radius));
    double crossing = std::ceil(sector.startDegrees / quarter) * quarter;
    for (int i = 0; i < 4 && crossing < end; ++i, crossing += quarter)
        places.push_back(obtainPlace(sector, crossing, sector.radius));
    return makeBounds(places);
}

bool holds(const UXDoubleRect& rect, const UXDoublePoint& point) { return uxPointInDoubleRect(point, rect); }

bool holds(const KXSector& sector, const UXDoublePoint& point)
{
    const double x = point.x - sector.center.x, y = point.y - sector.center.y;
    const double distance = std::hypot(x, y);
    if (distance < sector.innerRadius || distance > sector.radius)
        return false;
    const double turned = std::fmod(std::atan2(y, x) * 180 / std::numbers::pi - sector.startDegrees,
                                    allAround);
    return (turned < 0 ? turned + allAround : turned) < sector.sweepDegrees;
}

/** A line from the point to the right crosses the edges around it an odd number of times. */
bool holds(const std::vector<UXDoublePoint>& corners, const UXDoublePoint& point)
{
    bool isInside = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const UXDoublePoint& a = corners[i];
        const UXDoublePoint& b = corners[(i + 1) % corners.size()];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < a.x + (b.x - a.x) * ((point.y - a.y) / (b.y - a.y)))
            isInside = !isInside;
    }
    return isInside;
}

UXDoubleRect scale(const UXDoubleRect& rect, double ratio)
{
    return uxInflateDoubleRect(rect, rect.width * (ratio - 1) / 2, rect.height * (ratio - 1) / 2);
}

KXSector scale(KXSector sector, double ratio)
{
    const double more = (sector.radius - sector.innerRadius) * (ratio - 1) / 2;
    sector.radius += more;
    sector.innerRadius = std::max(sector.innerRadius - more, 0.0);
    return sector;
}

std::vector<UXDoublePoint> scale(std::vector<UXDoublePoint> corners, double ratio)
{
    const UXDoubleRect bounds = makeBounds(corners);
    const double x = uxMidDoubleX(bounds), y = uxMidDoubleY(bounds);
    for (UXDoublePoint& corner : corners)
        corner = {x + (corner.x - x) * ratio, y + (corner.y - y) * ratio};
    return corners;
}

UXDoubleRect move(const UXDoubleRect& rect, const UXDoublePoint& by)
{
    return {rect.x + by.x, rect.y + by.y, rect.width, rect.height};
}

KXSector move(KXSector sector, const UXDoublePoint& by)
{
    sector.center = {sector.center.x + by.x, sector.center.y + by.y};
    return sector;
}

std::vector<UXDoublePoint> move(std::vector<UXDoublePoint> corners, const UXDoublePoint& by)
{
    for (UXDoublePoint& corner : corners)
        corner = {corner.x + by.x, corner.y + by.y};
    return corners;
}

void addPath(UXPainter& painter, const UXDoubleRect& rect) { painter.addRectanglePath(rect); }

void addPath(UXPainter& painter, const KXSector& sector)
{
    const double start = sector.startDegrees, end = start + sector.sweepDegrees;
    const UXDoublePoint& center = sector.center;
    if (sector.innerRadius >= leastHole || isAllAround(sector)) {
        painter.addCircleArcPath(center.x, center.y, sector.radius, start, end);
        if (sector.innerRadius >= leastHole)
            painter.joinCircleArcPath(center.x, center.y, sector.innerRadius, end, start);
    } else {
        painter.setStartPoint(center.x, center.y);
        painter.joinCircleArcPath(center.x, center.y, sector.radius, start, end);
    }
    painter.closePath();
}

void addPath(UXPainter& painter, const std::vector<UXDoublePoint>& corners)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (i == 0)
            painter.setStartPoint(corners[i].x, corners[i].y);
        else
            painter.addLinePath(corners[i].x, corners[i].y);
    }
    painter.closePath();
}

} // namespace

KXPanelShape::KXPanelShape() = default;
KXPanelShape::KXPanelShape(const UXDoubleRect& rect) : m_outline(rect), m_bounds(rect) {}
KXPanelShape::KXPanelShape(const KXSector& sector) : m_outline(sector), m_bounds(makeBounds(sector)) {}
KXPanelShape::KXPanelShape(std::vector<UXDoublePoint> corners)
    : m_outline(std::move(corners)), m_bounds(makeBounds(std::get<std::vector<UXDoublePoint>>(m_outline)))
{
}

UXDoublePoint KXPanelShape::obtainMiddle() const
{
    const KXSector* sector = std::get_if<KXSector>(&m_outline);
    if (!sector)
        return {uxMidDoubleX(m_bounds), uxMidDoubleY(m_bounds)};
    if (isAllAround(*sector) && sector->innerRadius <= 0)
        return sector->center;
    const double radius = sector->innerRadius > 0 ? (sector->innerRadius + sector->radius) / 2
                                                  : middleOfSlice * sector->radius;
    return obtainPlace(*sector, sector->startDegrees + sector->sweepDegrees / 2, radius);
}

/** A text that is too wide for a slice at its usual place may fit nearer to the middle or the edge. */
std::vector<UXDoublePoint> KXPanelShape::obtainTextPlaces() const
{
    std::vector<UXDoublePoint> places{obtainMiddle()};
    const KXSector* sector = obtainSector();
    if (sector && !isAllAround(*sector) && sector->innerRadius <= 0)
        for (const double share : otherPlacesInSlice)
            places.push_back(obtainPlace(*sector, sector->startDegrees + sector->sweepDegrees / 2,
                                         share * sector->radius));
    return places;
}

bool KXPanelShape::holdsPoint(const UXDoublePoint& point) const
{
    return std::visit([&](const auto& outline) { return holds(outline, point); }, m_outline);
}

bool KXPanelShape::holdsRect(const UXDoubleRect& rect) const
{
    for (const double x : {0.0, 0.5, 1.0})
        for (const double y : {0.0, 0.5, 1.0})
            if (!holdsPoint({rect.x + x * rect.width, rect.y + y * rect.height}))
                return false;
    return true;
}

KXPanelShape KXPanelShape::obtainScaled(double ratio) const
{
    return std::visit([&](const auto& outline) { return KXPanelShape(scale(outline, ratio)); }, m_outline);
}

KXPanelShape KXPanelShape::obtainPart(double share) const
{
    if (const UXDoubleRect* rect = obtainRect())
        return UXDoubleRect(rect->x, rect->y + rect->height * (1 - share), rect->width, rect->height * share);
    KXPanelShape part = *this;
    if (const KXSector* sector = obtainSector()) {
        KXSector own = *sector;
        own.sweepDegrees *= share;
        part = own;
    }
    return part;
}

KXPanelShape KXPanelShape::obtainMoved(const UXDoublePoint& by) const
{
    return std::visit([&](const auto& outline) { return KXPanelShape(move(outline, by)); }, m_outline);
}

void KXPanelShape::_addPath(UXPainter& painter) const
{
    std::visit([&](const auto& outline) { addPath(painter, outline); }, m_outline);
}

/** Rectangles stand on whole pixels of the device. */
void KXPanelShape::fill(UXPainter& painter) const
{
    if (const auto* rect = std::get_if<UXDoubleRect>(&m_outline)) {
        painter.drawRects({rect, 1});
        return;
    }
    _addPath(painter);
    painter.fill();
}

void KXPanelShape::stroke(UXPainter& painter) const
{
    _addPath(painter);
    painter.stroke();
}
