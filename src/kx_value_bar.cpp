#include "kx_value_bar.h"

#include "kx_axis_chart_plot_frame.h"

#include <cmath>

void KXValueBar::setValue(double value)
{
    if (value == m_value)
        return;
    m_value = value;
    invalidate();
}

void KXValueBar::setRange(double min, double max)
{
    if (min == m_minValue && max == m_maxValue)
        return;
    m_minValue = min;
    m_maxValue = max;
    invalidate();
}

UXDoubleRect KXValueBar::obtainFilledRect() const
{
    KXAxisChartPlotFrame frame;
    frame.isVertical = isVertical();
    frame.area = getBoundingRect();
    const double span = m_maxValue - m_minValue;
    if (!std::isfinite(m_value) || !std::isfinite(span) || !(span > 0))
        return {};
    const double length = frame.obtainAlong().obtainLength();
    frame.values = isVertical() ? KXAxisChartScale{m_minValue, length, -length / span}
                                : KXAxisChartScale{m_minValue, 0, length / span};
    const std::optional<KXAxisChartInterval> along = frame.placeAlong(0, m_value);
    return along ? frame.makeRect(frame.obtainAcross(), *along) : UXDoubleRect();
}

void KXValueBar::customSerialize()
{
    KXRectangle::customSerialize();
    serializeDouble("m_value", m_value);
    serializeDouble("m_minValue", m_minValue);
    serializeDouble("m_maxValue", m_maxValue);
}

bool KXValueBar::customDeserialize()
{
    bool complete = KXRectangle::customDeserialize();
    complete = deserializeDouble("m_value", m_value) && complete;
    complete = deserializeDouble("m_minValue", m_minValue) && complete;
    return deserializeDouble("m_maxValue", m_maxValue) && complete;
}
