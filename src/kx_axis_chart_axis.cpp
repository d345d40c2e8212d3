#include "kx_axis_chart_axis.h"

#include "kx_axis_property.h"
#include "kx_chart_data_format.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <cmath>
#include <string_view>

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

bool KXAxisChartAxis::showsTitle() const
{
    return isUsed && property->getShowTitle() && !obtainTitleText().empty();
}

UXSize KXAxisChartAxis::measureTitle() const
{
    const UXDoubleSize size = uxMeasureText(obtainTitleText(), property->getTitleProperty());
    return {uxSaturateToInt(std::ceil(size.width)), uxSaturateToInt(std::ceil(size.height))};
}

std::string KXAxisChartAxis::shortenTitle(int width) const
{
    const auto widthOf = [this](std::string_view piece) {
        return uxMeasureText(std::string(piece), property->getTitleProperty()).width;
    };
    const std::string text = uxShortenText(obtainTitleText(), UXTextOption::EllipsisEnd, width, widthOf);
    return widthOf(text) > width ? std::string() : text;
}

double KXAxisChartAxis::measureLabelLine() const
{
    return uxMeasureText("0", property->getTickLabelProperty()).height;
}
