#include "control_data_provider.h"

#include "host_error.h"
#include "number_text.h"
#include "sql_session.h"
#include "time_step.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

namespace {

using Kind = ChoiceCondition::Kind;

constexpr double none = std::numeric_limits<double>::quiet_NaN();

bool isTemporal(KXChartDataType type)
{
    return type == KXChartDataType::Date || type == KXChartDataType::Time ||
           type == KXChartDataType::DateTime;
}

/** @return the number of a text of a type, NaN for what has none */
double obtainNumber(const std::string& text, KXChartDataType type, std::optional<DateLevel> level)
{
    if (!isTemporal(type))
        return obtainFloat(text).value_or(none);
    const DateLevel own = level.value_or(text.find(':') == std::string::npos ? DateLevel::Day
                                                                             : DateLevel::Second);
    const std::optional<TimeStep> step = TimeStep::parse(text, own);
    return step ? step->obtainSeconds() : none;
}

} // namespace

bool ControlDataProvider::obtainDataIsEmpty(KXChartDataUser* user)
{
    return getData().getDimensionCount() > 0 ? getData().getMembers(0).empty()
                                             : ViewDataProvider::obtainDataIsEmpty(user);
}

double ControlDataProvider::obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath& path)
{
    if (path.size() < 2 || path[0] != 0 || path[1] >= obtainDimensionDataCount(nullptr, 0))
        return none;
    const SqlMember& member = getData().getMembers(0)[path[1]];
    return member.hasNumber() ? member.number : none;
}

bool ControlDataProvider::obtainCanSelect(KXChartDataUser*) { return false; } // rows are no marks

SqlDataSet ControlDataProvider::askForData()
{
    if (getBinding().dimensions.empty())
        return ViewDataProvider::askForData();
    const DataBinding unfiltered = _obtainUnfiltered();
    SqlDataSet data;
    m_finder = {};
    std::vector<SqlMember> members;
    if (getBinding().choices.empty()) {
        m_members.clear();
        data = SqlDataSet(getSession(), unfiltered);
        members = data.getMembers(0);
    } else {
        // A member is counted as well where it is not among the first ones of what is left.
        if (m_members.empty())
            m_members = SqlDataSet(getSession(), unfiltered).getMembers(0);
        DataBinding counted = getBinding();
        counted.dimensions[0].top.reset();
        counted.dimensions[0].order = {};
        counted.dimensions[0].shouldFillGaps = false;
        data = SqlDataSet(getSession(), counted);
        members = m_members;
    }
    _addChosenMembers(data, members);
    data.setMembers(0, std::move(members));
    return data;
}

/** @return the binding without what is chosen elsewhere */
DataBinding ControlDataProvider::_obtainUnfiltered() const
{
    DataBinding binding = getBinding();
    binding.choices.clear();
    return binding;
}

/** What is chosen stays a member also where the data do not have it any more. */
void ControlDataProvider::_addChosenMembers(const SqlDataSet& data, std::vector<SqlMember>& members) const
{
    const ChoiceCondition* condition = _getCondition();
    if (!condition || condition->kind == Kind::Range)
        return;
    std::unordered_set<std::string> known;
    for (const SqlMember& member : members)
        if (!member.isNull && !member.isOthers())
            known.insert(member.text);
    const bool hasNull = std::ranges::any_of(members, &SqlMember::isNull);
    for (const std::string& text : condition->members) {
        if (known.contains(text))
            continue;
        const double number = obtainNumber(text, data.getDimensionType(0), data.getDimensionLevel(0));
        members.push_back({text, std::isnan(number) ? 0 : number, false, false, std::nullopt});
    }
    if (condition->hasNull && !hasNull)
        members.push_back({getBinding().nullText, 0, true, false, std::nullopt});
}

const ChoiceCondition* ControlDataProvider::_getCondition() const
{
    const bool isOne = getChoice().size() == 1 && getChoice()[0].size() == 1;
    return isOne ? &getChoice()[0][0] : nullptr;
}

