#include "ux/cairo/ux_cairo_mark_layers.h"

namespace {

/** What is left of a ground that nothing covers. */
constexpr std::uint16_t kClear = 65535;

/** Takes from each of a block of pixels the part that a mark covers. */
void cover(std::uint16_t* transparencies, const std::uint16_t* opacities)
{
    for (int i = 0; i < UXCairoMarkLayers::blockWidth; ++i) {
        const std::uint32_t product = std::uint32_t{transparencies[i]} * opacities[i];
        transparencies[i] = static_cast<std::uint16_t>(transparencies[i] - ((product + 0x8000) >> 16));
    }
}

} // namespace

UXCairoMarkLayers::UXCairoMarkLayers(const UXCairoPixels::Box& box, int width, int height)
    : m_box(box), m_width(width), m_height(height),
      m_rowLength(static_cast<std::size_t>(box.right - box.left) + 2 * static_cast<std::size_t>(width)),
      m_transparencies(
          (static_cast<std::size_t>(box.bottom - box.top) + 2 * static_cast<std::size_t>(height)) *
              m_rowLength,
          kClear)
{
}

std::size_t UXCairoMarkLayers::_find(int left, int top) const
{
    return static_cast<std::size_t>(top - m_box.top + m_height) * m_rowLength +
           static_cast<std::size_t>(left - m_box.left + m_width);
}

void UXCairoMarkLayers::add(int left, int top, const std::uint16_t* stamp)
{
    std::uint16_t* row = m_transparencies.data() + _find(left, top);
    for (int y = 0; y < m_height; ++y, row += m_rowLength)
        for (int x = 0; x < m_width; x += blockWidth, stamp += blockWidth)
            cover(row + x, stamp);
}

void UXCairoMarkLayers::draw(UXCairoPixels& pixels) const
{
    const auto count = static_cast<std::size_t>(m_box.right - m_box.left);
    for (int y = m_box.top; y < m_box.bottom; ++y)
        pixels.lay(m_box.left, y, m_transparencies.data() + _find(m_box.left, y), count);
}
