#pragma once

#include "kx_axis_chart_base_layer.h"
#include "ux/ux_rect.h"

#include <functional>
#include <string>

class UXPainter;

/** A layer whose content the chart draws: the marks, or their labels. It covers the whole plot, so that its
 *  space is the plot's, and draws inside a part of it. */
class KX_EXPORT KXAxisChartLayer : public KXAxisChartBaseLayer {
public:
    /** Draws what lies in dirtyRect, of the layer's space; the rest is not seen. */
    using PaintFunction = std::function<void(UXPainter& painter, const UXRect& dirtyRect)>;

    KXAxisChartLayer();
    ~KXAxisChartLayer() override;

    /** @param function draws the layer in its own space; empty for nothing */
    void setPaintFunction(const PaintFunction& function);
    UXRect getDrawingRect() const { return m_drawingRect; }
    /** Lets the layer draw inside rect only, which is in the own space. */
    void setDrawingRect(const UXRect& rect);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    PaintFunction m_paintFunction;
    UXRect m_drawingRect;
};
