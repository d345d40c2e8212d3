#pragma once

#include <optional>
#include <string>
#include <vector>

#include "date_level.h"

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
 * not equal and not in a list, unless the list holds it. An empty list holds nothing. */
struct FilterBinding {
    std::string column;
    FilterOperation operation = FilterOperation::Equal;
    std::vector<std::string> values; // none for the null tests, any number for lists, else one
    bool hasNull = false;            // whether the null is in the list as well
    std::optional<DateLevel> level;  // of a list of steps of time, named as members are

    friend bool operator==(const FilterBinding&, const FilterBinding&) = default;
};

/** Rows take part where all filters of one of the lists hold. */
using FilterAlternatives = std::vector<std::vector<FilterBinding>>;
