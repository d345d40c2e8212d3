#pragma once

#include <limits>
#include <string_view>

/** What the text of a date or a time says, field by field. A field that it does not have is absent. */
struct KXDateTimeFields {
    // A value that no field can have: the hours of a duration may be any other number.
    static constexpr int absent = (std::numeric_limits<int>::min)();

    int year = absent;
    int quarter = absent; // 1 to 4
    int month = absent;   // 1 to 12
    int week = absent;    // 0 to 53; Mondays begin a week, and what is before the first Monday is week 0
    int weekday = absent; // 0 to 6, from Sunday
    int day = absent;     // 1 to 31
    int hour = absent;
    int minute = absent;
    int second = absent;
    int halfDayHour = absent;        // the hour that morning and afternoon are told from, where they are
    std::string_view secondDecimals; // digits behind the second, in the text that was read; often none
};
