#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class KXDataColumn;

/** Finds the rows of a table by the members of its dimensions, which are their columns' different texts in
 * the order of their first rows. */
class KXTableRows {
public:
    static constexpr std::size_t noRow = static_cast<std::size_t>(-1);

    /** @param dimensions read while this is made, and not kept */
    explicit KXTableRows(std::span<const KXDataColumn* const> dimensions);

    /** @return how many members a dimension has */
    std::size_t getMemberCount(std::size_t dimension) const;
    /** @return the first row with the member; noRow past the last one */
    std::size_t getFirstRow(std::size_t dimension, std::size_t member) const;
    /** @param members one of each dimension; those not said are 0
     *  @return the last row with all of them, noRow where there is none */
    std::size_t findRow(std::span<const std::uint64_t> members) const;

private:
    struct Dimension {
        std::vector<std::size_t> firstRows;  // of each member
        std::vector<std::uint32_t> memberOf; // of each row
    };

    /** @return below, at or above 0, as the row stands before, among or behind those with the members */
    int _compare(std::size_t row, std::span<const std::uint64_t> members) const;

    std::vector<Dimension> m_dimensions;
    std::vector<std::size_t> m_order; // the rows by their members, the last dimension's first
};
