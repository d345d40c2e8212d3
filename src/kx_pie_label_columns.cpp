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
            _bendInside(entries, height);
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
        const UXDoublePoint elbow(edge.x + elbowShare * out.x, edge.y + elbowShare * out.y);
        entries.push_back({i, request.size, request.width, edge, elbow, 0, 0, 0});
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

/** A label at an end of its column can stand no further out than that. Its line is level where it can be, and
 * those beside it turn the nearer to the pie the nearer they are to the end. */
void KXPieLabelColumns::_bendInside(std::vector<Entry>& entries, double height) const
{
    const double first = m_area.y + height / 2, last = m_area.y + m_area.height - height / 2;
    const double span = std::max(height, elbowShare * m_radius);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Entry& entry = entries[i];
        const double out = (entry.edge.y - m_center.y) * elbowShare, far = entry.edge.y + out;
        const double room = span > 0 ? std::clamp(std::min(far - first, last - far) / span, 0.0, 1.0) : 0;
        const double near = entry.edge.y + out * (1 + room) / 2;
        entry.elbow.y = near;
        if (i == 0 && far < first)
            entry.elbow.y = std::min(first, near);
        else if (i + 1 == entries.size() && far > last)
            entry.elbow.y = std::max(last, near);
        entry.wantedTop = entry.elbow.y - height / 2;
    }
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
    for (const Block& block : blocks)
        for (std::size_t i = 0; i < block.count; ++i)
            entries[block.first + i].top = keepInside(block) + pitch * static_cast<double>(i);
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].group = i == 0 ? 0
                                  : entries[i - 1].group + (entries[i].top - entries[i - 1].top > 2 * pitch);
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
        const auto first = std::ranges::lower_bound(entries, entries[from].group, {}, &Entry::group);
        const auto last = std::ranges::upper_bound(entries, entries[to].group, {}, &Entry::group);
        entries.erase(
            std::min_element(first, last, [](const Entry& a, const Entry& b) { return a.size < b.size; }));
        return true;
    };
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& one = entries[i];
        const UXDoublePoint end = _obtainEnd(one, left, height);
        if (_isThroughPie(one, end))
            return drop(i, i);
        for (std::size_t k = i + 1; k < entries.size(); ++k) {
            const Entry& other = entries[k];
            const UXDoublePoint otherEnd = _obtainEnd(other, left, height);
            if (doCross(one.elbow, end, other.elbow, otherEnd) ||
                doCross(one.elbow, end, other.edge, other.elbow) ||
                doCross(one.edge, one.elbow, other.elbow, otherEnd))
                return drop(i, k);
        }
    }
    return false;
}
