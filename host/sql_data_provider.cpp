#include "sql_data_provider.h"

#include "host_error.h"
#include "kx_chart_data_user.h"
#include "kx_table_chart_data_user.h"
#include "sql_session.h"
#include "time_step.h"

#include <limits>

namespace {

/** What charts take for the level where none was given. */
constexpr auto noLevel = static_cast<KXChartAggregateType>(0);
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr auto numberLevel = static_cast<KXChartAggregateType>(6);

bool isNumeric(KXChartDataType type)
{
    return type == KXChartDataType::Integer || type == KXChartDataType::Float;
}

bool isValid(const SqlMember& member)
{
    return !member.isNull && !member.isGenerated && !member.text.empty();
}

} // namespace

SqlDataProvider::SqlDataProvider(SqlSession& session, DataBinding binding)
    : m_session(session), m_binding(std::move(binding))
{
}

void SqlDataProvider::beginPrepareData(KXChartDataUser* user)
{
    // A chart that asks must not meet an exception; it shows its state without data, the host has the reason.
    m_error.clear();
    m_data = SqlDataSet();
    m_totals = SqlTotals();
    m_isDataOpen = false;
    m_highlight = SqlHighlight();
    m_pivot.reset();
    m_density.reset();
    try {
        if (dynamic_cast<KXTableChartDataUser*>(user)) {
            _makePivot();
            m_data = m_pivot->obtainTypes();
            m_isDataOpen = true;
            return;
        }
        m_data = askForData();
        if (m_binding.totals)
            m_totals = SqlTotals(m_session, m_binding, m_data);
        m_highlight = SqlHighlight(m_session, m_binding, m_data);
    } catch (const HostError& error) {
        m_error = error.what();
    }
}

SqlDataSet SqlDataProvider::askForData() { return {m_session, m_binding}; }

const SqlDataSet& SqlDataProvider::getData() const
{
    if (!std::exchange(m_isDataOpen, false))
        return m_data;
    try {
        m_data = SqlDataSet(m_session, m_binding);
    } catch (const HostError& error) {
        m_error = error.what();
    }
    return m_data;
}

void SqlDataProvider::endPrepareData(KXChartDataUser*) {}

bool SqlDataProvider::obtainDataIsEmpty(KXChartDataUser*)
{
    // A value over all rows is there also where no row takes part: it then says so.
    const bool isTotal = m_data.getDimensionCount() == 0 && m_data.getMeasureCount() > 0;
    const bool isEmpty = m_pivot && m_isDataOpen ? m_pivot->isEmpty() : getData().isEmpty();
    return isEmpty && !isTotal;
}

std::string SqlDataProvider::obtainDimensionName(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension < m_binding.dimensions.size() ? m_binding.dimensions[dimension].column : "";
}

std::string SqlDataProvider::obtainDimensionLabel(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension < m_binding.dimensions.size() ? m_binding.dimensions[dimension].label : "";
}

KXChartDataType SqlDataProvider::obtainDimensionDataType(KXChartDataUser*, std::uint64_t dimension)
{
    if (dimension >= m_data.getDimensionCount())
        return KXChartDataType::String;
    return m_data.getDimensionLevel(dimension) == DateLevel::HourOfDay ? KXChartDataType::Time
                                                                       : m_data.getDimensionType(dimension);
}

KXChartAggregateType SqlDataProvider::obtainDimensionAggregateType(KXChartDataUser*, std::uint64_t dimension)
{
    if (dimension >= m_data.getDimensionCount() || !m_data.getDimensionLevel(dimension))
        return noLevel;
    return static_cast<KXChartAggregateType>(*m_data.getDimensionLevel(dimension));
}

std::uint64_t SqlDataProvider::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension < m_data.getDimensionCount() ? getData().getMembers(dimension).size() : 0;
}

const SqlMember* SqlDataProvider::_findMember(const KXIndexPath& path) const
{
    if (path.size() < 2 || path[0] >= m_data.getDimensionCount())
        return nullptr;
    const std::vector<SqlMember>& members = getData().getMembers(path[0]);
    return path[1] < members.size() ? &members[path[1]] : nullptr;
}

