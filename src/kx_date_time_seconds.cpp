#include "kx_date_time_seconds.h"

#include "kx_calendar_time.h"
#include "kx_date_time_parser.h"

#include <limits>

double kxObtainSeconds(const std::string& text, KXChartDataType type)
{
    const KXDateTimeFields fields = kxParseDateTime(text, type, KXChartAggregateType::None);
    const auto orElse = [](int field, int otherwise) {
        return field == KXDateTimeFields::absent ? otherwise : field;
    };
    const bool isTime = type == KXChartDataType::Time;
    if ((isTime ? fields.hour : fields.year) == KXDateTimeFields::absent)
        return std::numeric_limits<double>::quiet_NaN();
    const double ofDay = orElse(fields.hour, 0) * 3600.0 + orElse(fields.minute, 0) * 60.0 +
                         orElse(fields.second, 0);
    return isTime ? ofDay : kxObtainCalendarSeconds({fields.year, fields.month, fields.day}) + ofDay;
}
