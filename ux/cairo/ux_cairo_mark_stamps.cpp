#include "ux/cairo/ux_cairo_mark_stamps.h"

#include "ux/cairo/ux_cairo_handles.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

/** Places within a pixel, along each side of it. */
constexpr int kPhases = 8;
/** Numbers that are worked on at once. */
constexpr int kBlock = 8;
/** What is left of a ground that nothing covers. */
constexpr std::uint16_t kClear = 65535;
/** Reading and writing a pixel of all that marks may lie on costs as much as covering so many of a mark. */
constexpr double kPixelCost = 2;

/** Takes from each of a block of pixels the part that a mark covers. */
void cover(std::uint16_t* transparencies, const std::uint16_t* opacities)
{
    for (int i = 0; i < kBlock; ++i) {
        const std::uint32_t product = std::uint32_t{transparencies[i]} * opacities[i];
        transparencies[i] = static_cast<std::uint16_t>(transparencies[i] - ((product + 0x8000) >> 16));
    }
}

} // namespace

UXCairoMarkStamps::UXCairoMarkStamps(double reach, std::function<void(UXCairoContext*)> addPath,
                                     const UXTransform& toDevice)
    : m_addPath(std::move(addPath)), m_toDevice(toDevice),
      m_origin(static_cast<int>(std::ceil(std::min(reach, greatestReach))) + 1), m_height(2 * m_origin + 1),
      m_width((m_height + kBlock - 1) / kBlock * kBlock)
{
}

UXCairoMarkStamps::~UXCairoMarkStamps() = default;

void UXCairoMarkStamps::draw(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres)
{
    for (const UXCairoPixels::Box& clip : pixels.getClip()) {
        _takePlaces(centres, clip);
        if (m_places.empty() || !_makeStamps(pixels.getOpacity()))
            continue;
        const double covered = static_cast<double>(m_places.size()) * m_height * m_width;
        if (covered > kPixelCost * (m_box.right - m_box.left) * (m_box.bottom - m_box.top))
            _drawTogether(pixels, clip);
        else
            _drawOneByOne(pixels, clip);
    }
}

/** Finds where the marks lie that cover something of clip, and which stamps they need. */
void UXCairoMarkStamps::_takePlaces(std::span<const UXDoublePoint> centres, const UXCairoPixels::Box& clip)
{
    m_places.clear();
    m_places.reserve(centres.size());
    m_phases.clear();
    m_stampOf.fill(-1);
    m_box = {clip.right, clip.bottom, clip.left, clip.top};
    const double leastX = clip.left - m_origin - 1, leastY = clip.top - m_origin - 1;
    const double greatestX = clip.right + m_origin + 1, greatestY = clip.bottom + m_origin + 1;
    for (const UXDoublePoint& centre : centres) {
        const UXDoublePoint at = m_toDevice.apply(centre.x, centre.y);
        if (!(at.x > leastX && at.x < greatestX && at.y > leastY && at.y < greatestY))
            continue;
        // Whole steps from a place that is left of and above all others, so that what is cut is not negative.
        const auto x = static_cast<int>((at.x - leastX) * kPhases + 0.5);
        const auto y = static_cast<int>((at.y - leastY) * kPhases + 0.5);
        const std::size_t phase = static_cast<std::size_t>(y % kPhases) * std::size_t{kPhases} +
                                  static_cast<std::size_t>(x % kPhases);
        if (m_stampOf[phase] < 0) {
            m_stampOf[phase] = static_cast<std::int32_t>(m_phases.size());
            m_phases.push_back(static_cast<std::uint32_t>(phase));
        }
        const int left = clip.left - m_origin - 1 + x / kPhases - m_origin;
        const int top = clip.top - m_origin - 1 + y / kPhases - m_origin;
        m_places.push_back({left, top, static_cast<std::uint32_t>(m_stampOf[phase])});
        m_box = {std::min(m_box.left, left), std::min(m_box.top, top), std::max(m_box.right, left + m_height),
                 std::max(m_box.bottom, top + m_height)};
    }
    m_box = {std::max(m_box.left, clip.left), std::max(m_box.top, clip.top),
             std::min(m_box.right, clip.right), std::min(m_box.bottom, clip.bottom)};
    if (m_box.isEmpty())
        m_places.clear();
}

/** Has Cairo fill the mark once for each stamp, one below the other.
 *  @return false where there is no memory for that */
