#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "data_binding.h"
#include "kx_index_path.h"
#include "kx_table_cell.h"
#include "kx_table_extent.h"
#include "kx_table_sort.h"
#include "sql_data_set.h"
#include "sql_pivot_side.h"
#include "sql_pivot_tables.h"

class SqlSession;

/**
 * A binding as a pivot table: its dimensions down the rows, those that are across over the columns. The
 * database groups, ranks and keeps it all; what is asked for here, a page of members or a block of cells, is
 * one query over a range of ranks.
 */
class SqlPivot {
public:
    /** @param session outlives this object. Throws HostError when the database refuses; so does each
     * question. */
    SqlPivot(SqlSession& session, const DataBinding& binding);

    /** @return the types of dimensions and measures, without what they hold */
    SqlDataSet obtainTypes() const { return SqlDataSet(m_tables.getBuilder()); }
    /** @return whether no row of the data takes part */
    bool isEmpty() const { return m_tables.isEmpty(); }
    std::size_t getDimensionCount(bool isRow) const { return _side(isRow).getDimensionCount(); }
    /** @return how many members there are below a path */
    std::uint64_t obtainCount(bool isRow, const KXIndexPath& path) { return _side(isRow).obtainCount(path); }
    /** @return members below a path from one on, fewer or none at the end */
    std::vector<SqlMember> obtainMembers(bool isRow, const KXIndexPath& path, std::uint64_t first,
                                         std::uint64_t count)
    {
        return _side(isRow).obtainMembers(path, first, count);
    }
    /** Sets cells as KXTableChartDataProvider::obtainCells has it. */
    void obtainCells(const KXIndexPath& rowParent, std::uint64_t firstRow, const KXIndexPath& columnParent,
                     std::uint64_t firstColumn, std::size_t measure, const KXTableCellSpan& cells);
    /** @return what the cells that are no totals reach from and to, and whether any has a fraction */
    KXTableExtent obtainExtent(std::size_t measure);
    /** Sets values to those of the cells that are no totals, at equal steps from the least to the greatest.
     *  @return whether there are any */
    bool obtainPercentiles(std::size_t measure, std::span<double> values);
    /** Sorts the rows below each parent; without an order they stand as the binding has it. */
    void sort(const std::vector<KXTableSort>& order);

private:
    SqlPivotSide& _side(bool isRow) { return isRow ? m_rows : m_columns; }
    const SqlPivotSide& _side(bool isRow) const { return isRow ? m_rows : m_columns; }
    SqlPivotSide::Range _obtainRange(bool isRow, const KXIndexPath& parent, std::uint64_t first,
                                     std::uint64_t count);

    SqlPivotTables m_tables;
    SqlPivotSide m_rows, m_columns;
};
