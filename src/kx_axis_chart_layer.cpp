#include "kx_axis_chart_layer.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

KXAxisChartLayer::KXAxisChartLayer() = default;
KXAxisChartLayer::~KXAxisChartLayer() = default;

void KXAxisChartLayer::setPaintFunction(const PaintFunction& function)
{
    m_paintFunction = function;
    invalidate();
}

void KXAxisChartLayer::setDrawingRect(const UXRect& rect)
{
    if (rect == m_drawingRect)
        return;
    m_drawingRect = rect;
    invalidate();
}

std::string KXAxisChartLayer::customSerializeTypeID() { return "KXAxisChartLayer"; }

void KXAxisChartLayer::paint(UXPaintConfig* config, UXRect dirtyRect)
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
        KXAxisChartBaseLayer::paint(config, dirtyRect);
}
