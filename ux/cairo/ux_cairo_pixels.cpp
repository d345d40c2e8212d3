#include "ux/cairo/ux_cairo_pixels.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace {

constexpr std::uint32_t kOpaque = 255;
/** Edges that are further from a whole pixel lie in one. */
constexpr double kPixelNoise = 1e-3;

bool isWhole(double edge) { return std::abs(edge - std::round(edge)) <= kPixelNoise; }

/** @return the upper byte of the 16 bits that Cairo makes of a part from 0 to 1 */
std::uint32_t toByte(double part) { return static_cast<std::uint32_t>(part * 65535 + 0.5) >> 8; }

/** Multiplies the four bytes of a pixel by share / 255, rounded. */
std::uint32_t multiply(std::uint32_t pixel, std::uint32_t share)
{
    const auto half = [share](std::uint32_t pair) {
        const std::uint32_t product = pair * share + 0x800080;
        return ((product + ((product >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF;
    };
    return half(pixel & 0xFF00FF) | half((pixel >> 8) & 0xFF00FF) << 8;
}

} // namespace

UXCairoPixels::UXCairoPixels(UXCairoContext* context, const UXTransform& toDevice)
{
    cairo_surface_t* surface = cairo_get_target(context);
    // A layer lies on a surface of its own, with pixels elsewhere.
    if (cairo_get_group_target(context) != surface || !toDevice.isUpright() ||
        cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE ||
        cairo_image_surface_get_format(surface) != CAIRO_FORMAT_ARGB32 ||
        cairo_get_operator(context) != CAIRO_OPERATOR_OVER || !_takeSource(context) ||
        !_takeClip(context, toDevice, cairo_image_surface_get_width(surface),
                   cairo_image_surface_get_height(surface)))
        return;
    m_surface = surface;
    cairo_surface_flush(surface);
    m_rows = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
    m_rowLength = cairo_image_surface_get_stride(surface) / 4;
}

UXCairoPixels::~UXCairoPixels()
{
    if (m_rows)
        cairo_surface_mark_dirty(m_surface);
}

bool UXCairoPixels::_takeSource(UXCairoContext* context)
{
    double red = 0, green = 0, blue = 0, alpha = 0;
    if (cairo_pattern_get_rgba(cairo_get_source(context), &red, &green, &blue, &alpha) !=
        CAIRO_STATUS_SUCCESS)
        return false;
    m_color = toByte(alpha) << 24 | toByte(red * alpha) << 16 | toByte(green * alpha) << 8 |
              toByte(blue * alpha);
    return true;
}

bool UXCairoPixels::_takeClip(UXCairoContext* context, const UXTransform& toDevice, int width, int height)
{
    cairo_rectangle_list_t* list = cairo_copy_clip_rectangle_list(context);
    bool isWholePixels = list->status == CAIRO_STATUS_SUCCESS;
    for (int i = 0; isWholePixels && i < list->num_rectangles; ++i) {
        const cairo_rectangle_t& rect = list->rectangles[i];
        const UXDoublePoint first = toDevice.apply(rect.x, rect.y);
        const UXDoublePoint second = toDevice.apply(rect.x + rect.width, rect.y + rect.height);
        isWholePixels = isWhole(first.x) && isWhole(first.y) && isWhole(second.x) && isWhole(second.y);
        const auto toPixel = [](double edge, int count) {
            return static_cast<int>(std::clamp(std::round(edge), 0.0, static_cast<double>(count)));
        };
        m_clip.push_back(
            {toPixel(std::min(first.x, second.x), width), toPixel(std::min(first.y, second.y), height),
             toPixel(std::max(first.x, second.x), width), toPixel(std::max(first.y, second.y), height)});
    }
    cairo_rectangle_list_destroy(list);
    return isWholePixels;
}

void UXCairoPixels::fill(const Box& box)
{
    const std::uint32_t rest = kOpaque - (m_color >> 24);
    for (int y = box.top; y < box.bottom; ++y) {
        std::uint32_t* row = _row(y);
        if (rest == 0)
            std::fill(row + box.left, row + box.right, m_color);
        else
            std::transform(row + box.left, row + box.right, row + box.left,
                           [&](std::uint32_t pixel) { return m_color + multiply(pixel, rest); });
    }
}

void UXCairoPixels::blend(int left, int y, const std::uint8_t* coverage, std::size_t count)
{
    std::uint32_t* row = _row(y) + left;
    const bool isOpaque = m_color >> 24 == kOpaque;
    for (std::size_t i = 0; i < count; ++i) {
        if (coverage[i] == 0)
            continue;
        if (coverage[i] == kOpaque && isOpaque) {
            row[i] = m_color;
            continue;
        }
        const std::uint32_t color = multiply(m_color, coverage[i]);
        row[i] = color + multiply(row[i], kOpaque - (color >> 24));
    }
}
