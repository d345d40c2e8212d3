#include "kx_pie_label_columns.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/** Of the radius: how far a line goes outwards before it turns to its label. */
constexpr double elbowShare = 0.06;
/** Between a label and the end of its line, in logical units. */
constexpr double endGap = 4;
/** Between two labels, against what sums lose. */
constexpr double rowGap = 1;
/** A line may come nearer to the middle of the pie than its edge by this much. */
constexpr double noise = 1e-6;

/** @return twice the area of the triangle, above 0 where it turns clockwise on screen */
double obtainTurn(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool doCross(const UXDoublePoint& a, const UXDoublePoint& b, const UXDoublePoint& c, const UXDoublePoint& d)
{
    return obtainTurn(a, b, c) * obtainTurn(a, b, d) < 0 && obtainTurn(c, d, a) * obtainTurn(c, d, b) < 0;
}

/** @return the distance of a point from the piece of a line from a to b */
double obtainDistance(const UXDoublePoint& point, const UXDoublePoint& a, const UXDoublePoint& b)
{
    const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
    const double along = square > 0 ? ((point.x - a.x) * dx + (point.y - a.y) * dy) / square : 0;
    const double share = std::clamp(along, 0.0, 1.0);
    return std::hypot(a.x + share * dx - point.x, a.y + share * dy - point.y);
}

} // namespace

KXPieLabelColumns::KXPieLabelColumns(const UXDoubleRect& area, const UXDoublePoint& center, double radius,
                                     double leftEnd, double rightStart)
    : m_area(area), m_center(center), m_radius(radius), m_leftEnd(leftEnd), m_rightStart(rightStart)
{
}

bool KXPieLabelColumns::isLeft(double degrees) { return std::cos(degrees * std::numbers::pi / 180) < 0; }

std::vector<KXPieLabelPlace> KXPieLabelColumns::place(std::span<const KXPieLabelRequest> requests,
                                                      double height) const
{
    std::vector<KXPieLabelPlace> places;
    for (const bool left : {false, true}) {
        std::vector<Entry> entries = _makeEntries(requests, left, height);
        do {
            _stack(entries, height);
        } while (_dropOne(entries, left, height));
        const double room = left ? m_leftEnd - m_area.x : m_area.x + m_area.width - m_rightStart;
        for (const Entry& entry : entries) {
            const double width = std::min(entry.width, room);
            const UXDoubleRect rect(left ? m_leftEnd - width : m_rightStart, entry.top, width, height);
            places.push_back(
                {entry.request, rect, left, {entry.edge, entry.elbow, _obtainEnd(entry, left, height)}});
        }
    }
    return places;
}

/** @return the labels of a column by the height of their slices, no more than it has room for */
std::vector<KXPieLabelColumns::Entry> KXPieLabelColumns::_makeEntries(
    std::span<const KXPieLabelRequest> requests, bool left, double height) const
{
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < requests.size(); ++i) {
        const KXPieLabelRequest& request = requests[i];
        if (isLeft(request.degrees) != left)
            continue;
        const double turn = request.degrees * std::numbers::pi / 180;
        const UXDoublePoint out(std::cos(turn) * m_radius, std::sin(turn) * m_radius);
        const UXDoublePoint edge(m_center.x + out.x, m_center.y + out.y);
        UXDoublePoint elbow(edge.x + elbowShare * out.x, edge.y + elbowShare * out.y);
        // A label at the end of its column can stand no further out, and lines are best level.
        const double nearest = edge.y + elbowShare / 2 * out.y;
        const double first = m_area.y + height / 2, last = m_area.y + m_area.height - height / 2;
        elbow.y = elbow.y < first  ? std::min(first, std::max(nearest, elbow.y))
                  : elbow.y > last ? std::max(last, std::min(nearest, elbow.y))
                                   : elbow.y;
        const double top = elbow.y - height / 2;
        entries.push_back({i, request.size, request.width, edge, elbow, top, top, 0});
    }
    const double rows = height > 0 ? (m_area.height + rowGap) / (height + rowGap) : 0;
    if (static_cast<double>(entries.size()) > rows) {
        std::ranges::stable_sort(entries, std::ranges::greater(), &Entry::size);
        entries.resize(static_cast<std::size_t>(std::max(rows, 0.0)));
    }
    std::ranges::sort(entries, [](const Entry& a, const Entry& b) {
        return a.edge.y != b.edge.y ? a.edge.y < b.edge.y : a.request < b.request;
    });
    return entries;
}

