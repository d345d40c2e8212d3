#include "kx_panel_chart_data_provider.h"

#include <limits>

KXPanelChartDataProvider::~KXPanelChartDataProvider() = default;

void KXPanelChartDataProvider::obtainValues(KXChartDataUser* user, const KXIndexPath& first,
                                            std::span<double> values)
{
    KXIndexPath path = first;
    for (double& value : values) {
        const bool isNumber = validateValueData(user, path) && !obtainValueDataIsNull(user, path) &&
                              !obtainValueDataIsEmpty(user, path);
        value = isNumber ? obtainValueData(user, path) : std::numeric_limits<double>::quiet_NaN();
        ++path.back();
    }
}

void KXPanelChartDataProvider::obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension,
                                                 std::uint64_t first, std::span<std::string> texts)
{
    for (std::string& text : texts)
        text = obtainDimensionData(user, {dimension, first++});
}

KXChartDataProviderHintData KXPanelChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
