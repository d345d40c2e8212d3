#include "sql_highlight.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "sql_data_set.h"
#include "sql_number_bins.h"

namespace {

using Indexes = std::vector<std::optional<std::uint64_t>>;

/** @return where each member of a dimension of the part stands in the whole: that of its name, else the one
 * that stands for the others; none for one that is left out */
Indexes findMembers(const SqlDataSet& part, const SqlDataSet& whole, std::size_t dimension)
{
    std::map<std::pair<bool, std::string>, std::uint64_t> byName;
    std::optional<std::uint64_t> others;
    const std::vector<SqlMember>& all = whole.getMembers(dimension);
    for (std::uint64_t i = 0; i < all.size(); ++i)
        if (all[i].isOthers())
            others = i;
        else
            byName[{all[i].isNull, all[i].text}] = i;
    Indexes indexes;
    indexes.reserve(part.getMembers(dimension).size());
    for (const SqlMember& member : part.getMembers(dimension)) {
        const auto found = byName.find({member.isNull, member.text});
        indexes.push_back(found == byName.end() ? others : found->second);
    }
    return indexes;
}

bool addsUp(const DataBinding& binding, SqlAggregate aggregate)
{
    // Different values of several members are not those of all of them.
    const bool gathers = std::ranges::any_of(
        binding.dimensions, [](const DimensionBinding& d) { return d.top && d.top->othersLabel; });
    return hasParts(aggregate) && !(aggregate == SqlAggregate::DistinctCount && gathers);
}

} // namespace

SqlHighlight::SqlHighlight(SqlSession& session, const DataBinding& binding, const SqlDataSet& whole)
    : m_dimensionCount(binding.dimensions.size())
{
    if (binding.highlights.empty() || whole.isEmpty())
        return;
    for (const MeasureBinding& measure : binding.measures)
        m_areTold.push_back(addsUp(binding, measure.aggregate));

    // 1. All members of what is chosen: which ones are shown, and which are others, the whole has decided.
    DataBinding chosen = resolveNumberBins(session, binding); // which are those of the whole
    chosen.choices.insert(chosen.choices.end(), chosen.highlights.begin(), chosen.highlights.end());
    chosen.highlights.clear();
    for (DimensionBinding& dimension : chosen.dimensions) {
        dimension.top.reset();
        dimension.order = {};
        dimension.shouldFillGaps = false;
    }
    const SqlDataSet part(session, chosen);

    // 2. Their values, by the members that show them.
    std::vector<Indexes> indexes;
    indexes.reserve(m_dimensionCount);
    for (std::size_t i = 0; i < m_dimensionCount; ++i)
        indexes.push_back(findMembers(part, whole, i));
    std::vector<std::uint64_t> members(m_dimensionCount);
    for (std::size_t row = 0; row < part.getRowCount(); ++row) {
        bool isShown = true;
        for (std::size_t i = 0; i < m_dimensionCount && isShown; ++i) {
            const std::optional<std::uint64_t> index = indexes[i][part.obtainMember(row, i)];
            isShown = index.has_value();
            members[i] = index.value_or(0);
        }
        if (!isShown)
            continue;
        std::vector<double>& values = m_values[members];
        values.resize(m_areTold.size());
        for (std::size_t measure = 0; measure < values.size(); ++measure)
            if (const double value = part.obtainRowNumber(measure, row); !std::isnan(value))
                values[measure] += value;
    }
}

double SqlHighlight::obtainNumber(std::size_t measure, std::span<const std::uint64_t> members) const
{
    if (members.size() < m_dimensionCount)
        return 0;
    const auto found = m_values.find(
        {members.begin(), members.begin() + static_cast<std::ptrdiff_t>(m_dimensionCount)});
    return found == m_values.end() ? 0 : found->second[measure];
}
