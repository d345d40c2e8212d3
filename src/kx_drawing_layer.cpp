#include "kx_drawing_layer.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

KXDrawingLayer::KXDrawingLayer() = default;
KXDrawingLayer::~KXDrawingLayer() = default;

void KXDrawingLayer::setPaintFunction(const PaintFunction& function)
{
    m_paintFunction = function;
    invalidate();
}

void KXDrawingLayer::setDrawingRect(const UXRect& rect)
{
    if (rect == m_drawingRect)
        return;
    m_drawingRect = rect;
    invalidate();
}

std::string KXDrawingLayer::customSerializeTypeID() { return "KXDrawingLayer"; }

void KXDrawingLayer::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXObjectWatcher self(this);
    if (config && m_paintFunction && uxIntersectsRect(m_drawingRect, dirtyRect)) {
        const UXPaintClip clip(*config, UXDoubleRect(translateRectToParent(m_drawingRect, nullptr)));
        if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
            m_paintFunction(*painter, uxIntersectionRect(m_drawingRect, dirtyRect));
            uxDestroyPainter(painter);
        }
    }
    if (self.isAlive())
        UXObject::paint(config, dirtyRect);
}
