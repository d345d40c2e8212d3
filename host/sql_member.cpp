#include "sql_member.h"

#include <utility>

#include "data_binding.h"
#include "number_text.h"
#include "time_step.h"

SqlMember readSqlMember(const DataBinding& binding, std::size_t index, KXChartDataType type,
                        std::optional<DateLevel> level, SqlMemberRow row)
{
    const std::optional<TopMembers>& top = binding.dimensions[index].top;
    SqlMember member;
    member.position = row.position;
    if (top && row.position == top->count) {
        member.isGenerated = true;
        member.text = top->othersLabel.value_or("");
        return member;
    }

    member.isNull = row.isNull;
    member.number = row.isNull ? 0 : row.number;
    if (row.isNull)
        member.text = binding.nullText;
    else
        member.text = std::move(row.text);
    if (type == KXChartDataType::Float && !row.isNull)
        member.text = obtainNumberText(member.number);
    if (level && !row.isNull) {
        const std::optional<TimeStep> step = TimeStep::parse(member.text, *level);
        member.number = step ? step->obtainSeconds() : 0;
    }
    return member;
}
