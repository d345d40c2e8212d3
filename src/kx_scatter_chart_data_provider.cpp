#include "kx_scatter_chart_data_provider.h"

#include <utility>

KXScatterChartDataProvider::~KXScatterChartDataProvider() = default;

std::int64_t KXScatterChartDataProvider::obtainRoleMeasure(KXChartDataUser* user, KXScatterChartRole role)
{
    return obtainUsualRoleMeasure(role, obtainValueCount(user));
}

std::int64_t KXScatterChartDataProvider::obtainUsualRoleMeasure(KXScatterChartRole role,
                                                                std::uint64_t measureCount)
{
    if (measureCount == 1)
        return role == KXScatterChartRole::Y ? 0 : -1;
    const auto measure = static_cast<std::int64_t>(role);
    return std::cmp_less(measure, measureCount) ? measure : -1;
}

bool KXScatterChartDataProvider::shouldSelectByBox(KXChartDataUser*) { return false; }

std::function<void()> KXScatterChartDataProvider::obtainSelectionAction(KXChartDataUser*,
                                                                        const std::vector<KXChartDataPath>&)
{
    return {};
}
