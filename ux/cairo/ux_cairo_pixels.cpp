#include "ux/cairo/ux_cairo_pixels.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cairo.h>
#include <cmath>
#include <cstring>
#ifdef __SSE2__
#    include <emmintrin.h>
#endif

namespace {

constexpr std::uint32_t kOpaque = 255;
/** Edges that are further from a whole pixel lie in one. */
constexpr double kPixelNoise = 1e-3;

bool isWhole(double edge) { return std::abs(edge - std::round(edge)) <= kPixelNoise; }

/** @return the upper byte of the 16 bits that Cairo makes of a part from 0 to 1 */
std::uint32_t toByte(double part) { return static_cast<std::uint32_t>(part * 65535 + 0.5) >> 8; }

/** Multiplies the four bytes of a pixel by share / 255, rounded. */
std::uint32_t multiply(std::uint32_t pixel, std::uint32_t share)
{
    const auto half = [share](std::uint32_t pair) {
        const std::uint32_t product = pair * share + 0x800080;
        return ((product + ((product >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF;
    };
    return half(pixel & 0xFF00FF) | half((pixel >> 8) & 0xFF00FF) << 8;
}

/** @return byte * share / 255, rounded; of 16 bits, so that compilers do many at once */
std::uint8_t multiplyByte(std::uint8_t byte, std::uint8_t share)
{
    const auto product = static_cast<std::uint16_t>(byte * share + 128);
    const auto sum = static_cast<std::uint16_t>(product + (product >> 8));
    return static_cast<std::uint8_t>(sum >> 8);
}

std::uint8_t* toBytes(std::uint32_t* pixels) { return reinterpret_cast<std::uint8_t*>(pixels); }

constexpr std::size_t kPartCount = 256;
/** So many pixels of different parts are drawn at once. */
constexpr std::size_t kTogether = 16;

/** @return whether so many parts are all that one */
bool areAll(const std::uint8_t* coverage, std::uint8_t part)
{
    std::array<std::uint8_t, kTogether> all;
    all.fill(part);
    return std::memcmp(coverage, all.data(), all.size()) == 0;
}

/** @return two of the four bytes of a pixel with room beside each, from shift on */
std::uint64_t spread(std::uint32_t pixel, int shift)
{
    const std::uint64_t pair = pixel >> shift & 0xFF00FF;
    return (pair | pair << 16) & 0xFF000000FFULL;
}

/** @return two bytes of a mix, in which below has the given share of 65535 */
std::uint32_t mix(std::uint64_t over, std::uint64_t below, std::uint32_t share)
{
    const std::uint64_t sum = over * (65535 - share) + below * share + 0x800000008000ULL;
    const std::uint64_t bytes = (sum + (sum >> 16 & 0xFF000000FFULL)) >> 16 & 0xFF000000FFULL;
    return static_cast<std::uint32_t>(bytes | bytes >> 16);
}

#ifdef __SSE2__
/** A colour to be drawn over four pixels at once, with the same result as over one by one. */
class FourPixels {
public:
    explicit FourPixels(std::uint32_t color)
        : m_color(_mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(color)), _mm_setzero_si128()))
    {
    }

    /** @param parts how much of each pixel is covered, the first in the lowest byte in memory */
    void drawOver(std::uint32_t* pixels, std::uint32_t parts) const
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i packed = _mm_cvtsi32_si128(static_cast<int>(parts));
        const __m128i twice = _mm_unpacklo_epi8(packed, packed);
        const __m128i shares = _mm_unpacklo_epi16(twice, twice);
        auto* const place = reinterpret_cast<__m128i*>(pixels);
        const __m128i below = _mm_loadu_si128(place);
        const __m128i low = _drawOverTwo(_mm_unpacklo_epi8(below, zero), _mm_unpacklo_epi8(shares, zero));
        const __m128i high = _drawOverTwo(_mm_unpackhi_epi8(below, zero), _mm_unpackhi_epi8(shares, zero));
        _mm_storeu_si128(place, _mm_packus_epi16(low, high));
    }

private:
    /** @return a * b / 255, rounded, in each of eight lanes */
    static __m128i _multiply(__m128i a, __m128i b)
    {
        const __m128i product = _mm_add_epi16(_mm_mullo_epi16(a, b), _mm_set1_epi16(128));
        return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
    }

    __m128i _drawOverTwo(__m128i below, __m128i shares) const
    {
        const __m128i color = _multiply(m_color, shares);
        const __m128i alphas = _mm_shufflehi_epi16(_mm_shufflelo_epi16(color, 0xFF), 0xFF);
        return _mm_add_epi16(color, _multiply(below, _mm_sub_epi16(_mm_set1_epi16(255), alphas)));
    }

    __m128i m_color; // twice, with room beside each byte
};
#endif

} // namespace

UXCairoPixels::Writing::Writing(UXCairoPixels& pixels) : m_surface(pixels.m_surface)
{
    cairo_surface_flush(m_surface);
}

UXCairoPixels::Writing::~Writing() { cairo_surface_mark_dirty(m_surface); }

UXCairoPixels::UXCairoPixels(UXCairoContext* context, const UXTransform& toDevice)
{
    cairo_surface_t* surface = cairo_get_target(context);
    // A layer lies on a surface of its own, with pixels elsewhere.
    if (cairo_get_group_target(context) != surface || !toDevice.isUpright() ||
        cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE ||
        cairo_image_surface_get_format(surface) != CAIRO_FORMAT_ARGB32 ||
        !_takeClip(context, toDevice, cairo_image_surface_get_width(surface),
                   cairo_image_surface_get_height(surface)))
        return;
    m_rows = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
    m_rowLength = cairo_image_surface_get_stride(surface) / 4;
    m_surface = m_rows ? surface : nullptr;
    takeSource(context);
}

void UXCairoPixels::takeSource(UXCairoContext* context)
{
    double red = 0, green = 0, blue = 0, alpha = 0;
    m_hasColor = cairo_get_operator(context) == CAIRO_OPERATOR_OVER &&
                 cairo_pattern_get_rgba(cairo_get_source(context), &red, &green, &blue, &alpha) ==
                     CAIRO_STATUS_SUCCESS;
    if (!m_hasColor)
        return;
    const std::uint32_t before = m_color;
    m_opacity = alpha;
    m_opaqueColor = kOpaque << 24 | toByte(red) << 16 | toByte(green) << 8 | toByte(blue);
    m_color = toByte(alpha) << 24 | toByte(red * alpha) << 16 | toByte(green * alpha) << 8 |
              toByte(blue * alpha);
    if (m_color != before)
        m_partColors.clear();
}

UXCairoPixels::Box UXCairoPixels::_intersect(const Box& a, const Box& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

bool UXCairoPixels::_takeClip(UXCairoContext* context, const UXTransform& toDevice, int width, int height)
{
    cairo_rectangle_list_t* list = cairo_copy_clip_rectangle_list(context);
    bool isWholePixels = list->status == CAIRO_STATUS_SUCCESS;
    for (int i = 0; isWholePixels && i < list->num_rectangles; ++i) {
        const cairo_rectangle_t& rect = list->rectangles[i];
        const UXDoublePoint first = toDevice.apply(rect.x, rect.y);
        const UXDoublePoint second = toDevice.apply(rect.x + rect.width, rect.y + rect.height);
        isWholePixels = isWhole(first.x) && isWhole(first.y) && isWhole(second.x) && isWhole(second.y);
        const auto toPixel = [](double edge, int count) {
            return static_cast<int>(std::clamp(std::round(edge), 0.0, static_cast<double>(count)));
        };
        m_clip.push_back(
            {toPixel(std::min(first.x, second.x), width), toPixel(std::min(first.y, second.y), height),
             toPixel(std::max(first.x, second.x), width), toPixel(std::max(first.y, second.y), height)});
    }
    cairo_rectangle_list_destroy(list);
    return isWholePixels;
}

void UXCairoPixels::fill(const Box& box)
{
    if (box.isEmpty())
        return;
    const auto count = static_cast<std::size_t>(box.right - box.left);
    const bool isOpaque = m_color >> 24 == kOpaque;
    std::uint32_t* pixels = _row(box.top) + box.left;
    for (int y = box.top; y < box.bottom; ++y, pixels += m_rowLength)
        if (isOpaque && count < kTogether) // too few for what it takes to begin a run
            for (std::size_t i = 0; i < count; ++i)
                pixels[i] = m_color;
        else
            _drawOver(pixels, count);
}

void UXCairoPixels::_drawOver(std::uint32_t* pixels, std::size_t count) const
{
    const auto rest = static_cast<std::uint8_t>(kOpaque - (m_color >> 24));
    if (rest == 0) {
        std::fill_n(pixels, count, m_color);
        return;
    }
    const auto color = std::bit_cast<std::array<std::uint8_t, sizeof(m_color)>>(m_color);
    std::uint8_t* bytes = toBytes(pixels);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t part = 0; part < color.size(); ++part) {
            std::uint8_t& byte = bytes[color.size() * i + part];
            byte = static_cast<std::uint8_t>(color[part] + multiplyByte(byte, rest));
        }
}

/** Makes the colour and the rest of what is there, in each byte of a pixel, for every part of a pixel. */
void UXCairoPixels::_takeParts()
{
    m_partColors.resize(kPartCount);
    m_partRests.resize(kPartCount);
    for (std::uint32_t part = 0; part < kPartCount; ++part) {
        m_partColors[part] = multiply(m_color, part);
        m_partRests[part] = (kOpaque - (m_partColors[part] >> 24)) * 0x01010101U;
    }
}

void UXCairoPixels::_blendTogether(std::uint32_t* pixels, const std::uint8_t* coverage) const
{
    std::array<std::uint32_t, kTogether> colors, rests;
    for (std::size_t i = 0; i < kTogether; ++i) {
        colors[i] = m_partColors[coverage[i]];
        rests[i] = m_partRests[coverage[i]];
    }
    std::uint8_t* bytes = toBytes(pixels);
    const std::uint8_t *colorBytes = toBytes(colors.data()), *restBytes = toBytes(rests.data());
    for (std::size_t i = 0; i < sizeof(colors); ++i)
        bytes[i] = static_cast<std::uint8_t>(colorBytes[i] + multiplyByte(bytes[i], restBytes[i]));
}

void UXCairoPixels::blend(int left, int y, const std::uint8_t* coverage, std::size_t count)
{
    if (m_partColors.empty())
        _takeParts();
    std::uint32_t* row = _row(y) + left;
    std::size_t i = 0;
    for (; i + kTogether <= count; i += kTogether) {
        if (areAll(coverage + i, 0))
            continue;
        if (!areAll(coverage + i, kOpaque)) {
            _blendTogether(row + i, coverage + i);
            continue;
        }
        const std::size_t first = i;
        while (i + 2 * kTogether <= count && areAll(coverage + i + kTogether, kOpaque))
            i += kTogether;
        _drawOver(row + first, i + kTogether - first);
    }
    for (; i < count; ++i) {
        const std::uint32_t color = m_partColors[coverage[i]];
        row[i] = color + multiply(row[i], kOpaque - (color >> 24));
    }
}

/** Makes no tables of parts: a text is drawn in less time than they take. */
void UXCairoPixels::_blendRow(std::uint32_t* pixels, const std::uint8_t* coverage, std::size_t count) const
{
    std::size_t i = 0;
#ifdef __SSE2__
    const FourPixels four(m_color);
    for (; i + 4 <= count; i += 4) {
        std::uint32_t parts = 0;
        std::memcpy(&parts, coverage + i, sizeof(parts));
        if (parts != 0)
            four.drawOver(pixels + i, parts);
    }
#endif
    for (; i < count; ++i) {
        if (coverage[i] == 0)
            continue;
        const std::uint32_t color = multiply(m_color, coverage[i]);
        pixels[i] = color + multiply(pixels[i], kOpaque - (color >> 24));
    }
}

void UXCairoPixels::blendBox(const Box& box, const std::uint8_t* coverage, std::size_t rowLength)
{
    for (const Box& clip : m_clip) {
        const Box part = _intersect(box, clip);
        if (part.isEmpty())
            continue;
        const auto count = static_cast<std::size_t>(part.right - part.left);
        const std::uint8_t* from = coverage + static_cast<std::size_t>(part.top - box.top) * rowLength +
                                   static_cast<std::size_t>(part.left - box.left);
        for (int y = part.top; y < part.bottom; ++y, from += rowLength)
            _blendRow(_row(y) + part.left, from, count);
    }
}

void UXCairoPixels::drawOver(const Box& box, std::span<const std::uint32_t> pixels)
{
    const std::ptrdiff_t width = box.right - box.left;
    for (const Box& clip : m_clip) {
        const Box part = _intersect(box, clip);
        for (int y = part.top; y < part.bottom; ++y) {
            std::uint32_t* const row = _row(y);
            const std::uint32_t* from = pixels.data() + (y - box.top) * width + (part.left - box.left);
            for (int x = part.left; x < part.right; ++x, ++from)
                if (*from >> 24 == kOpaque)
                    row[x] = *from;
                else if (*from != 0)
                    row[x] = *from + multiply(row[x], kOpaque - (*from >> 24));
        }
    }
}

void UXCairoPixels::lay(int left, int y, const std::uint16_t* transparencies, std::size_t count)
{
    std::uint32_t* row = _row(y) + left;
    const std::uint64_t even = spread(m_opaqueColor, 0), odd = spread(m_opaqueColor, 8);
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t share = transparencies[i];
        if (share < 65535)
            row[i] = mix(even, spread(row[i], 0), share) | mix(odd, spread(row[i], 8), share) << 8;
    }
}
