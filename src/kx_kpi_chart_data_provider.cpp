#include "kx_kpi_chart_data_provider.h"

KXKpiChartDataProvider::~KXKpiChartDataProvider() = default;
