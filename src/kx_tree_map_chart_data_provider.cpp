#include "kx_tree_map_chart_data_provider.h"

KXTreeMapChartDataProvider::~KXTreeMapChartDataProvider() = default;
