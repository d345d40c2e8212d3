#include "kx_line_layout.h"

#include "kx_axis_chart_pixel_columns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

namespace {

using Heights = KXLineEdges::Heights;

/** The straight pieces of a curve, in device pixels. */
constexpr double curvePiece = 2;
/** Runs of one column that are nearer to each other are drawn as one, in device pixels. */
constexpr double leastRunDistance = 0.5;
/** So many runs of a column are drawn as they are. */
constexpr std::size_t greatestRunCount = 4;
/** So many places beyond what can be seen have a part in a curve. */
constexpr std::uint64_t curveReach = 2;

class Layouter {
public:
    Layouter(KXLineEdges& edges, const KXAxisChartPlotFrame& frame, const KXLineForm& form)
        : m_edges(edges), m_places(edges.getPlaces()), m_frame(frame), m_form(form), m_columns(frame)
    {
        m_isDense = m_places.end - m_places.first > m_columns.getCount();
        if (m_isDense)
            m_runs = m_columns.findRuns(m_places, [](double centre) {
                const std::int64_t column = KXAxisChartPixelColumns::findColumn(centre);
                return std::pair(column, column + 1);
            });
    }

    KXLineLayout make()
    {
        KXLineLayout layout;
        layout.isDense = m_isDense;
        for (std::size_t position = 0; position < m_edges.getCount(); ++position) {
            KXLineShape shape;
            shape.line = _obtainPath(m_edges.getLine(position));
            if (m_form.isFilled)
                for (const KXLineEdges::Band& band : m_edges.getBands(position))
                    _fill(band, shape.fills);
            layout.shapes.push_back(std::move(shape));
        }
        return layout;
    }

private:
    const KXLinePath& _obtainPath(Heights heights)
    {
        const auto [found, isNew] = m_paths.try_emplace(heights.data());
        KXLinePath& path = found->second;
        if (!isNew)
            return path;
        m_vertices = &path.vertices;
        m_isBroken = true;
        const auto [from, to] = _obtainReach(heights);
        _takeAll(heights, from, m_places.first);
        if (m_isDense)
            _takeColumns(heights);
        else
            _takeAll(heights, m_places.first, m_places.end);
        _takeAll(heights, m_places.end, to);
        _trace(path);
        return path;
    }

    /** @return the places that have a part in what can be seen: the neighbours of those in sight too */
    std::pair<std::uint64_t, std::uint64_t> _obtainReach(Heights heights) const
    {
        std::uint64_t from = std::min<std::uint64_t>(m_places.first, heights.size()), to = m_places.end;
        const auto isMissing = [&](std::uint64_t place) {
            return m_form.connectsOverNulls && std::isnan(heights[place]);
        };
        for (std::uint64_t i = 0; i < curveReach && from > 0; ++i)
            for (--from; from > 0 && isMissing(from);)
                --from;
        for (std::uint64_t i = 0; i < curveReach && to < heights.size(); ++i)
            for (++to; to < heights.size() && isMissing(to - 1);)
                ++to;
        return {from, std::min<std::uint64_t>(to, heights.size())};
    }

    void _takeAll(Heights heights, std::uint64_t from, std::uint64_t to)
    {
        for (std::uint64_t place = from; place < std::min<std::uint64_t>(to, heights.size()); ++place)
            if (std::isnan(heights[place]))
                m_isBroken = true;
            else
                _take(heights, place);
    }

    void _take(Heights heights, std::uint64_t place)
    {
        const bool startsRun = m_vertices->empty() || (m_isBroken && !m_form.connectsOverNulls);
        m_isBroken = false;
        m_vertices->push_back({m_edges.obtainCategory(place),
                               m_frame.categories.obtainPosition(m_places.obtainCategoryValue(place)),
                               m_frame.values.obtainPosition(heights[place]), startsRun});
    }

    void _takeColumns(Heights heights)
    {
        const KXValuePyramid& pyramid = m_edges.obtainPyramid(heights);
        std::uint64_t reached = m_places.first;
        for (const KXAxisChartPixelRun& run : m_runs) {
            // Columns beside the area are none, but the place before the first one leads into it.
            if (run.firstCategory > reached)
                _takeAll(heights, run.firstCategory - 1, run.firstCategory);
            reached = std::min<std::uint64_t>(run.endCategory, heights.size());
            m_stretches.clear();
            pyramid.findStretches(heights, run.firstCategory, reached, m_stretches);
            if (m_form.connectsOverNulls)
                _joinAllStretches(heights);
            else if (m_stretches.size() > greatestRunCount)
                _joinNearStretches(heights);
            std::uint64_t end = run.firstCategory;
            for (const KXValueStretch& stretch : m_stretches) {
                m_isBroken = m_isBroken || stretch.first != end;
                _takeStretch(heights, stretch);
                end = stretch.end;
            }
            m_isBroken = m_isBroken || end != reached;
        }
        if (reached < m_places.end)
            _takeAll(heights, reached, std::min(reached + 1, m_places.end));
    }

    void _takeStretch(Heights heights, const KXValueStretch& stretch)
    {
        std::uint64_t last = stretch.first;
        _take(heights, last);
        for (const std::uint64_t place : {std::min(stretch.least, stretch.greatest),
                                          std::max(stretch.least, stretch.greatest), stretch.end - 1})
            if (place > last)
                _take(heights, last = place);
    }

