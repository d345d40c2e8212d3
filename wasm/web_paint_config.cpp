#include "web_paint_config.h"

#include "web_painter.h"

WebPaintConfig::WebPaintConfig(WebDrawing& drawing, const UXTransform& toCanvas)
    : m_drawing(drawing), m_toCanvas(toCanvas)
{
}

UXPainter* WebPaintConfig::createPainter(UXObject*) { return new WebPainter(m_drawing, m_toCanvas); }
