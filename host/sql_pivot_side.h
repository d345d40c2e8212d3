#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "kx_index_path.h"
#include "sql_member.h"

class SqlPivotTables;

/** The rows, or the columns, of a pivot table: which members of each dimension the data have below those of
 * the one before. The lines of each level are ranked once into a temporary table, those below one parent
 * together, so that a page of them is a range of ranks. A path is positions below each parent, as tables have
 * it. */
class SqlPivotSide {
public:
    /** Lines of one level that follow each other; of level 0 there is one, which stands for all. */
    struct Range {
        std::size_t level = 0;
        std::uint64_t first = 0, count = 1;
    };
    /** What lines below one parent are to be in the order of. */
    struct OrderKey {
        std::string measure; // the column that holds it
        bool isText = false;
        std::vector<std::pair<std::size_t, double>> others; // of cells at these positions of other dimensions
        std::optional<std::size_t> dimension;               // the order of its members instead
        bool isDescending = false;
    };

    /** @param tables outlives this object
     *  @param firstDimension, count which of the binding's dimensions are this side's */
    SqlPivotSide(SqlPivotTables& tables, bool isRow, std::size_t firstDimension, std::size_t count);

    std::size_t getDimensionCount() const { return m_count; }
    /** @return how many members there are below a path. These throw HostError when the database refuses. */
    std::uint64_t obtainCount(const KXIndexPath& path);
    /** @return members from a position on, fewer or none at the end */
    Range obtainRange(const KXIndexPath& parent, std::uint64_t first, std::uint64_t count);
    /** @return the line of a path, none where there is none */
    std::optional<Range> findLine(const KXIndexPath& path);
    std::vector<SqlMember> obtainMembers(const KXIndexPath& parent, std::uint64_t first, std::uint64_t count);
    /** @return the dimensions along a line and the positions of its members */
    std::vector<std::pair<std::size_t, double>> obtainPositions(const Range& line);

    /** Ranks the lines below each parent anew: by the keys, then by their own order. */
    void sort(const std::vector<OrderKey>& keys);
    /** @return the table of a level's lines: rank id, that of the line above, positions p0, p1 and so on */
    std::string obtainTable(std::size_t level) const;

private:
    Range _obtainBelow(const Range& line);
    void _rank(std::size_t level, const std::vector<OrderKey>& keys);
    std::string _joinLines(const std::string& first, const std::string& second, std::size_t levels) const;

    SqlPivotTables& m_tables;
    bool m_isRow;
    std::size_t m_first, m_count;
    std::map<std::pair<std::size_t, std::uint64_t>, Range> m_below; // of lines that were looked at
};
