#include "kx_heat_map_chart_data_provider.h"

#include <algorithm>
#include <limits>

KXHeatMapChartDataProvider::~KXHeatMapChartDataProvider() = default;

bool KXHeatMapChartDataProvider::obtainHasTotals(KXChartDataUser*, bool) { return false; }

void KXHeatMapChartDataProvider::obtainTotals(KXChartDataUser*, bool, std::uint64_t, std::span<double> totals)
{
    std::ranges::fill(totals, std::numeric_limits<double>::quiet_NaN());
}

double KXHeatMapChartDataProvider::obtainGrandTotal(KXChartDataUser*)
{
    return std::numeric_limits<double>::quiet_NaN();
}
