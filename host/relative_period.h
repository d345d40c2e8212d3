#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "date_level.h"
#include "kx_control_chart_options.h"

class JsonCursor;

/** Dates relative to now: a period, and of the last steps how many. */
struct RelativePeriod {
    KXControlChartPeriod period = KXControlChartPeriod::None;
    std::uint64_t steps = 0; // of LastSteps, the present one included

    friend auto operator<=>(const RelativePeriod&, const RelativePeriod&) = default;
};

/** The ends of a range of steps of time, by their texts; both are in it. */
struct PeriodEnds {
    DateLevel level = DateLevel::Day;
    std::string from, to;
};

/** @param level of the last steps; other periods are made of days
 *  @param now seconds since 1970 by the clock on the wall
 *  @return nothing for no period, and for one that lies outside of the years 1 to 9999 */
[[nodiscard]] std::optional<PeriodEnds> obtainPeriodEnds(const RelativePeriod& period, DateLevel level,
                                                         double now);

/** @return what the clock on this machine's wall says, as seconds since 1970 */
[[nodiscard]] double readWallClock();

/** @return the period that a document names; throws HostError for another text */
[[nodiscard]] KXControlChartPeriod readPeriod(const JsonCursor& place);

/** @return how documents name a period, which is one */
[[nodiscard]] const std::string& obtainPeriodName(KXControlChartPeriod period);
