#include "data_choice_json.h"

#include "date_level_name.h"
#include "host_error.h"
#include "json_cursor.h"

#include <algorithm>

namespace {

using Kind = ChoiceCondition::Kind;

template <class T>
void sortOnce(std::vector<T>& list)
{
    std::ranges::sort(list);
    list.erase(std::ranges::unique(list).begin(), list.end());
}

/** @return an end of a range, nothing where it is open */
std::optional<std::string> readEnd(const JsonCursor& range, const char* key)
{
    if (!range.hasKey(key) || range.getValue(key).isNull())
        return std::nullopt;
    return range.getValue(key).readTextOrNumber();
}

ChoiceCondition readCondition(const JsonCursor& place)
{
    place.requireKeys({"column", "level", "members", "except", "from", "to", "period", "steps"});
    ChoiceCondition condition;
    condition.column = place.getValue("column").readText();
    if (place.hasKey("level"))
        condition.level = readDateLevel(place.getValue("level"));
    const bool isRange = place.hasKey("from") || place.hasKey("to"), isPeriod = place.hasKey("period");
    const bool isExcept = place.hasKey("except");
    const int kinds = (isRange ? 1 : 0) + (isPeriod ? 1 : 0) + (isExcept ? 1 : 0) +
                      (place.hasKey("members") ? 1 : 0);
    if (kinds != 1)
        throw place.makeError("either members, or except, or from and to, or a period are needed");
    if (isPeriod) {
        condition.kind = Kind::Range;
        condition.period = RelativePeriod{readPeriod(place.getValue("period")), 0};
        if (condition.period->period == KXControlChartPeriod::LastSteps)
            condition.period->steps = place.getValue("steps").readCount();
        return condition;
    }
    if (isRange) {
        condition.kind = Kind::Range;
        condition.from = readEnd(place, "from");
        condition.to = readEnd(place, "to");
        return condition;
    }
    condition.kind = isExcept ? Kind::AllBut : Kind::Members;
    condition.hasNull = place.getValue(isExcept ? "except" : "members").readMembers(condition.members);
    sortOnce(condition.members);
    return condition;
}

nlohmann::ordered_json writeCondition(const ChoiceCondition& condition)
{
    nlohmann::ordered_json written;
    written["column"] = condition.column;
    if (condition.level)
        written["level"] = obtainDateLevelName(*condition.level);
    if (condition.period) {
        written["period"] = obtainPeriodName(condition.period->period);
        if (condition.period->period == KXControlChartPeriod::LastSteps)
            written["steps"] = condition.period->steps;
        return written;
    }
    if (condition.kind == Kind::Range) {
        const auto writeEnd = [&](const char* key, const std::optional<std::string>& end) {
            written[key] = end ? nlohmann::ordered_json(*end) : nlohmann::ordered_json(nullptr);
        };
        writeEnd("from", condition.from);
        writeEnd("to", condition.to);
        return written;
    }
    nlohmann::ordered_json members(condition.members);
    if (condition.hasNull)
        members.push_back(nullptr);
    written[condition.kind == Kind::AllBut ? "except" : "members"] = members;
    return written;
}

} // namespace

DataChoice readDataChoice(const JsonCursor& place)
{
    DataChoice choice;
    place.visitList([&](const JsonCursor& element) {
        ChosenItem item;
        if (element.isList())
            element.visitList([&](const JsonCursor& condition) { item.push_back(readCondition(condition)); });
        else
            item.push_back(readCondition(element));
        if (item.empty())
            throw element.makeError("a condition at least is needed");
        choice.push_back(std::move(item));
    });
    sortOnce(choice);
    return choice;
}

nlohmann::ordered_json writeDataChoice(const DataChoice& choice)
{
    nlohmann::ordered_json written = nlohmann::ordered_json::array();
    for (const ChosenItem& item : choice) {
        nlohmann::ordered_json conditions = nlohmann::ordered_json::array();
        for (const ChoiceCondition& condition : item)
            conditions.push_back(writeCondition(condition));
        written.push_back(item.size() == 1 ? conditions[0] : conditions);
    }
    return written;
}
