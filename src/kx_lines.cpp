#include "kx_lines.h"

#include "kx_line_point.h"
#include "kx_line_segment.h"
#include "kx_piece_list.h"
#include "ux/ux_painter_state.h"

KXLines::KXLines() = default;
KXLines::~KXLines() = default;

KXLineSegment& KXLines::addSegment() { return *m_segments.emplace_back(std::make_unique<KXLineSegment>()); }
KXLinePoint& KXLines::addPoint() { return *m_points.emplace_back(std::make_unique<KXLinePoint>()); }

void KXLines::clear()
{
    m_segments.clear();
    m_points.clear();
}

void KXLines::paint(UXPainter& painter) const
{
    const UXPainterState state(painter);
    for (const std::unique_ptr<KXLineSegment>& segment : m_segments)
        segment->paint(painter);
    for (const std::unique_ptr<KXLinePoint>& point : m_points)
        point->paint(painter);
}

void KXLines::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeObjectList("m_segments", kxListPieces(m_segments));
    serializeObjectList("m_points", kxListPieces(m_points));
}

std::string KXLines::customSerializeTypeID() { return "KXLines"; }

bool KXLines::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = kxReadPieces(*this, "m_segments", m_segments) && complete;
    return kxReadPieces(*this, "m_points", m_points) && complete;
}
