#include "ux/cairo/ux_cairo_paint_config.h"

#include "ux/cairo/ux_cairo_painter.h"

#include <cairo.h>
#include <cmath>

UXCairoPaintConfig::UXCairoPaintConfig(UXCairoSurface* surface, double scale, const UXDoublePoint& origin)
    : m_surface(surface ? cairo_surface_reference(surface) : nullptr), m_scale(scale), m_origin(origin)
{
}

UXCairoPaintConfig::~UXCairoPaintConfig()
{
    if (m_surface)
        cairo_surface_destroy(m_surface);
}

UXPainter* UXCairoPaintConfig::createPainter(UXObject*)
{
    return isPaintConfigValid() ? new UXCairoPainter(m_surface, m_scale, m_origin) : nullptr;
}

bool UXCairoPaintConfig::isPaintConfigValid() const
{
    return m_surface && cairo_surface_status(m_surface) == CAIRO_STATUS_SUCCESS && m_scale > 1e-3 &&
           m_scale < 1e3 && std::isfinite(m_origin.x) && std::isfinite(m_origin.y);
}
