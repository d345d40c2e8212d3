#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "date_level.h"
#include "kx_chart_data_type.h"

struct DataBinding;

/** One member of a dimension in display order. The member that stands for the others is a made one with rows.
 */
struct SqlMember {
    std::string
        text; // as the charts' formatting reads it; the words for a null or for the others where it is one
    double number = 0; // of a number; of a date or time its seconds since 1970 or midnight
    bool isNull = false;
    bool isGenerated = false; // not in the data: a filled gap, or the member that stands for the others
    std::optional<std::uint64_t> position; // in the query's result, nothing for a filled gap

    bool isOthers() const { return isGenerated && position.has_value(); }
    bool hasNumber() const { return !isNull && !isOthers(); }
};

/** A member as a query names it. */
struct SqlMemberRow {
    std::uint64_t position = 0;
    bool isNull = false;
    std::string text;
    double number = 0; // 0 where the column holds none
};

/** @param index of the binding's dimension; type and level those of its members
 *  @return the member that a row stands for */
SqlMember readSqlMember(const DataBinding& binding, std::size_t index, KXChartDataType type,
                        std::optional<DateLevel> level, SqlMemberRow row);
