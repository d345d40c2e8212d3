#pragma once

#include <string>

/** How the rows of one cell become one value; nulls are left out, and count without a column counts rows. */
enum class SqlAggregate { Sum, Average, Count, DistinctCount, Minimum, Maximum };

/** @return whether the value of some of a cell's rows is a part of that of all of them */
constexpr bool hasParts(SqlAggregate aggregate)
{
    return aggregate == SqlAggregate::Sum || aggregate == SqlAggregate::Count ||
           aggregate == SqlAggregate::DistinctCount;
}

/** One value (measure) of a chart. */
struct MeasureBinding {
    std::string column; // empty only for Count
    SqlAggregate aggregate = SqlAggregate::Sum;
    std::string label;
    std::string id; // empty: the label
};
