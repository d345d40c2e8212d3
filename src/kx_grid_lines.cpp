#include "kx_grid_lines.h"

#include <algorithm>
#include <cmath>

namespace {

double obtainUsable(double extent) { return std::isfinite(extent) ? std::max(extent, 0.0) : 0; }

} // namespace

KXGridLines KXGridLines::makeEqual(std::uint64_t count, double extent)
{
    KXGridLines lines;
    lines.m_count = count;
    lines.m_extent = obtainUsable(extent);
    return lines;
}

KXGridLines KXGridLines::makeGiven(std::span<const double> extents)
{
    std::vector<double> starts(extents.size() + 1);
    for (std::size_t i = 0; i < extents.size(); ++i)
        starts[i + 1] = starts[i] + obtainUsable(extents[i]);
    KXGridLines lines;
    lines.m_count = extents.size();
    lines.m_starts = std::make_shared<const std::vector<double>>(std::move(starts));
    return lines;
}

double KXGridLines::obtainStart(std::uint64_t line) const
{
    line = std::min(line, m_count);
    return m_starts ? (*m_starts)[line] : static_cast<double>(line) * m_extent;
}

std::uint64_t KXGridLines::_countStarts(double place) const
{
    if (!(place >= 0))
        return 0;
    if (m_starts) {
        const auto end = m_starts->begin() + static_cast<std::ptrdiff_t>(m_count);
        return static_cast<std::uint64_t>(std::upper_bound(m_starts->begin(), end, place) -
                                          m_starts->begin());
    }
    if (!(m_extent > 0) || place >= obtainTotal())
        return m_count;
    // A division may be off by the last bit, by which a line would lose its first place to the one before.
    auto line = std::min(static_cast<std::uint64_t>(place / m_extent), m_count - 1);
    if (obtainStart(line) > place)
        --line;
    else if (line + 1 < m_count && obtainStart(line + 1) <= place)
        ++line;
    return line + 1;
}

std::optional<std::uint64_t> KXGridLines::findAt(double place) const
{
    if (!(place >= 0 && place < obtainTotal()))
        return std::nullopt;
    return _countStarts(place) - 1; // of lines without extent at a place it is the one after them
}

KXGridRange KXGridLines::obtainRange(double from, double to) const
{
    if (!(from < to) || !(to > 0) || !(from < obtainTotal()))
        return {};
    std::uint64_t end = _countStarts(to); // of which some may begin just there
    if (m_starts)
        end = static_cast<std::uint64_t>(
            std::lower_bound(m_starts->begin(), m_starts->begin() + static_cast<std::ptrdiff_t>(end), to) -
            m_starts->begin());
    else if (obtainStart(end - 1) >= to)
        --end;
    return {from > 0 ? _countStarts(from) - 1 : 0, end};
}
