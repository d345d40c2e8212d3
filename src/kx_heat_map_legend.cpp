#include "kx_heat_map_legend.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr UXColor markColor(33, 33, 33), edgeColor(255, 255, 255);
/** Across the strip, whose colours show at both sides of it. */
constexpr double markThickness = 2, edgeThickness = 1;

} // namespace

KXHeatMapLegend::KXHeatMapLegend() = default;
KXHeatMapLegend::~KXHeatMapLegend() = default;

std::string KXHeatMapLegend::customSerializeTypeID() { return "KXHeatMapLegend"; }

void KXHeatMapLegend::setMarkedValue(const std::optional<double>& value)
{
    if (value == m_markedValue)
        return;
    m_markedValue = value;
    invalidate();
}

void KXHeatMapLegend::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXObjectWatcher self(this);
    KXGradientLegend::paint(config, dirtyRect);
    if (!self.isAlive() || !m_markedValue)
        return;
    const UXDoubleRect strip = obtainStrip();
    const double share = obtainShare(*m_markedValue);
    const bool isUpright = strip.height > strip.width;
    UXPainter* painter = strip.width > 0 && strip.height > 0 && std::isfinite(share)
                             ? uxCreatePainterWithObject(config, this)
                             : nullptr;
    if (!painter)
        return;
    const double along = isUpright ? strip.height * (1 - share) : strip.width * share;
    for (const double thickness : {markThickness + 2 * edgeThickness, markThickness}) {
        const double start = std::clamp(along - thickness / 2, 0.0,
                                        std::max((isUpright ? strip.height : strip.width) - thickness, 0.0));
        const UXDoubleRect mark = isUpright ? UXDoubleRect(strip.x, start, strip.width, thickness)
                                            : UXDoubleRect(start, strip.y, thickness, strip.height);
        painter->setColor(thickness > markThickness ? edgeColor : markColor);
        painter->drawRects({&mark, 1});
    }
    uxDestroyPainter(painter);
}
