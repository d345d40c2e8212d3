#include "kx_pie_chart_data_provider.h"

KXPieChartDataProvider::~KXPieChartDataProvider() = default;
