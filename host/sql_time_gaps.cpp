#include "sql_time_gaps.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "data_binding.h"
#include "host_error.h"
#include "time_step.h"

std::vector<SqlMember> fillSqlTimeGaps(std::vector<SqlMember> members, const DataBinding& binding,
                                       std::size_t index, DateLevel level)
{
    constexpr std::size_t mostMembers = 1'000'000;
    const bool isDescending = binding.dimensions[index].order.isDescending;

    // 1. Go from the earliest to the latest; the null, always last, stands aside.
    const bool hasNull = !members.empty() && members.back().isNull;
    const auto end = members.end() - (hasNull ? 1 : 0);
    if (isDescending)
        std::reverse(members.begin(), end);
    std::vector<SqlMember> filled;
    for (auto member = members.begin(); member != end; ++member) {
        // 2. Make the steps that are missing before this member.
        std::optional<TimeStep> step;
        if (!filled.empty())
            step = TimeStep::parse(filled.back().text, level);
        while (step && (step = step->obtainNext()) && step->obtainSeconds() < member->number) {
            filled.push_back({step->obtainText(), step->obtainSeconds(), false, true, std::nullopt});
            if (filled.size() > mostMembers)
                throw HostError(binding.name, "dimensions[" + std::to_string(index) + ']',
                                "more than a million members with the gaps filled; take a coarser level");
        }
        filled.push_back(std::move(*member));
    }

    // 3. Back into display order.
    if (isDescending)
        std::reverse(filled.begin(), filled.end());
    if (hasNull)
        filled.push_back(std::move(members.back()));
    return filled;
}
