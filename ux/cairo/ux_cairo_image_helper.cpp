#include "ux/cairo/ux_cairo_image_helper.h"

#include <cairo.h>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr std::uint64_t kMostPixelsAcross = 32767;
constexpr std::uint64_t kMostPixels = 1 << 26;

struct Reader {
    const unsigned char* bytes;
    std::uint64_t left;
};

cairo_status_t readBytes(void* from, unsigned char* to, unsigned length)
{
    auto* reader = static_cast<Reader*>(from);
    if (length > reader->left)
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy(to, reader->bytes, length);
    reader->bytes += length;
    reader->left -= length;
    return CAIRO_STATUS_SUCCESS;
}

/** @return whether bytes begin as a PNG file of a size that is let in: width and height stand at 16 and 20 */
bool isAcceptable(const unsigned char* bytes, std::uint64_t length)
{
    constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (!bytes || length < 24 || std::memcmp(bytes, signature, sizeof signature) != 0)
        return false;
    const auto number = [](const unsigned char* at) {
        return std::uint64_t{at[0]} << 24 | std::uint64_t{at[1]} << 16 | std::uint64_t{at[2]} << 8 | at[3];
    };
    const std::uint64_t width = number(bytes + 16), height = number(bytes + 20);
    return width >= 1 && height >= 1 && width <= kMostPixelsAcross && height <= kMostPixelsAcross &&
           width * height <= kMostPixels;
}

} // namespace

UXImage* UXCairoImageHelper::imageFromBuffer(const unsigned char* bytes, std::uint64_t length)
{
    if (!isAcceptable(bytes, length))
        return nullptr;
    Reader reader{bytes, length};
    cairo_surface_t* decoded = cairo_image_surface_create_from_png_stream(readBytes, &reader);
    if (cairo_surface_status(decoded) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(decoded);
        return nullptr;
    }

    // Whatever form the file had, it is drawn into the one form that an image has.
    const int width = cairo_image_surface_get_width(decoded),
              height = cairo_image_surface_get_height(decoded);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_ARGB32, width, height, width * 4);
    cairo_t* context = cairo_create(surface);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(context, decoded, 0, 0);
    cairo_paint(context);
    const bool isDrawn = cairo_status(context) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(context);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
    cairo_surface_destroy(decoded);
    return isDrawn ? new UXImage(width, height, std::move(pixels)) : nullptr;
}
