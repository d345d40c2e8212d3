#include "ux/cairo/ux_cairo_glyph_cache.h"

#include <cairo.h>
#include <cmath>
#include <cstring>

namespace {

constexpr std::size_t kMostBytes = 4 << 20;
constexpr std::size_t kGlyphOverhead = 128; // about what a glyph takes beside its pixels

struct ContextRelease {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using ContextHandle = std::unique_ptr<cairo_t, ContextRelease>;

} // namespace

UXCairoGlyphCache& UXCairoGlyphCache::obtainShared()
{
    // Never destroyed: a host's static objects may still paint while the program ends.
    static UXCairoGlyphCache* shared = new UXCairoGlyphCache;
    return *shared;
}

void UXCairoGlyphCache::makeRoom()
{
    if (m_bytes <= kMostBytes)
        return;
    m_bytes = 0;
    m_faces.clear();
}

UXCairoGlyphCache::Face& UXCairoGlyphCache::obtainFace(_cairo_scaled_font* font, const UXTransform& toDevice)
{
    Face& face = m_faces[FaceKey{font, {toDevice.xx, toDevice.yx, toDevice.xy, toDevice.yy}}];
    if (!face.font) {
        face.font.reset(cairo_scaled_font_reference(font));
        face.toDevice = toDevice;
    }
    return face;
}

const UXCairoGlyphPixels& UXCairoGlyphCache::obtainPixels(Face& face, unsigned long glyph, int phaseX,
                                                          int phaseY)
{
    const std::uint64_t key = (std::uint64_t{glyph} * kPhases + std::uint64_t(phaseX)) * kPhases +
                              std::uint64_t(phaseY);
    if (const auto found = face.glyphs.find(key); found != face.glyphs.end())
        return found->second;
    UXCairoGlyphPixels pixels = _render(face.font.get(), face.toDevice, glyph, phaseX, phaseY);
    m_bytes += pixels.coverage.size() + kGlyphOverhead;
    return face.glyphs.emplace(key, std::move(pixels)).first->second;
}

UXCairoGlyphPixels UXCairoGlyphCache::_render(_cairo_scaled_font* font, const UXTransform& toDevice,
                                              unsigned long glyph, int phaseX, int phaseY)
{
    // 1. The outline in pixels, on a surface that is not drawn on.
    static cairo_surface_t* nowhere = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    const ContextHandle shape(cairo_create(nowhere));
    const cairo_matrix_t matrix = {toDevice.xx,
                                   toDevice.yx,
                                   toDevice.xy,
                                   toDevice.yy,
                                   double(phaseX) / kPhases,
                                   double(phaseY) / kPhases};
    cairo_set_matrix(shape.get(), &matrix);
    cairo_set_scaled_font(shape.get(), font);
    const cairo_glyph_t at = {glyph, 0, 0};
    cairo_glyph_path(shape.get(), &at, 1);
    cairo_identity_matrix(shape.get());

    // 2. The pixels that it touches; a blank touches none.
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_path_extents(shape.get(), &left, &top, &right, &bottom);
    UXCairoGlyphPixels pixels;
    if (!(right > left && bottom > top))
        return pixels;
    pixels.left = static_cast<int>(std::floor(left));
    pixels.top = static_cast<int>(std::floor(top));
    pixels.width = static_cast<int>(std::ceil(right)) - pixels.left;
    pixels.height = static_cast<int>(std::ceil(bottom)) - pixels.top;

    // 3. Fill it there.
    const UXCairoSurfaceHandle surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, pixels.width, pixels.height));
    const ContextHandle ink(cairo_create(surface.get()));
    cairo_translate(ink.get(), -pixels.left, -pixels.top);
    cairo_path_t* path = cairo_copy_path(shape.get());
    cairo_append_path(ink.get(), path);
    cairo_path_destroy(path);
    cairo_fill(ink.get());
    cairo_surface_flush(surface.get());
    const std::size_t width = static_cast<std::size_t>(pixels.width);
    pixels.rowLength = (width + 7) / 8 * 8;
    pixels.coverage.resize(pixels.rowLength * static_cast<std::size_t>(pixels.height));
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    for (std::size_t i = 0; row && i < pixels.coverage.size();
         i += pixels.rowLength, row += cairo_image_surface_get_stride(surface.get()))
        std::memcpy(&pixels.coverage[i], row, width);
    return pixels;
}
