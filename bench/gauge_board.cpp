#include "gauge_board.h"

#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "ux/ux_rect_functions.h"

GaugeBoard::GaugeBoard()
{
    m_diagram.setBackgroundColor(UXColor(255, 255, 255));
    m_chart.getChartProperty()->updateTitleValue("Score");
    m_chart.getDataFormat()->updateSuffix(" %");
    m_chart.getDataFormat()->updateDecimals(1);
    m_chart.setPipePartition(8);
    m_chart.setPartitionLabelDisplay(KXGaugeChartLabelDisplay::Actual);
    m_chart.setMaxMinDisplay(KXGaugeChartLabelDisplay::None);
    m_chart.setCustomMinValue(true);
    m_chart.setCustomMaxValue(true);
    m_chart.setDataProvider(&m_score);
    m_chart.setAlign(UXAlign::None);
    m_diagram.addChild(&m_chart);
    reload();
}

void GaugeBoard::reload()
{
    m_chart.prepareData();
    m_chart.reloadData();
    m_diagram.layout();
}

void GaugeBoard::layout(int width, int height)
{
    m_diagram.setRect(uxMakeRect(0, 0, width, height));
    m_chart.setRect(uxMakeRect(0, 0, width, height));
    m_diagram.layout();
}

void GaugeBoard::paint(UXPaintConfig& config)
{
    m_diagram.paintBackground(&config);
    m_diagram.paint(&config, m_diagram.getBoundingRect());
}
