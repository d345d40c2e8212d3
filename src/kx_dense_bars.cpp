#include "kx_dense_bars.h"

#include "kx_axis_chart_pixel_columns.h"
#include "kx_value_extremes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

/** With more pixels than this for a category there is a gap between it and the next. */
constexpr double leastPixelsForGap = 2;
/** So many series keep columns of their own where categories are merged; with more the groups would be too
 * wide to tell where on the axis they stand. */
constexpr std::size_t greatestLaneCount = 12;
/** In pixels; wider groups are not merged. */
constexpr double greatestGroupWidth = 65536;
constexpr std::uint64_t none = (std::numeric_limits<std::uint64_t>::max)();

/** The furthest value on one side of zero, and whose it is. */
struct Extreme {
    double value = 0;
    std::uint64_t category = none;
    std::size_t position = 0; // of the series

    void take(const Extreme& other)
    {
        if (std::abs(other.value) > std::abs(value))
            *this = other;
    }
    friend bool operator==(const Extreme&, const Extreme&) = default;
};

/** What one pixel column shows: the furthest above zero and below. */
struct Column {
    Extreme above, below;

    friend bool operator==(const Column&, const Column&) = default;
};

using Run = KXAxisChartPixelRun;

/** Collects the extremes of each pixel column. The columns of a run belong to its series in their order; of
 * several that share one the furthest is seen. A stack fills all of them. */
class Columns {
public:
    Columns(const KXAxisChartStacks& source, const KXBarPlane& plane);

    void collect();
    KXBarLayout makeLayout();

private:
    bool _isStacked() const { return kxIsStack(m_source.form); }
    bool _isFloating() const { return m_source.form == KXAxisChartStacking::Floating; }
    std::pair<std::int64_t, std::int64_t> _findColumnsOfOne(double centre) const;
    std::pair<std::int64_t, std::int64_t> _findColumnsOfGroup(double centre) const;
    std::span<const double> _obtainValues(std::size_t position, const Run& run);
    void _collectSeries(std::size_t position, const Run& run);
    void _collectStacks(const Run& run);
    void _collectFloating(const Run& run);
    void _take(std::int64_t first, std::int64_t end, const Extreme& above, const Extreme& below);
    void _addSlot(std::size_t first, std::size_t end);
    void _addFloating(const Column& column, const KXAxisChartInterval& across);
    KXAxisChartStackSegment _findPiece(const Extreme& extreme);
    void _addSide(const Extreme& extreme, const KXAxisChartInterval& across);
    void _addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                 const KXAxisChartInterval& across);

    const KXAxisChartStacks& m_source;
    const KXBarPlane& m_plane;
    KXAxisChartPixelColumns m_pixels;
    double m_room = 0;         // of a category, in pixels
    double m_halfWidth = 0;    // of a category's only bar, in pixels
    std::size_t m_laneCount;   // bars side by side that are to have columns of their own
    std::int64_t m_groupWidth; // of a category's bars side by side, in pixels; 0 where categories share it
    std::vector<Column> m_columns;
    std::vector<KXAxisChartStackSegment> m_pieces;
    std::vector<double> m_gathered; // of a run whose places are in another order than the categories
    KXBarLayout m_layout;
};

Columns::Columns(const KXAxisChartStacks& source, const KXBarPlane& plane)
    : m_source(source), m_plane(plane), m_pixels(plane), m_room(plane.spacing * plane.pixelScale),
      m_laneCount(_isStacked() || _isFloating() ? 1 : std::min(source.series.size(), greatestLaneCount)),
      m_groupWidth(0)
{
    m_columns.resize(m_pixels.getCount());
    m_halfWidth = std::min(m_room * (m_room < leastPixelsForGap ? 1 : plane.share),
                           KXBarPlane::greatestWidth * plane.pixelScale) /
                  2;
    const auto lanes = static_cast<double>(m_laneCount), bars = static_cast<double>(source.series.size());
    if (m_room >= lanes) {
        double width = std::clamp(std::floor(m_room * plane.share), lanes, greatestGroupWidth);
        if (width > bars) // all of them equally wide
            width -= std::fmod(width, bars);
        m_groupWidth = static_cast<std::int64_t>(width);
    }
    m_layout.isDense = true;
    m_layout.slots.reserve(m_columns.size());
    m_layout.bars.reserve(m_columns.size());
}

