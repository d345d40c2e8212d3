#pragma once

#include "kx_export.h"
#include "ux/ux_object.h"
#include "ux/ux_rect.h"

#include <functional>
#include <string>

class UXPainter;

/** A layer whose content a chart draws, in the layer's own space and inside a part of it. */
class KX_EXPORT KXDrawingLayer : public UXObject {
public:
    /** Draws what lies in dirtyRect, of the layer's space; the rest is not seen. */
    using PaintFunction = std::function<void(UXPainter& painter, const UXRect& dirtyRect)>;

    KXDrawingLayer();
    ~KXDrawingLayer() override;

    /** @param function draws the layer; empty for nothing */
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
