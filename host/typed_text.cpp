#include "typed_text.h"

#include "number_text.h"
#include "temporal_text.h"

std::optional<std::string> obtainTypedText(const std::string& text, KXChartDataType type)
{
    switch (type) {
    case KXChartDataType::Integer:
        return obtainInteger(text) ? std::optional(text) : std::nullopt;
    case KXChartDataType::Float:
        return obtainFloat(text) ? std::optional(text) : std::nullopt;
    case KXChartDataType::Date:
        return obtainDateText(text);
    case KXChartDataType::Time:
        return obtainTimeText(text);
    case KXChartDataType::DateTime:
        return obtainDateTimeText(text);
    case KXChartDataType::String:
        break;
    }
    return text;
}

const char* describeType(KXChartDataType type)
{
    static constexpr const char* names[] = {"a text", "a whole number", "a number",
                                            "a date", "a time of day",  "a date and time"};
    return names[static_cast<std::size_t>(type)];
}
