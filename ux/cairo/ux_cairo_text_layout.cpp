#include "ux/cairo/ux_cairo_text_layout.h"

#include "ux/cairo/ux_cairo_fonts.h"
#include "ux/cairo/ux_cairo_glyph_cache.h"
#include "ux/cairo/ux_cairo_number_font.h"
#include "ux/cairo/ux_cairo_path_keeper.h"
#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_text_bound.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <iostream>
#include <iterator>
#include <pango/pangocairo.h>
#include <set>
#include <string_view>
#include <utility>
#ifdef __SSE2__
#    include <emmintrin.h>
#endif

namespace {

// Pango counts in 1/1024 units and in int: with the bound of drawn texts, this one keeps every sum inside it.
constexpr double kWidestLimit = 1 << 20;
// Pango's work grows with the square of each of these.
constexpr int kMostTabs = 256, kMostBlanks = 256, kMostLineEnds = 1000, kMostTurns = 512; // blanks in a row
// Cairo keeps device coordinates in 24 bits before the point.
constexpr double kFarthestPixel = 4e6;
// Sizes in pixels: neither a speck nor a wall is a text, and Cairo has no font for them.
constexpr double kSmallestText = 0.05, kLargestText = 50000;
// Up to this size a line is kept as pixels, its letters set to parts of a pixel. Larger letters are put on
// whole pixels by Cairo, where one half of a pixel does not show; the largest are filled outlines.
constexpr double kLargestKeptText = 40, kWidestKeptText = 4096, kMostKeptPixels = 1 << 20,
                 kLargestGlyph = 256;
// A text is drawn on two devices in turn, in a window and in its preview, and seldom on more.
constexpr std::size_t kMostRenderings = 2;

/** Pixels whose coverages are added at once. */
constexpr std::size_t kTogether = 8;

/** Adds the coverages of eight pixels to others, each up to 255. */
void addCoverage(std::uint8_t* to, const std::uint8_t* from)
{
#ifdef __SSE2__
    auto* const place = reinterpret_cast<__m128i*>(to);
    const __m128i added = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from));
    _mm_storel_epi64(place, _mm_adds_epu8(_mm_loadl_epi64(place), added));
#else
    for (std::size_t i = 0; i < kTogether; ++i)
        to[i] = static_cast<std::uint8_t>(std::min(to[i] + from[i], 255));
#endif
}

double inUnits(int pangoUnits) { return double(pangoUnits) / PANGO_SCALE; }

/** @return text that Pango takes: valid, and short enough for its numbers in a font of this size */
std::string obtainValidText(const std::string& text, int fontSize)
{
    const std::string_view drawn = uxBoundDrawnText(text, fontSize);
    if (g_utf8_validate_len(drawn.data(), drawn.size(), nullptr))
        return std::string(drawn);
    char* valid = g_utf8_make_valid(drawn.data(), static_cast<gssize>(drawn.size()));
    std::string made = valid;
    g_free(valid);
    return made;
}

bool endsLine(gunichar letter)
{
    return letter == '\n' || letter == '\r' || letter == 0x2028 || letter == 0x2029;
}

/** @return whether it is written from right to left, as far as counting needs to know: by its block */
bool isRightToLeft(gunichar letter)
{
    return (letter >= 0x590 && letter < 0x900) || (letter >= 0xFB1D && letter < 0xFE00) ||
           (letter >= 0xFE70 && letter < 0xFF00) || (letter >= 0x10800 && letter < 0x11000) ||
           (letter >= 0x1E800 && letter < 0x1F000);
}

/**
 * Keeps the time that Pango takes in proportion to the text's length.
 * @param text valid UTF-8
 * @return text up to the last line end, or turn between writing to the right and to the left, that it may
 * have, without the blanks and tabs that are too many
 */
std::string boundShaping(const std::string& text)
{
    int tabs = 0, blanks = 0, lineEnds = 0, turns = 0;
    bool wasRightToLeft = false;
    std::string bounded;
    bounded.reserve(text.size());
    const char* const end = text.data() + text.size();
    for (const char *at = text.data(), *next = at; at < end; at = next) {
        next = g_utf8_next_char(at);
        const gunichar letter = g_utf8_get_char(at);
        lineEnds += endsLine(letter) ? 1 : 0;
        if (g_unichar_isalnum(letter)) {
            turns += isRightToLeft(letter) != wasRightToLeft ? 1 : 0;
            wasRightToLeft = isRightToLeft(letter);
        }
        if (lineEnds > kMostLineEnds || turns > kMostTurns)
            break;
        blanks = g_unichar_isspace(letter) || letter == 0x200B ? blanks + 1 : 0;
        tabs += letter == '\t' ? 1 : 0;
        if (endsLine(letter) || (blanks <= kMostBlanks && (letter != '\t' || tabs <= kMostTabs)))
            bounded.append(at, next);
    }
    return bounded;
}

