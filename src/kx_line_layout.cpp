#include "kx_line_layout.h"

#include "kx_axis_chart_pixel_columns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <span>
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
        if (m_isDense && form.hasDashes)
            _findMergedColumns();
    }

    KXLineLayout make()
    {
        KXLineLayout layout;
        layout.isDense = m_isDense;
        for (std::size_t position = 0; position < m_edges.getCount(); ++position) {
            layout.shapes.push_back(_makeShape(m_edges.getLine(position), m_edges.getBands(position)));
            if (m_edges.hasParts())
                layout.parts.push_back(
                    _makeShape(m_edges.getPartLine(position), m_edges.getPartBands(position)));
        }
        return layout;
    }

private:
    KXLineShape _makeShape(Heights line, const std::vector<KXLineEdges::Band>& bands)
    {
        KXLineShape shape;
        if (line.empty())
            return shape;
        shape.line = _obtainPath(line);
        if (m_form.isFilled)
            for (const KXLineEdges::Band& band : bands)
                _fill(band, shape.fills);
        return shape;
    }

    void _findMergedColumns()
    {
        m_isMerged.assign(m_columns.getCount(), false);
        for (const KXAxisChartPixelRun& run : m_runs)
            if (run.endCategory - run.firstCategory > 1 && _isColumn(run.firstColumn))
                m_isMerged[static_cast<std::size_t>(run.firstColumn)] = true;
    }

    bool _isColumn(std::int64_t column) const
    {
        return column >= 0 && column < static_cast<std::int64_t>(m_columns.getCount());
    }

    /** @return whether what lies between two neighbours on a line is merged of several values */
    bool _isMerged(const UXDoublePoint& from, const UXDoublePoint& to) const
    {
        const auto findColumn = [this](const UXDoublePoint& point) {
            return m_columns.findColumnAt(m_frame.isVertical ? point.x : point.y);
        };
        const auto isMerged = [this](std::int64_t column) {
            return _isColumn(column) && m_isMerged[static_cast<std::size_t>(column)];
        };
        const std::int64_t first = findColumn(from), last = findColumn(to);
        return last - first <= 1 && isMerged(first) && isMerged(last);
    }

    const KXLinePath& _obtainPath(Heights heights)
    {
        const auto [found, isNew] = m_paths.try_emplace(heights.data());
        KXLinePath& path = found->second;
        if (!isNew)
            return path;
        m_vertices = &path.vertices;
        m_vertexPlaces.clear();
        m_isBroken = true;
        const auto [from, to] = _obtainReach(heights);
        _takeAll(heights, from, m_places.first);
        if (m_isDense)
            _takeColumns(heights);
        else
            _takeAll(heights, m_places.first, m_places.end);
        _takeAll(heights, m_places.end, to);
        _trace(path, heights);
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
        m_vertices->push_back(_makeVertex(heights, place, startsRun));
        if (_bendsBetweenColumns())
            m_vertexPlaces.push_back(place);
    }

    KXLineVertex _makeVertex(Heights heights, std::uint64_t place, bool startsRun) const
    {
        return {m_edges.obtainCategory(place),
                m_frame.categories.obtainPosition(m_places.obtainCategoryValue(place)),
                m_frame.values.obtainPosition(heights[place]), startsRun};
    }

    /** What lies within a pixel has no curve, only extremes; what leads from one far column to the next has.
     */
    bool _bendsBetweenColumns() const { return m_isDense && m_form.curve == KXLineCurve::Smooth; }

    void _takeColumns(Heights heights)
    {
        const KXValuePyramid& pyramid = m_edges.obtainPyramid(heights);
        std::uint64_t reached = m_places.first;
        for (const KXAxisChartPixelRun& run : m_runs) {
            // Columns beside the area are none, but the place before the first one leads into it.
            if (run.firstCategory > reached)
                _takeAll(heights, run.firstCategory - 1, run.firstCategory);
            reached = std::min<std::uint64_t>(run.endCategory, heights.size());
            m_intervals.clear();
            pyramid.findIntervals(heights, run.firstCategory, reached, m_intervals);
            if (m_form.connectsOverNulls)
                _joinAllIntervals(heights);
            else if (m_intervals.size() > greatestRunCount)
                _joinNearIntervals(heights);
            std::uint64_t end = run.firstCategory;
            for (const KXValueInterval& interval : m_intervals) {
                m_isBroken = m_isBroken || interval.first != end;
                _takeInterval(heights, interval);
                end = interval.end;
            }
            m_isBroken = m_isBroken || end != reached;
        }
        if (reached < m_places.end)
            _takeAll(heights, reached, std::min(reached + 1, m_places.end));
    }

    void _takeInterval(Heights heights, const KXValueInterval& interval)
    {
        std::uint64_t last = interval.first;
        _take(heights, last);
        for (const std::uint64_t place : {std::min(interval.least, interval.greatest),
                                          std::max(interval.least, interval.greatest), interval.end - 1})
            if (place > last)
                _take(heights, last = place);
    }

    /** Nothing breaks a line that goes on over nulls. */
    void _joinAllIntervals(Heights heights)
    {
        if (m_intervals.empty())
            return;
        KXValueInterval& all = m_intervals.front();
        for (const KXValueInterval& interval : m_intervals) {
            all.end = interval.end;
            if (heights[interval.least] < heights[all.least])
                all.least = interval.least;
            if (heights[interval.greatest] > heights[all.greatest])
                all.greatest = interval.greatest;
        }
        m_intervals.resize(1);
    }

    /** Many runs in one column are seen only by what they cover of it; those that lead out of it stay. */
    void _joinNearIntervals(Heights heights)
    {
        const auto obtainPixel = [&](std::uint64_t place) {
            return m_frame.values.obtainPosition(heights[place]) * m_frame.pixelScale;
        };
        const auto first = m_intervals.begin() + 1, last = m_intervals.end() - 1;
        std::sort(first, last, [&](const KXValueInterval& a, const KXValueInterval& b) {
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
        m_intervals.erase(joined + 1, last);
        for (auto interval = m_intervals.begin() + 1; interval + 1 < m_intervals.end(); ++interval) {
            // From here on it is only the two extremes, which may be far from each other.
            interval->first = std::min(interval->least, interval->greatest);
            interval->end = std::max(interval->least, interval->greatest) + 1;
        }
    }

    /** Draws from a vertex to the next one as the line through all of the data would, of which the vertices
     * are only those that can be seen. */
    void _appendBend(Heights heights, std::uint64_t from, std::uint64_t to, double piece,
                     std::vector<UXDoublePoint>& points) const
    {
        const auto isMissing = [&](std::uint64_t place) { return std::isnan(heights[place]); };
        std::uint64_t before = from, after = to;
        while (before > 0 && isMissing(--before) && m_form.connectsOverNulls)
            continue;
        while (after + 1 < heights.size() && isMissing(++after) && m_form.connectsOverNulls)
            continue;
        std::array<KXLineVertex, 4> run;
        std::size_t count = 0;
        if (before < from && !isMissing(before))
            run[count++] = _makeVertex(heights, before, false);
        run[count++] = _makeVertex(heights, from, false);
        run[count++] = _makeVertex(heights, to, false);
        const std::size_t end = count - 1;
        if (after > to && !isMissing(after))
            run[count++] = _makeVertex(heights, after, false);
        kxAppendSmoothPiece(std::span(run).first(count), end, piece, points);
    }

    void _traceBends(Heights heights, std::size_t first, std::size_t end, double piece,
                     KXLinePath& path) const
    {
        const std::vector<KXLineVertex>& vertices = path.vertices;
        for (std::size_t i = first; i < end; ++i)
            if (i > first && vertices[i].across - vertices[i - 1].across > piece)
                _appendBend(heights, m_vertexPlaces[i - 1], m_vertexPlaces[i], piece, path.points);
            else
                path.points.emplace_back(vertices[i].across, vertices[i].along);
    }

    /** Draws through the vertices, run by run. */
    void _trace(KXLinePath& path, Heights heights) const
    {
        const std::vector<KXLineVertex>& vertices = path.vertices;
        const double piece = curvePiece / m_frame.pixelScale;
        for (std::size_t first = 0; first < vertices.size();) {
            std::size_t end = first + 1;
            while (end < vertices.size() && !vertices[end].startsRun)
                ++end;
            if (first > 0)
                path.points.emplace_back(vertices[first].across, std::numeric_limits<double>::quiet_NaN());
            if (_bendsBetweenColumns())
                _traceBends(heights, first, end, piece, path);
            else
                kxAppendCurve(std::span(vertices).subspan(first, end - first), m_form.curve, piece,
                              path.points);
            first = end;
        }
        for (UXDoublePoint& point : path.points)
            point = m_frame.makePoint(point.x, point.y);
        if (!m_isMerged.empty())
            path.pieces = kxDivideDashedLine(
                path.points, [this](const auto& from, const auto& to) { return _isMerged(from, to); });
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
        const KXAxisChartInterval room = m_frame.obtainAlong();
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
    std::vector<bool> m_isMerged;                // one a column, where lines may be dashed
    std::map<const double*, KXLinePath> m_paths; // by the first of their heights
    std::vector<KXValueInterval> m_intervals;    // of the present column

    std::vector<KXLineVertex>* m_vertices = nullptr; // of the present path
    std::vector<std::uint64_t> m_vertexPlaces;       // of these, where they are needed
    bool m_isBroken = false;                         // there was a null before
};

} // namespace

KXLineLayout kxLayoutLines(KXLineEdges& edges, const KXAxisChartPlotFrame& frame, const KXLineForm& form)
{
    return Layouter(edges, frame, form).make();
}
