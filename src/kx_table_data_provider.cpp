#include "kx_table_data_provider.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_date_time_seconds.h"
#include "kx_table_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

bool isMoment(KXChartDataType type)
{
    return type == KXChartDataType::Date || type == KXChartDataType::DateTime ||
           type == KXChartDataType::Time;
}

} // namespace

KXTableDataProvider::KXTableDataProvider() = default;

KXTableDataProvider::~KXTableDataProvider()
{
    for (const User& user : std::exchange(m_users, {}))
        if (_serves(this, user))
            user.user->setDataProvider(nullptr);
}

void KXTableDataProvider::serve(KXChartDataUser& user)
{
    user.setDataProvider(this);
    _tell({{UXObjectWatcher(user.getChart()), &user}}, this, Change::Data);
}

std::size_t KXTableDataProvider::addDimension(std::string label, KXDataColumn column, KXChartDataType type,
                                              KXChartAggregateType level)
{
    const std::size_t index = m_dimensions.size();
    m_dimensions.push_back({std::move(label), std::move(column), type, level});
    _change(Change::Data);
    return index;
}

std::size_t KXTableDataProvider::addMeasure(std::string label, KXDataColumn column, KXChartDataType type)
{
    const std::size_t index = m_measures.size();
    m_measures.push_back({std::move(label), std::move(column), type});
    _change(Change::Data);
    return index;
}

void KXTableDataProvider::replaceDimension(std::size_t dimension, KXDataColumn column)
{
    if (dimension >= m_dimensions.size())
        return;
    m_dimensions[dimension].column = std::move(column);
    _change(Change::Data);
}

void KXTableDataProvider::replaceMeasure(std::size_t measure, KXDataColumn column)
{
    if (measure >= m_measures.size())
        return;
    m_measures[measure].column = std::move(column);
    _change(Change::Data);
}

void KXTableDataProvider::clear()
{
    m_dimensions.clear();
    m_measures.clear();
    m_seriesColors.clear();
    m_colorMeasure = -1;
    m_bands.clear();
    m_roles.clear();
    _change(Change::Data);
}

void KXTableDataProvider::dataChanged() { _change(Change::Data); }

void KXTableDataProvider::setSeriesColor(std::uint64_t series, const UXColor& color)
{
    m_seriesColors[series] = color;
    _change(Change::Colors);
}

void KXTableDataProvider::setColorMeasure(std::int64_t measure)
{
    m_colorMeasure = measure;
    _change(Change::Data);
}

void KXTableDataProvider::setBand(std::uint64_t measure, std::uint64_t low, std::uint64_t high)
{
    m_bands[measure] = {low, high};
    _change(Change::Data);
}

void KXTableDataProvider::setRole(KXScatterChartRole role, std::int64_t measure)
{
    m_roles[role] = measure;
    _change(Change::Data);
}

/** @return whether it is given one, or is the end of a band */
bool KXTableDataProvider::_hasRole(std::uint64_t measure) const
{
    return std::ranges::any_of(m_roles,
                               [&](const auto& entry) { return std::cmp_equal(entry.second, measure); }) ||
           std::ranges::any_of(m_bands, [&](const auto& entry) {
               return entry.second.first == measure || entry.second.second == measure;
           });
}

std::int64_t KXTableDataProvider::obtainRoleMeasure(KXChartDataUser*, KXScatterChartRole role)
{
    using enum KXScatterChartRole;
    if (const auto given = m_roles.find(role); given != m_roles.end())
        return given->second;
    std::vector<std::int64_t> others;
    for (std::uint64_t measure = 0; measure < m_measures.size(); ++measure)
        if (!_hasRole(measure))
            others.push_back(static_cast<std::int64_t>(measure));
    // One that is alone is Y, as it is without any given.
    const bool isAlone = others.size() == 1 && !m_roles.contains(Y);
    std::size_t place = 0;
    for (const KXScatterChartRole other : {X, Y, Size, Color})
        if (other < role && !m_roles.contains(other) && !(isAlone && other == X))
            ++place;
    return place < others.size() && !(isAlone && role == X) ? others[place] : -1;
}

