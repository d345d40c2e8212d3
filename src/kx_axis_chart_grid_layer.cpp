#include "kx_axis_chart_grid_layer.h"

#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

namespace {

constexpr int thickness = 1;

/** @return the middle of a line at place that keeps inside the extent, where the place itself does */
double keepLineInside(double place, int extent)
{
    constexpr double half = thickness / 2.0;
    const bool isInside = extent >= thickness && place >= 0 && place <= extent;
    return isInside ? std::clamp(place, half, extent - half) : place;
}

} // namespace

KXAxisChartGridLayer::KXAxisChartGridLayer() = default;
KXAxisChartGridLayer::~KXAxisChartGridLayer() = default;

void KXAxisChartGridLayer::setLines(const std::vector<KXAxisChartGridLines>& lines, const UXRect& area)
{
    m_lines = lines;
    m_area = area;
    const UXRect whole = getBoundingRect();
    for (KXAxisChartGridLines& own : m_lines)
        for (double& place : own.places)
            place = keepLineInside(place, own.isHorizontal ? whole.height : whole.width);
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
                painter->drawHorizontalLines(lines.places, m_area.x, uxMaxX(m_area), thickness);
            else
                painter->drawVerticalLines(lines.places, m_area.y, uxMaxY(m_area), thickness);
        }
        uxDestroyPainter(painter);
    }
    KXAxisChartBaseLayer::paint(config, dirtyRect);
}
