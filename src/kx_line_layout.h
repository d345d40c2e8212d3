#pragma once

#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "kx_line_curve.h"
#include "kx_line_dashes.h"
#include "kx_line_edges.h"
#include "ux/ux_double_point.h"

#include <vector>

/** An edge that is drawn. */
struct KXLinePath {
    std::vector<KXLineVertex> vertices; /**< by places across */
    std::vector<UXDoublePoint> points;  /**< what is drawn through them, in the plot's space; one that is not
                                             finite along is a gap */
    std::vector<KXLinePiece> pieces;    /**< of a line that may be dashed, where some are drawn full */
};

/** The line of one series, and the area that belongs to it. */
struct KXLineShape {
    KXLinePath line;
    std::vector<std::vector<UXDoublePoint>> fills; /**< polygons */
};

/** The lines that can be seen, one a series. */
struct KXLineLayout {
    std::vector<KXLineShape> shapes;
    std::vector<KXLineShape> parts; /**< of these what is drawn in full over the rest; without any point for
                                         all of it, and empty for all of all */
    bool isDense = false;           /**< a vertex can stand for many categories */
};

/** How lines are laid out. */
struct KXLineForm {
    KXLineCurve curve = KXLineCurve::Straight;
    bool connectsOverNulls = false;
    bool isFilled = false;
    bool hasDashes = false; /**< some lines are dashed where their columns show one value each */
};

/**
 * Lays out the lines of what can be seen of edges. Where more places than pixel columns are in sight, those
 * of a column become four at most: the first, the least, the greatest and the last one of each run without a
 * null, so that the picture is that of all of them and the work follows the pixels.
 * @param edges keeps what it works out of them
 */
[[nodiscard]] KX_EXPORT KXLineLayout kxLayoutLines(KXLineEdges& edges, const KXAxisChartPlotFrame& frame,
                                                   const KXLineForm& form);