std::int64_t KXTableDataProvider::obtainColorMeasure(KXChartDataUser*) { return m_colorMeasure; }

bool KXTableDataProvider::obtainBandMeasures(KXChartDataUser*, std::uint64_t measure, std::uint64_t& low,
                                             std::uint64_t& high)
{
    const auto found = m_bands.find(measure);
    if (found != m_bands.end())
        std::tie(low, high) = found->second;
    return found != m_bands.end();
}

void KXTableDataProvider::beginUpdate() { ++m_updateDepth; }

void KXTableDataProvider::endUpdate()
{
    if (m_updateDepth > 0 && --m_updateDepth == 0)
        _change(Change::None);
}

void KXTableDataProvider::beginPrepareData(KXChartDataUser* user)
{
    if (user)
        _remember(*user);
}

void KXTableDataProvider::endPrepareData(KXChartDataUser*) {}

bool KXTableDataProvider::obtainDataIsEmpty(KXChartDataUser*)
{
    return std::ranges::all_of(m_measures, [](const Measure& each) { return each.column.getCount() == 0; });
}

std::string KXTableDataProvider::obtainDimensionName(KXChartDataUser* user, std::uint64_t dimension)
{
    return obtainDimensionLabel(user, dimension);
}

std::string KXTableDataProvider::obtainDimensionLabel(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension < m_dimensions.size() ? m_dimensions[dimension].label : std::string();
}

KXChartDataType KXTableDataProvider::obtainDimensionDataType(KXChartDataUser*, std::uint64_t dimension)
{
    if (dimension >= m_dimensions.size())
        return KXChartDataType::String;
    return m_dimensions[dimension].column.hasTexts() ? m_dimensions[dimension].type : KXChartDataType::Float;
}

KXChartAggregateType KXTableDataProvider::obtainDimensionAggregateType(KXChartDataUser*,
                                                                       std::uint64_t dimension)
{
    return dimension < m_dimensions.size() ? m_dimensions[dimension].level : KXChartAggregateType{};
}

std::uint64_t KXTableDataProvider::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    if (m_dimensions.size() > 1)
        return _obtainRows().getMemberCount(dimension);
    return dimension < m_dimensions.size() ? m_dimensions[dimension].column.getCount() : 0;
}

std::string KXTableDataProvider::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    const std::size_t row = _findMemberRow(path);
    return row == KXTableRows::noRow ? std::string() : m_dimensions[path[0]].column.obtainText(row);
}

double KXTableDataProvider::obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath& path)
{
    const std::size_t row = _findMemberRow(path);
    if (row == KXTableRows::noRow)
        return noNumber;
    const Dimension& dimension = m_dimensions[path[0]];
    if (!dimension.column.hasTexts())
        return dimension.column.getNumber(row);
    return isMoment(dimension.type) ? kxObtainSeconds(dimension.column.obtainText(row), dimension.type)
                                    : noNumber;
}

std::uint64_t KXTableDataProvider::obtainValueCount(KXChartDataUser*) { return m_measures.size(); }

std::string KXTableDataProvider::obtainValueLabel(KXChartDataUser*, std::uint64_t value)
{
    return value < m_measures.size() ? m_measures[value].label : std::string();
}

KXChartDataType KXTableDataProvider::obtainValueDataType(KXChartDataUser*, const KXIndexPath& path)
{
    if (path.empty() || path[0] >= m_measures.size())
        return KXChartDataType::Float;
    return m_measures[path[0]].column.hasTexts() ? KXChartDataType::String : m_measures[path[0]].type;
}

bool KXTableDataProvider::obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path)
{
    if (path.empty() || path[0] >= m_measures.size())
        return true;
    const KXDataColumn& column = m_measures[path[0]].column;
    return column.hasTexts() ? _findRow(path) >= column.getCount() : std::isnan(obtainValueData(user, path));
}

double KXTableDataProvider::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return path.empty() || path[0] >= m_measures.size()
               ? noNumber
               : m_measures[path[0]].column.getNumber(_findRow(path));
}

std::string KXTableDataProvider::obtainValueDataString(KXChartDataUser*, const KXIndexPath& path)
{
    return path.empty() || path[0] >= m_measures.size()
               ? std::string()
               : m_measures[path[0]].column.obtainText(_findRow(path));
}

