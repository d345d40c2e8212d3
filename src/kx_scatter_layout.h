#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "kx_value_extremes.h"
#include "ux/ux_double_point.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/** The values of the points of one series, one a category; lent. Points that lack x or y are left out. */
struct KXScatterSeries {
    std::uint64_t series = 0;       /**< as the chart counts them */
    std::span<const double> x, y;   /**< along the X axis and along the value axis, NaN for none */
    std::span<const double> sizes;  /**< empty for none */
    std::span<const double> colors; /**< empty for none; they decide which of many points lie on top */
};

/** How points are laid out, in logical units. */
struct KX_EXPORT KXScatterForm {
    double usualDiameter = 8;                        /**< of points without sizes */
    double leastDiameter = 4, greatestDiameter = 40; /**< of points with sizes */
    bool hasSizes = false;                           /**< off: all have the usual diameter */
    double greatestSize = 0; /**< the value that has the greatest diameter; 0: all have the least one */
    KXValueExtremes colors;  /**< empty where each series has one colour */

    /** @return the diameter that stands for a size; the least one for what is no size */
    double obtainDiameter(double size) const;
};

/**
 * The points that can be seen, in the order in which they are drawn: the largest first, then series by
 * series. Lists that are as long as there are points, so that what lies next to each other and looks alike is
 * drawn at once.
 */
struct KX_EXPORT KXScatterLayout {
    std::vector<UXDoublePoint> centres;    /**< in the plot's space */
    std::vector<std::uint32_t> series;     /**< past the count of all series for none; empty where all points
                                                are of firstSeries */
    std::vector<std::uint32_t> categories; /**< the category of each point */
    std::vector<float> diameters;          /**< empty where all have the usual one */
    std::vector<std::uint8_t> areHollow;   /**< points that have no size; empty likewise */
    std::vector<std::uint8_t> colorSteps;  /**< where there are too many points for a colour each, see
                                                kxObtainScatterColorValue; empty otherwise */
    std::uint64_t firstSeries = 0;         /**< of all points where series is empty */
    double usualDiameter = 0, greatestDiameter = 0; /**< of points without sizes, and of the largest one */

    void clear();
    std::size_t getCount() const { return centres.size(); }
    KXAxisChartMark obtainMark(std::size_t point) const;
    double obtainDiameter(std::size_t point) const;
    bool isHollow(std::size_t point) const { return !areHollow.empty() && areHollow[point] != 0; }
    /** @return the share of an area that the points would cover side by side, more than 1 where they cannot
     */
    double obtainCrowding(const UXRect& area) const;
};

/** More points than these have the colours of steps of their values. */
inline constexpr std::size_t kxGreatestOwnColorCount = 5000;

/** @return a value that has the colour of all of a step */
[[nodiscard]] KX_EXPORT double kxObtainScatterColorValue(std::uint8_t step, const KXValueExtremes& colors);

/** Lays out the points of which something lies in the frame's area.
 *  @param layout takes them in place of what it holds, in the same memory */
KX_EXPORT void kxLayoutScatter(std::span<const KXScatterSeries> series, const KXAxisChartPlotFrame& frame,
                               const KXScatterForm& form, KXScatterLayout& layout);
