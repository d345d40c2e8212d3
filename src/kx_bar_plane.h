#pragma once

#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"

/** The frame in which bars stand, and how much of it they take. */
struct KX_EXPORT KXBarPlane : KXAxisChartPlotFrame {
    /** Bars never get wider, in logical units. */
    static constexpr double greatestWidth = 64;

    double share = 0.7; /**< the part of a category's room which its bars take together */
};
