#pragma once

#include <optional>
#include <string>

#include "date_level.h"

/** How members of a level of dates and times read: patterns of KXChartDataFormat. */
struct DatePattern {
    std::string date, time;
};

/** @return what says all that members of the level have and no more; nothing where the formats' own patterns
 * do */
std::optional<DatePattern> obtainDatePattern(DateLevel level);
