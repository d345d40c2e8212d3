#include "ux/cairo/ux_cairo_line_coverage.h"

#include <algorithm>
#include <cmath>

namespace {

/** Places beyond are cut, so that all that follows fits an int. No surface reaches so far. */
constexpr double kFarthest = 1e6;
/** Thinner lines cover no pixel of a row in full. */
constexpr double kLeastSolidRadius = 0.5;
/** Of pieces that are less high it is not worth while to look where they cover pixels in full. */
constexpr double kLeastSolidHeight = 4;
/** A piece that goes by less from one column to the next, as a part of its length, is upright. */
constexpr double kLeastDirection = 1e-9;
/** Rows that are filled at a time. */
constexpr int kBandHeight = 32;

/** @return the part of the piece from a to b that lies between low and high along one coordinate, as parts of
 * its length; none where first is above last */
struct Interval {
    double first = 0, last = 1;

    void cut(double a, double b, double low, double high)
    {
        const double length = b - a;
        if (length == 0) {
            if (a < low || a > high)
                last = -1;
            return;
        }
        const double atLow = (low - a) / length, atHigh = (high - a) / length;
        first = std::max(first, std::min(atLow, atHigh));
        last = std::min(last, std::max(atLow, atHigh));
    }
};

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

int toPixel(double edge, int low, int high)
{
    return static_cast<int>(std::clamp(edge, static_cast<double>(low), static_cast<double>(high)));
}

/** @return the pixels, not before first nor from end on, whose middles lie from low to high; those at low
 * itself may be left out */
UXCairoLineCoverage::Range findPixels(double low, double high, int first, int end)
{
    return {toPixel(low + 0.5, first, end), toPixel(high + 0.5, first, end)};
}

} // namespace

/** A straight piece of the line, made ready for the pixels of a column. */
struct UXCairoLineCoverage::Piece {
    Piece(const UXDoublePoint& from, const UXDoublePoint& to) : start(from), end(to)
    {
        const double dx = to.x - from.x, dy = to.y - from.y;
        length = std::sqrt(dx * dx + dy * dy);
        if (length > 0) {
            x = dx / length;
            y = dy / length;
        }
        isUpright = std::abs(x) <= kLeastDirection;
        rise = isUpright ? 0 : y / x;
    }

    UXDoublePoint start, end;
    double x = 1, y = 0; // its direction
    double length = 0;
    double rise = 0; // from one column to the next, unless it is upright
    bool isUpright = false;
};

UXCairoLineCoverage::UXCairoLineCoverage(std::span<const UXDoublePoint> points, double width,
                                         const UXCairoPixels::Box& clip)
    : m_radius(width / 2), m_greatest(std::min(width, 1.0))
{
    _takeBox(points, clip);
    if (m_box.isEmpty())
        return;
    m_solid.assign(static_cast<std::size_t>(m_box.right - m_box.left), {m_box.top, m_box.top});
    m_coverage.resize(static_cast<std::size_t>(m_box.bottom - m_box.top) * m_solid.size());
    std::vector<Piece> pieces;
    pieces.reserve(points.size());
    for (std::size_t i = 1; i < points.size(); ++i)
        if (isFinite(points[i - 1]) && isFinite(points[i]))
            _addPiece(points[i - 1], points[i], pieces);
    if (m_radius > kLeastSolidRadius)
        for (const Piece& piece : pieces)
            _addSolid(piece);
    for (const Piece& piece : pieces)
        _coverPiece(piece);
    for (const UXDoublePoint& point : points)
        if (isFinite(point))
            _coverEnd(point);
    _fillSolid();
}

