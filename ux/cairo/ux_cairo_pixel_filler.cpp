#include "ux/cairo/ux_cairo_pixel_filler.h"

#include <algorithm>
#include <cmath>

UXCairoPixelFiller::UXCairoPixelFiller(UXCairoContext* context, const UXTransform& toDevice)
    : m_pixels(context, toDevice), m_toDevice(toDevice)
{
}

void UXCairoPixelFiller::fill(const UXDoubleRect& rect)
{
    const UXDoublePoint first = m_toDevice.apply(rect.x, rect.y);
    const UXDoublePoint second = m_toDevice.apply(rect.x + rect.width, rect.y + rect.height);
    if (!std::isfinite(first.x) || !std::isfinite(first.y) || !std::isfinite(second.x) ||
        !std::isfinite(second.y))
        return;
    for (const UXCairoPixels::Box& clip : m_pixels.getClip()) {
        const auto toPixel = [](double edge, int low, int high) {
            return static_cast<int>(
                std::clamp(std::floor(edge + 0.5), static_cast<double>(low), static_cast<double>(high)));
        };
        m_pixels.fill({toPixel(std::min(first.x, second.x), clip.left, clip.right),
                       toPixel(std::min(first.y, second.y), clip.top, clip.bottom),
                       toPixel(std::max(first.x, second.x), clip.left, clip.right),
                       toPixel(std::max(first.y, second.y), clip.top, clip.bottom)});
    }
}
