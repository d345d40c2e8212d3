#include "kx_pixel_grid.h"

#include <cmath>

namespace {

/** Pixels of another size are no grid that one could see. */
constexpr double leastScale = 0.01, greatestScale = 100;

bool isScale(double scale) { return scale >= leastScale && scale <= greatestScale; }

} // namespace

KXPixelGrid::KXPixelGrid(const UXTransform& toDevice)
{
    const UXTransform pixels = toDevice.unmirrored();
    const bool isFinite = std::isfinite(pixels.dx) && std::isfinite(pixels.dy);
    if (!pixels.isUpright() || !isScale(pixels.xx) || !isScale(pixels.yy) || !isFinite)
        return;
    m_scaleX = pixels.xx;
    m_scaleY = pixels.yy;
    m_offsetX = pixels.dx - std::floor(pixels.dx);
    m_offsetY = pixels.dy - std::floor(pixels.dy);
}

UXDoubleRect KXPixelGrid::snap(const KXTileEdges& edges) const
{
    const double left = snapX(edges.left), top = snapY(edges.top);
    return {left, top, snapX(edges.right) - left, snapY(edges.bottom) - top};
}
