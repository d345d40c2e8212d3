#pragma once

#include "kx_export.h"
#include "kx_line_chart_options.h"

class UXPainter;

/** How a line of a chart is stroked, but for its colour. */
struct KX_EXPORT KXLinePen {
    double width = 2; /**< logical units */
    KXChartLineStyle style = KXChartLineStyle::None;
    KXChartLineCapStyle cap = KXChartLineCapStyle::Round;
    KXChartLineJoinStyle join = KXChartLineJoinStyle::Round;

    /** @return whether the line has gaps of its style's own */
    bool isDashed() const { return style != KXChartLineStyle::None && width > 0; }
    /** Has the painter stroke so. @param way of the line that lies before what is stroked, in logical units
     */
    void use(UXPainter& painter, double way = 0) const;
};
