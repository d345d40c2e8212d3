#pragma once

#include "ux/ux_paint_config.h"
#include "ux/ux_transform.h"

class WebDrawing;

/** Paints into a drawing for a canvas. */
class WebPaintConfig final : public UXPaintConfig {
public:
    /** @param drawing outlives this object
     *  @param toCanvas maps the space of the root of what is painted to pixels of the canvas */
    WebPaintConfig(WebDrawing& drawing, const UXTransform& toCanvas);

    // From UXPaintConfig
    UXPainter* createPainter(UXObject* object) override;

private:
    WebDrawing& m_drawing;
    UXTransform m_toCanvas;
};
