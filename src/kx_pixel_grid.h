#pragma once

#include "kx_export.h"
#include "kx_squarify.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_transform.h"

/** The pixels of a device that shows a space, as far as rectangles are upright there; else the whole units.
 */
class KX_EXPORT KXPixelGrid {
public:
    /** @param toDevice from the space to the device's pixels */
    explicit KXPixelGrid(const UXTransform& toDevice);

    double snapX(double x) const;
    double snapY(double y) const;
    /** @return the part with each edge on the nearest pixel's */
    UXDoubleRect snap(const KXTileEdges& edges) const;

private:
    double m_scaleX = 1, m_scaleY = 1, m_offsetX = 0, m_offsetY = 0;
};
