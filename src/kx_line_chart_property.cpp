#include "kx_line_chart_property.h"

#include "kx_key_definitions.h"

#include <algorithm>

namespace {

/** No picture is so large, and so what is made of an extent can be drawn. */
constexpr double greatestExtent = 1e5;

double boundExtent(double extent) { return extent > 0 ? std::min(extent, greatestExtent) : 0; }

/** @return the value that a series takes of a list in turn, or usual where that is empty */
template <class T>
T obtainInTurn(const std::vector<T>& list, std::uint64_t series, const T& usual)
{
    return list.empty() ? usual : list[series % list.size()];
}

} // namespace

KX_DEFINE_KEYS(KXLineChartProperty, KXChartPropertyBase, KX_LINE_CHART_PROPERTY_KEYS)

KXLineChartProperty::KXLineChartProperty() = default;
KXLineChartProperty::KXLineChartProperty(const KXLineChartProperty&) = default;
KXLineChartProperty& KXLineChartProperty::operator=(const KXLineChartProperty&) = default;
KXLineChartProperty::~KXLineChartProperty() = default;

KXChartLineStyle KXLineChartProperty::obtainLineStyle(std::uint64_t series) const
{
    return obtainInTurn(m_seriesLineStyles, series, m_lineStyle);
}

double KXLineChartProperty::obtainLineWidth(std::uint64_t series) const
{
    return boundExtent(obtainInTurn(m_seriesLineWidths, series, m_lineWidth));
}

KXPointShape KXLineChartProperty::obtainPointShape(std::uint64_t series) const
{
    return obtainInTurn(m_seriesShapes, series, m_pointShape);
}

double KXLineChartProperty::obtainPointSize() const { return boundExtent(m_pointSize); }

UXTextProperty KXLineChartProperty::_makeDefaultLabelProperty()
{
    UXTextProperty property;
    property.font.size = 12;
    property.align = UXTextAlign::Center;
    property.textColor = UXColor(80, 80, 80);
    return property;
}
