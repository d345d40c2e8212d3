#include "kx_value_list_chart_data_provider.h"

KXValueListChartDataProvider::~KXValueListChartDataProvider() = default;
