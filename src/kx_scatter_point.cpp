#include "kx_scatter_point.h"

#include "ux/ux_painter.h"

#include <algorithm>
#include <vector>

namespace {

/** Of the line around a hollow point, in logical units. */
constexpr double lineWidth = 1;

} // namespace

KXScatterPoint::KXScatterPoint() = default;
KXScatterPoint::~KXScatterPoint() = default;

void KXScatterPoint::setIsHollow(bool isHollow) { m_isHollow = isHollow; }

void KXScatterPoint::paintRings(UXPainter& painter, std::span<const UXDoublePoint> centres, double diameter)
{
    painter.setLineDash(std::vector<double>());
    painter.setLineWidth(std::min(lineWidth, diameter / 2));
    const double radius = std::max(diameter - lineWidth, diameter / 2) / 2;
    for (const UXDoublePoint& centre : centres) {
        painter.addCircleArcPath(centre.x, centre.y, radius, 0, 360);
        painter.closePath();
        painter.stroke();
    }
}

void KXScatterPoint::paint(UXPainter& painter) const
{
    if (!m_isHollow) {
        KXLinePoint::paint(painter);
        return;
    }
    const UXDoublePoint centre = getCentre();
    if (getRingColor().alpha > 0) {
        painter.setColor(getRingColor());
        paintRings(painter, {&centre, 1}, getSize() + 2 * ringWidth);
    }
    painter.setColor(getColor());
    paintRings(painter, {&centre, 1}, getSize());
}

void KXScatterPoint::customSerialize()
{
    KXLinePoint::customSerialize();
    serializeBool("m_isHollow", m_isHollow);
}

std::string KXScatterPoint::customSerializeTypeID() { return "KXScatterPoint"; }

bool KXScatterPoint::customDeserialize()
{
    const bool complete = KXLinePoint::customDeserialize();
    return deserializeBool("m_isHollow", m_isHollow) && complete;
}
