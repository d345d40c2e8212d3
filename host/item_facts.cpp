#include "item_facts.h"

#include "sql_data_provider.h"

ItemFacts collectItemFacts(SqlDataProvider& provider, KXChartDataUser* user, const KXChartDataPath& path)
{
    ItemFacts facts = collectFilterFacts(provider);
    const std::vector<DimensionBinding>& dimensions = provider.getBinding().dimensions;
    const auto add = [&](std::uint64_t dimension, std::uint64_t member) {
        if (dimension < dimensions.size())
            facts[dimensions[dimension].column] = provider.obtainDimensionData(user, {dimension, member});
    };
    if (path.dimensionIndexPath.size() > 1)
        add(path.dimensionIndexPath[0], path.dimensionIndexPath[1]);
    for (std::uint64_t i = 0; i + 1 < path.valueIndexPath.size(); ++i)
        add(i, path.valueIndexPath[i + 1]);
    return facts;
}

ItemFacts collectFilterFacts(const SqlDataProvider& provider)
{
    ItemFacts facts;
    for (const FilterBinding& filter : provider.getBinding().filters) {
        if (filter.operation == FilterOperation::Equal && !filter.values.empty())
            facts[filter.column] = filter.values.front();
    }
    return facts;
}

bool doFactsAgree(const ItemFacts& first, const ItemFacts& second)
{
    bool meet = false;
    for (const auto& [column, member] : first) {
        const auto other = second.find(column);
        if (other != second.end() && other->second != member)
            return false;
        meet = meet || other != second.end();
    }
    return meet;
}