/**
 * Lets lines break inside words that no line could hold. Pango breaks a word letter by letter in a time that
 * grows with the square of its length.
 * @param text valid UTF-8
 * @return text with a space of no width after every so many letters of a word
 */
std::string allowBreaksInLongWords(const std::string& text)
{
    constexpr int longestWord = 64;
    constexpr gunichar joiner = 0x200D;
    std::string broken;
    int letters = 0;
    gunichar before = ' ';
    const char* const end = text.data() + text.size();
    for (const char *at = text.data(), *next = at; at < end; at = next) {
        next = g_utf8_next_char(at);
        const gunichar letter = g_utf8_get_char(at);
        const bool goesWithBefore = g_unichar_ismark(letter) || g_unichar_iszerowidth(letter) ||
                                    before == joiner;
        letters = g_unichar_isspace(letter) ? 0 : letters + 1;
        if (letters > longestWord && !goesWithBefore) {
            broken += "\xE2\x80\x8B";
            letters = 1;
        }
        broken.append(at, next);
        before = letter;
    }
    return broken;
}

/** Says once about each text that no font has all of its characters. */
void reportUncovered(const std::string& text)
{
    constexpr std::size_t mostReports = 100, mostBytes = 200;
    static std::set<std::string>* reported = new std::set<std::string>;
    if (reported->size() >= mostReports || !reported->insert(text).second)
        return;
    std::string shown = text.substr(0, mostBytes);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; },
        '?');
    std::cerr << "ux_cairo: no font has every character of \"" << shown << "\"\n";
}

/** Lets numbers learn from one that Pango has shaped. */
void learnNumber(std::string_view text, PangoLayout* layout, UXCairoNumberFont& numbers)
{
    std::vector<UXCairoNumberFont::Letter> letters;
    const GSList* runs = pango_layout_get_line_readonly(layout, 0)->runs;
    const auto* run = runs ? static_cast<const PangoLayoutRun*>(runs->data) : nullptr;
    PangoFont* font = run ? run->item->analysis.font : nullptr;
    cairo_scaled_font_t* scaled = font ? pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)) : nullptr;
    if (!scaled)
        return;
    letters.reserve(text.size());
    for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
        const bool isPlain = glyph.glyph < PANGO_GLYPH_EMPTY && glyph.geometry.x_offset == 0 &&
                             glyph.geometry.y_offset == 0;
        if (isPlain)
            letters.push_back({glyph.glyph, glyph.geometry.width});
    }
    numbers.learn(text, letters, scaled);
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
    UXCairoFonts::Face& face = fonts.obtainFace(font);
    m_fontSize = std::clamp(font.size, 1, 10000);
    m_ascent = face.ascent;
    m_lineHeight = face.lineHeight;

    // 2. The font may have written such numbers before.
    const bool isNumber = widthLimit < 0 && UXCairoNumberFont::isNumber(text);
    if (isNumber && _writeNumber(text, face.numbers))
        return;

    // 3. Let Pango break and shape it. The limit is rounded up so that a text fits the width that it
    // measured.
    std::string valid = boundShaping(obtainValidText(text, m_fontSize));
    if (lineMode == 1 && widthLimit >= 0)
        valid = allowBreaksInLongWords(valid);
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

    if (isNumber)
        learnNumber(text, layout, face.numbers);

    // 4. Keep the places of the glyphs; the layout itself is of no further use.
    for (GSList* each = pango_layout_get_lines_readonly(layout); each; each = each->next)
        _keepLine(each->data);
    m_size.height = m_lineHeight * static_cast<double>(m_lines.size());
    g_object_unref(layout);
}

/** @return whether the glyphs of text are known */
bool UXCairoTextLayout::_writeNumber(std::string_view text, UXCairoNumberFont& numbers)
{
    const std::vector<UXCairoNumberFont::Letter>& letters = numbers.write(text);
    if (letters.empty())
        return false;
    double x = 0;
    m_glyphs.reserve(letters.size());
    for (const UXCairoNumberFont::Letter& letter : letters) {
        m_glyphs.push_back({letter.glyph, x, 0});
        x += inUnits(letter.advance);
    }
    m_runs.push_back(
        {UXCairoScaledFontHandle(cairo_scaled_font_reference(numbers.getFont())), 0, m_glyphs.size()});
    m_lines.push_back({x, 0, 1});
    m_size = {x, m_lineHeight};
    return true;
}

