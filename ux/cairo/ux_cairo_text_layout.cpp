#include "ux/cairo/ux_cairo_text_layout.h"

#include "ux/cairo/ux_cairo_fonts.h"
#include "ux/cairo/ux_cairo_path_keeper.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <pango/pangocairo.h>
#include <set>

namespace {

// Pango counts in 1/1024 units and in int: these bounds keep every sum inside it.
constexpr std::size_t kMostBytes = 16384;
constexpr double kWidestLimit = 1 << 20;

/** @return text that Pango takes: valid, and short enough for its numbers in a font of this size */
std::string obtainValidText(const std::string& text, int fontSize)
{
    const std::size_t most = std::min(kMostBytes,
                                      (std::size_t{1} << 20) / static_cast<std::size_t>(fontSize));
    std::size_t length = std::min(text.size(), most);
    while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    if (g_utf8_validate_len(text.data(), length, nullptr))
        return text.substr(0, length);
    char* valid = g_utf8_make_valid(text.data(), static_cast<gssize>(length));
    std::string made = valid;
    g_free(valid);
    return made;
}

/** Says once about each text that no font has all of its characters. */
void reportUncovered(const std::string& text)
{
    constexpr std::size_t mostReports = 100;
    static std::set<std::string>* reported = new std::set<std::string>;
    if (reported->size() < mostReports && reported->insert(text).second)
        std::cerr << "ux_cairo: no font has every character of \"" << text << "\"\n";
}

PangoEllipsizeMode obtainEllipsizeMode(UXTextOption option)
{
    switch (option) {
    case UXTextOption::EllipsisEnd:
        return PANGO_ELLIPSIZE_END;
    case UXTextOption::EllipsisMiddle:
        return PANGO_ELLIPSIZE_MIDDLE;
    case UXTextOption::EllipsisStart:
        return PANGO_ELLIPSIZE_START;
    default:
        return PANGO_ELLIPSIZE_NONE;
    }
}

} // namespace

UXCairoTextLayout::UXCairoTextLayout(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode, double widthLimit)
{
    // 1. No text and no size take no room.
    if (text.empty() || font.size <= 0)
        return;
    UXCairoFonts& fonts = UXCairoFonts::obtainShared();
    const UXCairoFonts::Face& face = fonts.obtainFace(font);
    m_ascent = face.ascent;
    m_lineHeight = face.lineHeight;

    // 2. Let Pango break and shape it. The limit is rounded up so that a text fits the width that it
    // measured.
    const std::string valid = obtainValidText(text, std::clamp(font.size, 1, 10000));
    PangoLayout* layout = pango_layout_new(fonts.getContext());
    pango_layout_set_font_description(layout, face.description);
    pango_layout_set_text(layout, valid.data(), static_cast<int>(valid.size()));
    if (widthLimit >= 0) {
        pango_layout_set_width(layout,
                               static_cast<int>(std::ceil(std::min(widthLimit, kWidestLimit) * PANGO_SCALE)));
        pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
        if (lineMode != 1)
            pango_layout_set_ellipsize(layout, obtainEllipsizeMode(option));
    }
    if (pango_layout_get_unknown_glyphs_count(layout) > 0)
        reportUncovered(valid);

    // 3. Keep the places of the glyphs; the layout itself is of no further use.
    for (GSList* each = pango_layout_get_lines_readonly(layout); each; each = each->next) {
        const auto* line = static_cast<const PangoLayoutLine*>(each->data);
        Line& kept = m_lines.emplace_back(Line{0, m_runs.size(), 0});
        double x = 0;
        for (GSList* item = line->runs; item; item = item->next) {
            const auto* run = static_cast<const PangoLayoutRun*>(item->data);
            cairo_scaled_font_t* scaled = run->item->analysis.font
                                              ? pango_cairo_font_get_scaled_font(
                                                    PANGO_CAIRO_FONT(run->item->analysis.font))
                                              : nullptr;
            const std::size_t begin = m_glyphs.size();
            for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
                const PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
                // A character that no font has is drawn as the font's own sign for that, its glyph 0.
                const bool unknown = (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
                if (scaled && glyph.glyph != PANGO_GLYPH_EMPTY)
                    m_glyphs.push_back({unknown ? 0 : glyph.glyph,
                                        x + double(glyph.geometry.x_offset) / PANGO_SCALE,
                                        double(glyph.geometry.y_offset) / PANGO_SCALE});
                x += double(glyph.geometry.width) / PANGO_SCALE;
            }
            if (m_glyphs.size() > begin)
                m_runs.push_back({cairo_scaled_font_reference(scaled), begin, m_glyphs.size()});
        }
        kept.width = std::max(0.0, x);
        kept.end = m_runs.size();
        m_size.width = std::max(m_size.width, kept.width);
    }
    m_size.height = m_lineHeight * static_cast<double>(m_lines.size());
    g_object_unref(layout);
}

UXCairoTextLayout::~UXCairoTextLayout()
{
    for (const Run& run : m_runs)
        cairo_scaled_font_destroy(run.font);
}

void UXCairoTextLayout::draw(UXCairoContext* context, double left, double top, double width,
                             UXTextAlign align, bool asOutlines) const
{
    const double share = align == UXTextAlign::Center ? 0.5 : align == UXTextAlign::Right ? 1 : 0;
    std::vector<cairo_glyph_t> placed;
    double baseline = top + m_ascent;
    for (const Line& line : m_lines) {
        const double start = left + (width - line.width) * share;
        for (std::size_t i = line.begin; i < line.end; ++i) {
            const Run& run = m_runs[i];
            placed.clear();
            for (std::size_t k = run.begin; k < run.end; ++k)
                placed.push_back({m_glyphs[k].index, start + m_glyphs[k].x, baseline + m_glyphs[k].y});
            cairo_set_scaled_font(context, run.font);
            if (asOutlines) {
                const UXCairoPathKeeper keeper(context);
                cairo_glyph_path(context, placed.data(), static_cast<int>(placed.size()));
                cairo_fill(context);
            } else {
                cairo_show_glyphs(context, placed.data(), static_cast<int>(placed.size()));
            }
        }
        baseline += m_lineHeight;
    }
}
