#include "kx_axis_chart_axis.h"

#include "kx_axis_property.h"
#include "kx_chart_data_format.h"

namespace {

// Lines that carry no data stay behind those that do.
constexpr UXColor quietGridLineColor(230, 230, 235);
constexpr UXColor quietAxisColor(200, 200, 205);
constexpr int titleFontSize = 13;

} // namespace

KXAxisChartAxis::KXAxisChartAxis()
    : property(std::make_unique<KXAxisProperty>()), dataFormat(std::make_unique<KXChartDataFormat>())
{
    property->setGridLineColor(quietGridLineColor);
    property->setAxisColor(quietAxisColor);
    UXTextProperty titleProperty = property->getTitleProperty();
    titleProperty.font.size = titleFontSize;
    property->setTitleProperty(titleProperty);
}

KXAxisChartAxis::~KXAxisChartAxis() = default;

std::string KXAxisChartAxis::obtainTitleText() const
{
    return property->getTitleValue().empty() ? property->getDefaultTitleValue() : property->getTitleValue();
}
