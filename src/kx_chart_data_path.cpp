#include "kx_chart_data_path.h"

KXChartDataPath::~KXChartDataPath() = default;
