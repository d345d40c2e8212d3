#include "ux/svg/ux_svg_path.h"

#include "ux/svg/ux_svg_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/** A point in thousandths, which is what the text shows: what looks equal there is equal. */
struct WrittenPoint {
    std::int64_t x = 0, y = 0;

    explicit WrittenPoint(const UXDoublePoint& point)
        : x(uxObtainSvgThousandths(point.x)), y(uxObtainSvgThousandths(point.y))
    {
    }
};

void append(std::string& data, char letter, const WrittenPoint& point)
{
    data.push_back(letter);
    uxAppendSvgThousandths(data, point.x);
    data.push_back(' ');
    uxAppendSvgThousandths(data, point.y);
}

/** A level or upright line takes one number instead of two. */
void appendLine(std::string& data, const WrittenPoint& from, const WrittenPoint& to)
{
    if (from.x != to.x && from.y != to.y)
        return append(data, 'L', to);
    data.push_back(from.y == to.y ? 'H' : 'V');
    uxAppendSvgThousandths(data, from.y == to.y ? to.x : to.y);
}

} // namespace

void UXSvgPath::moveTo(const UXDoublePoint& point)
{
    m_start = point;
    m_hasCurrent = true;
    _append(Kind::Move, point, point, point);
}

void UXSvgPath::lineTo(const UXDoublePoint& point)
{
    if (!m_hasCurrent)
        return moveTo(point);
    _append(Kind::Line, point, point, point);
}

void UXSvgPath::curveTo(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end)
{
    if (!m_hasCurrent)
        moveTo(a);
    _append(Kind::Curve, a, b, end);
}

void UXSvgPath::close()
{
    if (m_hasCurrent)
        _append(Kind::Close, m_start, m_start, m_start);
}

void UXSvgPath::transform(const UXTransform& change)
{
    const auto map = [&](UXDoublePoint& point) {
        point = change.apply(point.x, point.y);
        m_isFinite = m_isFinite && isFinite(point);
    };
    for (Segment& segment : m_segments)
        std::for_each(segment.points.begin(), segment.points.end(), map);
    map(m_start);
    map(m_current);
}

void UXSvgPath::clear() { *this = {}; }

std::optional<UXDoubleRect> UXSvgPath::obtainRect() const
{
    if (!isDrawable() || m_segments.size() != 5 || m_segments[4].kind != Kind::Close ||
        std::any_of(m_segments.begin() + 1, m_segments.begin() + 4,
                    [](const Segment& segment) { return segment.kind != Kind::Line; }))
        return std::nullopt;
    const auto corner = [this](std::size_t index) { return m_segments[index].points[2]; };
    const bool isUpright = corner(0).y == corner(1).y && corner(1).x == corner(2).x &&
                           corner(2).y == corner(3).y && corner(3).x == corner(0).x;
    if (!isUpright)
        return std::nullopt;
    const double left = std::min(corner(0).x, corner(2).x), top = std::min(corner(0).y, corner(2).y);
    return UXDoubleRect(left, top, std::abs(corner(2).x - corner(0).x), std::abs(corner(2).y - corner(0).y));
}

std::string UXSvgPath::obtainData(const UXTransform& change) const
{
    const auto map = [&](const UXDoublePoint& point) { return WrittenPoint(change.apply(point.x, point.y)); };
    std::string data;
    WrittenPoint current{{0, 0}};
    for (const Segment& segment : m_segments) {
        const WrittenPoint end = map(segment.points[2]);
        switch (segment.kind) {
        case Kind::Move:
            append(data, 'M', end);
            break;
        case Kind::Line:
            appendLine(data, current, end);
            break;
        case Kind::Curve:
            append(data, 'C', map(segment.points[0]));
            append(data, ' ', map(segment.points[1]));
            append(data, ' ', end);
            break;
        case Kind::Close:
            data.push_back('Z');
            break;
        }
        current = end;
    }
    return data;
}

void UXSvgPath::_append(Kind kind, const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end)
{
    m_isFinite = m_isFinite && isFinite(a) && isFinite(b) && isFinite(end);
    m_segments.push_back({kind, {a, b, end}});
    m_current = end;
}
