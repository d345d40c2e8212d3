#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "date_level.h"
#include "number_bins.h"

/** The order of a dimension's members: their own (of numbers, of time, of text bytes), or that of a measure
 * over each member. Nulls come last either way. */
struct MemberOrder {
    std::optional<std::size_t> measure;
    bool isDescending = false;
};

/** The members with the largest (or smallest) values of a measure; the rest is left out or becomes one
 * member. */
struct TopMembers {
    std::uint64_t count = 0;
    std::size_t measure = 0;
    bool isBottom = false;
    std::optional<std::string> othersLabel;
};

/** One dimension (grouping field) of a chart. */
struct DimensionBinding {
    std::string column;
    std::optional<DateLevel>
        level; // of dates and times only; without it a day, or a second where there is a time
    std::string label;
    std::optional<NumberBins> bins; // of numbers only; their lower ends are the members
    MemberOrder order;
    std::optional<TopMembers> top;
    bool shouldFillGaps = false; // members for the steps of time that the data leaves out
    bool isAcross = false;       // in a table its members name columns
};
