#include "kx_table_rows.h"

#include "kx_data_column.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <unordered_map>

KXTableRows::KXTableRows(std::span<const KXDataColumn* const> dimensions)
{
    // 1. A row that a dimension lacks has no place among its members.
    std::size_t count = dimensions.empty() ? 0 : noRow;
    for (const KXDataColumn* column : dimensions)
        count = std::min(count, column->getCount());

    // 2. Number the different texts of each.
    for (const KXDataColumn* column : dimensions) {
        Dimension& dimension = m_dimensions.emplace_back();
        std::unordered_map<std::string, std::uint32_t> members;
        dimension.memberOf.reserve(count);
        for (std::size_t row = 0; row < count; ++row) {
            const auto next = static_cast<std::uint32_t>(dimension.firstRows.size());
            const auto [member, isNew] = members.try_emplace(column->obtainText(row), next);
            if (isNew)
                dimension.firstRows.push_back(row);
            dimension.memberOf.push_back(member->second);
        }
    }

    // 3. Sort the rows, stably, so that the last one with the same members stands last.
    m_order.resize(count);
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    for (const Dimension& dimension : m_dimensions) {
        std::ranges::stable_sort(m_order, {}, [&](std::size_t row) { return dimension.memberOf[row]; });
    }
}

std::size_t KXTableRows::getMemberCount(std::size_t dimension) const
{
    return dimension < m_dimensions.size() ? m_dimensions[dimension].firstRows.size() : 0;
}

std::size_t KXTableRows::getFirstRow(std::size_t dimension, std::size_t member) const
{
    return member < getMemberCount(dimension) ? m_dimensions[dimension].firstRows[member] : noRow;
}

std::size_t KXTableRows::findRow(std::span<const std::uint64_t> members) const
{
    const auto behind = std::partition_point(m_order.begin(), m_order.end(),
                                             [&](std::size_t row) { return _compare(row, members) <= 0; });
    if (behind == m_order.begin() || _compare(*(behind - 1), members) != 0)
        return noRow;
    return *(behind - 1);
}

int KXTableRows::_compare(std::size_t row, std::span<const std::uint64_t> members) const
{
    for (std::size_t i = m_dimensions.size(); i-- > 0;) {
        const std::uint64_t wanted = i < members.size() ? members[i] : 0;
        const std::uint64_t own = m_dimensions[i].memberOf[row];
        if (own != wanted)
            return own < wanted ? -1 : 1;
    }
    return 0;
}