/** Moves labels apart by as little as keeps them off each other: those that meet stand in blocks, each as
 * near to what its labels want as the area allows. */
void KXPieLabelColumns::_stack(std::vector<Entry>& entries, double height) const
{
    struct Block {
        std::size_t first, count;
        double sum; // of where the block would begin for each of its labels
        double obtainTop() const { return sum / static_cast<double>(count); }
    };
    const double pitch = height + rowGap;
    const auto keepInside = [&](const Block& block) {
        const double length = pitch * static_cast<double>(block.count) - rowGap;
        return std::max(std::min(block.obtainTop(), m_area.y + m_area.height - length), m_area.y);
    };
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        blocks.push_back({i, 1, entries[i].wantedTop});
        while (blocks.size() > 1) {
            const Block last = blocks.back();
            Block& before = blocks[blocks.size() - 2];
            const double end = pitch * static_cast<double>(before.count);
            if (keepInside(before) + end <= keepInside(last))
                break;
            before.sum += last.sum - end * static_cast<double>(last.count);
            before.count += last.count;
            blocks.pop_back();
        }
    }
    for (std::size_t block = 0; block < blocks.size(); ++block)
        for (std::size_t i = 0; i < blocks[block].count; ++i) {
            Entry& entry = entries[blocks[block].first + i];
            entry.top = keepInside(blocks[block]) + pitch * static_cast<double>(i);
            entry.block = block;
        }
}

UXDoublePoint KXPieLabelColumns::_obtainEnd(const Entry& entry, bool left, double height) const
{
    return {left ? m_leftEnd + endGap : m_rightStart - endGap, entry.top + height / 2};
}

bool KXPieLabelColumns::_isThroughPie(const Entry& entry, const UXDoublePoint& end) const
{
    return obtainDistance(m_center, entry.elbow, end) < m_radius - noise;
}

/** Takes the smallest label of those that stand together where a line is in the way of the pie or of another
 * line. @return false where there is none to take */
bool KXPieLabelColumns::_dropOne(std::vector<Entry>& entries, bool left, double height) const
{
    const auto drop = [&](std::size_t from, std::size_t to) {
        const auto first = entries.begin() + static_cast<std::ptrdiff_t>(from);
        const auto last = entries.begin() + static_cast<std::ptrdiff_t>(to);
        entries.erase(
            std::min_element(first, last, [](const Entry& a, const Entry& b) { return a.size < b.size; }));
        return true;
    };
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const UXDoublePoint end = _obtainEnd(entries[i], left, height);
        if (_isThroughPie(entries[i], end)) {
            const auto [first, last] = std::ranges::equal_range(entries, entries[i].block, {}, &Entry::block);
            return drop(static_cast<std::size_t>(first - entries.begin()),
                        static_cast<std::size_t>(last - entries.begin()));
        }
        for (std::size_t k = i + 1; k < entries.size(); ++k) {
            const Entry& other = entries[k];
            const UXDoublePoint otherEnd = _obtainEnd(other, left, height);
            if (doCross(entries[i].elbow, end, other.elbow, otherEnd) ||
                doCross(entries[i].elbow, end, other.edge, other.elbow) ||
                doCross(entries[i].edge, entries[i].elbow, other.elbow, otherEnd))
                return drop(i, k + 1);
        }
    }
    return false;
}