/** No more pixels than the line can touch. */
void UXCairoLineCoverage::_takeBox(std::span<const UXDoublePoint> points, const UXCairoPixels::Box& clip)
{
    UXDoublePoint low(kFarthest, kFarthest), high(-kFarthest, -kFarthest);
    for (const UXDoublePoint& point : points) {
        if (!isFinite(point))
            continue;
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    const double reach = m_radius + 1;
    m_box = {toPixel(std::floor(low.x - reach), clip.left, clip.right),
             toPixel(std::floor(low.y - reach), clip.top, clip.bottom),
             toPixel(std::ceil(high.x + reach), clip.left, clip.right),
             toPixel(std::ceil(high.y + reach), clip.top, clip.bottom)};
}

/** Only the part near the box counts: a long piece costs no more than what is seen of it. */
void UXCairoLineCoverage::_addPiece(const UXDoublePoint& from, const UXDoublePoint& to,
                                    std::vector<Piece>& pieces) const
{
    const double reach = m_radius + 1;
    const double left = std::max(m_box.left - reach, -kFarthest);
    const double right = std::min(m_box.right + reach, kFarthest);
    const double top = std::max(m_box.top - reach, -kFarthest);
    const double bottom = std::min(m_box.bottom + reach, kFarthest);
    const auto isInside = [&](const UXDoublePoint& point) {
        return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
    };
    if (isInside(from) && isInside(to)) { // as most pieces of a dense line
        pieces.emplace_back(from, to);
        return;
    }
    Interval interval;
    interval.cut(from.x, to.x, left, right);
    interval.cut(from.y, to.y, top, bottom);
    if (!(interval.first <= interval.last))
        return;
    const auto at = [&](double part, const UXDoublePoint& whole) {
        return part <= 0 || part >= 1
                   ? whole
                   : UXDoublePoint(from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part);
    };
    pieces.emplace_back(at(interval.first, from), at(interval.last, to));
}

UXCairoLineCoverage::Range UXCairoLineCoverage::_findColumns(const Piece& piece, double reach) const
{
    return findPixels(std::min(piece.start.x, piece.end.x) - reach,
                      std::max(piece.start.x, piece.end.x) + reach, m_box.left, m_box.right);
}

UXCairoLineCoverage::Range UXCairoLineCoverage::_findRows(const Piece& piece, int x, double half,
                                                          double beyond) const
{
    double top = std::min(piece.start.y, piece.end.y) - beyond;
    double bottom = std::max(piece.start.y, piece.end.y) + beyond;
    if (!piece.isUpright) {
        const double place = piece.start.y + (x + 0.5 - piece.start.x) * piece.rise;
        top = std::max(top, place - half);
        bottom = std::min(bottom, place + half);
    }
    return findPixels(top, bottom, m_box.top, m_box.bottom);
}

/** The rows in which the piece passes so near to the middle of a column that it covers all of the pixel.
 * Those of several pieces are kept as one range: where they do not meet, the longer one. */
void UXCairoLineCoverage::_addSolid(const Piece& piece)
{
    if (std::abs(piece.end.y - piece.start.y) < kLeastSolidHeight)
        return;
    const double reach = m_radius - 0.5, half = reach * std::abs(piece.rise);
    const Range columns = _findColumns(piece, reach);
    for (int x = columns.first; x < columns.end; ++x) {
        const Range rows = _findRows(piece, x, half, 0);
        Range& solid = m_solid[static_cast<std::size_t>(x - m_box.left)];
        if (rows.first <= solid.end && rows.end >= solid.first && solid.first < solid.end)
            solid = {std::min(rows.first, solid.first), std::max(rows.end, solid.end)};
        else if (rows.end - rows.first > solid.end - solid.first)
            solid = rows;
    }
}

/** Each pixel that is not covered in full has the greatest part that any piece, or end of one, covers: what
 * lies beside a piece by its distance from the line, and what lies about an end by that from the point. */
void UXCairoLineCoverage::_coverPiece(const Piece& piece)
{
    const double reach = m_radius + 0.5, half = piece.isUpright ? 0 : reach / std::abs(piece.x);
    const double beyond = reach * std::abs(piece.x);
    const Range columns = _findColumns(piece, reach);
    const Range all = findPixels(std::min(piece.start.y, piece.end.y) - beyond,
                                 std::max(piece.start.y, piece.end.y) + beyond, m_box.top, m_box.bottom);
    for (int x = columns.first; x < columns.end; ++x) {
        const Range& solid = m_solid[static_cast<std::size_t>(x - m_box.left)];
        if (all.first >= solid.first && all.end <= solid.end)
            continue;
        const Range rows = _findRows(piece, x, half, beyond);
        if (rows.first < solid.first)
            _coverBeside(piece, x, {rows.first, std::min(rows.end, solid.first)});
        if (rows.end > solid.end)
            _coverBeside(piece, x, {std::max(rows.first, solid.end), rows.end});
    }
}

void UXCairoLineCoverage::_coverBeside(const Piece& piece, int x, const Range& rows)
{
    const double dx = x + 0.5 - piece.start.x, dy = rows.first + 0.5 - piece.start.y;
    double along = dx * piece.x + dy * piece.y, beside = dx * piece.y - dy * piece.x;
    std::uint8_t* pixel = _at(static_cast<std::size_t>(x - m_box.left), rows.first);
    for (int y = rows.first; y < rows.end; ++y, along += piece.y, beside -= piece.x) {
        if (along >= 0 && along <= piece.length)
            _raise(*pixel, std::abs(beside));
        pixel += m_solid.size();
    }
}

void UXCairoLineCoverage::_coverEnd(const UXDoublePoint& end)
{
    const double reach = m_radius + 0.5;
    const Range columns = findPixels(end.x - reach, end.x + reach, m_box.left, m_box.right);
    const Range rows = findPixels(end.y - reach, end.y + reach, m_box.top, m_box.bottom);
    for (int x = columns.first; x < columns.end; ++x) {
        const Range& solid = m_solid[static_cast<std::size_t>(x - m_box.left)];
        if (rows.first < solid.first)
            _coverAbout(end, x, {rows.first, std::min(rows.end, solid.first)});
        if (rows.end > solid.end)
            _coverAbout(end, x, {std::max(rows.first, solid.end), rows.end});
    }
}

void UXCairoLineCoverage::_coverAbout(const UXDoublePoint& end, int x, const Range& rows)
{
    const double dx = x + 0.5 - end.x;
    std::uint8_t* pixel = _at(static_cast<std::size_t>(x - m_box.left), rows.first);
    for (int y = rows.first; y < rows.end; ++y, pixel += m_solid.size()) {
        const double dy = y + 0.5 - end.y;
        _raise(*pixel, std::sqrt(dx * dx + dy * dy));
    }
}

/** Columns one after the other would touch a page of memory for every row: they are filled some rows at a
 * time. */
void UXCairoLineCoverage::_fillSolid()
{
    for (int top = m_box.top; top < m_box.bottom; top += kBandHeight)
        for (std::size_t column = 0; column < m_solid.size(); ++column) {
            const int first = std::max(m_solid[column].first, top);
            const int end = std::min(m_solid[column].end, top + kBandHeight);
            std::uint8_t* pixel = _at(column, first);
            for (int y = first; y < end; ++y, pixel += m_solid.size())
                *pixel = 255;
        }
}

void UXCairoLineCoverage::draw(UXCairoPixels& pixels) const
{
    const std::size_t width = m_solid.size();
    for (int y = m_box.top; y < m_box.bottom; ++y)
        pixels.blend(m_box.left, y, m_coverage.data() + static_cast<std::size_t>(y - m_box.top) * width,
                     width);
}