void ControlDataProvider::_tell(const ChoiceCondition& condition) const
{
    const bool isAll = condition.kind == Kind::AllBut && condition.members.empty() && !condition.hasNull;
    tellChoice(isAll ? DataChoice() : DataChoice{{condition}});
}

bool ControlDataProvider::obtainSelection(KXChartDataUser*, std::vector<std::uint64_t>& members,
                                          bool& isExcluding)
{
    const ChoiceCondition* condition = _getCondition();
    if (!condition || condition->kind == Kind::Range || getData().getDimensionCount() == 0)
        return false;
    isExcluding = condition->kind == Kind::AllBut;
    members.clear();
    const std::vector<SqlMember>& all = getData().getMembers(0);
    for (std::uint64_t i = 0; i < all.size(); ++i) {
        const bool isListed = all[i].isNull ? condition->hasNull
                                            : !all[i].isOthers() &&
                                                  std::ranges::binary_search(condition->members, all[i].text);
        if (isListed)
            members.push_back(i);
    }
    return true;
}

void ControlDataProvider::selectionChanged(KXChartDataUser*, const std::vector<std::uint64_t>& members,
                                           bool isExcluding)
{
    if (getData().getDimensionCount() == 0)
        return;
    ChoiceCondition condition = makeCondition(0, members);
    if (isExcluding)
        condition.kind = condition.kind == Kind::Members ? Kind::AllBut : Kind::Members;
    _tell(condition);
}

bool ControlDataProvider::obtainCanFindMembers(KXChartDataUser*)
{
    // Dates are looked for as they are shown, which the control knows.
    return getData().getDimensionCount() > 0 && !isTemporal(getData().getDimensionType(0));
}

bool ControlDataProvider::findMembers(KXChartDataUser*, const std::string& text, std::uint64_t first,
                                      std::span<std::uint64_t>& found)
{
    m_finder.find(getData().getMembers(0), text, first, found);
    return true;
}

ControlDataProvider::Column ControlDataProvider::_obtainColumn() const
{
    if (getData().getDimensionCount() > 0)
        return {getBinding().dimensions[0].column, getData().getDimensionType(0),
                getData().getDimensionLevel(0)};
    const KXChartDataType type = getData().getMeasureCount() > 0 ? getData().getMeasureType(0)
                                                                 : KXChartDataType::Float;
    std::optional<DateLevel> level;
    if (isTemporal(type))
        level = type == KXChartDataType::Date ? DateLevel::Day : DateLevel::Second;
    return {getBinding().measures[0].column, type, level};
}

bool ControlDataProvider::obtainRange(KXChartDataUser*, double& from, double& to)
{
    const ChoiceCondition* condition = _getCondition();
    if (!condition || condition->kind != Kind::Range)
        return false;
    const KXChartDataType type = _obtainColumn().type;
    if (condition->period) {
        const std::optional<PeriodEnds> ends = obtainPeriodEnds(
            *condition->period, condition->level.value_or(DateLevel::Day), readWallClock());
        from = ends ? obtainNumber(ends->from, type, ends->level) : none;
        to = ends ? obtainNumber(ends->to, type, ends->level) : none;
        return ends.has_value();
    }
    from = condition->from ? obtainNumber(*condition->from, type, condition->level) : none;
    to = condition->to ? obtainNumber(*condition->to, type, condition->level) : none;
    return true;
}

void ControlDataProvider::rangeChanged(KXChartDataUser*, double from, double to)
{
    const Column column = _obtainColumn();
    const auto write = [&](double end) -> std::optional<std::string> {
        if (std::isnan(end))
            return std::nullopt;
        if (!isTemporal(column.type))
            return obtainNumberText(end);
        const std::optional<TimeStep> step = TimeStep::fromSeconds(
            end, column.level.value_or(DateLevel::Second), column.type != KXChartDataType::Time);
        return step ? std::optional(step->obtainText()) : std::nullopt;
    };
    ChoiceCondition condition;
    condition.column = column.name;
    condition.level = column.level;
    condition.kind = Kind::Range;
    condition.from = write(from);
    condition.to = write(to);
    if (condition.from || condition.to)
        _tell(condition);
    else
        tellChoice({});
}

