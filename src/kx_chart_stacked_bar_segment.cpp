#include "kx_chart_stacked_bar_segment.h"

KXChartStackedBarSegment::KXChartStackedBarSegment() = default;
KXChartStackedBarSegment::~KXChartStackedBarSegment() = default;

void KXChartStackedBarSegment::setValue(double value)
{
    if (value == m_value)
        return;
    m_value = value;
    if (UXObject* bar = getParent())
        bar->setRequireToVerifyLayout(true, true);
}

void KXChartStackedBarSegment::customSerialize()
{
    KXRectangle::customSerialize();
    serializeDouble("m_value", m_value);
}

std::string KXChartStackedBarSegment::customSerializeTypeID() { return "KXChartStackedBarSegment"; }

bool KXChartStackedBarSegment::customDeserialize()
{
    const bool complete = KXRectangle::customDeserialize();
    return deserializeDouble("m_value", m_value) && complete;
}
