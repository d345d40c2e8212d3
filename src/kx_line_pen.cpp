#include "kx_line_pen.h"

#include "ux/ux_painter.h"

#include <vector>

namespace {

/** Lengths of a dash and of the gap behind it as they are seen, in widths of the line. */
constexpr double dashLength = 4, dashGap = 2.5, dotLength = 1, dotGap = 1.5;

std::vector<double> obtainDashes(const KXLinePen& pen)
{
    // Round and square ends reach half a width beyond each dash.
    const double ends = pen.cap == KXChartLineCapStyle::Butt ? 0 : 1;
    switch (pen.style) {
    case KXChartLineStyle::Dot:
        return {pen.width * (dotLength - ends), pen.width * (dotGap + ends)};
    case KXChartLineStyle::Dash:
        return {pen.width * (dashLength - ends), pen.width * (dashGap + ends)};
    case KXChartLineStyle::None:
        break;
    }
    return {};
}

UXLineCapStyle toPaintStyle(KXChartLineCapStyle cap)
{
    switch (cap) {
    case KXChartLineCapStyle::Butt:
        return UXLineCapStyle::Butt;
    case KXChartLineCapStyle::Square:
        return UXLineCapStyle::Square;
    case KXChartLineCapStyle::Round:
        break;
    }
    return UXLineCapStyle::Round;
}

UXLineJoinStyle toPaintStyle(KXChartLineJoinStyle join)
{
    switch (join) {
    case KXChartLineJoinStyle::Miter:
        return UXLineJoinStyle::Miter;
    case KXChartLineJoinStyle::Bevel:
        return UXLineJoinStyle::Bevel;
    case KXChartLineJoinStyle::Round:
        break;
    }
    return UXLineJoinStyle::Round;
}

} // namespace

void KXLinePen::use(UXPainter& painter, double way) const
{
    painter.setLineWidth(width);
    painter.setLineCap(toPaintStyle(cap));
    painter.setLineJoin(toPaintStyle(join));
    painter.setLineDash(obtainDashes(*this), way);
}