bool KXTableDataProvider::obtainValueDataColorForGroup(KXChartDataUser*, std::uint64_t group, UXColor& color)
{
    const auto found = m_seriesColors.find(group);
    if (found == m_seriesColors.end())
        return false;
    color = found->second;
    return true;
}

void KXTableDataProvider::obtainSeriesValues(KXChartDataUser* user, std::uint64_t series,
                                             std::uint64_t firstCategory, std::span<double> values)
{
    _obtainNumbers(obtainSeriesValuePath(user, series, firstCategory), 1, values);
}

void KXTableDataProvider::obtainValues(KXChartDataUser*, const KXIndexPath& first, std::span<double> values)
{
    _obtainNumbers(first, first.empty() ? 0 : first.size() - 1, values);
}

void KXTableDataProvider::_obtainNumbers(KXIndexPath path, std::size_t counted, std::span<double> values)
{
    std::ranges::fill(values, noNumber);
    if (path.size() < 2 || path[0] >= m_measures.size())
        return;
    const KXDataColumn& column = m_measures[path[0]].column;
    if (m_dimensions.size() > 1) {
        for (double& value : values) {
            value = column.getNumber(_findRow(path));
            ++path[counted];
        }
    } else if (path[1] < column.getNumbers().size()) {
        const std::span<const double> rest = column.getNumbers().subspan(path[1]);
        std::ranges::copy(rest.first(std::min(rest.size(), values.size())), values.begin());
    }
}

void KXTableDataProvider::_change(Change change)
{
    if (change == Change::Data)
        m_rows.reset();
    m_pending = std::max(m_pending, change);
    if (m_updateDepth > 0)
        return;
    // Told, a chart may do anything; this object may be gone.
    std::erase_if(m_users, [this](const User& user) { return !_serves(this, user); });
    _tell(std::vector<User>(m_users), this, std::exchange(m_pending, Change::None));
}

void KXTableDataProvider::_tell(const std::vector<User>& users, const KXChartDataProvider* self,
                                Change change)
{
    if (change == Change::None)
        return;
    for (const User& user : users) {
        if (!_serves(self, user))
            continue;
        if (change == Change::Colors) {
            user.user->reloadColors();
            continue;
        }
        user.user->prepareData();
        if (user.chart.isAlive())
            user.user->reloadData();
    }
}

bool KXTableDataProvider::_serves(const KXChartDataProvider* self, const User& user)
{
    if (!user.chart.isAlive())
        return false;
    const bool serves = user.user->beginUseDataProvider() == self;
    user.user->endUseDataProvider();
    return serves;
}

void KXTableDataProvider::_remember(KXChartDataUser& user)
{
    std::erase_if(m_users, [&](const User& each) { return !each.chart.isAlive() || each.user == &user; });
    m_users.push_back({UXObjectWatcher(user.getChart()), &user});
}

const KXTableRows& KXTableDataProvider::_obtainRows()
{
    if (!m_rows) {
        std::vector<const KXDataColumn*> columns;
        columns.reserve(m_dimensions.size());
        for (const Dimension& dimension : m_dimensions)
            columns.push_back(&dimension.column);
        m_rows = std::make_unique<const KXTableRows>(columns);
    }
    return *m_rows;
}

std::size_t KXTableDataProvider::_findRow(const KXIndexPath& path)
{
    const std::span<const std::uint64_t> members = std::span(path).subspan(
        std::min<std::size_t>(path.size(), 1));
    if (m_dimensions.size() > 1)
        return _obtainRows().findRow(members);
    return members.empty() ? 0 : static_cast<std::size_t>(members[0]);
}

std::size_t KXTableDataProvider::_findMemberRow(const KXIndexPath& path)
{
    if (path.size() < 2 || path[0] >= m_dimensions.size())
        return KXTableRows::noRow;
    if (m_dimensions.size() > 1)
        return _obtainRows().getFirstRow(path[0], path[1]);
    return path[1] < m_dimensions[0].column.getCount() ? path[1] : KXTableRows::noRow;
}
