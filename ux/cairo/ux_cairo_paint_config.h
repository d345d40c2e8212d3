#pragma once

#include "ux/cairo/ux_cairo_export.h"
#include "ux/cairo/ux_cairo_types.h"
#include "ux/ux_double_point.h"
#include "ux/ux_paint_config.h"

/**
 * Paints on a Cairo surface of any kind: the host's own, or one of those that the derived classes make.
 */
class UX_CAIRO_EXPORT UXCairoPaintConfig : public UXPaintConfig {
public:
    /**
     * @param surface a cairo_surface_t of the host, kept alive as long as this object; null makes an invalid
     * configuration. Its own device scale is left as it is.
     * @param scale logical units are this many units of the surface, beside the surface's device scale
     * @param origin where the root of the painted tree has its top left corner, in units of the surface
     */
    explicit UXCairoPaintConfig(UXCairoSurface* surface, double scale = 1,
                                const UXDoublePoint& origin = UXDoublePoint());
    ~UXCairoPaintConfig() override;

    /** @return the surface, which stays this object's; null where there is none */
    UXCairoSurface* getSurface() const { return m_surface; }

    // From UXPaintConfig
    UXPainter* createPainter(UXObject* object) override;
    bool isPaintConfigValid() const override;

private:
    UXCairoSurface* m_surface;
    double m_scale;
    UXDoublePoint m_origin;
};