/** @return the columns that the only bar of a category fills, at least one */
std::pair<std::int64_t, std::int64_t> Columns::_findColumnsOfOne(double centre) const
{
    const std::int64_t first = KXAxisChartPixelColumns::findColumn(centre - m_halfWidth + 0.5);
    const std::int64_t end = KXAxisChartPixelColumns::findColumn(centre + m_halfWidth + 0.5);
    if (end > first)
        return {first, end};
    const std::int64_t only = KXAxisChartPixelColumns::findColumn(centre);
    return {only, only + 1};
}

/** @return the columns of the bars that stand side by side, those of the category alone or, where it has no
 * room for a column a series, those of some neighbours together */
std::pair<std::int64_t, std::int64_t> Columns::_findColumnsOfGroup(double centre) const
{
    if (m_groupWidth > 0) {
        const double half = static_cast<double>(m_groupWidth) / 2;
        const std::int64_t first = KXAxisChartPixelColumns::findColumn(centre - half + 0.5);
        return {first, first + m_groupWidth};
    }
    // All of one width, as a wider one would show as a stripe; what is left beyond the last one stays empty.
    const auto columnCount = static_cast<std::int64_t>(m_columns.size());
    const auto width = static_cast<std::int64_t>(m_laneCount);
    const std::int64_t last = std::max<std::int64_t>(columnCount / width - 1, 0);
    const std::int64_t first =
        width * std::min(KXAxisChartPixelColumns::findColumn(centre / static_cast<double>(width)), last);
    return {first, first + std::min(width, std::max<std::int64_t>(columnCount, 1))};
}

void Columns::collect()
{
    const auto columnsOf = [this](double centre) {
        return m_laneCount > 1 ? _findColumnsOfGroup(centre) : _findColumnsOfOne(centre);
    };
    for (const Run& run : m_pixels.findRuns(m_source, columnsOf)) {
        if (_isStacked())
            _collectStacks(run);
        else if (_isFloating())
            _collectFloating(run);
        else
            for (std::size_t position = 0; position < m_source.series.size(); ++position)
                _collectSeries(position, run);
    }
}

/** @return the values of the places of a run, in their order */
std::span<const double> Columns::_obtainValues(std::size_t position, const Run& run)
{
    const std::span<const double> values = m_source.series[position].values;
    if (m_source.categories.empty()) {
        const std::uint64_t end = std::min<std::uint64_t>(run.endCategory, values.size());
        return run.firstCategory < end ? values.subspan(run.firstCategory, end - run.firstCategory)
                                       : std::span<const double>();
    }
    m_gathered.clear();
    for (std::uint64_t place = run.firstCategory; place < run.endCategory; ++place)
        m_gathered.push_back(m_source.obtainValue(position, m_source.obtainCategory(place)));
    return m_gathered;
}

void Columns::_collectSeries(std::size_t position, const Run& run)
{
    // A null compares false. Whose the extremes are is looked up once they are known.
    const std::span<const double> inside = _obtainValues(position, run);
    const KXValueExtremes extremes = kxFindValueExtremes(inside);
    const double least = std::min(extremes.min, 0.0), greatest = std::max(extremes.max, 0.0);
    const auto makeExtreme = [&](double value) {
        const auto found = value == 0 ? inside.end() : std::ranges::find(inside, value);
        if (found == inside.end())
            return Extreme();
        const std::uint64_t place = run.firstCategory + static_cast<std::uint64_t>(found - inside.begin());
        return Extreme{value, m_source.obtainCategory(place), position};
    };
    const auto place = static_cast<std::int64_t>(position);
    const auto count = static_cast<std::int64_t>(m_source.series.size());
    const std::int64_t width = run.endColumn - run.firstColumn, first = place * width / count;
    _take(run.firstColumn + first, run.firstColumn + std::max((place + 1) * width / count, first + 1),
          makeExtreme(greatest), makeExtreme(least));
}

void Columns::_collectStacks(const Run& run)
{
    const bool isWhole = m_source.form == KXAxisChartStacking::Percentage;
    Extreme above, below;
    for (std::uint64_t place = run.firstCategory; place < run.endCategory; ++place) {
        const std::uint64_t category = m_source.obtainCategory(place);
        double up = 0, down = 0;
        for (std::size_t position = 0; position < m_source.series.size(); ++position) {
            const double value = m_source.obtainValue(position, category);
            if (value > 0 || (value < 0 && isWhole))
                up += std::abs(value);
            else if (value < 0)
                down += value;
        }
        above.take({up, category});
        below.take({down, category});
    }
    _take(run.firstColumn, run.endColumn, above, below);
}

