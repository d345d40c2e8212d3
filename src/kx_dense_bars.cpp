#include "kx_dense_bars.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/** What a place is off its exact one by computing it. */
constexpr double noise = 1e-9;
/** With more pixels than this for a category there is a gap between it and the next. */
constexpr double leastPixelsForGap = 2;
/** No screen has more columns. */
constexpr double greatestColumnCount = 65536;
constexpr std::uint64_t none = (std::numeric_limits<std::uint64_t>::max)();

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

/** The extremes of each pixel column: side by side two a series, of stacks two altogether; first the one
 * above zero, then the one below. */
class Columns {
public:
    Columns(const KXBarSource& source, const KXBarPlane& plane);

    void collect();
    KXBarLayout makeLayout();

private:
    bool _isGrouped() const { return m_source.form == KXBarForm::Grouped; }
    Extreme* _at(std::size_t column) { return m_extremes.data() + column * m_extremesPerColumn; }
    bool _findColumns(std::uint64_t category, std::size_t& first, std::size_t& end) const;
    void _collectSeries(std::size_t position);
    void _collectStacks();
    void _addSlot(std::size_t first, std::size_t end);
    void _addGroup(const Extreme* extremes, const KXBarStretch& across);
    void _addStack(const Extreme& extreme, bool above, const KXBarStretch& across);
    void _addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                 const KXBarStretch& across);

    const KXBarSource& m_source;
    const KXBarPlane& m_plane;
    double m_firstPixel = 0;
    double m_halfWidth = 0; // of a category's bars, in pixels
    std::size_t m_columnCount = 0;
    std::size_t m_extremesPerColumn;
    std::vector<Extreme> m_extremes;
    std::vector<KXBarPiece> m_pieces;
    KXBarLayout m_layout;
};

Columns::Columns(const KXBarSource& source, const KXBarPlane& plane)
    : m_source(source), m_plane(plane), m_extremesPerColumn(_isGrouped() ? 2 * source.series.size() : 2)
{
    const KXBarStretch across = plane.obtainAcross();
    m_firstPixel = std::floor(plane.toPixel(across.start) + noise);
    const double count = std::ceil(plane.toPixel(across.end) - noise) - m_firstPixel;
    m_columnCount = static_cast<std::size_t>(std::clamp(count, 0.0, greatestColumnCount));
    m_extremes.resize(m_columnCount * m_extremesPerColumn);
    const double room = plane.spacing * plane.pixelScale;
    m_halfWidth = std::min(room * (room < leastPixelsForGap ? 1 : plane.share),
                           KXBarPlane::greatestWidth * plane.pixelScale) /
                  2;
    m_layout.isDense = true;
}

/** @return whether some of the columns that the category's bars fill are there; a bar fills at least one */
bool Columns::_findColumns(std::uint64_t category, std::size_t& first, std::size_t& end) const
{
    const double place = m_plane.categories.obtainPosition(m_source.obtainCategoryValue(category));
    const double centre = m_plane.toPixel(place) - m_firstPixel;
    double low = std::floor(centre - m_halfWidth + 0.5 + noise);
    double high = std::floor(centre + m_halfWidth + 0.5 + noise);
    if (high <= low) {
        low = std::floor(centre + noise);
        high = low + 1;
    }
    const auto count = static_cast<double>(m_columnCount);
    low = std::max(low, 0.0);
    high = std::min(high, count);
    if (!(low < high))
        return false;
    first = static_cast<std::size_t>(low);
    end = static_cast<std::size_t>(high);
    return true;
}

void Columns::collect()
{
    if (!_isGrouped()) {
        _collectStacks();
        return;
    }
    for (std::size_t position = 0; position < m_source.series.size(); ++position)
        _collectSeries(position);
}

void Columns::_collectSeries(std::size_t position)
{
    const std::uint64_t end = std::min<std::uint64_t>(m_source.end, m_source.series[position].values.size());
    for (std::uint64_t category = m_source.first; category < end; ++category) {
        const double value = m_source.series[position].values[category];
        std::size_t column = 0, endColumn = 0;
        // A null compares false.
        if (!(value < 0 || value > 0) || !_findColumns(category, column, endColumn))
            continue;
        for (; column < endColumn; ++column)
            _at(column)[2 * position + (value < 0)].take(value, category);
    }
}

void Columns::_collectStacks()
{
    const bool isWhole = m_source.form == KXBarForm::Percentage;
    for (std::uint64_t category = m_source.first; category < m_source.end; ++category) {
        double above = 0, below = 0;
        for (std::size_t position = 0; position < m_source.series.size(); ++position) {
            const double value = m_source.obtainValue(position, category);
            if (value > 0 || (value < 0 && isWhole))
                above += std::abs(value);
            else if (value < 0)
                below += value;
        }
        std::size_t column = 0, endColumn = 0;
        if ((above == 0 && below == 0) || !_findColumns(category, column, endColumn))
            continue;
        for (; column < endColumn; ++column) {
            _at(column)[0].take(above, category);
            _at(column)[1].take(below, category);
        }
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
    const KXBarStretch across{m_plane.fromPixel(m_firstPixel + static_cast<double>(first)),
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
void Columns::_addGroup(const Extreme* extremes, const KXBarStretch& across)
{
    std::vector<std::size_t> order(m_source.series.size());
    for (const std::size_t side : {0U, 1U}) {
        const auto lengthOf = [&](std::size_t position) {
            return std::pair(std::abs(extremes[2 * position + side].value), position);
        };
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::ranges::sort(order, {}, lengthOf);
        double reached = 0;
        for (const std::size_t position : order) {
            const Extreme& extreme = extremes[2 * position + side];
            if (extreme.value == reached)
                continue;
            _addBar(position, extreme.category, extreme.value, reached, extreme.value, across);
            reached = extreme.value;
        }
    }
}

void Columns::_addStack(const Extreme& extreme, bool above, const KXBarStretch& across)
{
    if (extreme.category == none)
        return;
    m_source.obtainPieces(extreme.category, m_pieces);
    for (const KXBarPiece& piece : m_pieces)
        if (above ? piece.to > piece.from : piece.to < piece.from)
            _addBar(piece.position, extreme.category, piece.value, piece.from, piece.to, across);
}

void Columns::_addBar(std::size_t position, std::uint64_t category, double value, double from, double to,
                      const KXBarStretch& across)
{
    if (const std::optional<KXBarStretch> along = m_plane.placeAlong(from, to))
        m_layout.bars.push_back(
            {{m_source.series[position].index, category}, value, from, to, m_plane.makeRect(across, *along)});
}

} // namespace

KXBarLayout kxLayoutDenseBars(const KXBarSource& source, const KXBarPlane& plane)
{
    Columns columns(source, plane);
    columns.collect();
    return columns.makeLayout();
}
