#include "kx_dense_bars.h"

#include "kx_value_extremes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace {

/** What a place is off its exact one by computing it. */
constexpr double noise = 1e-9;
/** With more pixels than this for a category there is a gap between it and the next. */
constexpr double leastPixelsForGap = 2;
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

    void take(double other, std::uint64_t otherCategory)
    {
        if (std::abs(other) > std::abs(value)) {
            value = other;
            category = otherCategory;
        }
    }
    friend bool operator==(const Extreme&, const Extreme&) = default;
};

/** Categories that follow each other and fill the same columns. */
struct Run {
    std::uint64_t firstCategory = 0, endCategory = 0;
    std::size_t firstColumn = 0, endColumn = 0;

    bool hasColumns() const { return firstColumn < endColumn; }
    bool hasSameColumns(const Run& other) const
    {
        return firstColumn == other.firstColumn && endColumn == other.endColumn;
    }
};

/** The extremes of each pixel column: side by side two a series, of stacks two altogether; first the one
 * above zero, then the one below. */
class Columns {
public:
    Columns(const KXAxisChartStacks& source, const KXBarPlane& plane);

    void collect();
    KXBarLayout makeLayout();

private:
    bool _isGrouped() const { return m_source.form == KXAxisChartStacking::Plain; }
    Extreme* _at(std::size_t column) { return m_extremes.data() + column * m_extremesPerColumn; }
    Run _findColumns(std::uint64_t category) const;
    std::uint64_t _findRunEnd(const Run& run, std::uint64_t guess) const;
    void _findRuns();
    void _collectSeries(std::size_t position, const Run& run);
    void _collectStacks(const Run& run);
    void _take(const Run& run, std::size_t index, const Extreme& above, const Extreme& below);
    void _addSlot(std::size_t first, std::size_t end);
    void _addGroup(const Extreme* extremes, const KXAxisChartStretch& across);
    void _addStack(const Extreme& extreme, bool above, const KXAxisChartStretch& across);
    void _addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                 const KXAxisChartStretch& across);

    const KXAxisChartStacks& m_source;
    const KXBarPlane& m_plane;
    double m_firstPixel = 0;
    double m_halfWidth = 0; // of a category's bars, in pixels
    std::size_t m_columnCount = 0;
    std::size_t m_extremesPerColumn;
    std::vector<Run> m_runs;
    std::vector<Extreme> m_extremes;
    std::vector<std::size_t> m_order; // positions of the series, in which they are drawn
    std::vector<KXAxisChartStackPiece> m_pieces;
    KXBarLayout m_layout;
};

Columns::Columns(const KXAxisChartStacks& source, const KXBarPlane& plane)
    : m_source(source), m_plane(plane), m_extremesPerColumn(_isGrouped() ? 2 * source.series.size() : 2)
{
    const KXAxisChartStretch across = plane.obtainAcross();
    m_firstPixel = std::floor(plane.toPixel(across.start) + noise);
    const double count = std::ceil(plane.toPixel(across.end) - noise) - m_firstPixel;
    m_columnCount = static_cast<std::size_t>(std::clamp(count, 0.0, greatestColumnCount));
    m_extremes.resize(m_columnCount * m_extremesPerColumn);
    const double room = plane.spacing * plane.pixelScale;
    m_halfWidth = std::min(room * (room < leastPixelsForGap ? 1 : plane.share),
                           KXBarPlane::greatestWidth * plane.pixelScale) /
                  2;
    m_order.resize(source.series.size());
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    m_layout.isDense = true;
    m_layout.slots.reserve(m_columnCount);
    m_layout.bars.reserve(m_columnCount);
}

