#include "kx_line_segment.h"

#include "kx_enum_map.h"
#include "ux/ux_painter.h"

#include <array>

KXLineSegment::KXLineSegment() = default;
KXLineSegment::~KXLineSegment() = default;

void KXLineSegment::setEnds(const UXDoublePoint& start, const UXDoublePoint& end)
{
    m_start = start;
    m_end = end;
}

void KXLineSegment::setColor(const UXColor& color) { m_color = color; }
void KXLineSegment::setPen(const KXLinePen& pen) { m_pen = pen; }

void KXLineSegment::paint(UXPainter& painter) const
{
    if (!(m_pen.width > 0))
        return;
    m_pen.use(painter);
    painter.setColor(m_color);
    painter.drawPolyline(std::array{m_start, m_end});
}

void KXLineSegment::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeDouble("m_startX", m_start.x);
    serializeDouble("m_startY", m_start.y);
    serializeDouble("m_endX", m_end.x);
    serializeDouble("m_endY", m_end.y);
    serializeUXColor("m_color", m_color);
    serializeDouble("m_lineWidth", m_pen.width);
    kxSerializeEnum(this, "m_lineStyle", m_pen.style);
    kxSerializeEnum(this, "m_lineCapStyle", m_pen.cap);
}

std::string KXLineSegment::customSerializeTypeID() { return "KXLineSegment"; }

bool KXLineSegment::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = deserializeDouble("m_startX", m_start.x) && complete;
    complete = deserializeDouble("m_startY", m_start.y) && complete;
    complete = deserializeDouble("m_endX", m_end.x) && complete;
    complete = deserializeDouble("m_endY", m_end.y) && complete;
    complete = deserializeUXColor("m_color", m_color) && complete;
    complete = deserializeDouble("m_lineWidth", m_pen.width) && complete;
    complete = kxDeserializeEnum(this, "m_lineStyle", m_pen.style) && complete;
    return kxDeserializeEnum(this, "m_lineCapStyle", m_pen.cap) && complete;
}
