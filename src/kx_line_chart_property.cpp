#include "kx_line_chart_property.h"

#include "kx_drawn_extent.h"
#include "kx_in_turn.h"
#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXLineChartProperty, KXChartPropertyBase, KX_LINE_CHART_PROPERTY_KEYS)

KXLineChartProperty::KXLineChartProperty() = default;
KXLineChartProperty::KXLineChartProperty(const KXLineChartProperty&) = default;
KXLineChartProperty& KXLineChartProperty::operator=(const KXLineChartProperty&) = default;
KXLineChartProperty::~KXLineChartProperty() = default;

KXChartLineStyle KXLineChartProperty::obtainLineStyle(std::uint64_t series) const
{
    return kxObtainInTurn(m_seriesLineStyles, series, m_lineStyle);
}

double KXLineChartProperty::obtainLineWidth(std::uint64_t series) const
{
    return kxBoundExtent(kxObtainInTurn(m_seriesLineWidths, series, m_lineWidth));
}

KXPointShape KXLineChartProperty::obtainPointShape(std::uint64_t series) const
{
    return kxObtainInTurn(m_seriesShapes, series, m_pointShape);
}

double KXLineChartProperty::obtainPointSize() const { return kxBoundExtent(m_pointSize); }

UXTextProperty KXLineChartProperty::_makeDefaultLabelProperty()
{
    UXTextProperty property;
    property.font.size = 12;
    property.align = UXTextAlign::Center;
    property.textColor = UXColor(80, 80, 80);
    return property;
}
