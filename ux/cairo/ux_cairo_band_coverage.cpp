#include "ux/cairo/ux_cairo_band_coverage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

/** A pixel that is covered in full. In whole numbers, no error adds up from row to row. */
constexpr int kWholeBits = 20;
constexpr std::int32_t kWhole = 1 << kWholeBits;
/** Less than this, in the same unit, cannot be seen. */
constexpr std::int32_t kLeastRest = 256;
/** An edge that rises by less across a column, in pixels, is level there. */
constexpr double kLeastRise = 0.25;

/** Blocks that are kept ready for each point of a band. */
constexpr std::size_t kBlocksForPoint = 2;

/** @return twice the area of the polygon, above 0 where its upper edge runs from left to right */
double obtainTurn(std::span<const UXDoublePoint> polygon)
{
    double turn = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const UXDoublePoint &from = polygon[i], &to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        turn -= (to.x - from.x) * (from.y + to.y);
    }
    return turn;
}

/** Goes on by one row in each column of a block.
 *  @return whether what is covered changes in the next row too */
template <std::size_t width>
bool addRow(const std::array<std::int32_t, width>& bends, std::array<std::int32_t, width>& slopes,
            std::array<std::int32_t, width>& heights, std::uint8_t* coverage)
{
    // Of its own, which no other write changes: all columns are gone through at once.
    std::array<std::int32_t, width> slope = slopes, height = heights;
    std::array<std::uint8_t, width> parts;
    std::int32_t isSloping = 0;
    for (std::size_t column = 0; column < width; ++column) {
        slope[column] += bends[column];
        height[column] += slope[column];
        isSloping |= slope[column];
        const std::int32_t whole = height[column] < 0 ? -height[column] : height[column];
        const std::int32_t part = whole < kWhole ? whole : kWhole;
        parts[column] = static_cast<std::uint8_t>((part * 255 + kWhole / 2) >> kWholeBits);
    }
    slopes = slope;
    heights = height;
    std::memcpy(coverage, parts.data(), parts.size());
    return isSloping != 0;
}

} // namespace

bool UXCairoBandCoverage::isBand(std::span<const UXDoublePoint> polygon)
{
    int turnCount = 0;
    double direction = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const double step = polygon[i + 1 < polygon.size() ? i + 1 : 0].x - polygon[i].x;
        if (step * direction < 0)
            ++turnCount;
        if (step != 0)
            direction = step < 0 ? -1 : 1;
    }
    // Where the first point is not an end of the band, coming back to it is no turn.
    return turnCount <= 2;
}

UXCairoBandCoverage::UXCairoBandCoverage(std::span<const std::vector<UXDoublePoint>> bands,
                                         const UXCairoPixels::Box& clip)
{
    _takeBox(bands, clip);
    if (m_box.isEmpty())
        return;
    m_width = static_cast<std::size_t>(m_box.right - m_box.left);
    m_blockCount = (m_width + kBlockWidth - 1) / kBlockWidth;
    m_height = static_cast<std::size_t>(m_box.bottom - m_box.top);
    m_bendIndexes.resize((m_height + kBendReach) * m_blockCount);
    std::size_t pointCount = 0;
    for (const std::vector<UXDoublePoint>& band : bands)
        pointCount += band.size();
    m_bends.reserve(1 + std::min(kBlocksForPoint * pointCount, m_bendIndexes.size()));
    m_bends.resize(1);
    for (const std::vector<UXDoublePoint>& band : bands)
        _add(band);
}

/** No more pixels than the bands can touch. */
void UXCairoBandCoverage::_takeBox(std::span<const std::vector<UXDoublePoint>> bands,
                                   const UXCairoPixels::Box& clip)
{
    double left = clip.right, top = clip.bottom, right = clip.left, bottom = clip.top;
    for (const std::vector<UXDoublePoint>& band : bands)
        for (const UXDoublePoint& point : band) {
            left = std::min(left, point.x);
            top = std::min(top, point.y);
            right = std::max(right, point.x);
            bottom = std::max(bottom, point.y);
        }
    m_box = {static_cast<int>(std::floor(std::max<double>(left, clip.left))),
             static_cast<int>(std::floor(std::max<double>(top, clip.top))),
             static_cast<int>(std::ceil(std::min<double>(right, clip.right))),
             static_cast<int>(std::ceil(std::min<double>(bottom, clip.bottom)))};
}

/** What lies below an edge from left to right is covered, and no longer below one from right to left. */
void UXCairoBandCoverage::_add(std::span<const UXDoublePoint> band)
{
    const double sign = obtainTurn(band) < 0 ? -1 : 1;
    for (std::size_t i = 0; i < band.size(); ++i)
        _addEdge(band[i], band[i + 1 < band.size() ? i + 1 : 0], sign);
}

