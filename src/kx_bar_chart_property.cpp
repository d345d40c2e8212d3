#include "kx_bar_chart_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXBarChartProperty, KXChartPropertyBase, KX_BAR_CHART_PROPERTY_KEYS)

KXBarChartProperty::KXBarChartProperty() = default;
KXBarChartProperty::KXBarChartProperty(const KXBarChartProperty&) = default;
KXBarChartProperty& KXBarChartProperty::operator=(const KXBarChartProperty&) = default;
KXBarChartProperty::~KXBarChartProperty() = default;

UXTextProperty KXBarChartProperty::_makeDefaultLabelProperty(bool bold)
{
    UXTextProperty property;
    property.font.size = 12;
    property.font.bold = bold;
    property.align = UXTextAlign::Center;
    property.textColor = UXColor(80, 80, 80);
    return property;
}
