#pragma once

#include "ux/ux_double_point.h"
#include "ux/ux_transform.h"

#include <array>
#include <vector>

class WebDrawing;

/** A path whose points are pixels of the canvas. */
class WebPath {
public:
    void moveTo(const UXDoublePoint& point);
    /** Without a current point it moves there. */
    void lineTo(const UXDoublePoint& point);
    /** Without a current point the curve begins at its first handle. */
    void curveTo(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end);
    void close();
    /** Forgets the current point. */
    void breakOff() { m_hasCurrent = false; }
    void transform(const UXTransform& change);
    void clear();

    const UXDoublePoint* getCurrentPoint() const { return m_hasCurrent ? &m_current : nullptr; }
    /** @return whether there is something to draw: a part of a path, every point of it finite */
    bool isDrawable() const { return m_isFinite && !m_segments.empty(); }
    /** Makes it the path of the canvas. */
    void write(WebDrawing& drawing) const;

private:
    enum class Kind : unsigned char { Move, Line, Curve, Close };
    struct Segment {
        Kind kind;
        std::array<UXDoublePoint, 3> points; // the last is where the segment ends
    };

    void _append(Kind kind, const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& end);

    std::vector<Segment> m_segments;
    UXDoublePoint m_start, m_current;
    bool m_hasCurrent = false;
    bool m_isFinite = true;
};
