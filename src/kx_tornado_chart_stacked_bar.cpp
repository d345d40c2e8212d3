#include "kx_tornado_chart_stacked_bar.h"

KXTornadoChartStackedBar::KXTornadoChartStackedBar() = default;
KXTornadoChartStackedBar::~KXTornadoChartStackedBar() = default;

void KXTornadoChartStackedBar::setIsOnLeft(bool isOnLeft)
{
    if (isOnLeft == m_isOnLeft)
        return;
    m_isOnLeft = isOnLeft;
    setRequireToVerifyLayout(true, true);
}

bool KXTornadoChartStackedBar::growsBackwards() const { return m_isOnLeft; }

void KXTornadoChartStackedBar::customSerialize()
{
    KXStackedBar::customSerialize();
    serializeBool("m_isOnLeft", m_isOnLeft);
}

std::string KXTornadoChartStackedBar::customSerializeTypeID() { return "KXTornadoChartStackedBar"; }

bool KXTornadoChartStackedBar::customDeserialize()
{
    const bool complete = KXStackedBar::customDeserialize();
    return deserializeBool("m_isOnLeft", m_isOnLeft) && complete;
}
