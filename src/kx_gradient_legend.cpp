#include "kx_gradient_legend.h"

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

// Logical units, those of a legend of cells where both have them
constexpr int greatestLength = 280, greatestHeight = 200;
constexpr double stripThickness = 10, textGap = 4, textDistance = 8;
/** Of sums that made a place. */
constexpr double noise = 1e-6;

} // namespace

KXGradientLegend::KXGradientLegend() { m_textProperty.font.size = 12; }

KXGradientLegend::~KXGradientLegend() = default;

void KXGradientLegend::setScale(const KXGradientScale& scale, const UXColor& textColor,
                                const std::function<std::string(double)>& format)
{
    UXTextProperty text = m_textProperty;
    text.textColor = textColor;
    setTextProperty(text);
    setScale(scale, format);
}

void KXGradientLegend::setScale(const KXGradientScale& scale,
                                const std::function<std::string(double)>& format)
{
    m_scale = scale;
    std::vector<double> values = scale.obtainClassBounds();
    if (values.empty()) {
        const bool isInside = scale.middleValue > scale.least && scale.middleValue < scale.greatest;
        values = {scale.least, isInside ? scale.middleValue : scale.least / 2 + scale.greatest / 2,
                  scale.greatest};
    }
    if (!(scale.least < scale.greatest))
        values = {scale.least};
    m_values.clear();
    for (const double value : values)
        m_values.push_back({obtainShare(value), format(value), {}});
    _placeTexts();
    invalidate();
}

void KXGradientLegend::setTextProperty(const UXTextProperty& property)
{
    if (property == m_textProperty)
        return;
    m_textProperty = property;
    _placeTexts();
    invalidate();
}

UXRect KXGradientLegend::takeRoom(const UXRect& area, const KXChartProperty& property, bool isWanted)
{
    const bool isShown = isWanted && property.getShowLegend();
    setVisible(isShown);
    return isShown ? takeRoom(area, property.getLegendPosition(), kxObtainLegendAlign(property)) : area;
}

UXRect KXGradientLegend::takeRoom(const UXRect& area, UXPosition side, UXPosition position)
{
    m_isUpright = side == UXPosition::Left || side == UXPosition::Right;
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    // A text that would leave the chart less than the legend has no room.
    const double most = (m_isUpright ? area.width : area.height) / 2.0 - stripThickness - textGap;
    double across = 0;
    for (const Value& value : m_values) {
        const UXDoubleSize size = helper->getTextSize(value.text, m_textProperty);
        const double own = m_isUpright ? size.width : size.height;
        across = std::max(across, own <= most ? own : 0);
    }
    const int thickness = uxSaturateToInt(std::ceil(stripThickness + textGap + across));
    const int length = m_isUpright ? greatestHeight : greatestLength;
    const KXLegendPlace place = kxPlaceLegend(area, side, position, length, thickness);
    setRect(place.own);
    _placeTexts();
    return place.left;
}

double KXGradientLegend::obtainShare(double value) const
{
    const double span = m_scale.greatest / 2 - m_scale.least / 2;
    const double middle = 0.5; // of a range that is a single value
    return span > 0 ? std::clamp((value / 2 - m_scale.least / 2) / span, 0.0, 1.0) : middle;
}

UXDoubleRect KXGradientLegend::obtainStrip() const
{
    const UXRect own = getBoundingRect();
    return m_isUpright ? UXDoubleRect(0, 0, std::min<double>(stripThickness, own.width), own.height)
                       : UXDoubleRect(0, 0, own.width, std::min<double>(stripThickness, own.height));
}

/** The ends have the first choice, then the others from the least on. */
void KXGradientLegend::_placeTexts()
{
    for (Value& value : m_values)
        value.rect = {};
    if (uxIsEmptyRect(getBoundingRect()) || m_values.empty())
        return;
    _placeText(m_values.front());
    _placeText(m_values.back());
    for (std::size_t i = 1; i + 1 < m_values.size(); ++i)
        _placeText(m_values[i]);
}

void KXGradientLegend::_placeText(Value& value)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXDoubleSize size = helper->getTextSize(value.text, m_textProperty);
    const UXDoubleRect strip = obtainStrip();
    UXDoubleRect rect(stripThickness + textGap, 0, size.width, size.height);
    if (m_isUpright) {
        rect.y = std::clamp((1 - value.share) * strip.height - size.height / 2, 0.0,
                            std::max(strip.height - size.height, 0.0));
    } else {
        rect.x = std::clamp(value.share * strip.width - size.width / 2, 0.0,
                            std::max(strip.width - size.width, 0.0));
        rect.y = stripThickness + textGap;
    }
    const UXDoubleRect room = uxInflateDoubleRect(rect, m_isUpright ? 0 : textDistance, 0);
    const bool isFree = std::ranges::none_of(m_values, [&](const Value& other) {
        return &other != &value && uxIntersectionDoubleRect(room, other.rect).width > 0;
    });
    const UXRect own = getBoundingRect();
    if (isFree && rect.x + rect.width <= own.width + noise && rect.y + rect.height <= own.height + noise)
        value.rect = rect;
}

void KXGradientLegend::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintStrip(*painter);
        for (const Value& value : m_values)
            if (value.rect.width > 0)
                painter->drawText(value.text, value.rect, m_textProperty);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXGradientLegend::_paintStrip(UXPainter& painter) const
{
    const UXDoubleRect strip = obtainStrip();
    if (!(strip.width > 0) || !(strip.height > 0))
        return;
    const auto obtainPart = [&](double from, double to) {
        return m_isUpright ? UXDoubleRect(strip.x, strip.y + (1 - to) * strip.height, strip.width,
                                          (to - from) * strip.height)
                           : UXDoubleRect(strip.x + from * strip.width, strip.y, (to - from) * strip.width,
                                          strip.height);
    };
    const auto obtainColorBetween = [&](double from, double to) {
        const double share = (from + to) / 2;
        return m_scale.obtainColor(m_scale.least * (1 - share) + m_scale.greatest * share);
    };
    if (m_values.size() < 2 || m_scale.classCount > 0) {
        for (std::size_t i = 0; i < std::max<std::size_t>(m_values.size(), 2) - 1; ++i) {
            const double from = m_values.size() < 2 ? 0 : m_values[i].share;
            const double to = m_values.size() < 2 ? 1 : m_values[i + 1].share;
            const UXDoubleRect part = obtainPart(from, to);
            painter.setColor(obtainColorBetween(from, to));
            painter.drawRects({&part, 1});
        }
        return;
    }
    if (m_isUpright)
        painter.beginLinearGradientPattern(0, strip.height, 0, 0, UXSourceOperator::Pad);
    else
        painter.beginLinearGradientPattern(0, 0, strip.width, 0, UXSourceOperator::Pad);
    for (const Value& value : m_values)
        painter.addGradientPatternColorStop(
            m_scale.obtainColor(m_scale.least * (1 - value.share) + m_scale.greatest * value.share),
            value.share);
    painter.endPattern();
    painter.usePattern();
    painter.addRectanglePath(strip);
    painter.fill();
}
