#include "kx_axis_chart_grid_layer.h"

#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

KXAxisChartGridLayer::KXAxisChartGridLayer() = default;
KXAxisChartGridLayer::~KXAxisChartGridLayer() = default;

void KXAxisChartGridLayer::setLines(const std::vector<KXAxisChartGridLines>& lines, const UXRect& area)
{
    m_lines = lines;
    m_area = area;
    invalidate();
}

std::string KXAxisChartGridLayer::customSerializeTypeID() { return "KXAxisChartGridLayer"; }

void KXAxisChartGridLayer::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    UXPainter* painter = m_lines.empty() ? nullptr : uxCreatePainterWithObject(config, this);
    if (painter) {
        for (const KXAxisChartGridLines& lines : m_lines) {
            painter->setColor(lines.color);
            if (lines.isHorizontal)
                painter->drawHorizontalLines(lines.places, m_area.x, uxMaxX(m_area), 1);
            else
                painter->drawVerticalLines(lines.places, m_area.y, uxMaxY(m_area), 1);
        }
        uxDestroyPainter(painter);
    }
    KXAxisChartBaseLayer::paint(config, dirtyRect);
}
