#include "ux/cairo/ux_cairo_text_measurer.h"

#include "ux/cairo/ux_cairo_text_cache.h"

UXDoubleSize UXCairoTextMeasurer::measureText(const std::string& text, const UXFont& font,
                                              UXTextOption option, int lineMode, double widthLimit)
{
    return UXCairoTextCache::obtainShared().obtainLayout(text, font, option, lineMode, widthLimit).getSize();
}
