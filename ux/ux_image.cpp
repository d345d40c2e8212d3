#include "ux/ux_image.h"

#include <utility>

UXImage::UXImage(int width, int height, std::vector<std::uint32_t> pixels)
{
    if (width < 1 || height < 1 || pixels.size() != std::uint64_t(width) * std::uint64_t(height))
        return;
    m_size = {width, height};
    m_pixels = std::make_shared<const std::vector<std::uint32_t>>(std::move(pixels));
}
