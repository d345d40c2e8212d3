#include "kx_size_legend.h"

#include "kx_axis_scale.h"
#include "kx_chart_property.h"
#include "kx_legend_place.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {

/** How the values go down from the greatest one, before they are rounded. */
constexpr double shares[] = {1, 0.25, 0.05};
constexpr double textGap = 6, sizeGap = 8, cellGap = 18;

/** @return amount rounded down to 1, 2 or 5 times a power of ten */
double roundDown(double amount)
{
    const double rounded = kxCalculateSuitableRange(amount, false);
    if (rounded <= amount || !std::isfinite(rounded))
        return rounded;
    for (const double share : {0.5, 0.4, 0.2})
        if (kxCalculateSuitableRange(rounded * share, true) <= amount)
            return kxCalculateSuitableRange(rounded * share, true);
    return amount;
}

} // namespace

KXSizeLegend::KXSizeLegend() { m_textProperty.font.size = 12; }
KXSizeLegend::~KXSizeLegend() = default;

void KXSizeLegend::setSizes(const KXScatterForm& form, const UXColor& color,
                            const std::function<std::string(double)>& format)
{
    m_sizes.clear();
    m_color = color;
    for (const double share : shares) {
        const double value = roundDown(form.greatestSize * share);
        const bool isNew = m_sizes.empty() || (value < m_sizes.back().value &&
                                               form.obtainDiameter(value) < m_sizes.back().diameter);
        if (value > 0 && isNew)
            m_sizes.push_back({value, form.obtainDiameter(value), format(value), {}, {}, {}});
    }
    _measure();
    invalidate();
}

std::vector<double> KXSizeLegend::getValues() const
{
    std::vector<double> values;
    values.reserve(m_sizes.size());
    for (const Size& size : m_sizes)
        values.push_back(size.value);
    return values;
}

void KXSizeLegend::setTextColor(const UXColor& color)
{
    if (color == m_textProperty.textColor)
        return;
    m_textProperty.textColor = color;
    invalidate();
}

void KXSizeLegend::_measure()
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    for (Size& size : m_sizes) {
        const UXDoubleSize text = helper->getTextSize(size.text, m_textProperty);
        size.textSize = {std::ceil(text.width), std::ceil(text.height)};
    }
}

/** One below the other, their texts in line. */
void KXSizeLegend::_placeUpright()
{
    const double across = m_sizes.front().diameter;
    double y = 0;
    for (Size& size : m_sizes) {
        const double height = std::max(size.diameter, size.textSize.height);
        size.centre = {across / 2, y + height / 2};
        size.rect = {across + textGap, y + (height - size.textSize.height) / 2, size.textSize.width,
                     size.textSize.height};
        y += height + sizeGap;
    }
}

void KXSizeLegend::_placeInRow()
{
    const double height = std::max(m_sizes.front().diameter, m_sizes.front().textSize.height);
    double x = 0;
    for (Size& size : m_sizes) {
        size.centre = {x + size.diameter / 2, height / 2};
        size.rect = {x + size.diameter + textGap, (height - size.textSize.height) / 2, size.textSize.width,
                     size.textSize.height};
        x += size.diameter + textGap + size.textSize.width + cellGap;
    }
}

UXRect KXSizeLegend::takeRoom(const UXRect& area, const KXChartProperty& property, bool isWanted)
{
    const bool isShown = isWanted && property.getShowLegend() && !m_sizes.empty();
    setVisible(isShown);
    if (!isShown)
        return area;
    const UXPosition side = property.getLegendPosition();
    const bool isUpright = side == UXPosition::Left || side == UXPosition::Right;
    if (isUpright)
        _placeUpright();
    else
        _placeInRow();
    double right = 0, bottom = 0;
    for (const Size& size : m_sizes) {
        right = std::max(right, size.rect.x + size.rect.width);
        bottom = std::max({bottom, size.rect.y + size.rect.height, size.centre.y + size.diameter / 2});
    }
    const int width = uxSaturateToInt(std::ceil(right)), height = uxSaturateToInt(std::ceil(bottom));
    // In a smaller chart points need the room more, and their hints tell their sizes.
    const bool fits = isUpright ? height <= area.height && width < area.width / 3
                                : width <= area.width && height < area.height / 3;
    const KXLegendPlace place = kxPlaceLegend(area, side, kxObtainLegendAlign(property),
                                              isUpright ? height : width, isUpright ? width : height);
    if (!fits || uxIsEmptyRect(place.own)) {
        setVisible(false);
        return area;
    }
    setRect(place.own);
    return place.left;
}

std::string KXSizeLegend::customSerializeTypeID() { return "KXSizeLegend"; }

void KXSizeLegend::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        for (const Size& size : m_sizes) {
            KXCircle(size.centre, size.diameter, UXColor(0, 0, 0, 0), m_color).paint(*painter);
            painter->drawText(size.text, size.rect, m_textProperty);
        }
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}
