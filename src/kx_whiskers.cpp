#include "kx_whiskers.h"

#include <limits>

void kxAppendWhisker(std::vector<UXDoublePoint>& points, const KXAxisChartPlotFrame& frame, double across,
                     double low, double high, double capLength)
{
    constexpr double gap = std::numeric_limits<double>::quiet_NaN();
    const double from = frame.values.obtainPosition(low), to = frame.values.obtainPosition(high);
    for (const double along : {from, to})
        for (const UXDoublePoint& point :
             {frame.makePoint(across - capLength / 2, along), frame.makePoint(across + capLength / 2, along),
              UXDoublePoint(gap, gap)})
            points.push_back(point);
    for (const UXDoublePoint& point :
         {frame.makePoint(across, from), frame.makePoint(across, to), UXDoublePoint(gap, gap)})
        points.push_back(point);
}
