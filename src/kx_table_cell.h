#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>

/** Whether a cell of a table has a value, and why it has none. */
enum class KXTableCellState : std::uint8_t {
    Value,
    Null,  /**< the data say that there is no value */
    Empty, /**< the data have nothing at this place */
    Error  /**< the host cannot say */
};

/** One cell of a table as the host answers it. */
struct KXTableCell {
    double number = std::numeric_limits<double>::quiet_NaN(); /**< of a measure of numbers */
    std::string text; /**< of other measures; of an error what there is to say about it */
    KXTableCellState state = KXTableCellState::Empty;
    std::optional<double> part = {}; /**< of the number what belongs to what is chosen elsewhere */

    /** @return its bytes in memory */
    std::size_t obtainSize() const { return sizeof(*this) + text.size(); }
    friend bool operator==(const KXTableCell&, const KXTableCell&) = default;
};

/** Room for the cells of several rows and columns, row by row. */
struct KXTableCellSpan {
    std::span<KXTableCell> cells;  /**< as many as rows times columns */
    std::uint64_t columnCount = 1; /**< at least 1 */

    std::uint64_t obtainRowCount() const { return cells.size() / columnCount; }
    KXTableCell& at(std::uint64_t row, std::uint64_t column) const
    {
        return cells[row * columnCount + column];
    }
};
