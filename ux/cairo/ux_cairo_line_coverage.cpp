#include "ux/cairo/ux_cairo_line_coverage.h"

#include <algorithm>
#include <cmath>

namespace {

/** Places beyond are cut, so that all that follows fits an int. No surface reaches so far. */
constexpr double kFarthest = 1e6;

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

} // namespace

/** A straight piece of the line, made ready for the pixels of a row. */
struct UXCairoLineCoverage::Piece {
    Piece(const UXDoublePoint& from, const UXDoublePoint& to) : start(from), end(to)
    {
        const double dx = to.x - from.x, dy = to.y - from.y;
        length = std::hypot(dx, dy);
        if (length > 0) {
            x = dx / length;
            y = dy / length;
        }
    }

    /** @param along how far a point lies from the start, in the direction of the piece
     *  @param beside how far it lies from its line
     *  @return its distance from the piece */
    double obtainDistance(double along, double beside) const
    {
        const double beyond = along < 0 ? along : along - length;
        return along >= 0 && beyond <= 0 ? std::abs(beside) : std::sqrt(beyond * beyond + beside * beside);
    }

    UXDoublePoint start, end;
    double x = 1, y = 0; // its direction
    double length = 0;
};

UXCairoLineCoverage::UXCairoLineCoverage(std::span<const UXDoublePoint> points, double width,
                                         const UXCairoPixels::Box& clip)
    : m_radius(width / 2), m_greatest(std::min(width, 1.0))
{
    _takeBox(points, clip);
    if (m_box.isEmpty())
        return;
    const auto rows = static_cast<std::size_t>(m_box.bottom - m_box.top);
    m_coverage.resize(rows * static_cast<std::size_t>(m_box.right - m_box.left));
    m_rows.assign(rows, {m_box.right, m_box.left});
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!isFinite(points[i]))
            continue;
        if (i + 1 < points.size() && isFinite(points[i + 1]))
            _addPiece(points[i], points[i + 1]);
        else if (i == 0 || !isFinite(points[i - 1]))
            _addPiece(points[i], points[i]);
    }
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
void UXCairoLineCoverage::_addPiece(const UXDoublePoint& from, const UXDoublePoint& to)
{
    const double reach = m_radius + 1;
    Interval interval;
    interval.cut(from.x, to.x, std::max(m_box.left - reach, -kFarthest),
                 std::min(m_box.right + reach, kFarthest));
    interval.cut(from.y, to.y, std::max(m_box.top - reach, -kFarthest),
                 std::min(m_box.bottom + reach, kFarthest));
    if (!(interval.first <= interval.last))
        return;
    const auto at = [&](double part, const UXDoublePoint& whole) {
        return part <= 0 || part >= 1
                   ? whole
                   : UXDoublePoint(from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part);
    };
    const Piece piece(at(interval.first, from), at(interval.last, to));
    const double top = std::min(piece.start.y, piece.end.y) - m_radius - 0.5;
    const double bottom = std::max(piece.start.y, piece.end.y) + m_radius + 0.5;
    const int first = toPixel(std::floor(top), m_box.top, m_box.bottom);
    const int last = toPixel(std::ceil(bottom), m_box.top, m_box.bottom);
    for (int y = first; y < last; ++y)
        _coverRow(piece, y);
}

void UXCairoLineCoverage::_coverRow(const Piece& piece, int y)
{
    // 1. The pixels of the row that the piece can touch: those beside its ends, and beside its line.
    const double reach = m_radius + 0.5;
    const double middle = y + 0.5;
    double left = std::min(piece.start.x, piece.end.x) - reach,
           right = std::max(piece.start.x, piece.end.x) + reach;
    if (std::abs(piece.y) > 1e-9) {
        const double place = piece.start.x + (middle - piece.start.y) / piece.y * piece.x;
        const double half = reach / std::abs(piece.y);
        left = std::max(left, place - half);
        right = std::min(right, place + half);
    }
    const int first = toPixel(std::floor(left - 0.5), m_box.left, m_box.right);
    const int end = toPixel(std::ceil(right + 0.5), m_box.left, m_box.right);
    if (first >= end)
        return;

    // 2. Each of them has the greatest part that any piece covers.
    const auto index = static_cast<std::size_t>(y - m_box.top);
    Row& row = m_rows[index];
    row.first = std::min(row.first, first);
    row.end = std::max(row.end, end);
    std::uint8_t* pixels = m_coverage.data() + index * static_cast<std::size_t>(m_box.right - m_box.left);
    const double dx = first + 0.5 - piece.start.x, dy = middle - piece.start.y;
    double along = dx * piece.x + dy * piece.y, beside = dx * piece.y - dy * piece.x;
    for (int x = first; x < end; ++x, along += piece.x, beside += piece.y) {
        const double part = std::clamp(reach - piece.obtainDistance(along, beside), 0.0, m_greatest);
        std::uint8_t& pixel = pixels[x - m_box.left];
        pixel = std::max(pixel, static_cast<std::uint8_t>(part * 255 + 0.5));
    }
}

void UXCairoLineCoverage::draw(UXCairoPixels& pixels) const
{
    const auto width = static_cast<std::size_t>(m_box.right - m_box.left);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Row& row = m_rows[i];
        if (row.first < row.end)
            pixels.blend(row.first, m_box.top + static_cast<int>(i),
                         m_coverage.data() + i * width + (row.first - m_box.left),
                         static_cast<std::size_t>(row.end - row.first));
    }
}
