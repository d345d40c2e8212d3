#include "kx_gauge_chart_data_provider.h"

KXGaugeChartDataProvider::~KXGaugeChartDataProvider() = default;

KXChartDataProviderHintData KXGaugeChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
