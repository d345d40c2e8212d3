#include "kx_area_chart.h"

KXAreaChart::KXAreaChart() : KXLineChart(KXAxisChartType::Area) {}
KXAreaChart::~KXAreaChart() = default;

std::string KXAreaChart::customSerializeTypeID() { return "KXAreaChart"; }
