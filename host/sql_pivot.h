#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data_binding.h"
#include "kx_index_path.h"
#include "kx_table_cell.h"
#include "kx_table_extent.h"
#include "kx_table_sort.h"
#include "sql_data_set.h"
#include "sql_pivot_side.h"

class SqlSession;

/**
 * A binding as a pivot table: its dimensions down the rows, those that are across over the columns. Each
 * level of totals is grouped by the database from the rows of the data, one query a level when it is first
 * needed, so that averages and counts of different values are right in totals, too.
 */
class SqlPivot {
public:
    /** @param session outlives this object. Throws HostError when the database refuses. */
    SqlPivot(SqlSession& session, const DataBinding& binding);

    std::size_t getDimensionCount(bool isRow) const { return isRow ? m_rowCount : m_columnCount; }
    /** @return how many members there are below a path */
    std::uint64_t obtainCount(bool isRow, const KXIndexPath& path) const;
    /** @return the member at a path, null for none */
    const SqlMember* findMember(bool isRow, const KXIndexPath& path) const;
    /** @param row, column paths, shorter than there are dimensions for a total. Throws HostError when the
     * database refuses. */
    KXTableCell obtainCell(const KXIndexPath& row, const KXIndexPath& column, std::size_t measure);
    /** @return what the cells that are no totals reach from and to, and whether any has a fraction */
    KXTableExtent obtainExtent(std::size_t measure);
    /** Sorts the rows below each parent; without an order they stand as the binding has it. Throws HostError
     * likewise. */
    void sort(const std::vector<KXTableSort>& order);

private:
    const SqlPivotSide& _side(bool isRow) const { return isRow ? m_rows : m_columns; }
    /** @return the data grouped by the first dimensions of each side */
    const SqlDataSet& _obtainLevel(std::size_t rowLevels, std::size_t columnLevels);
    KXTableCell _obtainCell(const std::vector<std::uint64_t>& rowMembers,
                            const std::vector<std::uint64_t>& columnMembers, std::size_t measure);

    SqlSession& m_session;
    DataBinding m_binding;
    std::size_t m_rowCount, m_columnCount;
    std::map<std::pair<std::size_t, std::size_t>, SqlDataSet> m_levels;
    SqlPivotSide m_rows, m_columns;
};
