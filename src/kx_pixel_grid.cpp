#include "kx_pixel_grid.h"

#include <cmath>

namespace {

/** Pixels of another size are no grid that one could see. */
constexpr double leastScale = 0.01, greatestScale = 100;

bool isScale(double scale) { return scale >= leastScale && scale <= greatestScale; }

} // namespace

KXPixelGrid::KXPixelGrid(const UXTransform& toDevice)
{
    const bool isFinite = std::isfinite(toDevice.dx) && std::isfinite(toDevice.dy);
    if (!toDevice.isUpright() || !isScale(toDevice.xx) || !isScale(toDevice.yy) || !isFinite)
        return;
    m_scaleX = toDevice.xx;
    m_scaleY = toDevice.yy;
    m_offsetX = toDevice.dx - std::floor(toDevice.dx);
    m_offsetY = toDevice.dy - std::floor(toDevice.dy);
}

double KXPixelGrid::snapX(double x) const
{
    return (std::round(x * m_scaleX + m_offsetX) - m_offsetX) / m_scaleX;
}

double KXPixelGrid::snapY(double y) const
{
    return (std::round(y * m_scaleY + m_offsetY) - m_offsetY) / m_scaleY;
}

UXDoubleRect KXPixelGrid::snap(const KXTileEdges& edges) const
{
    const double left = snapX(edges.left), top = snapY(edges.top);
    return {left, top, snapX(edges.right) - left, snapY(edges.bottom) - top};
}
