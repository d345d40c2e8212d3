#pragma once

#include "ux/ux_diagram.h"
#include "ux/ux_rect_functions.h"

class UXPaintConfig;

/** One chart that fills a white diagram, over the data of one provider. */
template <class Chart, class Provider>
class ChartBoard {
public:
    void layout(int width, int height)
    {
        m_diagram.setRect(uxMakeRect(0, 0, width, height));
        m_chart.setRect(uxMakeRect(0, 0, width, height));
        m_diagram.layout();
    }
    void paint(UXPaintConfig& config)
    {
        m_diagram.paintBackground(&config);
        m_diagram.paint(&config, m_diagram.getBoundingRect());
    }
    /** Gives the chart its data anew, as data that was replaced. */
    void reload()
    {
        m_chart.prepareData();
        m_chart.reloadData();
        m_diagram.layout();
    }

    UXDiagram& getDiagram() { return m_diagram; }
    Chart& getChart() { return m_chart; }

protected:
    ChartBoard()
    {
        m_diagram.setBackgroundColor(UXColor(255, 255, 255));
        m_chart.setDataProvider(&m_provider);
        m_chart.setAlign(UXAlign::None);
        m_diagram.addChild(&m_chart);
    }

    Provider m_provider;
    UXDiagram m_diagram; // does not own the chart, which leaves it first
    Chart m_chart;
};
