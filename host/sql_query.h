#pragma once

#include <string>
#include <vector>

/** What a column of a result is read as. */
enum class SqlResultType { Text, Number };

/** One query with the values that are bound to it: the parameters, as texts, in the order in which the text
 * names them :p0, :p1 and so on, and how each column of the result is read. */
struct SqlQuery {
    std::string text;
    std::vector<std::string> parameters;
    std::vector<SqlResultType> results;
};
