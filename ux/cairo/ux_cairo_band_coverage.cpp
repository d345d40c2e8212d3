#include "ux/cairo/ux_cairo_band_coverage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/** The rows of bends that a place within the last one reaches. */
constexpr std::size_t kBendReach = 2;
/** A pixel that is covered in full. In whole numbers, no error adds up from row to row. */
constexpr std::int32_t kWhole = 1 << 20;
/** An edge that rises by less across a column, in pixels, is level there. */
constexpr double kLeastRise = 0.25;

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

/** Goes on by one row in each of count columns. */
void addRow(const std::int32_t* bends, std::int32_t* slopes, std::int32_t* heights, std::uint8_t* coverage,
            std::size_t count)
{
    for (std::size_t column = 0; column < count; ++column) {
        slopes[column] += bends[column];
        heights[column] += slopes[column];
        const std::int32_t height = heights[column] < 0 ? -heights[column] : heights[column];
        const std::int32_t part = height < kWhole ? height : kWhole;
        coverage[column] = static_cast<std::uint8_t>((part * 255 + kWhole / 2) / kWhole);
    }
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
    m_height = static_cast<std::size_t>(m_box.bottom - m_box.top);
    m_bends.resize((m_height + kBendReach) * m_width);
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
    const double left = std::max(from.x - m_box.left, 0.0);
    const double right = std::min(to.x - m_box.left, static_cast<double>(m_width));
    if (!(left < right))
        return;
    const double top = from.y - m_box.top, rise = (to.y - from.y) / (to.x - from.x);
    const auto obtainHeight = [&](double x) { return top + (x - (from.x - m_box.left)) * rise; };
    auto column = static_cast<std::size_t>(left);
    double x = left, y = obtainHeight(left);
    for (; x < right; ++column) {
        const double next = std::min(static_cast<double>(column + 1), right);
        const double nextY = next == to.x - m_box.left ? to.y - m_box.top : obtainHeight(next);
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
    const auto whole = static_cast<std::int32_t>(width * kWhole);
    if (high >= static_cast<double>(m_height))
        return;
    if (low <= 0 || low - high < kLeastRise)
        return _addStep(column, std::max((high + low) / 2, 0.0), whole);
    const auto slope = static_cast<std::int32_t>(width * kWhole / (low - high));
    // What the slope, which is cut to a whole number, does not reach.
    const double reached = slope * (low - high);
    if (high < 0)
        _addStep(column, 0, static_cast<std::int32_t>(slope * -high));
    _addBend(column, std::max(high, 0.0), slope);
    _addBend(column, low, -slope);
    _addStep(column, low, static_cast<std::int32_t>(width * kWhole - reached));
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
    _at(row, column) += first;
    _at(row + 1, column) += slope - first - last;
    _at(row + 2, column) += last;
}

void UXCairoBandCoverage::_addStep(std::size_t column, double at, std::int32_t height)
{
    if (at >= static_cast<double>(m_height))
        return;
    const auto row = static_cast<std::size_t>(at);
    const double part = at - static_cast<double>(row);
    const auto last = static_cast<std::int32_t>(height * part);
    _at(row, column) += height - last;
    _at(row + 1, column) += 2 * last - height;
    _at(row + 2, column) -= last;
}

void UXCairoBandCoverage::draw(UXCairoPixels& pixels) const
{
    std::vector<std::int32_t> slopes(m_width), heights(m_width);
    std::vector<std::uint8_t> coverage(m_width);
    for (std::size_t row = 0; row < m_height; ++row) {
        addRow(m_bends.data() + row * m_width, slopes.data(), heights.data(), coverage.data(), m_width);
        pixels.blend(m_box.left, m_box.top + static_cast<int>(row), coverage.data(), m_width);
    }
}
