#include "ux/cairo/ux_cairo_pdf_paint_config.h"

#include "ux/cairo/ux_cairo_file_writer.h"

#include <cairo-pdf.h>
#include <utility>

namespace {

constexpr double kLongestSide = 14400;

cairo_status_t append(void* to, const unsigned char* data, unsigned length)
{
    static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

/** @return a new surface whose document goes to bytes; null for a page that cannot be */
UXCairoSurface* createSurface(const UXDoubleSize& size, std::string* bytes)
{
    if (!(size.width > 0 && size.width <= kLongestSide && size.height > 0 && size.height <= kLongestSide))
        return nullptr;
    return cairo_pdf_surface_create_for_stream(append, bytes, size.width, size.height);
}

} // namespace

UXCairoPdfPaintConfig::UXCairoPdfPaintConfig(const UXDoubleSize& size)
    : UXCairoPdfPaintConfig(size, std::make_unique<std::string>())
{
}

UXCairoPdfPaintConfig::UXCairoPdfPaintConfig(const UXDoubleSize& size, std::unique_ptr<std::string> bytes)
    : UXCairoPaintConfig(createSurface(size, bytes.get())), m_bytes(std::move(bytes))
{
    // The base holds a reference of its own.
    if (getSurface())
        cairo_surface_destroy(getSurface());
}

UXCairoPdfPaintConfig::~UXCairoPdfPaintConfig()
{
    // Ends the document while the bytes that it goes to are still there.
    if (getSurface())
        cairo_surface_finish(getSurface());
}

bool UXCairoPdfPaintConfig::isPaintConfigValid() const
{
    return !m_finished && UXCairoPaintConfig::isPaintConfigValid();
}

void UXCairoPdfPaintConfig::startNewPage()
{
    if (isPaintConfigValid())
        cairo_surface_show_page(getSurface());
}

bool UXCairoPdfPaintConfig::writePdf(const std::string& path)
{
    if (!isPaintConfigValid())
        return false;
    m_finished = true;
    cairo_surface_finish(getSurface());
    return cairo_surface_status(getSurface()) == CAIRO_STATUS_SUCCESS && uxCairoWriteFile(path, *m_bytes);
}