void UXCairoBandCoverage::_addEdge(const UXDoublePoint& from, const UXDoublePoint& to, double sign)
{
    if (from.x > to.x)
        return _addEdge(to, from, -sign);
    const double start = from.x - m_box.left, end = to.x - m_box.left;
    const double left = std::max(start, 0.0), right = std::min(end, static_cast<double>(m_width));
    if (!(left < right))
        return;
    const double top = from.y - m_box.top, bottom = to.y - m_box.top;
    auto column = static_cast<std::size_t>(left);
    if (start >= 0 && end <= static_cast<double>(column + 1)) // as most edges of a dense line
        return _addPart(column, sign * (end - start), top, bottom);
    const double rise = (bottom - top) / (end - start);
    double x = left, y = top + (left - start) * rise;
    for (; x < right; ++column) {
        const double next = std::min(static_cast<double>(column + 1), right);
        const double nextY = next == end ? bottom : top + (next - start) * rise;
        _addPart(column, sign * (next - x), y, nextY);
        x = next;
        y = nextY;
    }
}

/** The edge crosses so much of the width of a column: from one of the heights to the other, what is covered
 * below it grows evenly to all of that. */
void UXCairoBandCoverage::_addPart(std::size_t column, double width, double from, double to)
{
    const double high = std::min(from, to), low = std::max(from, to);
    if (high >= static_cast<double>(m_height))
        return;
    const double whole = width * kWhole;
    if (low <= 0 || low - high < kLeastRise)
        return _addStep(column, std::max((high + low) / 2, 0.0), static_cast<std::int32_t>(whole));
    const double exact = whole / (low - high), first = std::max(high, 0.0);
    const auto slope = static_cast<std::int32_t>(exact);
    if (high < 0)
        _addStep(column, 0.0, static_cast<std::int32_t>(exact * -high));
    _addBend(column, first, slope);
    _addBend(column, low, -slope);
    const auto rest = static_cast<std::int32_t>((exact - slope) * (low - first));
    if (std::abs(rest) >= kLeastRest)
        _addStep(column, low, rest);
}

/** The share of a pixel is the mean of what is covered over its height: within a pixel, a bend is one of the
 * second differences of three rows. */
void UXCairoBandCoverage::_addBend(std::size_t column, double at, std::int32_t slope)
{
    if (at >= static_cast<double>(m_height))
        return;
    const auto row = static_cast<std::size_t>(at);
    const double part = at - static_cast<double>(row), rest = 1 - part;
    const auto first = static_cast<std::int32_t>(slope * rest * rest / 2);
    const auto last = static_cast<std::int32_t>(slope * part * part / 2);
    _addBends(row, column, {first, slope - first - last, last});
}

void UXCairoBandCoverage::_addStep(std::size_t column, double at, std::int32_t height)
{
    if (at >= static_cast<double>(m_height))
        return;
    const auto row = static_cast<std::size_t>(at);
    const double part = at - static_cast<double>(row);
    const auto last = static_cast<std::int32_t>(height * part);
    _addBends(row, column, {height - last, 2 * last - height, -last});
}

void UXCairoBandCoverage::_addBends(std::size_t row, std::size_t column,
                                    const std::array<std::int32_t, kBendReach + 1>& bends)
{
    const std::size_t block = column / kBlockWidth;
    for (const std::int32_t bend : bends) {
        std::uint32_t& index = m_bendIndexes[row * m_blockCount + block];
        if (index == 0) {
            index = static_cast<std::uint32_t>(m_bends.size());
            m_bends.emplace_back();
        }
        m_bends[index][column % kBlockWidth] += bend;
        ++row;
    }
}

/** Most of a large shape is as the row above it. */
void UXCairoBandCoverage::draw(UXCairoPixels& pixels) const
{
    std::vector<Block> slopes(m_blockCount), heights(m_blockCount);
    std::vector<std::uint8_t> coverage(m_blockCount * kBlockWidth), isSloping(m_blockCount);
    for (std::size_t row = 0; row < m_height; ++row) {
        for (std::size_t block = 0; block < m_blockCount; ++block) {
            const std::uint32_t index = m_bendIndexes[row * m_blockCount + block];
            if (isSloping[block] || index > 0)
                isSloping[block] = addRow(m_bends[index], slopes[block], heights[block],
                                          coverage.data() + block * kBlockWidth);
        }
        pixels.blend(m_box.left, m_box.top + static_cast<int>(row), coverage.data(), m_width);
    }
}