std::string SqlDataProvider::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return member ? member->text : "";
}

std::vector<std::uint64_t> SqlDataProvider::obtainDimensionDataAsIndexRange(KXChartDataUser*, double from,
                                                                            double to)
{
    std::vector<std::uint64_t> indexes;
    if (m_data.getDimensionCount() == 0 || m_data.getDimensionType(0) == KXChartDataType::String)
        return indexes;
    const std::vector<SqlMember>& members = getData().getMembers(0);
    for (std::uint64_t i = 0; i < members.size(); ++i) {
        if (members[i].hasNumber() && members[i].number >= from && members[i].number <= to)
            indexes.push_back(i);
    }
    return indexes;
}

bool SqlDataProvider::obtainDimensionDataIsNull(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return member && member->isNull;
}

bool SqlDataProvider::obtainDimensionDataIsEmpty(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return member && !member->isNull && member->text.empty();
}

bool SqlDataProvider::obtainDimensionDataIsGenerated(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return member && member->isGenerated;
}

double SqlDataProvider::obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return member ? member->number : 0;
}

double SqlDataProvider::obtainDimensionDataAsRangeDifference(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    if (member && m_data.getBinWidth(path[0]))
        return *m_data.getBinWidth(path[0]);
    const SqlMember* next = member ? _findMember({path[0], path[1] + 1}) : nullptr;
    return next && member->hasNumber() && next->hasNumber() ? next->number - member->number : 0;
}

std::string SqlDataProvider::obtainDimensionDataAsDateTime(KXChartDataUser*, double seconds)
{
    const std::optional<TimeStep> step = TimeStep::fromSeconds(seconds);
    return step ? step->obtainText() : "";
}

std::int64_t SqlDataProvider::_findValidMember(const KXIndexPath& path, std::int64_t step) const
{
    if (!_findMember(path))
        return -1;
    const std::vector<SqlMember>& members = getData().getMembers(path[0]);
    const auto count = static_cast<std::int64_t>(members.size());
    for (auto i = static_cast<std::int64_t>(path[1]) + step; i >= 0 && i < count; i += step) {
        if (isValid(members[static_cast<std::size_t>(i)]))
            return i;
    }
    return -1;
}

std::int64_t SqlDataProvider::obtainNextValidDimensionIndex(KXChartDataUser*, const KXIndexPath& path)
{
    return _findValidMember(path, 1);
}

std::int64_t SqlDataProvider::obtainPreviousValidDimensionIndex(KXChartDataUser*, const KXIndexPath& path)
{
    return _findValidMember(path, -1);
}

bool SqlDataProvider::shouldFormatDimenionData(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlMember* member = _findMember(path);
    return !member || (!member->isNull && !member->isOthers());
}

std::uint64_t SqlDataProvider::obtainValueCount(KXChartDataUser*) { return m_data.getMeasureCount(); }

std::string SqlDataProvider::obtainValueLabel(KXChartDataUser*, std::uint64_t value)
{
    return value < m_binding.measures.size() ? m_binding.measures[value].label : "";
}

std::string SqlDataProvider::obtainValueID(KXChartDataUser* user, std::uint64_t value)
{
    if (value < m_binding.measures.size() && !m_binding.measures[value].id.empty())
        return m_binding.measures[value].id;
    return obtainValueLabel(user, value);
}

KXChartDataType SqlDataProvider::obtainValueDataType(KXChartDataUser*, const KXIndexPath& path)
{
    const bool isKnown = !path.empty() && path[0] < m_data.getMeasureCount();
    return isKnown ? m_data.getMeasureType(path[0]) : KXChartDataType::Float;
}

KXChartAggregateType SqlDataProvider::obtainValueAggregateType(KXChartDataUser* user, const KXIndexPath& path)
{
    // A date among the values is whole; a level would make its formatting look for less.
    const KXChartDataType type = obtainValueDataType(user, path);
    return isNumeric(type) || type == KXChartDataType::String ? numberLevel : noLevel;
}

