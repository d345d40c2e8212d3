#include "kx_axis_chart_layer.h"

KXAxisChartLayer::KXAxisChartLayer() = default;
KXAxisChartLayer::~KXAxisChartLayer() = default;

std::string KXAxisChartLayer::customSerializeTypeID() { return "KXAxisChartLayer"; }
