#pragma once

#include "kx_export.h"
#include "kx_line_pen.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_json_object.h"

#include <string>

class UXPainter;

/** A straight piece of a line that is drawn by itself: the line of a legend, the one that leads the eye from
 * what is explained to its axis. */
class KX_EXPORT KXLineSegment : public UXJsonObject {
public:
    KXLineSegment();
    ~KXLineSegment() override;

    UXDoublePoint getStart() const { return m_start; }
    UXDoublePoint getEnd() const { return m_end; }
    void setEnds(const UXDoublePoint& start, const UXDoublePoint& end);
    UXColor getColor() const { return m_color; }
    void setColor(const UXColor& color);
    const KXLinePen& getPen() const { return m_pen; }
    void setPen(const KXLinePen& pen);

    void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    UXDoublePoint m_start, m_end;
    UXColor m_color;
    KXLinePen m_pen;
};
