#include "kx_line_bands.h"

#include "kx_axis_chart_pixel_columns.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/** The straight pieces of a curve, and half of what a place without neighbours has across, in pixels. */
constexpr double curvePiece = 2, aloneReach = 1.5;

/** What the band covers at one place. */
struct Reach {
    double across = 0, low = 0, high = 0;
    std::int64_t column = 0;
};

std::vector<UXDoublePoint> obtainEdge(const std::vector<Reach>& run, double Reach::*value,
                                      const KXAxisChartPlotFrame& frame, KXLineCurve curve)
{
    std::vector<KXLineVertex> vertices;
    vertices.reserve(run.size());
    for (const Reach& reach : run)
        vertices.push_back({0, reach.across, frame.values.obtainPosition(reach.*value), false});
    std::vector<UXDoublePoint> points;
    kxAppendCurve(vertices, curve, curvePiece / frame.pixelScale, points);
    return points;
}

void appendPolygon(std::vector<Reach>& run, const KXAxisChartPlotFrame& frame, KXLineCurve curve,
                   std::vector<std::vector<UXDoublePoint>>& polygons)
{
    if (run.size() == 1) {
        run.push_back(run.front());
        run.front().across -= aloneReach / frame.pixelScale;
        run.back().across += aloneReach / frame.pixelScale;
    }
    if (run.empty())
        return;
    std::vector<UXDoublePoint>& polygon = polygons.emplace_back(obtainEdge(run, &Reach::high, frame, curve));
    const std::vector<UXDoublePoint> lower = obtainEdge(run, &Reach::low, frame, curve);
    polygon.insert(polygon.end(), lower.rbegin(), lower.rend());
    for (UXDoublePoint& point : polygon)
        point = frame.makePoint(point.x, point.y);
    run.clear();
}

} // namespace

std::vector<std::vector<UXDoublePoint>> kxLayoutBand(const KXLineEdges& edges, std::span<const double> lows,
                                                     std::span<const double> highs,
                                                     const KXAxisChartPlotFrame& frame, KXLineCurve curve)
{
    const KXAxisChartStacks& places = edges.getPlaces();
    const KXAxisChartPixelColumns columns(frame);
    const bool isDense = places.end - places.first > columns.getCount();
    const std::uint64_t first = places.first - (places.first > 0 ? 1 : 0);
    const std::uint64_t end = std::min<std::uint64_t>(places.end + 1, edges.getPlaceCount());
    std::vector<std::vector<UXDoublePoint>> polygons;
    std::vector<Reach> run;
    for (std::uint64_t place = first; place < end; ++place) {
        const std::uint64_t category = edges.obtainCategory(static_cast<std::size_t>(place));
        const bool isThere = category < std::min(lows.size(), highs.size()) && !std::isnan(lows[category]) &&
                             !std::isnan(highs[category]);
        const double across = frame.categories.obtainPosition(places.obtainCategoryValue(place));
        const std::int64_t column = isDense ? columns.findColumnAt(across) : 0;
        // A null among the values of a column is not seen; a column without any is.
        if (isDense ? !run.empty() && column > run.back().column + 1 : !isThere)
            appendPolygon(run, frame, curve, polygons);
        if (!isThere)
            continue;
        const auto [low, high] = std::minmax(lows[category], highs[category]);
        if (isDense && !run.empty() && run.back().column == column) {
            run.back().low = std::min(run.back().low, low);
            run.back().high = std::max(run.back().high, high);
        } else {
            run.push_back({across, low, high, column});
        }
    }
    appendPolygon(run, frame, isDense ? KXLineCurve::Straight : curve, polygons);
    return polygons;
}
