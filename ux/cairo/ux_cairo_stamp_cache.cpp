#include "ux/cairo/ux_cairo_stamp_cache.h"

#include "ux/cairo/ux_cairo_handles.h"

#include <cairo.h>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t kMostPixels = 1 << 18, kMostStamps = 1024;

void appendBytes(std::string& key, const auto& value)
{
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

UXCairoStampCache& UXCairoStampCache::obtainShared()
{
    // Never destroyed: a host's static objects may still paint while the program ends.
    static UXCairoStampCache* shared = new UXCairoStampCache;
    return *shared;
}

const std::vector<std::uint32_t>& UXCairoStampCache::obtainStamp(
    const std::string& name, const Place& place, const std::function<void(UXCairoSurface*)>& draw)
{
    // 1. The name comes last: it has no end of its own.
    m_key.clear();
    appendBytes(m_key, place.scale);
    appendBytes(m_key, place.phase.x);
    appendBytes(m_key, place.phase.y);
    appendBytes(m_key, place.size.width);
    appendBytes(m_key, place.size.height);
    m_key.append(name);
    if (const auto found = m_stamps.find(m_key); found != m_stamps.end())
        return found->second;

    // 2. What is drawn may ask for stamps in turn.
    const std::string key = m_key;
    const auto width = static_cast<std::size_t>(place.size.width),
               height = static_cast<std::size_t>(place.size.height);
    const UXCairoSurfaceHandle surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, place.size.width, place.size.height));
    draw(surface.get());
    cairo_surface_flush(surface.get());
    std::vector<std::uint32_t> pixels(width * height);
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    for (std::size_t i = 0; row && i < pixels.size();
         i += width, row += cairo_image_surface_get_stride(surface.get()))
        std::memcpy(&pixels[i], row, width * sizeof pixels[0]);

    // 3. Make room, then remember.
    if (m_pixelCount + pixels.size() > kMostPixels || m_stamps.size() >= kMostStamps) {
        m_stamps.clear();
        m_pixelCount = 0;
    }
    m_pixelCount += pixels.size();
    return m_stamps.insert_or_assign(key, std::move(pixels)).first->second;
}
