#pragma once

#include "kx_export.h"

#include <string>

/** A moment by the clock on the wall, in the Gregorian calendar, which also counts backwards from its
 * beginning. */
struct KXCalendarTime {
    int year = 1970; /**< 1 to 9999 */
    int month = 1;   /**< 1 to 12 */
    int day = 1;     /**< 1 to the month's last */
    int hour = 0;
    int minute = 0;
    double second = 0; /**< with its fraction, below 60 */

    friend bool operator==(const KXCalendarTime&, const KXCalendarTime&) = default;
};

/** The first moment of year 1 and of year 10000, in seconds since 1970-01-01. */
inline constexpr double kxCalendarBegin = -62135596800.0;
inline constexpr double kxCalendarEnd = 253402300800.0;

/** @param seconds since 1970-01-01; outside of the calendar its nearest moment, 1970-01-01 for NaN */
[[nodiscard]] KX_EXPORT KXCalendarTime kxObtainCalendarTime(double seconds);

/** @param time a month beyond its year counts into the years beside it, a day beyond its month is its last
 *  @return seconds since 1970-01-01, within the calendar */
[[nodiscard]] KX_EXPORT double kxObtainCalendarSeconds(const KXCalendarTime& time);

/** @return "2024-02-29 13:05:07", with as many decimals of the second as asked for (0 to 6), cut and not
 * rounded */
[[nodiscard]] KX_EXPORT std::string kxObtainCalendarText(const KXCalendarTime& time, int decimals = 0);
