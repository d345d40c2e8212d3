#include "kx_panel_chart_data_provider.h"

#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_value.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

KXPanelChartDataProvider::~KXPanelChartDataProvider() = default;

void KXPanelChartDataProvider::obtainValues(KXChartDataUser* user, const KXIndexPath& first,
                                            std::span<double> values)
{
    // Each answer may destroy the chart, or this.
    const KXChartDataProviderWatcher watcher(user);
    std::ranges::fill(values, noNumber);
    KXIndexPath path = first;
    for (double& value : values) {
        value = kxObtainValueNumber(*this, user, path, watcher).value_or(noNumber);
        if (!watcher.isCurrent())
            return;
        ++path.back();
    }
}

std::uint64_t KXPanelChartDataProvider::obtainItemCount(KXChartDataUser* user)
{
    const KXChartDataProviderWatcher watcher(user);
    const std::uint64_t down = obtainDimensionDataCount(user, 0);
    const std::uint64_t across = watcher.isCurrent() ? obtainDimensionDataCount(user, 1) : 0;
    return across > 0 && down > (std::numeric_limits<std::uint64_t>::max)() / across
               ? (std::numeric_limits<std::uint64_t>::max)()
               : down * across;
}

void KXPanelChartDataProvider::obtainItems(KXChartDataUser* user, std::uint64_t first,
                                           std::span<KXPanelChartDataItem> items)
{
    const KXChartDataProviderWatcher watcher(user);
    const std::uint64_t across = obtainDimensionDataCount(user, 1);
    for (KXPanelChartDataItem& item : items) {
        if (across == 0 || !watcher.isCurrent())
            return;
        item = {first / across, first % across, noNumber};
        obtainValues(user, {0, item.firstMember, item.secondMember}, {&item.value, 1});
        ++first;
    }
}

bool KXPanelChartDataProvider::obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension,
                                                 std::uint64_t first, std::span<std::string> texts)
{
    const KXChartDataProviderWatcher watcher(user);
    for (std::string& text : texts) {
        text = obtainDimensionData(user, {dimension, first++});
        if (!watcher.isCurrent())
            break;
    }
    return true;
}

bool KXPanelChartDataProvider::obtainValueAddsUp(KXChartDataUser*, std::uint64_t) { return true; }

KXChartDataProviderHintData KXPanelChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
