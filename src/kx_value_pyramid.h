#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

/** Values that follow each other without a null, by their indexes, and where the extremes among them are. */
struct KXValueInterval {
    std::size_t first = 0, end = 0;
    std::size_t least = 0, greatest = 0; /**< of several equal ones the first */

    friend bool operator==(const KXValueInterval&, const KXValueInterval&) = default;
};

/**
 * Finds the extremes of any part of a long list without looking at each of its values: it keeps where the
 * extremes of blocks are, of blocks of these, and so on, in less than a tenth of the values' own memory.
 */
class KX_EXPORT KXValuePyramid {
public:
    /** @param values NaN for a null; not kept, and not more than 2^31 */
    explicit KXValuePyramid(std::span<const double> values);

    /** Appends the longest intervals without a null of the values from first to end, in their order. The work
     * grows with their number, not with that of the values.
     *  @param values those that this was made of */
    void findIntervals(std::span<const double> values, std::size_t first, std::size_t end,
                       std::vector<KXValueInterval>& found) const;
    std::size_t obtainMemory() const;

private:
    struct Block {
        static constexpr std::uint32_t none = (std::numeric_limits<std::uint32_t>::max)();
        static constexpr std::uint32_t greatestIndex = none >> 1;

        std::uint32_t least = none; // of no value at all
        std::uint32_t greatest : 31 = 0;
        std::uint32_t hasNull : 1 = 0;

        /** @return whether some values are there and some are not */
        bool isMixed() const { return hasNull && least != none; }
    };

    static Block _makeBlock(std::span<const double> values, std::size_t first);
    static Block _makeBlockWithNulls(std::span<const double> values, std::size_t first);
    static Block _join(std::span<const double> values, const Block& a, const Block& b);

    std::vector<std::vector<Block>> m_levels; // the first one of values, each other one of that before
};
