#pragma once

#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "kx_line_curve.h"
#include "kx_line_edges.h"
#include "ux/ux_double_point.h"

#include <span>
#include <vector>

/**
 * Lays out what lies between two values of each category: a polygon for each run of places where both are
 * there, in the plot's space. Where more places than pixel columns are in sight, a column reaches from the
 * least to the greatest of its values.
 * @param lows, highs one value per category, NaN for none; either may be the greater one
 */
[[nodiscard]] KX_EXPORT std::vector<std::vector<UXDoublePoint>> kxLayoutBand(
    const KXLineEdges& edges, std::span<const double> lows, std::span<const double> highs,
    const KXAxisChartPlotFrame& frame, KXLineCurve curve);
