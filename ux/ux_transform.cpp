#include "ux/ux_transform.h"

#include "ux/ux_angle.h"

#include <cmath>

UXTransform UXTransform::translated(double x, double y) const
{
    const UXDoublePoint origin = apply(x, y);
    return {xx, yx, xy, yy, origin.x, origin.y};
}

UXTransform UXTransform::rotated(double degrees) const
{
    const double cosine = uxCosDegrees(degrees), sine = uxSinDegrees(degrees);
    return combined({cosine, sine, -sine, cosine, 0, 0});
}

UXTransform UXTransform::scaled(double sx, double sy) const
{
    return {xx * sx, yx * sx, xy * sy, yy * sy, dx, dy};
}

UXTransform UXTransform::combined(const UXTransform& inner) const
{
    const UXDoublePoint origin = apply(inner.dx, inner.dy);
    return {xx * inner.xx + xy * inner.yx,
            yx * inner.xx + yy * inner.yx,
            xx * inner.xy + xy * inner.yy,
            yx * inner.xy + yy * inner.yy,
            origin.x,
            origin.y};
}

UXTransform UXTransform::unmirrored() const
{
    return xx < 0 ? UXTransform{-xx, yx, -xy, yy, -dx, dy} : *this;
}

bool UXTransform::isInvertible() const
{
    const double inverse = 1 / (xx * yy - xy * yx);
    return std::isfinite(inverse) && inverse != 0 && std::isfinite(dx) && std::isfinite(dy);
}

UXTransform UXTransform::inverted() const
{
    if (!isInvertible())
        return {};
    const double inverse = 1 / (xx * yy - xy * yx);
    const UXTransform linear{yy * inverse, -yx * inverse, -xy * inverse, xx * inverse, 0, 0};
    return linear.translated(-dx, -dy);
}