void UXCairoTextLayout::_keepLine(const void* pangoLine)
{
    Line line{0, m_runs.size(), 0};
    double x = 0;
    for (GSList* each = static_cast<const PangoLayoutLine*>(pangoLine)->runs; each; each = each->next) {
        const auto* run = static_cast<const PangoLayoutRun*>(each->data);
        PangoFont* font = run->item->analysis.font;
        cairo_scaled_font_t* scaled = font ? pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font))
                                           : nullptr;
        const std::size_t begin = m_glyphs.size();
        for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
            const PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
            // A character that no font has is drawn as the font's own sign for that, its glyph 0.
            const bool isUnknown = (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
            if (scaled && glyph.glyph != PANGO_GLYPH_EMPTY)
                m_glyphs.push_back({isUnknown ? 0 : glyph.glyph, x + inUnits(glyph.geometry.x_offset),
                                    inUnits(glyph.geometry.y_offset)});
            x += inUnits(glyph.geometry.width);
        }
        if (m_glyphs.size() > begin)
            m_runs.push_back(
                {UXCairoScaledFontHandle(cairo_scaled_font_reference(scaled)), begin, m_glyphs.size()});
    }
    line.width = std::max(0.0, x);
    line.end = m_runs.size();
    m_size.width = std::max(m_size.width, line.width);
    m_lines.push_back(line);
}

std::size_t UXCairoTextLayout::getBytes() const
{
    std::size_t bytes = sizeof *this + m_glyphs.capacity() * sizeof(Glyph) + m_runs.capacity() * sizeof(Run) +
                        m_lines.capacity() * sizeof(Line);
    for (const Rendering& rendering : m_renderings)
        bytes += rendering.bytes;
    return bytes;
}

void UXCairoTextLayout::draw(UXCairoContext* context, UXCairoPixels* pixels, const UXTransform& toDevice,
                             const UXTransform& ground, double left, double top, double width,
                             UXTextAlign align) const
{
    const double scale = std::sqrt(std::abs(toDevice.xx * toDevice.yy - toDevice.xy * toDevice.yx));
    const double height = scale * m_fontSize;
    const double extent = (m_size.width + m_size.height + std::abs(width)) * 2 * scale;
    const UXDoublePoint corner = toDevice.apply(left, top);
    if (!(height > kSmallestText && height < kLargestText) ||
        !(std::abs(corner.x) + std::abs(corner.y) + extent < kFarthestPixel))
        return;

    const bool isOnPixels = cairo_surface_get_type(cairo_get_group_target(context)) ==
                            CAIRO_SURFACE_TYPE_IMAGE;
    const bool keepsPixels = isOnPixels && height <= kLargestKeptText &&
                             m_size.width * scale <= kWidestKeptText &&
                             m_size.width * m_size.height * scale * scale <= kMostKeptPixels;
    const Rendering* rendering = keepsPixels ? &_obtainRendering(toDevice) : nullptr;

    const double share = align == UXTextAlign::Center ? 0.5 : align == UXTextAlign::Right ? 1 : 0;
    UXDoublePoint start(left, top + m_ascent);
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        start.x = left + (width - m_lines[i].width) * share;
        if (rendering)
            _drawPixels(context, pixels, toDevice, ground, rendering->lines[i], start);
        else
            _drawGlyphs(context, m_lines[i], start, isOnPixels && height > kLargestGlyph);
        start.y += m_lineHeight;
    }
}

void UXCairoTextLayout::_drawGlyphs(UXCairoContext* context, const Line& line, const UXDoublePoint& start,
                                    bool asOutlines) const
{
    std::vector<cairo_glyph_t> placed;
    for (std::size_t i = line.begin; i < line.end; ++i) {
        const Run& run = m_runs[i];
        placed.clear();
        for (std::size_t k = run.begin; k < run.end; ++k)
            placed.push_back({m_glyphs[k].index, start.x + m_glyphs[k].x, start.y + m_glyphs[k].y});
        cairo_set_scaled_font(context, run.font.get());
        if (asOutlines) {
            const UXCairoPathKeeper keeper(context);
            cairo_glyph_path(context, placed.data(), static_cast<int>(placed.size()));
            cairo_fill(context);
        } else {
            cairo_show_glyphs(context, placed.data(), static_cast<int>(placed.size()));
        }
    }
}

