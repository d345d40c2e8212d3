#include "kx_chart_data_value.h"

#include "kx_chart_data_path.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_provider_watcher.h"

bool kxObtainValueIsMissing(KXChartDataProvider& provider, KXChartDataUser* user, const KXIndexPath& path,
                            const KXChartDataProviderWatcher& watcher)
{
    return !watcher.isCurrent() || provider.obtainValueDataIsNull(user, path) || !watcher.isCurrent() ||
           !provider.validateValueData(user, path) || !watcher.isCurrent() ||
           provider.obtainValueDataIsEmpty(user, path) || !watcher.isCurrent();
}

std::optional<double> kxObtainValueNumber(KXChartDataProvider& provider, KXChartDataUser* user,
                                          const KXIndexPath& path, const KXChartDataProviderWatcher& watcher)
{
    if (kxObtainValueIsMissing(provider, user, path, watcher))
        return std::nullopt;
    const double number = provider.obtainValueData(user, path);
    return watcher.isCurrent() ? std::optional(number) : std::nullopt;
}

bool kxObtainItemIsGenerated(const KXChartDataProviderUse& use, KXChartDataUser* user,
                             const KXChartDataPath& path)
{
    const bool isValue = use.isCurrent() && !path.valueIndexPath.empty() &&
                         use.get()->obtainValueDataIsGenerated(user, path.valueIndexPath);
    return isValue || (use.isCurrent() && !path.dimensionIndexPath.empty() &&
                       use.get()->obtainDimensionDataIsGenerated(user, path.dimensionIndexPath));
}
