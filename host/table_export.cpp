#include "table_export.h"

#include "kx_table_data_provider.h"
#include "sql_data_provider.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

bool isNumber(KXChartDataType type)
{
    return type == KXChartDataType::Integer || type == KXChartDataType::Float;
}

const char* obtainTypeName(KXChartDataType type)
{
    constexpr const char* names[] = {"text", "integer", "float", "date", "time", "datetime"};
    return names[static_cast<std::size_t>(type)];
}

nlohmann::ordered_json makeList(const std::vector<double>& numbers)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const double number : numbers)
        list.push_back(std::isnan(number) ? nlohmann::ordered_json() : nlohmann::ordered_json(number));
    return list;
}

} // namespace

TableExport::TableExport(SqlDataProvider& provider)
{
    for (std::uint64_t i = 0; i < provider.getData().getDimensionCount(); ++i)
        m_dimensions.push_back({provider.obtainDimensionLabel(nullptr, i),
                                provider.obtainDimensionDataType(nullptr, i),
                                provider.obtainDimensionAggregateType(nullptr, i),
                                {},
                                {}});
    for (std::uint64_t i = 0; i < provider.obtainValueCount(nullptr); ++i)
        m_measures.push_back(
            {provider.obtainValueLabel(nullptr, i), provider.obtainValueDataType(nullptr, {i, 0}), {}, {}});

    // Members come in the order of their first rows: rows that name them all, without a value, stand before
    // the others.
    if (m_dimensions.size() > 1) {
        std::uint64_t most = 0;
        for (std::uint64_t i = 0; i < m_dimensions.size(); ++i)
            most = std::max(most, provider.obtainDimensionDataCount(nullptr, i));
        for (std::uint64_t row = 0; row < most; ++row) {
            std::vector<std::uint64_t> members;
            members.reserve(m_dimensions.size());
            for (std::uint64_t i = 0; i < m_dimensions.size(); ++i)
                members.push_back(std::min(row, provider.obtainDimensionDataCount(nullptr, i) - 1));
            _addRow(provider, members, false);
        }
    }
    std::vector<std::uint64_t> members;
    _addRows(provider, members);
}

void TableExport::_addRows(SqlDataProvider& provider, std::vector<std::uint64_t>& members)
{
    if (members.size() == m_dimensions.size())
        return _addRow(provider, members, true);
    const std::uint64_t count = provider.obtainDimensionDataCount(nullptr, members.size());
    for (std::uint64_t i = 0; i < count; ++i) {
        members.push_back(i);
        _addRows(provider, members);
        members.pop_back();
    }
}

void TableExport::_addRow(SqlDataProvider& provider, const std::vector<std::uint64_t>& members,
                          bool hasValues)
{
    // 1. The values; of several dimensions a combination without any has no row.
    std::vector<KXIndexPath> paths;
    paths.reserve(m_measures.size());
    for (std::uint64_t i = 0; i < m_measures.size(); ++i) {
        KXIndexPath path{i};
        path.insert(path.end(), members.begin(), members.end());
        if (members.empty())
            path.push_back(0);
        paths.push_back(path);
    }
    const auto hasValue = [&](const KXIndexPath& path) {
        return hasValues && !provider.obtainValueDataIsNull(nullptr, path);
    };
    if (hasValues && members.size() > 1 && std::ranges::none_of(paths, hasValue))
        return;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const bool isThere = hasValue(paths[i]);
        if (isNumber(m_measures[i].type))
            m_measures[i].numbers.push_back(isThere ? provider.obtainValueData(nullptr, paths[i]) : noNumber);
        else
            m_measures[i].texts.push_back(isThere ? provider.obtainValueDataString(nullptr, paths[i])
                                                  : std::string());
    }

    // 2. What the row is of.
    for (std::size_t i = 0; i < members.size(); ++i) {
        const KXIndexPath path{i, members[i]};
        if (isNumber(m_dimensions[i].type))
            m_dimensions[i].numbers.push_back(provider.obtainDimensionDataAsNumber(nullptr, path));
        else
            m_dimensions[i].texts.push_back(provider.obtainDimensionData(nullptr, path));
    }
}

nlohmann::ordered_json TableExport::toJson() const
{
    nlohmann::ordered_json json{{"dimensions", nlohmann::ordered_json::array()},
                                {"measures", nlohmann::ordered_json::array()}};
    for (const Dimension& dimension : m_dimensions) {
        nlohmann::ordered_json column{{"label", dimension.label},
                                      {"type", obtainTypeName(dimension.type)},
                                      {"level", static_cast<int>(dimension.level)}};
        if (isNumber(dimension.type))
            column["numbers"] = makeList(dimension.numbers);
        else
            column["texts"] = dimension.texts;
        json["dimensions"].push_back(column);
    }
    for (const Measure& measure : m_measures) {
        nlohmann::ordered_json column{{"label", measure.label}};
        if (!isNumber(measure.type))
            column["texts"] = measure.texts;
        else
            column["numbers"] = makeList(measure.numbers);
        column["integer"] = measure.type == KXChartDataType::Integer;
        json["measures"].push_back(column);
    }
    return json;
}

void TableExport::fill(KXTableDataProvider& table) const
{
    table.beginUpdate();
    for (const Dimension& dimension : m_dimensions) {
        if (isNumber(dimension.type))
            table.addDimension(dimension.label, dimension.numbers);
        else
            table.addDimension(dimension.label, dimension.texts, dimension.type, dimension.level);
    }
    for (const Measure& measure : m_measures) {
        if (isNumber(measure.type))
            table.addMeasure(measure.label, measure.numbers, measure.type);
        else
            table.addMeasure(measure.label, measure.texts);
    }
    table.endUpdate();
}