SqlValue SqlDataProvider::_findValue(const KXIndexPath& path) const
{
    return path.empty() ? SqlValue() : getData().obtainValue(path[0], std::span(path).subspan(1));
}

bool SqlDataProvider::obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path)
{
    return _findValue(path).isNull;
}

bool SqlDataProvider::obtainValueDataIsEmpty(KXChartDataUser*, const KXIndexPath& path)
{
    return !_findValue(path).isPresent;
}

bool SqlDataProvider::obtainValueDataIsGenerated(KXChartDataUser*, const KXIndexPath& path)
{
    for (std::uint64_t i = 0; i < m_data.getDimensionCount() && i + 1 < path.size(); ++i) {
        const SqlMember* member = _findMember({i, path[i + 1]});
        if (member && member->isGenerated)
            return true;
    }
    return false;
}

double SqlDataProvider::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return _findValue(path).number;
}

std::string SqlDataProvider::obtainValueDataString(KXChartDataUser*, const KXIndexPath& path)
{
    const SqlValue value = _findValue(path);
    if (getData().isEmpty())
        return "No data";
    return value.isNull ? m_binding.nullText : value.text;
}

bool SqlDataProvider::obtainHasTotals(KXChartDataUser*, bool) { return !m_totals.isEmpty(); }

void SqlDataProvider::obtainTotals(KXChartDataUser*, bool ofRows, std::uint64_t first,
                                   std::span<double> totals)
{
    const std::vector<double>& all = m_totals.getValues(ofRows ? 0 : 1);
    for (std::size_t i = 0; i < totals.size(); ++i)
        totals[i] = first + i < all.size() ? all[first + i] : noNumber;
}

double SqlDataProvider::obtainGrandTotal(KXChartDataUser*) { return m_totals.getGrandTotal(); }

double SqlDataProvider::_obtainQuantile(std::uint64_t group, std::optional<double> share)
{
    const bool hasGroups = m_data.getDimensionCount() > 1;
    const SqlMember* member = hasGroups ? _findMember({0, group}) : nullptr;
    if (m_data.getDimensionCount() == 0 || (hasGroups && !member))
        return noNumber;
    try {
        if (!m_density)
            m_density.emplace(m_session, m_binding);
        return m_density->obtainQuantile(member, share);
    } catch (const HostError& error) {
        m_error = error.what();
        return noNumber;
    }
}

double SqlDataProvider::obtainQuantile(KXChartDataUser*, std::uint64_t group, double share)
{
    return _obtainQuantile(group, share);
}

double SqlDataProvider::obtainMean(KXChartDataUser*, std::uint64_t group)
{
    return _obtainQuantile(group, std::nullopt);
}

void SqlDataProvider::obtainSeriesValues(KXChartDataUser* user, std::uint64_t series,
                                         std::uint64_t firstCategory, std::span<double> values)
{
    _obtainNumbers(obtainSeriesValuePath(user, series, firstCategory), 1, values);
}

void SqlDataProvider::obtainValues(KXChartDataUser*, const KXIndexPath& first, std::span<double> values)
{
    _obtainNumbers(first, first.size() - 1, values);
}

void SqlDataProvider::_obtainNumbers(KXIndexPath path, std::size_t counted, std::span<double> values) const
{
    const std::span members = std::span(path).subspan(1);
    for (double& value : values) {
        value = getData().obtainNumber(path[0], members);
        ++path[counted];
    }
}

bool SqlDataProvider::obtainHighlightedValues(KXChartDataUser*, const KXIndexPath& first, std::size_t along,
                                              std::span<double> parts)
{
    if (first.empty() || along >= first.size() || !m_highlight.isTold(first[0]))
        return false;
    KXIndexPath path = first;
    for (double& part : parts) {
        part = m_highlight.obtainNumber(path[0], std::span(path).subspan(1));
        ++path[along];
    }
    return true;
}

