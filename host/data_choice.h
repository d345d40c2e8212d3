#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

#include "date_level.h"
#include "filter_binding.h"
#include "relative_period.h"

/** What is chosen of one column. */
struct ChoiceCondition {
    enum class Kind { Members, AllBut, Range };

    std::string column;
    std::optional<DateLevel> level; // the step of time whose members or ends these are
    Kind kind = Kind::Members;
    std::vector<std::string> members;     // by their texts
    bool hasNull = false;                 // whether the member without a value is among them
    std::optional<std::string> from, to;  // the ends of a range, which are in it; an open one has none
    std::optional<RelativePeriod> period; // a range that moves with the clock, in place of ends

    friend auto operator<=>(const ChoiceCondition&, const ChoiceCondition&) = default;
};

/** One chosen item: all of its conditions hold in its rows. */
using ChosenItem = std::vector<ChoiceCondition>;

/** What is chosen in a chart or a control, by what the items are, so that it survives new data: the rows of
 * any of them. Without items nothing is chosen, and all rows take part. */
using DataChoice = std::vector<ChosenItem>;

/** @return the rows of a choice as filters; items that differ in one list of members share it. A range of
 *  steps of time holds the whole of its last step. Throws HostError where an end is no step of its level.
 *  @param now what periods are relative to, seconds since 1970 by the clock on the wall */
[[nodiscard]] FilterAlternatives obtainChoiceFilters(const DataChoice& choice, double now = readWallClock());
