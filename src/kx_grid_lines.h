#pragma once

#include "kx_export.h"
#include "kx_grid_range.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

/** Where the rows, or the columns, of a grid stand one after the other, in logical units from the first one's
 * start. Lines of one extent need no memory each; copies share what the others need. */
class KX_EXPORT KXGridLines {
public:
    /** No lines. */
    KXGridLines() = default;
    /** @param extent of each of them; below 0 and not finite it is 0 */
    static KXGridLines makeEqual(std::uint64_t count, double extent);
    /** @param extents one a line, with the same limits */
    static KXGridLines makeGiven(std::span<const double> extents);

    std::uint64_t getCount() const { return m_count; }
    /** @return the extent of all of them */
    double obtainTotal() const { return obtainStart(m_count); }
    /** @param line the count for where the last one ends; no line lies beyond that */
    double obtainStart(std::uint64_t line) const;
    double obtainExtent(std::uint64_t line) const { return obtainStart(line + 1) - obtainStart(line); }

    /** @return the line at a place, which its end does not belong to */
    std::optional<std::uint64_t> findAt(double place) const;
    /** @return the lines of which something lies between two places */
    KXGridRange obtainRange(double from, double to) const;

private:
    /** @return how many lines start at a place or before it */
    std::uint64_t _countStarts(double place) const;

    std::uint64_t m_count = 0;
    double m_extent = 0;                                 // where all have the same
    std::shared_ptr<const std::vector<double>> m_starts; // else, with the end of the last one
};
