#pragma once

#include "kx_export.h"
#include "kx_squarify.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_transform.h"

#include <cmath>
#include <cstdint>

/** The pixels of a device that shows a space, as far as rectangles are upright there; else the whole units.
 */
class KX_EXPORT KXPixelGrid {
public:
    /** @param toDevice from the space to the device's pixels */
    explicit KXPixelGrid(const UXTransform& toDevice);

    double snapX(double x) const { return (_round(x * m_scaleX + m_offsetX) - m_offsetX) / m_scaleX; }
    double snapY(double y) const { return (_round(y * m_scaleY + m_offsetY) - m_offsetY) / m_scaleY; }
    /** @return the part with each edge on the nearest pixel's */
    UXDoubleRect snap(const KXTileEdges& edges) const;

private:
    /** Of many tiles, each of whose edges is rounded. */
    static double _round(double place)
    {
        constexpr double furthest = 1e9;
        return place >= 0 && place < furthest ? static_cast<double>(static_cast<std::int64_t>(place + 0.5))
                                              : std::round(place);
    }

    double m_scaleX = 1, m_scaleY = 1, m_offsetX = 0, m_offsetY = 0;
};
