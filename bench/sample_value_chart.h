#pragma once

#include "kx_chart_property.h"
#include "kx_value_chart.h"
#include "text_value.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_diagram.h"
#include "ux/ux_rect_functions.h"

/** A titled value chart of 400 x 300 on a diagram, its data loaded and laid out. */
class SampleValueChart {
public:
    SampleValueChart()
    {
        uxCairoInstall();
        m_chart.getChartProperty()->updateTitleValue("Revenue");
        m_chart.setDataProvider(&m_text);
        m_diagram.addChild(&m_chart);
        m_diagram.setRect(uxMakeRect(0, 0, 400, 300));
        m_chart.setRect(uxMakeRect(0, 0, 400, 300));
        reload("1,284,930");
        m_diagram.layout();
    }

    KXValueChart& getChart() { return m_chart; }
    UXDiagram& getDiagram() { return m_diagram; }

    void reload(const std::string& text)
    {
        m_text = TextValue(text);
        m_chart.prepareData();
        m_chart.reloadData();
    }

private:
    TextValue m_text;
    UXDiagram m_diagram; // does not own the chart, which leaves it first
    KXValueChart m_chart;
};
