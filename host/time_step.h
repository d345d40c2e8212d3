#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "date_level.h"

/** One step of time at a level, such as a month or an hour, in the proleptic Gregorian calendar without time
 * zones. Its text is the one by which members are named (see SqlDialect::obtainDateBucket). */
class TimeStep {
public:
    /** @return nothing when text does not name a step of the level in the years 1 to 9999 */
    static std::optional<TimeStep> parse(std::string_view text, DateLevel level);

    /** @return the second in which the given moment since 1970 falls; nothing outside of the years 1 to 9999
     */
    static std::optional<TimeStep> fromSeconds(double seconds);

    /** @return the step in which the given moment falls, since 1970 or, where a time has no date, since
     * midnight; nothing outside of what it has */
    static std::optional<TimeStep> fromSeconds(double seconds, DateLevel level, bool hasDate = true);

    std::string obtainText() const;
    /** @return the beginning in seconds since 1970, or since midnight where the text has a time alone */
    double obtainSeconds() const;
    /** @return nothing after the last second of a day without a date, after Sunday of the days of the week,
     * and after year 9999 */
    std::optional<TimeStep> obtainNext() const;

    friend bool operator==(const TimeStep&, const TimeStep&) = default;

private:
    TimeStep(std::chrono::sys_seconds start, DateLevel level, bool hasDate);

    std::chrono::sys_seconds _obtainNextStart() const;

    std::chrono::sys_seconds m_start;
    DateLevel m_level;
    bool m_hasDate;
};
