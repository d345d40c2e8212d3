#include "kx_dense_bars.h"

#include "kx_value_extremes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

/** What a place is off its exact one by computing it. */
constexpr double noise = 1e-9;
/** With more pixels than this for a category there is a gap between it and the next. */
constexpr double leastPixelsForGap = 2;
/** So many series keep columns of their own where categories are merged; with more the groups would be too
 * wide to tell where on the axis they stand. */
constexpr std::size_t greatestLaneCount = 12;
/** No screen has more columns. */
constexpr double greatestColumnCount = 65536;
constexpr std::uint64_t none = (std::numeric_limits<std::uint64_t>::max)();

/** @param place of a pixel, far inside 64 bits. std::floor is a call where the processor may be an old one.
 */
double floorPlace(double place)
{
    const auto whole = static_cast<double>(static_cast<std::int64_t>(place));
    return whole > place ? whole - 1 : whole;
}

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

/** Categories that follow each other and fill the same columns, which may lie outside of the area. */
struct Run {
    std::uint64_t firstCategory = 0, endCategory = 0;
    std::int64_t firstColumn = 0, endColumn = 0;

    bool hasSameColumns(const Run& other) const
    {
        return firstColumn == other.firstColumn && endColumn == other.endColumn;
    }
};

/** Collects the extremes of each pixel column. The columns of a run belong to its series in their order; of
 * several that share one the furthest is seen. A stack fills all of them. */
class Columns {
public:
    Columns(const KXAxisChartStacks& source, const KXBarPlane& plane);

    void collect();
    KXBarLayout makeLayout();

private:
    bool _isStacked() const { return m_source.form != KXAxisChartStacking::Plain; }
    Run _findColumns(std::uint64_t category) const;
    Run _findColumnsOfOne(std::uint64_t category, double centre) const;
    Run _findColumnsOfGroup(std::uint64_t category, double centre) const;
    std::uint64_t _findRunEnd(const Run& run, std::uint64_t guess) const;
    void _findRuns();
    void _collectSeries(std::size_t position, const Run& run);
    void _collectStacks(const Run& run);
    void _take(std::int64_t first, std::int64_t end, const Extreme& above, const Extreme& below);
    void _addSlot(std::size_t first, std::size_t end);
    void _addSide(const Extreme& extreme, const KXAxisChartStretch& across);
    void _addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                 const KXAxisChartStretch& across);

    const KXAxisChartStacks& m_source;
    const KXBarPlane& m_plane;
    double m_firstPixel = 0;
    double m_room = 0;         // of a category, in pixels
    double m_halfWidth = 0;    // of a category's only bar, in pixels
    std::size_t m_laneCount;   // bars side by side that are to have columns of their own
    std::int64_t m_groupWidth; // of a category's bars side by side, in pixels; 0 where categories share it
    std::vector<Run> m_runs;
    std::vector<Column> m_columns;
    std::vector<KXAxisChartStackPiece> m_pieces;
    KXBarLayout m_layout;
};

Columns::Columns(const KXAxisChartStacks& source, const KXBarPlane& plane)
    : m_source(source), m_plane(plane), m_room(plane.spacing * plane.pixelScale),
      m_laneCount(_isStacked() ? 1 : std::min(source.series.size(), greatestLaneCount)), m_groupWidth(0)
{
    const KXAxisChartStretch across = plane.obtainAcross();
    m_firstPixel = std::floor(plane.toPixel(across.start) + noise);
    const double count = std::ceil(plane.toPixel(across.end) - noise) - m_firstPixel;
    m_columns.resize(static_cast<std::size_t>(std::clamp(count, 0.0, greatestColumnCount)));
    m_halfWidth = std::min(m_room * (m_room < leastPixelsForGap ? 1 : plane.share),
                           KXBarPlane::greatestWidth * plane.pixelScale) /
                  2;
    const auto lanes = static_cast<double>(m_laneCount), bars = static_cast<double>(source.series.size());
    if (m_room >= lanes) {
        double width = std::clamp(std::floor(m_room * plane.share), lanes, greatestColumnCount);
        if (width > bars) // all of them equally wide
            width -= std::fmod(width, bars);
        m_groupWidth = static_cast<std::int64_t>(width);
    }
    m_layout.isDense = true;
    m_layout.slots.reserve(m_columns.size());
    m_layout.bars.reserve(m_columns.size());
}

Run Columns::_findColumns(std::uint64_t category) const
{
    const double place = m_plane.categories.obtainPosition(m_source.obtainCategoryValue(category));
    const double centre = m_plane.toPixel(place) - m_firstPixel;
    return m_laneCount > 1 ? _findColumnsOfGroup(category, centre) : _findColumnsOfOne(category, centre);
}

/** @return the columns that the only bar of a category fills, at least one */
Run Columns::_findColumnsOfOne(std::uint64_t category, double centre) const
{
    double low = floorPlace(centre - m_halfWidth + 0.5 + noise);
    double high = floorPlace(centre + m_halfWidth + 0.5 + noise);
    if (high <= low) {
        low = floorPlace(centre + noise);
        high = low + 1;
    }
    return {category, category + 1, static_cast<std::int64_t>(low), static_cast<std::int64_t>(high)};
}

