#include "kx_density_chart_data_provider.h"

#include <limits>

KXDensityChartDataProvider::~KXDensityChartDataProvider() = default;

double KXDensityChartDataProvider::obtainQuantile(KXChartDataUser*, std::uint64_t, double)
{
    return std::numeric_limits<double>::quiet_NaN();
}

double KXDensityChartDataProvider::obtainMean(KXChartDataUser*, std::uint64_t)
{
    return std::numeric_limits<double>::quiet_NaN();
}