void SqlDataProvider::obtainCategoryNumbers(KXChartDataUser*, std::uint64_t firstCategory,
                                            std::span<double> numbers)
{
    const bool hasCategories = m_data.getDimensionCount() > categoryDimension;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::uint64_t category = firstCategory + i;
        const bool isMember = hasCategories && category < getData().getMembers(categoryDimension).size() &&
                              getData().getMembers(categoryDimension)[category].hasNumber();
        numbers[i] = isMember ? getData().getMembers(categoryDimension)[category].number : noNumber;
    }
}

void SqlDataProvider::_makePivot()
{
    m_pivot = std::make_unique<SqlPivot>(m_session, m_binding);
    if (!m_rowOrder.empty())
        m_pivot->sort(m_rowOrder);
}

SqlPivot* SqlDataProvider::_obtainPivot()
{
    if (m_pivot || !m_error.empty() || m_data.getMeasureCount() == 0)
        return m_pivot.get();
    try {
        _makePivot();
    } catch (const HostError& error) {
        m_error = error.what();
    }
    return m_pivot.get();
}

template <class Answer, class Question>
Answer SqlDataProvider::_askPivot(Answer other, const Question& question)
{
    try {
        SqlPivot* pivot = _obtainPivot();
        return pivot ? question(*pivot) : other;
    } catch (const HostError& error) {
        m_error = error.what();
        return other;
    }
}

std::uint64_t SqlDataProvider::obtainRowDimensionCount(KXChartDataUser*)
{
    return _askPivot(std::uint64_t{0}, [](SqlPivot& pivot) { return pivot.getDimensionCount(true); });
}

std::uint64_t SqlDataProvider::obtainColumnDimensionCount(KXChartDataUser*)
{
    return _askPivot(std::uint64_t{0}, [](SqlPivot& pivot) { return pivot.getDimensionCount(false); });
}

std::uint64_t SqlDataProvider::obtainHeaderCount(KXChartDataUser*, bool isRow, const KXIndexPath& path)
{
    return _askPivot(std::uint64_t{0}, [&](SqlPivot& pivot) { return pivot.obtainCount(isRow, path); });
}

bool SqlDataProvider::obtainHeaders(KXChartDataUser*, bool isRow, const KXIndexPath& path,
                                    std::uint64_t first, std::span<KXTableHeader> headers)
{
    return _askPivot(true, [&](SqlPivot& pivot) {
        const std::vector<SqlMember> members = pivot.obtainMembers(isRow, path, first, headers.size());
        for (std::size_t i = 0; i < members.size(); ++i) {
            headers[i].text = members[i].text;
            headers[i].hasChildren = path.size() + 1 < pivot.getDimensionCount(isRow);
            headers[i].shouldFormat = !members[i].isNull && !members[i].isOthers();
        }
        return true;
    });
}

bool SqlDataProvider::obtainCells(KXChartDataUser*, const KXIndexPath& rowParent, std::uint64_t firstRow,
                                  const KXIndexPath& columnParent, std::uint64_t firstColumn,
                                  std::uint64_t measure, const KXTableCellSpan& cells)
{
    try {
        if (SqlPivot* pivot = _obtainPivot())
            pivot->obtainCells(rowParent, firstRow, columnParent, firstColumn, measure, cells);
    } catch (const HostError& error) {
        for (KXTableCell& cell : cells.cells)
            cell = {.text = error.what(), .state = KXTableCellState::Error};
    }
    return true;
}

bool SqlDataProvider::obtainHasTotals(KXChartDataUser*, bool, std::uint64_t) { return true; }

KXTableExtent SqlDataProvider::obtainExtent(KXChartDataUser*, std::uint64_t measure)
{
    return _askPivot(KXTableExtent(), [&](SqlPivot& pivot) { return pivot.obtainExtent(measure); });
}

bool SqlDataProvider::obtainPercentiles(KXChartDataUser*, std::uint64_t measure, std::span<double> values)
{
    return _askPivot(false, [&](SqlPivot& pivot) { return pivot.obtainPercentiles(measure, values); });
}

void SqlDataProvider::sortRequested(KXChartDataUser* user, const std::vector<KXTableSort>& order)
{
    m_rowOrder = order;
    user->prepareData();
    user->reloadData();
}
