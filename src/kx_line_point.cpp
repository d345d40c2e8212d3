#include "kx_line_point.h"

#include "kx_enum_map.h"
#include "kx_point_shapes.h"
#include "ux/ux_painter.h"

#include <vector>

constexpr double KXLinePoint::ringWidth;

KXLinePoint::KXLinePoint() = default;
KXLinePoint::~KXLinePoint() = default;

void KXLinePoint::setCentre(const UXDoublePoint& centre) { m_centre = centre; }
void KXLinePoint::setShape(KXPointShape shape) { m_shape = shape; }
void KXLinePoint::setSize(double size) { m_size = size; }
void KXLinePoint::setColor(const UXColor& color) { m_color = color; }
void KXLinePoint::setRingColor(const UXColor& color) { m_ringColor = color; }

void KXLinePoint::paint(UXPainter& painter) const
{
    painter.setLineDash(std::vector<double>());
    if (m_ringColor.alpha > 0) {
        painter.setColor(m_ringColor);
        kxDrawPoints(painter, m_shape, {&m_centre, 1}, m_size + 2 * ringWidth);
    }
    painter.setColor(m_color);
    kxDrawPoints(painter, m_shape, {&m_centre, 1}, m_size);
}

void KXLinePoint::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeDouble("m_x", m_centre.x);
    serializeDouble("m_y", m_centre.y);
    kxSerializeEnum(this, "m_pointShape", m_shape);
    serializeDouble("m_pointSize", m_size);
    serializeUXColor("m_color", m_color);
    serializeUXColor("m_ringColor", m_ringColor);
}

std::string KXLinePoint::customSerializeTypeID() { return "KXLinePoint"; }

bool KXLinePoint::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = deserializeDouble("m_x", m_centre.x) && complete;
    complete = deserializeDouble("m_y", m_centre.y) && complete;
    complete = kxDeserializeEnum(this, "m_pointShape", m_shape) && complete;
    complete = deserializeDouble("m_pointSize", m_size) && complete;
    complete = deserializeUXColor("m_color", m_color) && complete;
    return deserializeUXColor("m_ringColor", m_ringColor) && complete;
}
