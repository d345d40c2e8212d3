#include "date_level_name.h"

#include "json_cursor.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

const std::vector<std::string> names = {"year", "quarter", "month",  "week",      "day",
                                        "hour", "minute",  "second", "dayOfWeek", "hourOfDay"};
constexpr std::array<DateLevel, 10> levels = {
    DateLevel::Year, DateLevel::Quarter, DateLevel::Month,  DateLevel::Week,      DateLevel::Day,
    DateLevel::Hour, DateLevel::Minute,  DateLevel::Second, DateLevel::DayOfWeek, DateLevel::HourOfDay};

} // namespace

DateLevel readDateLevel(const JsonCursor& place) { return levels.at(place.readName(names)); }

const std::string& obtainDateLevelName(DateLevel level)
{
    return names.at(static_cast<std::size_t>(std::ranges::find(levels, level) - levels.begin()));
}
