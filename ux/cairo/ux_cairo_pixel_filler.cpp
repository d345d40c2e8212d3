#include "ux/cairo/ux_cairo_pixel_filler.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

/** Rows that are filled at a time: so many pages of memory are at hand at once. */
constexpr int kBandHeight = 32;
constexpr std::size_t kFewestBandedBoxes = 8;
/** Edges further off are not moved to pixels. */
constexpr double kLastPixel = 1e9;

} // namespace

UXCairoPixelFiller::UXCairoPixelFiller(UXCairoPixels& pixels, const UXTransform& toDevice)
    : m_pixels(pixels), m_toDevice(toDevice)
{
}

/** Each edge goes to the nearest one of a pixel, as uxSnapRect moves it, and as many pixels are filled. */
UXCairoPixels::Box UXCairoPixelFiller::_toBox(const UXDoubleRect& rect, const UXCairoPixels::Box& clip) const
{
    const UXDoublePoint first = m_toDevice.apply(rect.x, rect.y);
    const UXDoublePoint second = m_toDevice.apply(rect.x + rect.width, rect.y + rect.height);
    const bool isOnDevice = std::abs(first.x) <= kLastPixel && std::abs(first.y) <= kLastPixel &&
                            std::abs(second.x) <= kLastPixel && std::abs(second.y) <= kLastPixel;
    if (!isOnDevice && (!std::isfinite(first.x) || !std::isfinite(first.y) || !std::isfinite(second.x) ||
                        !std::isfinite(second.y)))
        return {};
    // One pixel beside the clip stands for all that lie there.
    const auto toPixel = [](double edge, int low, int high) {
        return static_cast<int>(std::clamp(edge + 0.5, low - 1.0, high + 1.0) + 1) - 1;
    };
    UXCairoPixels::Box box{toPixel(std::min(first.x, second.x), clip.left, clip.right),
                           toPixel(std::min(first.y, second.y), clip.top, clip.bottom),
                           toPixel(std::max(first.x, second.x), clip.left, clip.right),
                           toPixel(std::max(first.y, second.y), clip.top, clip.bottom)};
    if (isOnDevice) { // where a rectangle is at least one pixel wide
        box.right = std::max(box.right, box.left + 1);
        box.bottom = std::max(box.bottom, box.top + 1);
    }
    return {std::max(box.left, clip.left), std::max(box.top, clip.top), std::min(box.right, clip.right),
            std::min(box.bottom, clip.bottom)};
}

void UXCairoPixelFiller::fill(std::span<const UXDoubleRect> rects)
{
    for (const UXCairoPixels::Box& clip : m_pixels.getClip()) {
        for (const UXDoubleRect& rect : rects) {
            if (!(rect.width > 0 && rect.height > 0))
                continue;
            const UXCairoPixels::Box box = _toBox(rect, clip);
            if (box.isEmpty())
                continue;
            if (!m_row.empty() && box.left < m_row.back().right)
                _fillRow();
            m_row.push_back(box);
        }
        _fillRow();
    }
}

/** Columns of one pixel, each filled to its end, would touch a page of memory for every row and come back to
 * it with every column: they are filled some rows at a time. */
void UXCairoPixelFiller::_fillRow()
{
    int top = INT_MAX, bottom = INT_MIN;
    std::int64_t rowCount = 0;
    for (const UXCairoPixels::Box& box : m_row) {
        top = std::min(top, box.top);
        bottom = std::max(bottom, box.bottom);
        rowCount += box.bottom - box.top;
    }
    const bool isHigh = rowCount >= static_cast<std::int64_t>(m_row.size()) * kBandHeight;
    if (isHigh && m_row.size() >= kFewestBandedBoxes) {
        for (int y = top; y < bottom; y += kBandHeight)
            _fillBand(y, std::min(y + kBandHeight, bottom));
    } else {
        for (const UXCairoPixels::Box& box : m_row)
            m_pixels.fill(box);
    }
    m_row.clear();
}

void UXCairoPixelFiller::_fillBand(int top, int bottom)
{
    UXCairoPixels::Box joined;
    for (const UXCairoPixels::Box& box : m_row) {
        const UXCairoPixels::Box part{box.left, std::max(box.top, top), box.right,
                                      std::min(box.bottom, bottom)};
        if (part.isEmpty())
            continue;
        if (part.left == joined.right && part.top == joined.top && part.bottom == joined.bottom) {
            joined.right = part.right;
            continue;
        }
        m_pixels.fill(joined);
        joined = part;
    }
    m_pixels.fill(joined);
}
