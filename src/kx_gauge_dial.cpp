#include "kx_gauge_dial.h"

#include "kx_panel_shape.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/** The painter counts from the right end; the dial begins at its left one. */
constexpr double leftEnd = 180;

constexpr double tickGap = 4;
/** Between the tick and a text beyond it. */
constexpr double tickTextGap = 3;
constexpr double tickLengthShare = 0.05;
constexpr double tickWidthShare = 0.014;
constexpr double hubShare = 0.04;
constexpr double needleLengthShare = 0.86;
constexpr double needleWidthShare = 0.028;
/** Between a text in the hole and the pipe around it, as a share of the hole's radius. */
constexpr double holeGapShare = 0.06;

double toRadians(double degrees) { return degrees * std::numbers::pi / 180; }

} // namespace

KXGaugeDial KXGaugeDial::fromRect(const UXDoubleRect& rect, double pipeShare)
{
    KXGaugeDial dial;
    dial.radius = std::max(std::round(rect.width / 2), 0.0);
    dial.center = {rect.x + dial.radius, rect.y + rect.height};
    const double inner = std::round((1 - pipeShare) * dial.radius);
    dial.innerRadius = std::isnan(inner) ? 0 : std::clamp(inner, 0.0, dial.radius);
    return dial;
}

UXDoubleRect KXGaugeDial::obtainRect() const
{
    return {center.x - radius, center.y - radius, 2 * radius, radius};
}

double KXGaugeDial::obtainTickEnd() const { return tickGap + std::round(radius * tickLengthShare); }

double KXGaugeDial::obtainTickClearance() const { return obtainTickEnd() + tickTextGap; }

UXDoubleRect KXGaugeDial::obtainTickBounds(double degrees) const
{
    const double cosine = std::cos(toRadians(degrees)), sine = std::sin(toRadians(degrees));
    const double end = radius + obtainTickEnd();
    const double half = radius * tickWidthShare / 2;
    return {center.x - end * cosine - half, center.y - end * sine - half, 2 * half, 2 * half};
}

double KXGaugeDial::obtainHubRadius() const { return std::round(radius * hubShare); }

UXDoubleRect KXGaugeDial::placeOutside(const UXDoubleSize& size, double degrees, double distance) const
{
    // 1. The middle lies on the ray of the angle, so far out that the corner nearest to the centre is on the
    //    circle that keeps the distance.
    const double side = degrees <= 90 ? -1 : 1;
    const double across = std::abs(std::cos(toRadians(degrees)));
    const double up = std::abs(std::sin(toRadians(degrees)));
    const double halfWidth = size.width / 2, halfHeight = size.height / 2;
    const double keep = radius + distance;
    const double along = across * halfWidth + up * halfHeight;
    const double apart = halfWidth * halfWidth + halfHeight * halfHeight - keep * keep;
    double out = along + std::sqrt(std::max(along * along - apart, 0.0));

    // 2. Straight above or beside the centre it is an edge that is nearest.
    if (across * out < halfWidth)
        out = up > 0 ? (keep + halfHeight) / up : out;
    else if (up * out < halfHeight)
        out = (keep + halfWidth) / across;

    // 3. At the ends it stands on the line of the dial; that moves it along the pipe, not into it.
    const double left = std::round(center.x + side * across * out - halfWidth);
    const double top = std::round(center.y - up * out - halfHeight);
    return {left, std::min(top, center.y - size.height), size.width, size.height};
}

bool KXGaugeDial::holdsInside(const UXDoubleRect& rect) const
{
    const double across = std::max(center.x - rect.x, rect.x + rect.width - center.x);
    const double up = center.y - rect.y;
    return std::hypot(across, up) <= innerRadius * (1 - holeGapShare);
}

bool KXGaugeDial::holdsPoint(const UXDoublePoint& point) const
{
    const double distance = std::hypot(point.x - center.x, point.y - center.y);
    return point.y <= center.y && distance <= radius && distance >= innerRadius;
}

void KXGaugeDial::fillSegment(UXPainter& painter, double fromDegrees, double toDegrees,
                              double widthRatio) const
{
    const KXPanelShape segment(
        KXSector{center, innerRadius, radius, leftEnd + fromDegrees, toDegrees - fromDegrees});
    (widthRatio == 1 ? segment : segment.obtainScaled(widthRatio)).fill(painter);
}

void KXGaugeDial::strokeTick(UXPainter& painter, double degrees, double widthRatio) const
{
    const UXPainterState state(painter);
    painter.translate(center.x, center.y);
    painter.rotate(leftEnd + degrees);
    painter.setLineWidth(radius * tickWidthShare * widthRatio);
    painter.addLinePath(radius + tickGap, 0, radius + obtainTickEnd(), 0);
    painter.stroke();
}

void KXGaugeDial::fillHub(UXPainter& painter) const
{
    painter.addCircleArcPath(center.x, center.y, obtainHubRadius(), 0, 360);
    painter.fill();
}

void KXGaugeDial::strokeNeedle(UXPainter& painter, double degrees, double widthRatio) const
{
    const UXPainterState state(painter);
    painter.translate(center.x, center.y);
    painter.rotate(leftEnd + degrees);
    painter.setLineWidth(std::round(radius * needleWidthShare) * widthRatio);
    painter.setLineCap(UXLineCapStyle::Round);
    painter.addLinePath(0, 0, std::round(radius * needleLengthShare), 0);
    painter.stroke();
}
