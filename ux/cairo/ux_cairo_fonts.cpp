#include "ux/cairo/ux_cairo_fonts.h"

#include "ux/cairo/ux_cairo_fonts_conf.h"
#include "ux/ux_text_bound.h"

#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>
#include <utility>

namespace {

// A host that makes up families or sizes without end gets them laid out, not remembered for ever.
constexpr std::size_t kMostFaces = 1024;

} // namespace

UXCairoFonts& UXCairoFonts::obtainShared()
{
    // Never destroyed: a host's static objects may still paint while the program ends.
    static UXCairoFonts* shared = new UXCairoFonts;
    return *shared;
}

UXCairoFonts::UXCairoFonts() : m_map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT))
{
    FcConfig* config = FcConfigCreate();
    FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(uxCairoFontsConf()), FcTrue);
    FcConfigBuildFonts(config);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(m_map), config);
    FcConfigDestroy(config);
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(m_map), 96);

    m_context = pango_font_map_create_context(m_map);
    pango_context_set_language(m_context, pango_language_from_string("en"));
    pango_context_set_round_glyph_positions(m_context, FALSE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(m_context, options);
    cairo_font_options_destroy(options);
}

UXCairoFonts::Face& UXCairoFonts::obtainFace(const UXFont& font)
{
    const int size = std::clamp(font.size, 1, 10000);
    const std::pair<std::string, int> key{uxBoundFamilyName(font.familyName),
                                          size * 4 + (font.bold ? 2 : 0) + (font.italic ? 1 : 0)};
    if (const auto found = m_faces.find(key); found != m_faces.end())
        return found->second;

    if (m_faces.size() >= kMostFaces) {
        for (const auto& [name, face] : m_faces)
            pango_font_description_free(face.description);
        m_faces.clear();
    }

    PangoFontDescription* description = pango_font_description_new();
    char* family = g_utf8_make_valid(key.first.c_str(), -1);
    pango_font_description_set_family(description, family);
    g_free(family);
    pango_font_description_set_absolute_size(description, double(size) * PANGO_SCALE);
    pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);

    // The font's own ascent and descent: Pango's metrics would shape a sample text, and a laid out line would
    // answer for the tallest of its glyphs' fonts.
    Face face{description, 0.9 * size, 1.2 * size};
    if (PangoFont* primary = pango_font_map_load_font(m_map, m_context, description)) {
        if (cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(primary))) {
            cairo_font_extents_t extents;
            cairo_scaled_font_extents(scaled, &extents);
            face.ascent = extents.ascent;
            face.lineHeight = extents.ascent + extents.descent;
        }
        g_object_unref(primary);
    }
    return m_faces.emplace(key, std::move(face)).first->second;
}