/** Of bars that float a column shows the one that reaches highest and the one that reaches lowest. */
void Columns::_collectFloating(const Run& run)
{
    Extreme above, below;
    for (std::uint64_t place = run.firstCategory; place < run.endCategory; ++place) {
        const std::uint64_t category = m_source.obtainCategory(place);
        m_source.obtainPieces(category, m_pieces);
        for (const KXAxisChartStackSegment& piece : m_pieces) {
            const double high = std::max(piece.from, piece.to), low = std::min(piece.from, piece.to);
            if (above.category == none || high > above.value)
                above = {high, category, piece.position};
            if (below.category == none || low < below.value)
                below = {low, category, piece.position};
        }
    }
    const std::int64_t end = std::min(run.endColumn, static_cast<std::int64_t>(m_columns.size()));
    for (std::int64_t i = std::max<std::int64_t>(run.firstColumn, 0); i < end; ++i) {
        Column& column = m_columns[static_cast<std::size_t>(i)];
        if (above.category != none && (column.above.category == none || above.value > column.above.value))
            column.above = above;
        if (below.category != none && (column.below.category == none || below.value < column.below.value))
            column.below = below;
    }
}

void Columns::_take(std::int64_t first, std::int64_t end, const Extreme& above, const Extreme& below)
{
    end = std::min(end, static_cast<std::int64_t>(m_columns.size()));
    for (std::int64_t i = std::max<std::int64_t>(first, 0); i < end; ++i) {
        Column& column = m_columns[static_cast<std::size_t>(i)];
        column.above.take(above);
        column.below.take(below);
    }
}

/** Columns next to each other that show the same make one slot. */
KXBarLayout Columns::makeLayout()
{
    for (std::size_t first = 0, end = 0; first < m_columns.size(); first = end) {
        for (end = first + 1; end < m_columns.size(); ++end)
            if (m_columns[end] != m_columns[first])
                break;
        _addSlot(first, end);
    }
    return std::move(m_layout);
}

void Columns::_addSlot(std::size_t first, std::size_t end)
{
    const Column& column = m_columns[first];
    Extreme furthest = column.above;
    if (!_isFloating())
        furthest.take(column.below);
    if (furthest.category == none)
        return;
    const KXAxisChartInterval across = m_pixels.obtainAcross(first, end);
    KXBarSlot slot{across.start, across.end, furthest.category, m_layout.bars.size(), 0};
    if (_isFloating()) {
        _addFloating(column, across);
    } else {
        _addSide(column.above, across);
        _addSide(column.below, across);
    }
    slot.endBar = m_layout.bars.size();
    m_layout.slots.push_back(slot);
}

KXAxisChartStackSegment Columns::_findPiece(const Extreme& extreme)
{
    m_source.obtainPieces(extreme.category, m_pieces);
    KXAxisChartStackSegment piece = *std::ranges::find(m_pieces, extreme.position,
                                                       &KXAxisChartStackSegment::position);
    if (piece.to < piece.from)
        std::swap(piece.from, piece.to);
    return piece;
}

/** Bars follow each other, so there is no gap between the highest and the lowest one of a column. */
void Columns::_addFloating(const Column& column, const KXAxisChartInterval& across)
{
    const KXAxisChartStackSegment below = _findPiece(column.below);
    KXAxisChartStackSegment above = _findPiece(column.above);
    above.from = std::min(above.from, below.to);
    _addBar(below.position, column.below.category, below.value, below.from, below.to, across);
    if (above.to > below.to)
        _addBar(above.position, column.above.category, above.value, above.from, above.to, across);
}

/** A stack shows its pieces on that side of zero. */
void Columns::_addSide(const Extreme& extreme, const KXAxisChartInterval& across)
{
    if (extreme.category == none)
        return;
    if (!_isStacked()) {
        _addBar(extreme.position, extreme.category, extreme.value, 0, extreme.value, across);
        return;
    }
    m_source.obtainPieces(extreme.category, m_pieces);
    for (const KXAxisChartStackSegment& piece : m_pieces)
        if (extreme.value > 0 ? piece.to > piece.from : piece.to < piece.from)
            _addBar(piece.position, extreme.category, piece.value, piece.from, piece.to, across);
}

void Columns::_addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                      const KXAxisChartInterval& across)
{
    if (const std::optional<KXAxisChartInterval> along = m_plane.placeAlong(from, to))
        m_layout.bars.push_back(
            {{m_source.series[position].index, category}, value, from, to, m_plane.makeRect(across, *along)});
}

} // namespace

KXBarLayout kxLayoutDenseBars(const KXAxisChartStacks& source, const KXBarPlane& plane)
{
    Columns columns(source, plane);
    columns.collect();
    return columns.makeLayout();
}
