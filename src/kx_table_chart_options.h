#pragma once

#include "ux/ux_named_enum.h"

/** The place of one panel of a table. */
UX_NAMED_ENUM(KXTablePanelType, Background, LeftTop, Top, RightTop, Left, Content, Right, LeftBottom, Bottom,
              RightBottom)

/** What a column header of a table stands for. */
UX_NAMED_ENUM(KXTableColumnHeaderInfoType, Normal, ValueHeader, SubTotal, SubTotalValueHeader)

/** The direction of the bars in a table's cells. */
UX_NAMED_ENUM(KXTableDatabarStyle, None, LeftToRight, RightToLeft)

/** How the levels of the rows stand beside each other: in one column, each level further in, or in a column
 * each. */
UX_NAMED_ENUM(KXTableRowLayout, Tree, Columns)

/** Where totals stand: not at all, before their members, or after them. */
UX_NAMED_ENUM(KXTableTotals, None, Before, After)

/** What the range of a rule is of: values, percent of what a measure reaches from and to, or a scale of
 * colours; or percent of the cells, in the order of their values. */
UX_NAMED_ENUM(KXTableColorRuleKind, Value, Percent, Scale, Percentile)

/** What a cell tells of its value: the value itself, its part of the total of its row, of its column or of
 * all, what it is more than the member before, or the sum up to it. */
UX_NAMED_ENUM(KXTableShowValuesAs, Value, PercentOfRow, PercentOfColumn, PercentOfTotal, Difference,
              RunningTotal)

/** @return whether a cell's number is a percentage */
[[nodiscard]] constexpr bool kxIsPercentage(KXTableShowValuesAs shown)
{
    return shown == KXTableShowValuesAs::PercentOfRow || shown == KXTableShowValuesAs::PercentOfColumn ||
           shown == KXTableShowValuesAs::PercentOfTotal;
}
