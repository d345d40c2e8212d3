#include "date_pattern.h"

std::optional<DatePattern> obtainDatePattern(DateLevel level)
{
    switch (level) {
    case DateLevel::Year:
        return DatePattern{"YYYY", ""};
    case DateLevel::Quarter:
        return DatePattern{"YYYY QQ", ""};
    case DateLevel::Month:
        return DatePattern{"MMM YYYY", ""};
    case DateLevel::Week:
        return DatePattern{"YYYY WW", ""};
    case DateLevel::DayOfWeek:
        return DatePattern{"WD", ""};
    case DateLevel::Hour:
    case DateLevel::Minute:
    case DateLevel::HourOfDay:
        return DatePattern{"YYYY-MM-DD", "HH:mm"};
    case DateLevel::Day:
    case DateLevel::Second:
        break;
    }
    return std::nullopt;
}
