#include "ux/cairo/ux_cairo_versions.h"

#include "ux/cairo/ux_cairo_fonts.h"

#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <hb.h>
#include <pango/pango.h>
#include <pango/pangofc-font.h>
#include <pixman.h>
#include FT_FREETYPE_H

namespace {

std::string obtainFreeTypeVersion()
{
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return "unknown";
    FT_Int major = 0, minor = 0, patch = 0;
    FT_Library_Version(library, &major, &minor, &patch);
    FT_Done_FreeType(library);
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

/** @return the family that stands for name on this machine, and its version in units of 1/65536 */
std::string obtainFontVersion(const char* name)
{
    PangoFontDescription* description = pango_font_description_from_string(name);
    PangoFont* font = pango_context_load_font(UXCairoFonts::obtainShared().getContext(), description);
    pango_font_description_free(description);
    if (!font)
        return std::string(name) + " missing";
    std::string version = name;
    if (PANGO_IS_FC_FONT(font)) {
        FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
        FcChar8* family = nullptr;
        int number = 0;
        if (FcPatternGetString(pattern, FC_FAMILY, 0, &family) == FcResultMatch)
            version = reinterpret_cast<const char*>(family);
        FcPatternGetInteger(pattern, FC_FONTVERSION, 0, &number);
        version += ' ' + std::to_string(number);
    }
    g_object_unref(font);
    return version;
}

} // namespace

std::string uxCairoObtainVersions()
{
    std::string line = std::string("cairo ") + cairo_version_string() + ", pixman " +
                       pixman_version_string() + ", pango " + pango_version_string() + ", harfbuzz " +
                       hb_version_string() + ", freetype " + obtainFreeTypeVersion();
    for (const char* family : {"Roboto", "DejaVu Sans", "WenQuanYi Micro Hei"})
        line += ", " + obtainFontVersion(family);
    return line;
}