/** @return the columns of the bars that stand side by side, those of the category alone or, where it has no
 * room for a column a series, those of some neighbours together */
Run Columns::_findColumnsOfGroup(std::uint64_t category, double centre) const
{
    if (m_groupWidth > 0) {
        const auto first = static_cast<std::int64_t>(
            floorPlace(centre - static_cast<double>(m_groupWidth) / 2 + 0.5 + noise));
        return {category, category + 1, first, first + m_groupWidth};
    }
    const auto columnCount = static_cast<std::int64_t>(m_columns.size());
    const std::int64_t groupCount = std::max<std::int64_t>(
        columnCount / static_cast<std::int64_t>(m_laneCount), 1);
    const double part = (centre + noise) / static_cast<double>(std::max<std::int64_t>(columnCount, 1));
    const auto group = static_cast<std::int64_t>(floorPlace(part * static_cast<double>(groupCount)));
    return {category, category + 1, group * columnCount / groupCount, (group + 1) * columnCount / groupCount};
}

/** Where places never go back, all categories between two with the same columns have these too: the end is
 * found in leaps that double, then halve.
 * @param guess how many categories more there may be */
std::uint64_t Columns::_findRunEnd(const Run& run, std::uint64_t guess) const
{
    const auto isInside = [&](std::uint64_t category) {
        return category < m_source.end && _findColumns(category).hasSameColumns(run);
    };
    std::uint64_t last = run.firstCategory, leap = 1;
    if (isInside(last + guess))
        last += guess;
    for (; isInside(last + leap); leap *= 2)
        last += leap;
    for (; leap > 0; leap /= 2)
        if (isInside(last + leap))
            last += leap;
    return last + 1;
}

void Columns::_findRuns()
{
    const auto numberOf = [this](std::uint64_t category) { return m_source.obtainCategoryValue(category); };
    bool isSorted = true;
    if (!m_source.categoryNumbers.empty())
        for (std::uint64_t category = m_source.first + 1; isSorted && category < m_source.end; ++category)
            isSorted = numberOf(category - 1) <= numberOf(category);
    std::uint64_t guess = 0;
    for (std::uint64_t category = m_source.first; category < m_source.end;) {
        Run run = _findColumns(category);
        if (isSorted)
            run.endCategory = _findRunEnd(run, guess);
        // The next one is about as long.
        guess = std::max<std::uint64_t>(run.endCategory - category, 2) - 2;
        category = run.endCategory;
        if (run.endColumn > 0 && run.firstColumn < static_cast<std::int64_t>(m_columns.size()))
            m_runs.push_back(run);
    }
}

void Columns::collect()
{
    _findRuns();
    for (const Run& run : m_runs) {
        if (_isStacked())
            _collectStacks(run);
        for (std::size_t position = 0; !_isStacked() && position < m_source.series.size(); ++position)
            _collectSeries(position, run);
    }
}

void Columns::_collectSeries(std::size_t position, const Run& run)
{
    const std::span<const double> values = m_source.series[position].values;
    const std::uint64_t end = std::min<std::uint64_t>(run.endCategory, values.size());
    if (run.firstCategory >= end)
        return;
    // A null compares false. Whose the extremes are is looked up once they are known.
    const std::span<const double> inside = values.subspan(run.firstCategory, end - run.firstCategory);
    const KXValueExtremes extremes = kxFindValueExtremes(inside);
    const double least = std::min(extremes.min, 0.0), greatest = std::max(extremes.max, 0.0);
    const auto makeExtreme = [&](double value) {
        const auto found = value == 0 ? inside.end() : std::ranges::find(inside, value);
        return found == inside.end()
                   ? Extreme()
                   : Extreme{value, run.firstCategory + static_cast<std::uint64_t>(found - inside.begin()),
                             position};
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
    for (std::uint64_t category = run.firstCategory; category < run.endCategory; ++category) {
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
    furthest.take(column.below);
    if (furthest.category == none)
        return;
    const KXAxisChartStretch across{m_plane.fromPixel(m_firstPixel + static_cast<double>(first)),
                                    m_plane.fromPixel(m_firstPixel + static_cast<double>(end))};
    KXBarSlot slot{across.start, across.end, furthest.category, m_layout.bars.size(), 0};
    _addSide(column.above, across);
    _addSide(column.below, across);
    slot.endBar = m_layout.bars.size();
    m_layout.slots.push_back(slot);
}

/** A stack shows its pieces on that side of zero. */
void Columns::_addSide(const Extreme& extreme, const KXAxisChartStretch& across)
{
    if (extreme.category == none)
        return;
    if (!_isStacked()) {
        _addBar(extreme.position, extreme.category, extreme.value, 0, extreme.value, across);
        return;
    }
    m_source.obtainPieces(extreme.category, m_pieces);
    for (const KXAxisChartStackPiece& piece : m_pieces)
        if (extreme.value > 0 ? piece.to > piece.from : piece.to < piece.from)
            _addBar(piece.position, extreme.category, piece.value, piece.from, piece.to, across);
}

void Columns::_addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                      const KXAxisChartStretch& across)
{
    if (const std::optional<KXAxisChartStretch> along = m_plane.placeAlong(from, to))
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
