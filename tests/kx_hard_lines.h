#pragma once

#include "kx_line_layout.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

/** @return values as they are hardest for a line: even, alternating, with spikes, and with more or fewer
 * nulls
 */
inline std::vector<double> kxMakeHardValues(std::mt19937& random, std::size_t count)
{
    const auto below = [&random](unsigned limit) { return unsigned(random() % limit); };
    constexpr double null = std::numeric_limits<double>::quiet_NaN();
    const unsigned kind = below(6), nulls = below(2) ? 1 + below(200) : 0;
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        const double infinite = std::numeric_limits<double>::infinity();
        const double even = kind == 0 ? 5 : kind == 1 ? double(i % 2) : double(below(1000));
        const double value = kind == 2 && below(500)    ? 3
                             : kind == 3 && !below(900) ? -1e308
                             : kind == 4 && !below(700) ? infinite
                                                        : even;
        values.push_back(nulls && !below(nulls) ? null : value);
    }
    return values;
}

/** One pixel a logical unit, so many of them for the places. */
inline KXAxisChartPlotFrame kxMakeLineFrame(int width, std::size_t placeCount)
{
    KXAxisChartPlotFrame frame;
    frame.area = {0, 0, width, 300};
    frame.spacing = double(width) / double(placeCount);
    frame.categories = {0, frame.spacing / 2, frame.spacing};
    frame.values = {0, 300, -0.3};
    return frame;
}

inline KXLineLayout kxLayOutLine(const std::vector<double>& values, const KXAxisChartPlotFrame& frame,
                                 const KXLineForm& form)
{
    KXAxisChartStacks source;
    source.series = {{0, values}};
    source.end = values.size();
    KXLineEdges edges;
    edges.take(source, KXLineNullHandling::Gap);
    return kxLayoutLines(edges, frame, form);
}
