#include "kx_panel_chart_data_provider.h"

#include "kx_chart_data_provider_watcher.h"

#include <algorithm>
#include <limits>

KXPanelChartDataProvider::~KXPanelChartDataProvider() = default;

void KXPanelChartDataProvider::obtainValues(KXChartDataUser* user, const KXIndexPath& first,
                                            std::span<double> values)
{
    // Each answer may destroy the chart, or this.
    const KXChartDataProviderWatcher watcher(user);
    std::ranges::fill(values, std::numeric_limits<double>::quiet_NaN());
    KXIndexPath path = first;
    for (double& value : values) {
        const bool isNumber = validateValueData(user, path) && watcher.isCurrent() &&
                              !obtainValueDataIsNull(user, path) && watcher.isCurrent() &&
                              !obtainValueDataIsEmpty(user, path);
        if (!watcher.isCurrent())
            return;
        if (isNumber)
            value = obtainValueData(user, path);
        if (!watcher.isCurrent())
            return;
        ++path.back();
    }
}

void KXPanelChartDataProvider::obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension,
                                                 std::uint64_t first, std::span<std::string> texts)
{
    const KXChartDataProviderWatcher watcher(user);
    for (std::string& text : texts) {
        text = obtainDimensionData(user, {dimension, first++});
        if (!watcher.isCurrent())
            return;
    }
}

KXChartDataProviderHintData KXPanelChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
