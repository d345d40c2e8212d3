#include "kx_trend_chart_data_provider.h"

KXTrendChartDataProvider::~KXTrendChartDataProvider() = default;