/** @return the columns that the bars of one category fill, at least one where it lies in the area */
Run Columns::_findColumns(std::uint64_t category) const
{
    const double place = m_plane.categories.obtainPosition(m_source.obtainCategoryValue(category));
    const double centre = m_plane.toPixel(place) - m_firstPixel;
    double low = floorPlace(centre - m_halfWidth + 0.5 + noise);
    double high = floorPlace(centre + m_halfWidth + 0.5 + noise);
    if (high <= low) {
        low = floorPlace(centre + noise);
        high = low + 1;
    }
    const auto count = static_cast<double>(m_columnCount);
    return {category, category + 1, static_cast<std::size_t>(std::clamp(low, 0.0, count)),
            static_cast<std::size_t>(std::clamp(high, 0.0, count))};
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
        if (run.hasColumns())
            m_runs.push_back(run);
    }
}

void Columns::collect()
{
    _findRuns();
    for (const Run& run : m_runs) {
        if (!_isGrouped())
            _collectStacks(run);
        for (std::size_t position = 0; _isGrouped() && position < m_source.series.size(); ++position)
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
                   : Extreme{value, run.firstCategory + static_cast<std::uint64_t>(found - inside.begin())};
    };
    const Extreme above = makeExtreme(greatest), below = makeExtreme(least);
    _take(run, 2 * position, above, below);
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
        above.take(up, category);
        below.take(down, category);
    }
    _take(run, 0, above, below);
}

void Columns::_take(const Run& run, std::size_t index, const Extreme& above, const Extreme& below)
{
    for (std::size_t column = run.firstColumn; column < run.endColumn; ++column) {
        _at(column)[index].take(above.value, above.category);
        _at(column)[index + 1].take(below.value, below.category);
    }
}

/** Columns next to each other that show the same make one slot. */
KXBarLayout Columns::makeLayout()
{
    for (std::size_t first = 0, end = 0; first < m_columnCount; first = end) {
        const Extreme* extremes = _at(first);
        for (end = first + 1; end < m_columnCount; ++end)
            if (!std::equal(extremes, extremes + m_extremesPerColumn, _at(end)))
                break;
        _addSlot(first, end);
    }
    return std::move(m_layout);
}

void Columns::_addSlot(std::size_t first, std::size_t end)
{
    const Extreme* extremes = _at(first);
    Extreme furthest;
    for (std::size_t i = 0; i < m_extremesPerColumn; ++i)
        furthest.take(extremes[i].value, extremes[i].category);
    if (furthest.category == none)
        return;
    const KXAxisChartStretch across{m_plane.fromPixel(m_firstPixel + static_cast<double>(first)),
                                    m_plane.fromPixel(m_firstPixel + static_cast<double>(end))};
    KXBarSlot slot{across.start, across.end, furthest.category, m_layout.bars.size(), 0};
    if (_isGrouped()) {
        _addGroup(extremes, across);
    } else {
        _addStack(extremes[0], true, across);
        _addStack(extremes[1], false, across);
    }
    slot.endBar = m_layout.bars.size();
    m_layout.slots.push_back(slot);
}

/** On each side of zero the shortest bar is seen whole, and of each longer one what it is longer by. */
void Columns::_addGroup(const Extreme* extremes, const KXAxisChartStretch& across)
{
    for (const std::size_t side : {0U, 1U}) {
        const auto lengthOf = [&](std::size_t position) {
            return std::pair(std::abs(extremes[2 * position + side].value), position);
        };
        std::ranges::sort(m_order, {}, lengthOf);
        double reached = 0;
        for (const std::size_t position : m_order) {
            const Extreme& extreme = extremes[2 * position + side];
            if (extreme.value == reached)
                continue;
            _addBar(position, extreme.category, extreme.value, reached, extreme.value, across);
            reached = extreme.value;
        }
    }
}

void Columns::_addStack(const Extreme& extreme, bool above, const KXAxisChartStretch& across)
{
    if (extreme.category == none)
        return;
    m_source.obtainPieces(extreme.category, m_pieces);
    for (const KXAxisChartStackPiece& piece : m_pieces)
        if (above ? piece.to > piece.from : piece.to < piece.from)
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
