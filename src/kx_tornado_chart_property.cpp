#include "kx_tornado_chart_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXTornadoChartProperty, KXChartPropertyBase, KX_TORNADO_CHART_PROPERTY_KEYS)

KXTornadoChartProperty::KXTornadoChartProperty() = default;
KXTornadoChartProperty::KXTornadoChartProperty(const KXTornadoChartProperty&) = default;
KXTornadoChartProperty& KXTornadoChartProperty::operator=(const KXTornadoChartProperty&) = default;
KXTornadoChartProperty::~KXTornadoChartProperty() = default;
