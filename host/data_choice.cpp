#include "data_choice.h"

#include "host_error.h"
#include "time_step.h"

#include <map>

namespace {

using Kind = ChoiceCondition::Kind;

/** @return the step at an end of a range; nothing for a number or a text */
std::optional<TimeStep> parseEnd(const ChoiceCondition& range, const std::string& end)
{
    if (range.level) {
        const std::optional<TimeStep> step = TimeStep::parse(end, *range.level);
        if (!step)
            throw HostError("choice of " + range.column, '"' + end + '"', "is no step of its level");
        return step;
    }
    const bool isDay = end.find(':') == std::string::npos;
    return TimeStep::parse(end, isDay ? DateLevel::Day : DateLevel::Second);
}

/** @return how a column with or without times of day is compared with the beginning of a step */
std::string obtainStartText(const TimeStep& step, const std::string& like)
{
    constexpr std::size_t dateSize = 10;
    const std::optional<TimeStep> second = TimeStep::fromSeconds(step.obtainSeconds());
    if (like.find(':') == 2) // a time of day alone
        return step.obtainText();
    const std::string text = second ? second->obtainText() : "";
    return like.find(':') == std::string::npos ? text.substr(0, dateSize) : text;
}

/** The days of the week are no stretch of time, but members in an order. */
FilterBinding obtainWeekdays(const ChoiceCondition& range)
{
    FilterBinding filter{range.column, FilterOperation::In, {}, false, range.level};
    std::optional<TimeStep> step = parseEnd(range, range.from.value_or("2001-01-01"));
    const std::string last = range.to.value_or("2001-01-07");
    for (; step && step->obtainText() <= last; step = step->obtainNext())
        filter.values.push_back(step->obtainText());
    return filter;
}

void addRange(const ChoiceCondition& range, std::vector<FilterBinding>& filters)
{
    if (range.level == DateLevel::DayOfWeek) {
        filters.push_back(obtainWeekdays(range));
        return;
    }
    const auto add = [&](FilterOperation operation, const std::string& value) {
        filters.push_back({range.column, operation, {value}, false, std::nullopt});
    };
    if (range.from) {
        const std::optional<TimeStep> step = parseEnd(range, *range.from);
        add(FilterOperation::GreaterOrEqual, step ? obtainStartText(*step, *range.from) : *range.from);
    }
    if (range.to) {
        const std::optional<TimeStep> step = parseEnd(range, *range.to);
        const std::optional<TimeStep> next = step ? step->obtainNext() : std::nullopt;
        if (next)
            add(FilterOperation::Less, obtainStartText(*next, *range.to));
        else if (!step)
            add(FilterOperation::LessOrEqual, *range.to);
    }
    if (filters.empty()) // open at both ends: every value, but no null
        filters.push_back({range.column, FilterOperation::IsNotNull, {}, false, std::nullopt});
}

/** @return a range with the ends that its period has now; one without any lies nowhere */
ChoiceCondition resolvePeriod(const ChoiceCondition& range, double now)
{
    ChoiceCondition resolved = range;
    const std::optional<PeriodEnds> ends = obtainPeriodEnds(*range.period,
                                                            range.level.value_or(DateLevel::Day), now);
    resolved.period.reset();
    resolved.kind = ends ? Kind::Range : Kind::Members;
    if (ends) {
        resolved.level = ends->level;
        resolved.from = ends->from;
        resolved.to = ends->to;
    }
    return resolved;
}

std::vector<FilterBinding> obtainFilters(const ChosenItem& item, double now)
{
    std::vector<FilterBinding> filters;
    for (const ChoiceCondition& chosen : item) {
        const ChoiceCondition condition = chosen.period ? resolvePeriod(chosen, now) : chosen;
        std::vector<FilterBinding> own;
        if (condition.kind == Kind::Range)
            addRange(condition, own);
        else
            own.push_back({condition.column,
                           condition.kind == Kind::AllBut ? FilterOperation::NotIn : FilterOperation::In,
                           condition.members, condition.hasNull, condition.level});
        filters.insert(filters.end(), own.begin(), own.end());
    }
    return filters;
}

} // namespace

FilterAlternatives obtainChoiceFilters(const DataChoice& choice, double now)
{
    // A list of any length is one parameter, and what is chosen by many clicks differs in one list mostly.
    std::map<ChosenItem, ChosenItem> merged; // by what the first list leaves
    for (const ChosenItem& item : choice) {
        ChosenItem rest = item;
        if (!item.empty() && item[0].kind == Kind::Members) {
            rest[0].members.clear();
            rest[0].hasNull = false;
        }
        const auto [place, isNew] = merged.try_emplace(rest, item);
        if (isNew || item.empty() || item[0].kind != Kind::Members)
            continue;
        ChoiceCondition& list = place->second[0];
        list.members.insert(list.members.end(), item[0].members.begin(), item[0].members.end());
        list.hasNull = list.hasNull || item[0].hasNull;
    }
    FilterAlternatives filters;
    for (const auto& [rest, item] : merged)
        filters.push_back(obtainFilters(item, now));
    return filters;
}
