#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data_binding.h"
#include "sql_member.h"
#include "sql_table.h"

class SqlQueryBuilder;
class SqlSession;

/** One value of one cell. */
struct SqlValue {
    bool isPresent = false; // whether rows of the data are behind it
    bool isNull = true;
    double number = 0; // 0 for texts and nulls
    std::string text;  // the number in full, or the text
};

/** The answer to one binding, asked of the database once and then held: members of dimensions and values of
 * cells. */
class SqlDataSet {
public:
    /** Without rows, dimensions and measures. */
    SqlDataSet() = default;
    /** Asks the database; throws HostError when it refuses or the binding does not fit. */
    SqlDataSet(SqlSession& session, const DataBinding& wanted);
    /** Only the types of what would be asked for, without rows. */
    explicit SqlDataSet(const SqlQueryBuilder& builder);

    /** @return whether no row of the data takes part */
    bool isEmpty() const { return m_isEmpty; }

    std::size_t getDimensionCount() const { return m_dimensions.size(); }
    KXChartDataType getDimensionType(std::size_t dimension) const { return m_dimensions[dimension].type; }
    std::optional<DateLevel> getDimensionLevel(std::size_t dimension) const
    {
        return m_dimensions[dimension].level;
    }
    /** @return of bins of numbers, nothing of other members */
    std::optional<double> getBinWidth(std::size_t dimension) const
    {
        return m_dimensions[dimension].binWidth;
    }
    const std::vector<SqlMember>& getMembers(std::size_t dimension) const
    {
        return m_dimensions[dimension].members;
    }

    /** @return how many cells have rows behind them; they are sorted by their members */
    std::size_t getRowCount() const { return m_cells.getRowCount(); }
    /** @return the index of a cell's member */
    std::uint64_t obtainMember(std::size_t row, std::size_t dimension) const;

    /** @return the number of a cell, NaN for a null */
    double obtainRowNumber(std::size_t measure, std::size_t row) const;
    /** Gives a dimension other members, in display order. Those that the data have are found by their texts;
     * what is said of any other one, its values apart, is what members says. */
    void setMembers(std::size_t dimension, std::vector<SqlMember> members);

    std::size_t getMeasureCount() const { return m_measures.size(); }
    KXChartDataType getMeasureType(std::size_t measure) const { return m_measures[measure].type; }

    /** @param members one index per dimension in display order; what is beyond the dimensions is not looked
     * at
     *  @return no value where a member or its rows are missing */
    SqlValue obtainValue(std::size_t measure, std::span<const std::uint64_t> members) const;
    /** @return the same as a number without its text, NaN for what is missing or null */
    double obtainNumber(std::size_t measure, std::span<const std::uint64_t> members) const;

private:
    struct Dimension {
        KXChartDataType type = KXChartDataType::String;
        std::optional<DateLevel> level;
        std::size_t positionColumn = 0;
        std::optional<double> binWidth;
        std::vector<SqlMember> members;
    };
    struct Measure {
        KXChartDataType type = KXChartDataType::Float;
        std::size_t column = 0;
    };

    void _readMembers(const DataBinding& binding, std::size_t index);
    std::optional<std::size_t> _findRow(std::span<const std::uint64_t> members) const;

    bool m_isEmpty = true;
    SqlTable m_cells;
    std::vector<Dimension> m_dimensions;
    std::vector<Measure> m_measures;
};