    /** Nothing breaks a line that goes on over nulls. */
    void _joinAllStretches(Heights heights)
    {
        if (m_stretches.empty())
            return;
        KXValueStretch& all = m_stretches.front();
        for (const KXValueStretch& stretch : m_stretches) {
            all.end = stretch.end;
            if (heights[stretch.least] < heights[all.least])
                all.least = stretch.least;
            if (heights[stretch.greatest] > heights[all.greatest])
                all.greatest = stretch.greatest;
        }
        m_stretches.resize(1);
    }

    /** Many runs in one column are seen only by what they cover of it; those that lead out of it stay. */
    void _joinNearStretches(Heights heights)
    {
        const auto obtainPixel = [&](std::uint64_t place) {
            return m_frame.values.obtainPosition(heights[place]) * m_frame.pixelScale;
        };
        const auto first = m_stretches.begin() + 1, last = m_stretches.end() - 1;
        std::sort(first, last, [&](const KXValueStretch& a, const KXValueStretch& b) {
            return heights[a.least] < heights[b.least];
        });
        auto joined = first;
        for (auto next = first + 1; next < last; ++next) {
            const double distance = std::abs(obtainPixel(next->least) - obtainPixel(joined->greatest));
            if (heights[next->least] > heights[joined->greatest] && distance > leastRunDistance)
                *++joined = *next;
            else if (heights[next->greatest] > heights[joined->greatest])
                joined->greatest = next->greatest;
        }
        m_stretches.erase(joined + 1, last);
        for (auto stretch = m_stretches.begin() + 1; stretch + 1 < m_stretches.end(); ++stretch) {
            // From here on it is only the two extremes, which may be far from each other.
            stretch->first = std::min(stretch->least, stretch->greatest);
            stretch->end = std::max(stretch->least, stretch->greatest) + 1;
        }
    }

    /** Draws through the vertices, run by run. */
    void _trace(KXLinePath& path) const
    {
        const std::vector<KXLineVertex>& vertices = path.vertices;
        const bool isSmoothed = m_form.curve == KXLineCurve::Smooth;
        const double piece = curvePiece / m_frame.pixelScale;
        for (std::size_t first = 0; first < vertices.size();) {
            std::size_t end = first + 1;
            while (end < vertices.size() && !vertices[end].startsRun)
                ++end;
            if (first > 0)
                path.points.emplace_back(vertices[first].across, std::numeric_limits<double>::quiet_NaN());
            // What lies within a pixel has no curve, only extremes.
            const KXLineCurve curve = m_isDense && isSmoothed ? KXLineCurve::Straight : m_form.curve;
            kxAppendCurve(std::span(vertices).subspan(first, end - first), curve, piece, path.points);
            first = end;
        }
        for (UXDoublePoint& point : path.points)
            point = m_frame.makePoint(point.x, point.y);
    }

    /** Appends the polygons between the two edges of a band. */
    void _fill(const KXLineEdges::Band& band, std::vector<std::vector<UXDoublePoint>>& fills)
    {
        const std::vector<UXDoublePoint>& upper = _obtainPath(band.upper).points;
        if (!band.lower.empty()) {
            const std::vector<UXDoublePoint>& lower = _obtainPath(band.lower).points;
            fills.push_back(upper);
            fills.back().insert(fills.back().end(), lower.rbegin(), lower.rend());
            return;
        }
        const KXAxisChartStretch room = m_frame.obtainAlong();
        const double ground = std::clamp(m_frame.values.obtainPosition(0), room.start, room.end);
        const auto isGap = [](const UXDoublePoint& point) {
            return !std::isfinite(point.x) || !std::isfinite(point.y);
        };
        for (auto first = upper.begin(); first != upper.end();) {
            const auto end = std::find_if(first, upper.end(), isGap);
            if (end - first > 1) {
                std::vector<UXDoublePoint>& polygon = fills.emplace_back(first, end);
                const UXDoublePoint from = *first, to = *(end - 1);
                polygon.push_back(m_frame.makePoint(m_frame.isVertical ? to.x : to.y, ground));
                polygon.push_back(m_frame.makePoint(m_frame.isVertical ? from.x : from.y, ground));
            }
            first = end == upper.end() ? end : end + 1;
        }
    }

    KXLineEdges& m_edges;
    const KXAxisChartStacks& m_places;
    const KXAxisChartPlotFrame& m_frame;
    KXLineForm m_form;
    KXAxisChartPixelColumns m_columns;
    bool m_isDense = false;
    std::vector<KXAxisChartPixelRun> m_runs;
    std::map<const double*, KXLinePath> m_paths; // by the first of their heights
    std::vector<KXValueStretch> m_stretches;     // of the present column

    std::vector<KXLineVertex>* m_vertices = nullptr; // of the present path
    bool m_isBroken = false;                         // there was a null before
};

} // namespace

KXLineLayout kxLayoutLines(KXLineEdges& edges, const KXAxisChartPlotFrame& frame, const KXLineForm& form)
{
    return Layouter(edges, frame, form).make();
}