void UXCairoTextLayout::_drawPixels(UXCairoContext* context, UXCairoPixels* pixels,
                                    const UXTransform& toDevice, const UXTransform& ground,
                                    const LinePixels& line, const UXDoublePoint& start)
{
    // A line begins on a whole pixel, wherever it stands: it looks the same everywhere and is made once.
    if (line.coverage.empty())
        return;
    const UXDoublePoint origin = toDevice.apply(start.x, start.y);
    const double left = std::round(origin.x) + line.left, top = std::round(origin.y) + line.top;
    if (pixels) {
        const int x = static_cast<int>(left), y = static_cast<int>(top);
        const UXCairoPixels::Writing writing(*pixels);
        pixels->blendBox({x, y, x + line.width, y + line.height}, line.coverage.data(), line.rowLength);
        return;
    }

    // Cairo reads a mask and does not write it.
    const UXCairoSurfaceHandle mask(
        cairo_image_surface_create_for_data(const_cast<unsigned char*>(line.coverage.data()), CAIRO_FORMAT_A8,
                                            line.width, line.height, static_cast<int>(line.rowLength)));
    cairo_matrix_t before;
    cairo_get_matrix(context, &before);
    const UXTransform fromPixels = ground.inverted();
    const cairo_matrix_t toContext = {fromPixels.xx, fromPixels.yx, fromPixels.xy,
                                      fromPixels.yy, fromPixels.dx, fromPixels.dy};
    cairo_set_matrix(context, &toContext);
    const UXCairoPatternHandle pattern(cairo_pattern_create_for_surface(mask.get()));
    const cairo_matrix_t toMask = {1, 0, 0, 1, -left, -top};
    cairo_pattern_set_matrix(pattern.get(), &toMask);
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_NEAREST);
    cairo_mask(context, pattern.get());
    cairo_set_matrix(context, &before);
    // What still refers to the mask copies it now.
    cairo_surface_finish(mask.get());
}

const UXCairoTextLayout::Rendering& UXCairoTextLayout::_obtainRendering(const UXTransform& toDevice) const
{
    // The latest stands first; the one not drawn for longest makes room.
    const UXTransform linear{toDevice.xx, toDevice.yx, toDevice.xy, toDevice.yy, 0, 0};
    const auto found = std::find_if(m_renderings.begin(), m_renderings.end(),
                                    [&](const Rendering& each) { return each.transform == linear; });
    if (found != m_renderings.end()) {
        std::rotate(m_renderings.begin(), found, std::next(found));
        return m_renderings.front();
    }
    if (m_renderings.size() >= kMostRenderings)
        m_renderings.pop_back();
    Rendering made{linear, {}, sizeof(Rendering)};
    for (const Line& line : m_lines) {
        made.lines.push_back(_renderLine(line, linear));
        made.bytes += sizeof(LinePixels) + made.lines.back().coverage.size();
    }
    return *m_renderings.insert(m_renderings.begin(), std::move(made));
}

UXCairoTextLayout::LinePixels UXCairoTextLayout::_renderLine(const Line& line,
                                                             const UXTransform& toDevice) const
{
    // 1. Where each glyph goes, to a quarter of a pixel, and what they cover together.
    struct Placed {
        const UXCairoGlyphPixels* pixels;
        int left, top;
    };
    constexpr int phases = UXCairoGlyphCache::kPhases;
    UXCairoGlyphCache& cache = UXCairoGlyphCache::obtainShared();
    cache.makeRoom();
    std::vector<Placed> placed;
    placed.reserve(m_glyphs.size());
    int left = INT_MAX, top = INT_MAX, right = INT_MIN, bottom = INT_MIN;
    for (std::size_t i = line.begin; i < line.end; ++i) {
        UXCairoGlyphCache::Face& face = cache.obtainFace(m_runs[i].font.get(), toDevice);
        for (std::size_t k = m_runs[i].begin; k < m_runs[i].end; ++k) {
            const UXDoublePoint at = toDevice.apply(m_glyphs[k].x, m_glyphs[k].y);
            const int x = static_cast<int>(std::lround(at.x * phases)),
                      y = static_cast<int>(std::lround(at.y * phases));
            const UXCairoGlyphPixels& pixels = cache.obtainPixels(face, m_glyphs[k].index, x & (phases - 1),
                                                                  y & (phases - 1));
            if (pixels.coverage.empty())
                continue;
            // Shifting right rounds down, also below 0.
            const Placed next{&pixels, (x >> 2) + pixels.left, (y >> 2) + pixels.top};
            placed.push_back(next);
            left = std::min(left, next.left);
            top = std::min(top, next.top);
            right = std::max(right, next.left + pixels.width);
            bottom = std::max(bottom, next.top + pixels.height);
        }
    }
    if (placed.empty())
        return {};

    // 2. Add the coverages up.
    LinePixels made{left, top, right - left, bottom - top, 0, {}};
    made.rowLength = (static_cast<std::size_t>(made.width) + 3) / 4 * 4;
    // The last glyph's row may be longer than what it covers.
    made.coverage.resize(made.rowLength * static_cast<std::size_t>(made.height) + kTogether);
    for (const Placed& glyph : placed) {
        const std::uint8_t* from = glyph.pixels->coverage.data();
        std::uint8_t* to = made.coverage.data() + static_cast<std::size_t>(glyph.top - top) * made.rowLength +
                           static_cast<std::size_t>(glyph.left - left);
        const std::size_t length = glyph.pixels->rowLength;
        for (int y = 0; y < glyph.pixels->height; ++y, from += length, to += made.rowLength)
            for (std::size_t x = 0; x < length; x += kTogether)
                addCoverage(to + x, from + x);
    }
    return made;
}
