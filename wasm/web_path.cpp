#include "web_path.h"

#include "web_drawing.h"

#include <cmath>

namespace {

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

} // namespace

void WebPath::moveTo(const UXDoublePoint& point)
{
    m_start = point;
    m_hasCurrent = true;
    _append(Kind::Move, point, point, point);
}

void WebPath::lineTo(const UXDoublePoint& point)
{
    if (!m_hasCurrent)
        return moveTo(point);
    _append(Kind::Line, point, point, point);
}

void WebPath::curveTo(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end)
{
    if (!m_hasCurrent)
        moveTo(a);
    _append(Kind::Curve, a, b, end);
}

void WebPath::close()
{
    if (m_hasCurrent)
        _append(Kind::Close, m_start, m_start, m_start);
}

void WebPath::transform(const UXTransform& change)
{
    const auto map = [&](UXDoublePoint& point) {
        point = change.apply(point.x, point.y);
        m_isFinite = m_isFinite && isFinite(point);
    };
    for (Segment& segment : m_segments) {
        for (UXDoublePoint& point : segment.points)
            map(point);
    }
    map(m_start);
    map(m_current);
}

void WebPath::clear()
{
    m_segments.clear();
    m_hasCurrent = false;
    m_isFinite = true;
}

void WebPath::write(WebDrawing& drawing) const
{
    drawing.add(WebCommand::BeginPath);
    for (const Segment& segment : m_segments) {
        const auto& [a, b, end] = segment.points;
        switch (segment.kind) {
        case Kind::Move:
            drawing.add(WebCommand::MoveTo);
            drawing.addNumbers({end.x, end.y});
            break;
        case Kind::Line:
            drawing.add(WebCommand::LineTo);
            drawing.addNumbers({end.x, end.y});
            break;
        case Kind::Curve:
            drawing.add(WebCommand::CurveTo);
            drawing.addNumbers({a.x, a.y, b.x, b.y, end.x, end.y});
            break;
        case Kind::Close:
            drawing.add(WebCommand::ClosePath);
            break;
        }
    }
}

void WebPath::_append(Kind kind, const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end)
{
    m_segments.push_back({kind, {a, b, end}});
    m_current = end;
    m_isFinite = m_isFinite && isFinite(a) && isFinite(b) && isFinite(end);
}
