#pragma once

#include "kx_axis_chart_base_layer.h"
#include "ux/ux_color.h"

#include <vector>

/** The grid lines of one axis, or a line at zero: places in the plot's space. */
struct KXAxisChartGridLines {
    bool isHorizontal = true;
    std::vector<double> places; /**< y of horizontal lines, x of vertical ones */
    UXColor color;
};

/** Draws the lines behind the marks, each one unit thick on whole device pixels. It covers the whole plot, so
 *  that its space is the plot's. */
class KX_EXPORT KXAxisChartGridLayer : public KXAxisChartBaseLayer {
public:
    KXAxisChartGridLayer();
    ~KXAxisChartGridLayer() override;

    const std::vector<KXAxisChartGridLines>& getLines() const { return m_lines; }
    /** Lines at an edge of the layer move inside by half their thickness.
     *  @param lines in the order in which they are painted
     *  @param area what the lines cross, in the own space */
    void setLines(const std::vector<KXAxisChartGridLines>& lines, const UXRect& area);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    std::vector<KXAxisChartGridLines> m_lines;
    UXRect m_area;
};
