#pragma once

#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_rect_functions.h"

/** One chart that fills a white diagram, over the data of one provider. */
template <class Chart, class Provider>
class ChartBoard {
public:
    void layout(int width, int height)
    {
        m_diagram.setRect(uxMakeRect(0, 0, width, height));
        m_control.setControlRect({0, 0, width, height});
        m_chart.setRect(uxMakeRect(0, 0, width, height));
        m_diagram.layout();
        m_diagram.clearDirtyRect();
    }
    void paint(UXPaintConfig& config)
    {
        m_diagram.paintBackground(&config);
        m_diagram.paint(&config, m_diagram.getBoundingRect());
        m_diagram.clearDirtyRect();
    }
    /** Gives the chart its data anew, as data that was replaced. */
    void reload()
    {
        m_chart.prepareData();
        m_chart.reloadData();
        m_diagram.layout();
    }
    /** Moves the pointer and paints what that changes.
     *  @return how many pixels were painted */
    double hover(const UXPoint& point, UXPaintConfig& config)
    {
        m_control.mouseMove({point.x, point.y}, UXEvent());
        m_diagram.layout();
        double pixels = 0;
        for (const UXRect& area : m_diagram.getDirtyRegion().getRects()) {
            const UXPaintClip clip(config, UXDoubleRect(area));
            m_diagram.paintBackground(&config);
            m_diagram.paint(&config, area);
            pixels += double(area.width) * area.height;
        }
        m_diagram.clearDirtyRect();
        return pixels;
    }

    UXDiagram& getDiagram() { return m_diagram; }
    Chart& getChart() { return m_chart; }

protected:
    ChartBoard() : m_diagram(&m_context)
    {
        m_context.addDiagram(&m_diagram);
        m_context.setActiveDiagram(&m_control, &m_diagram);
        m_diagram.setBackgroundColor(UXColor(255, 255, 255));
        m_chart.setDataProvider(&m_provider);
        m_chart.setAlign(UXAlign::None);
        m_diagram.addChild(&m_chart);
    }

    Provider m_provider;
    UXContext m_context;
    UXControl m_control;
    UXDiagram m_diagram; // does not own the chart, which leaves it first
    Chart m_chart;
};
