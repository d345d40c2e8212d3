#include "kx_circle.h"

#include "kx_scatter_point.h"
#include "ux/ux_painter.h"

KXCircle::KXCircle() = default;
KXCircle::KXCircle(const UXDoublePoint& centre, double diameter, const UXColor& color,
                   const UXColor& lineColor)
    : m_centre(centre), m_diameter(diameter), m_color(color), m_lineColor(lineColor)
{
}
KXCircle::~KXCircle() = default;

void KXCircle::paint(UXPainter& painter) const
{
    if (m_color.alpha > 0) {
        painter.setColor(m_color);
        painter.drawMarks({&m_centre, 1}, m_diameter / 2);
    }
    if (m_lineColor.alpha > 0) {
        painter.setColor(m_lineColor);
        KXScatterPoint::paintRings(painter, {&m_centre, 1}, m_diameter);
    }
}

void KXCircle::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeDouble("m_x", m_centre.x);
    serializeDouble("m_y", m_centre.y);
    serializeDouble("m_diameter", m_diameter);
    serializeUXColor("m_color", m_color);
    serializeUXColor("m_lineColor", m_lineColor);
}

std::string KXCircle::customSerializeTypeID() { return "KXCircle"; }

bool KXCircle::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = deserializeDouble("m_x", m_centre.x) && complete;
    complete = deserializeDouble("m_y", m_centre.y) && complete;
    complete = deserializeDouble("m_diameter", m_diameter) && complete;
    complete = deserializeUXColor("m_color", m_color) && complete;
    return deserializeUXColor("m_lineColor", m_lineColor) && complete;
}
