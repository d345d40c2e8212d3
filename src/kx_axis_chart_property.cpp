#include "kx_axis_chart_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXAxisChartProperty, KXChartPropertyBase, KX_AXIS_CHART_PROPERTY_KEYS)

KXAxisChartProperty::KXAxisChartProperty() = default;
KXAxisChartProperty::KXAxisChartProperty(const KXAxisChartProperty&) = default;
KXAxisChartProperty& KXAxisChartProperty::operator=(const KXAxisChartProperty&) = default;
KXAxisChartProperty::~KXAxisChartProperty() = default;
