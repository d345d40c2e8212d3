#pragma once

#include <string>
#include <vector>

enum class FilterOperation {
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    In,
    NotIn,
    Contains,
    IsNull,
    IsNotNull
};

/** Which rows take part. A null is equal to nothing and holds nothing; it is therefore among those that are
 * not equal and not in a list. */
struct FilterBinding {
    std::string column;
    FilterOperation operation = FilterOperation::Equal;
    std::vector<std::string> values; // none for the null tests, one or more for lists, else one
};
