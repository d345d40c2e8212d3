#include "ux/cairo/ux_cairo_mark_coverage.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

using Block = std::array<std::uint8_t, UXCairoMarkCoverage::blockWidth>;

/** All bits of a block that is covered in full. */
constexpr std::uint64_t kFull = ~std::uint64_t{0};
static_assert(sizeof(Block) == sizeof(kFull));

/** Raises the pixels of a block to what a stamp covers of them.
 *  @return the bits of all its pixels */
std::uint64_t raise(std::uint8_t* pixels, const std::uint8_t* stamp)
{
    Block parts, own;
    std::memcpy(parts.data(), pixels, parts.size());
    std::memcpy(own.data(), stamp, own.size());
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = std::max(parts[i], own[i]);
    std::memcpy(pixels, parts.data(), parts.size());
    return std::bit_cast<std::uint64_t>(parts);
}

} // namespace

UXCairoMarkCoverage::UXCairoMarkCoverage(const UXCairoPixels::Box& box, int width, int height)
    : m_box(box), m_width(width), m_height(height),
      m_rowLength(static_cast<std::size_t>(box.right - box.left) + 2 * static_cast<std::size_t>(width)),
      m_coverage((static_cast<std::size_t>(box.bottom - box.top) + 2 * static_cast<std::size_t>(height)) *
                 m_rowLength),
      m_areFull(m_coverage.size())
{
}

std::size_t UXCairoMarkCoverage::_find(int left, int top) const
{
    return static_cast<std::size_t>(top - m_box.top + m_height) * m_rowLength +
           static_cast<std::size_t>(left - m_box.left + m_width);
}

void UXCairoMarkCoverage::add(int left, int top, const std::uint8_t* stamp)
{
    const std::size_t at = _find(left, top);
    if (m_areFull[at])
        return;
    std::uint64_t all = kFull;
    std::uint8_t* row = m_coverage.data() + at;
    const int width = m_width, height = m_height; // which writing pixels does not change
    for (int y = 0; y < height; ++y, row += m_rowLength)
        for (int x = 0; x < width; x += blockWidth, stamp += blockWidth)
            all &= raise(row + x, stamp);
    m_areFull[at] = all == kFull;
}

void UXCairoMarkCoverage::draw(UXCairoPixels& pixels) const
{
    const auto count = static_cast<std::size_t>(m_box.right - m_box.left);
    for (int y = m_box.top; y < m_box.bottom; ++y)
        pixels.blend(m_box.left, y, m_coverage.data() + _find(m_box.left, y), count);
}
