#include "gauge_board.h"

#include "kx_chart_data_format.h"
#include "kx_chart_property.h"

GaugeBoard::GaugeBoard()
{
    m_chart.getChartProperty()->updateTitleValue("Score");
    m_chart.getDataFormat()->updateSuffix(" %");
    m_chart.getDataFormat()->updateDecimals(1);
    m_chart.setPipePartition(8);
    m_chart.setPartitionLabelDisplay(KXGaugeChartLabelDisplay::Actual);
    m_chart.setMaxMinDisplay(KXGaugeChartLabelDisplay::None);
    m_chart.setCustomMinValue(true);
    m_chart.setCustomMaxValue(true);
    reload();
}

void GaugeBoard::update()
{
    constexpr double sum = 104.2;
    m_provider.score = sum - m_provider.score;
    reload();
}
