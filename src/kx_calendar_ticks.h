#pragma once

#include "kx_chart_data_type.h"
#include "kx_export.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

/** What the ticks of a time axis are counted in. */
enum class KXCalendarUnit : int { Second, Day, Month, Year };

/** The way from one tick to the next: a number of seconds that divides a minute, an hour or a day, a number
 * of days (a week begins on Monday), or of months or years, counted from their calendar's beginning. */
struct KXCalendarStep {
    KXCalendarUnit unit = KXCalendarUnit::Second;
    double count = 1;

    /** @return its length in seconds, of months and years the mean one */
    [[nodiscard]] KX_EXPORT double obtainSeconds() const;

    friend bool operator==(const KXCalendarStep&, const KXCalendarStep&) = default;
};

/** The ticks of the part of a time axis that can be seen. */
struct KXCalendarTicks {
    KXCalendarStep step;
    std::vector<double> values;     /**< each above the one before */
    std::vector<std::string> texts; /**< one a value */
};

/** @param type Time has ticks of hours beyond a day in place of dates
 *  @return the steps that people read off a clock and a calendar, the shortest first: from millionths of a
 * second to thousands of years */
[[nodiscard]] KX_EXPORT std::span<const KXCalendarStep> kxObtainCalendarSteps(KXChartDataType type);

/** @param from, to seconds since 1970-01-01, or since midnight for steps of a Time
 *  @return the boundaries of step from one end to the other, both included; none where there are more than
 * limit
 */
[[nodiscard]] KX_EXPORT std::vector<double> kxObtainCalendarBoundaries(const KXCalendarStep& step,
                                                                       double from, double to,
                                                                       std::size_t limit);

/**
 * The shortest texts that tell the ticks apart: each names its own unit, and the longer ones where they
 * differ from the tick before, as the first one names them all: "Nov 2023", "Dec", "Jan 2024", "Feb".
 * @param values boundaries of step, growing
 */
[[nodiscard]] KX_EXPORT std::vector<std::string> kxObtainCalendarTickTexts(const KXCalendarStep& step,
                                                                           KXChartDataType type,
                                                                           std::span<const double> values);

/**
 * Chooses the shortest step whose ticks fit.
 * @param from, to of what can be seen, as above
 * @param leastSeconds steps that are shorter are left out, as data by months need no days; 0 for none
 * @param limit no more ticks than these are tried
 * @param fits whether all of the texts have room beside each other
 * @return the ticks of the first step that fits, else those of the longest step that has any
 */
[[nodiscard]] KX_EXPORT KXCalendarTicks
kxChooseCalendarTicks(KXChartDataType type, double from, double to, double leastSeconds, std::size_t limit,
                      const std::function<bool(const KXCalendarTicks&)>& fits);