bool ControlDataProvider::obtainRangeBounds(KXChartDataUser*, double& lowest, double& greatest)
{
    const Column column = _obtainColumn();
    if (getData().getDimensionCount() > 0 || column.name.empty())
        return false;
    DataBinding binding = _obtainUnfiltered();
    binding.measures = {{column.name, SqlAggregate::Minimum, "", ""},
                        {column.name, SqlAggregate::Maximum, "", ""}};
    try {
        const SqlDataSet ends(getSession(), binding);
        const SqlValue least = ends.obtainValue(0, {}), most = ends.obtainValue(1, {});
        lowest = least.isNull ? none : obtainNumber(least.text, column.type, column.level);
        greatest = most.isNull ? none : obtainNumber(most.text, column.type, column.level);
    } catch (const HostError&) {
        return false; // what is wrong has been said when the data were prepared
    }
    return lowest <= greatest;
}

bool ControlDataProvider::obtainHistogram(KXChartDataUser*, double lowest, double greatest,
                                          std::span<double> counts)
{
    const Column column = _obtainColumn();
    if (getData().getDimensionCount() > 0 || column.name.empty() || counts.empty() || !(greatest > lowest))
        return false;
    DataBinding binding = getBinding();
    binding.dimensions.resize(1);
    binding.dimensions[0].column = column.name;
    binding.measures = {{"", SqlAggregate::Count, "", ""}};
    std::ranges::fill(counts, 0.0);
    try {
        const SqlDataSet values(getSession(), binding);
        const std::vector<SqlMember>& members = values.getMembers(0);
        for (std::uint64_t i = 0; i < members.size(); ++i) {
            const double share = (members[i].number - lowest) / (greatest - lowest);
            if (!members[i].hasNumber() || !(share >= 0 && share <= 1))
                continue;
            const auto part = static_cast<std::size_t>(share * static_cast<double>(counts.size()));
            counts[std::min(part, counts.size() - 1)] += values.obtainNumber(0, std::span(&i, 1));
        }
    } catch (const HostError&) {
        return false;
    }
    return true;
}

bool ControlDataProvider::obtainCanChooseRelativeRange(KXChartDataUser* user)
{
    constexpr double twoYears = 2 * 366 * 24 * 60 * 60.0;
    KXControlChartRelativeRange present;
    const KXChartDataType type = _obtainColumn().type;
    if (type != KXChartDataType::Date && type != KXChartDataType::DateTime)
        return false;
    if (obtainRelativeRange(user, present))
        return true;
    double lowest = none, greatest = none;
    if (getData().getDimensionCount() == 0 && !obtainRangeBounds(user, lowest, greatest))
        return false;
    for (std::uint64_t i = 0; i < obtainDimensionDataCount(user, 0); ++i)
        greatest = std::fmax(greatest, obtainDimensionDataAsNumber(user, {0, i}));
    return greatest >= readWallClock() - twoYears;
}

bool ControlDataProvider::obtainRelativeRange(KXChartDataUser*, KXControlChartRelativeRange& range)
{
    const ChoiceCondition* condition = _getCondition();
    if (!condition || !condition->period)
        return false;
    range = {condition->period->period, condition->period->steps};
    return true;
}

void ControlDataProvider::relativeRangeChanged(KXChartDataUser*, const KXControlChartRelativeRange& range)
{
    const Column column = _obtainColumn();
    if (range.period == KXControlChartPeriod::None) {
        tellChoice({});
        return;
    }
    ChoiceCondition condition;
    condition.column = column.name;
    condition.level = column.level;
    condition.kind = Kind::Range;
    condition.period = RelativePeriod{range.period, range.steps};
    _tell(condition);
}
