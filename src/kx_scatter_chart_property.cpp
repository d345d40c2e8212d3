#include "kx_scatter_chart_property.h"

#include "kx_in_turn.h"
#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXScatterChartProperty, KXChartPropertyBase, KX_SCATTER_CHART_PROPERTY_KEYS)

KXScatterChartProperty::KXScatterChartProperty() = default;
KXScatterChartProperty::KXScatterChartProperty(const KXScatterChartProperty&) = default;
KXScatterChartProperty& KXScatterChartProperty::operator=(const KXScatterChartProperty&) = default;
KXScatterChartProperty::~KXScatterChartProperty() = default;

KXPointShape KXScatterChartProperty::obtainPointShape(std::uint64_t series) const
{
    return kxObtainInTurn(m_seriesShapes, series, m_pointShape);
}

UXTextProperty KXScatterChartProperty::_makeDefaultLabelProperty()
{
    UXTextProperty property;
    property.font.size = 12;
    property.align = UXTextAlign::Center;
    property.textColor = UXColor(80, 80, 80);
    return property;
}
