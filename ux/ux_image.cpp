#include "ux/ux_image.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::uint32_t leastOpaquePixel = 0xFF000000U;

} // namespace

UXImage::UXImage(int width, int height, std::vector<std::uint32_t> pixels)
{
    if (width < 1 || height < 1 || pixels.size() != std::uint64_t(width) * std::uint64_t(height))
        return;
    m_size = {width, height};
    m_isOpaque = std::ranges::all_of(pixels, [](std::uint32_t pixel) { return pixel >= leastOpaquePixel; });
    m_pixels = std::make_shared<const std::vector<std::uint32_t>>(std::move(pixels));
}
