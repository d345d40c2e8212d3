#pragma once

#include "kx_export.h"

#include <cstddef>
#include <span>
#include <vector>

/** Values that follow each other without a null, by their indexes, and where the extremes among them are. */
struct KXValueInterval {
    std::size_t first = 0, end = 0;
    std::size_t least = 0, greatest = 0; /**< of several equal ones the first */

    friend bool operator==(const KXValueInterval&, const KXValueInterval&) = default;
};

/**
 * Finds the extremes of any part of a long list without looking at each of its values: it keeps those of
 * blocks, of blocks of these, and so on, in less than a tenth of the values' own memory.
 */
class KX_EXPORT KXValuePyramid {
public:
    /** @param values NaN for a null; not kept */
    explicit KXValuePyramid(std::span<const double> values);

    /** Appends the longest intervals without a null of the values from first to end, in their order. The work
     * grows with their number, not with that of the values.
     *  @param values those that this was made of */
    void findIntervals(std::span<const double> values, std::size_t first, std::size_t end,
                       std::vector<KXValueInterval>& found) const;
    std::size_t obtainMemory() const;

private:
    /** The extremes of some values. */
    struct Block {
        double min, max; // min above max where all are nulls, both NaN where some are

        bool isMixed() const { return min != min; }
        bool hasValues() const { return min <= max; }
    };
    /** A value on level 0, a block of values on level 1, one of these on level 2, and so on. */
    struct Part {
        std::size_t level = 0, index = 0;
    };
    /** An interval, and in which parts of it the extremes are. */
    struct Run {
        std::size_t first = 0, end = 0; // nothing where it ends as it begins
        Block extremes{};
        Part least{}, greatest{};

        void take(std::size_t newEnd, const Block& block, const Part& part);
    };

    static Block _makeBlock(std::span<const double> values);
    static Block _join(std::span<const Block> blocks);
    std::size_t _find(std::span<const double> values, Part part, double Block::*extreme, double value) const;

    std::vector<std::vector<Block>> m_levels; // the first one of values, each other one of that before
};
