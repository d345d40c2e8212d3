#include "ux/cairo/ux_cairo_image_paint_config.h"

#include "ux/cairo/ux_cairo_file_writer.h"

#include <cairo.h>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr double kMostPixelsAcross = 32767; // what Cairo's images can have
constexpr double kMostPixels = 1 << 27;

/** @return pixels enough for length, counting no pixel for what only comes from rounding the product */
double obtainPixels(double length, double scale) { return std::ceil(length * scale - 1e-6); }

/** @return a new surface, to which one unit of drawing is scale pixels; null where it could not be painted on
 */
UXCairoSurface* createSurface(const UXDoubleSize& size, double scale)
{
    const double width = obtainPixels(size.width, scale), height = obtainPixels(size.height, scale);
    if (!(scale > 0) || !(width >= 1 && width <= kMostPixelsAcross) ||
        !(height >= 1 && height <= kMostPixelsAcross) || !(width * height <= kMostPixels))
        return nullptr;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width),
                                                          static_cast<int>(height));
    cairo_surface_set_device_scale(surface, scale, scale);
    return surface;
}

} // namespace

UXCairoImagePaintConfig::UXCairoImagePaintConfig(const UXDoubleSize& size, double scale)
    : UXCairoPaintConfig(createSurface(size, scale))
{
    // The base holds a reference of its own.
    if (getSurface())
        cairo_surface_destroy(getSurface());
}

UXSize UXCairoImagePaintConfig::getPixelSize() const
{
    if (!isPaintConfigValid())
        return {};
    return {cairo_image_surface_get_width(getSurface()), cairo_image_surface_get_height(getSurface())};
}

const std::uint32_t* UXCairoImagePaintConfig::getPixels() const
{
    if (!isPaintConfigValid())
        return nullptr;
    cairo_surface_flush(getSurface());
    return reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(getSurface()));
}

int UXCairoImagePaintConfig::getRowLength() const
{
    return isPaintConfigValid()
               ? cairo_image_surface_get_stride(getSurface()) / static_cast<int>(sizeof(std::uint32_t))
               : 0;
}

UXImage UXCairoImagePaintConfig::obtainImage() const
{
    const UXSize size = getPixelSize();
    if (size.width < 1)
        return {};
    const std::uint32_t* row = getPixels();
    const std::size_t width = static_cast<std::size_t>(size.width);
    std::vector<std::uint32_t> pixels(width * static_cast<std::size_t>(size.height));
    for (int y = 0; y < size.height; ++y, row += getRowLength())
        std::memcpy(&pixels[width * static_cast<std::size_t>(y)], row, width * sizeof pixels[0]);
    return {size.width, size.height, std::move(pixels)};
}

bool UXCairoImagePaintConfig::writePng(const std::string& path) const
{
    if (!isPaintConfigValid())
        return false;
    std::string bytes;
    const auto append = [](void* to, const unsigned char* data, unsigned length) {
        static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
        return CAIRO_STATUS_SUCCESS;
    };
    return cairo_surface_write_to_png_stream(getSurface(), append, &bytes) == CAIRO_STATUS_SUCCESS &&
           uxCairoWriteFile(path, bytes);
}