bool UXCairoMarkStamps::_makeStamps(double opacity)
{
    const int rows = m_height * static_cast<int>(m_phases.size());
    const UXCairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_A8, m_height, rows));
    cairo_t* context = cairo_create(surface.get());
    for (std::size_t stamp = 0; stamp < m_phases.size(); ++stamp) {
        const double top = m_height * static_cast<double>(stamp);
        const auto phase = static_cast<int>(m_phases[stamp]);
        const int phaseY = phase / kPhases;
        const cairo_matrix_t matrix{m_toDevice.xx,
                                    m_toDevice.yx,
                                    m_toDevice.xy,
                                    m_toDevice.yy,
                                    m_origin + 1.0 * (phase % kPhases) / kPhases,
                                    top + m_origin + 1.0 * phaseY / kPhases};
        cairo_set_matrix(context, &matrix);
        cairo_new_sub_path(context);
        m_addPath(context);
    }
    cairo_fill(context);
    cairo_destroy(context);
    cairo_surface_flush(surface.get());
    const unsigned char* data = cairo_image_surface_get_data(surface.get());
    if (!data)
        return false;
    const int rowLength = cairo_image_surface_get_stride(surface.get());
    m_opacities.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(m_width), 0);
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < m_height; ++x)
            m_opacities[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                        static_cast<std::size_t>(x)] =
                static_cast<std::uint16_t>(std::lround(opacity * data[y * rowLength + x] * (kClear / 255.0)));
    return true;
}

void UXCairoMarkStamps::_drawOneByOne(UXCairoPixels& pixels, const UXCairoPixels::Box& clip) const
{
    std::vector<std::uint16_t> transparencies(static_cast<std::size_t>(m_width));
    const auto stampSize = static_cast<std::size_t>(m_height) * static_cast<std::size_t>(m_width);
    for (const Place& place : m_places) {
        const int left = std::max(place.left, clip.left), right = std::min(place.left + m_height, clip.right);
        const int top = std::max(place.top, clip.top), bottom = std::min(place.top + m_height, clip.bottom);
        if (left >= right)
            continue;
        const std::uint16_t* stamp = m_opacities.data() + place.stamp * stampSize;
        for (int y = top; y < bottom; ++y) {
            const std::uint16_t* row = stamp + std::ptrdiff_t{y - place.top} * m_width;
            std::transform(row, row + m_width, transparencies.begin(), [](std::uint16_t opacity) {
                return static_cast<std::uint16_t>(kClear - opacity);
            });
            pixels.lay(left, y, transparencies.data() + (left - place.left),
                       static_cast<std::size_t>(right - left));
        }
    }
}

void UXCairoMarkStamps::_drawTogether(UXCairoPixels& pixels, const UXCairoPixels::Box& clip) const
{
    // 1. What is left of each pixel; around the box there is room for what of a stamp lies beside it.
    const int frame = m_width;
    const auto width = std::ptrdiff_t{m_box.right} - m_box.left + std::ptrdiff_t{2} * frame;
    const auto height = std::ptrdiff_t{m_box.bottom} - m_box.top + std::ptrdiff_t{2} * m_height;
    std::vector<std::uint16_t> plane(static_cast<std::size_t>(width * height), kClear);
    const auto stampSize = static_cast<std::size_t>(m_height) * static_cast<std::size_t>(m_width);

    // 2. Each mark takes its part.
    for (const Place& place : m_places) {
        if (place.left + m_height <= m_box.left || place.left >= m_box.right ||
            place.top + m_height <= m_box.top || place.top >= m_box.bottom)
            continue;
        std::uint16_t* row = plane.data() + (place.top - m_box.top + m_height) * width +
                             (place.left - m_box.left + frame);
        const std::uint16_t* stamp = m_opacities.data() + place.stamp * stampSize;
        for (int y = 0; y < m_height; ++y, row += width)
            for (int x = 0; x < m_width; x += kBlock, stamp += kBlock)
                cover(row + x, stamp);
    }

    // 3. Write what is covered.
    const int left = std::max(m_box.left, clip.left);
    for (int y = m_box.top; y < m_box.bottom; ++y)
        pixels.lay(left, y, plane.data() + (y - m_box.top + m_height) * width + (left - m_box.left + frame),
                   static_cast<std::size_t>(m_box.right - left));
}
