#include "kx_axis_chart_base_layer.h"

KXAxisChartBaseLayer::KXAxisChartBaseLayer() = default;
KXAxisChartBaseLayer::~KXAxisChartBaseLayer() = default;

std::string KXAxisChartBaseLayer::customSerializeTypeID() { return "KXAxisChartBaseLayer"; }
