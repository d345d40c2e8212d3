#pragma once

#include <compare>
#include <cstdint>

/** Names one item of a chart that can be pointed at, chosen and walked to: a mark, a slice, a label, a cell.
 *  Items order by kind, then by group. */
struct KXChartItem {
    int kind = 0;            /**< of a chart with several: the place of the data view that shows the item */
    std::uint64_t group = 0; /**< what the legend lists: a series, a slice; a row of a table */
    std::uint64_t index = 0; /**< in the group: a category, a measure; a column of a table */

    friend auto operator<=>(const KXChartItem&, const KXChartItem&) = default;
};
