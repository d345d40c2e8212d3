#pragma once

#include "kx_axis_chart_base_layer.h"
#include "ux/ux_paint_function.h"

/** A layer whose content the chart draws: the marks, or their labels. It covers the whole plot, so that its
 *  space is the plot's, and draws inside a part of it. */
class KX_EXPORT KXAxisChartLayer : public KXAxisChartBaseLayer {
public:
    KXAxisChartLayer();
    ~KXAxisChartLayer() override;

    /** @param function draws the layer in its own space; empty for nothing */
    void setPaintFunction(const UXPaintFunction& function);
    UXRect getDrawingRect() const { return m_drawingRect; }
    /** Lets the layer draw inside rect only, which is in the own space. */
    void setDrawingRect(const UXRect& rect);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    UXPaintFunction m_paintFunction;
    UXRect m_drawingRect;
};
