#include "kx_value_chart_data_provider.h"

KXValueChartDataProvider::~KXValueChartDataProvider() = default;

KXChartDataProviderHintData KXValueChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
