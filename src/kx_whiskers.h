#pragma once

#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"

#include <vector>

/** Of a line between two values, and of what the short lines across are long at most, in logical units. */
inline constexpr double kxWhiskerWidth = 1.5, kxGreatestWhiskerCap = 10;
/** Of whiskers over or below marks that have colours of their own. */
inline constexpr UXColor kxWhiskerColor(70, 70, 74);

/** Appends a line between two values with a short line across at each of them, and the gaps around these.
 *  @param capLength of the short lines, in logical units */
KX_EXPORT void kxAppendWhisker(std::vector<UXDoublePoint>& points, const KXAxisChartPlotFrame& frame,
                               double across, double low, double high, double capLength);
