#include "ux/cairo/ux_cairo_mark_stamps.h"

#include "ux/cairo/ux_cairo_handles.h"
#include "ux/cairo/ux_cairo_mark_coverage.h"
#include "ux/cairo/ux_cairo_mark_layers.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <utility>

namespace {

/** Places within a pixel, along each side of it. */
constexpr int kPhases = 8;
/** Numbers that are worked on at once. */
constexpr int kBlock = UXCairoMarkCoverage::blockWidth;
static_assert(kBlock == UXCairoMarkLayers::blockWidth);
/** What is left of a ground that nothing covers. */
constexpr std::uint16_t kClear = 65535;
/** Drawing a mark by itself costs for each pixel of its stamp as much as so many of all that marks may lie on
 * when these are drawn together. */
constexpr double kPixelCost = 4;
/** Marks that lie further away, in the painter's units, are nowhere on a surface. */
constexpr double kFarthest = 1e9;
/** Marks whose places are found at a time, so that these stay near at hand. */
constexpr std::size_t kPlacesTogether = 1024;

/** @return the nearest whole step, from 0 to greatest; 0 for NaN */
int toStep(double place, int greatest)
{
    const double limit = greatest, rounded = place + 0.5;
    const double above = rounded > 0 ? rounded : 0;
    return static_cast<int>(above < limit ? above : limit);
}

double obtainArea(const UXCairoPixels::Box& box)
{
    return 1.0 * (box.right - box.left) * (box.bottom - box.top);
}

} // namespace

UXCairoMarkStamps::UXCairoMarkStamps(double reach, std::function<void(UXCairoContext*)> addPath,
                                     const UXTransform& toDevice)
    : m_addPath(std::move(addPath)), m_toDevice(toDevice),
      m_origin(static_cast<int>(std::ceil(std::min(reach, greatestReach)))), m_height(2 * m_origin + 1),
      m_width((m_height + kBlock - 1) / kBlock * kBlock)
{
    m_stampOf.fill(-1);
}

UXCairoMarkStamps::~UXCairoMarkStamps() = default;

void UXCairoMarkStamps::draw(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres)
{
    m_opacity = pixels.getOpacity();
    for (const UXCairoPixels::Box& clip : pixels.getClip()) {
        const double cost = kPixelCost * static_cast<double>(centres.size()) * m_height * m_width;
        // Where they are that many, all of the clip is cheaper than a look at where they lie.
        const UXCairoPixels::Box box = cost > obtainArea(clip) ? clip : _findBox(centres, clip);
        if (box.isEmpty())
            continue;
        if (cost < obtainArea(box))
            _drawOneByOne(pixels, centres, box);
        else if (m_opacity < 1)
            _drawTogether<UXCairoMarkLayers>(pixels, centres, box, m_opacities);
        else
            _drawTogether<UXCairoMarkCoverage>(pixels, centres, box, m_coverage);
    }
}

/** @return the pixels of clip that the marks may cover */
UXCairoPixels::Box UXCairoMarkStamps::_findBox(std::span<const UXDoublePoint> centres,
                                               const UXCairoPixels::Box& clip) const
{
    UXDoublePoint low(kFarthest, kFarthest), high(-kFarthest, -kFarthest);
    for (const UXDoublePoint& centre : centres) {
        low = {std::min(low.x, centre.x), std::min(low.y, centre.y)};
        high = {std::max(high.x, centre.x), std::max(high.y, centre.y)};
    }
    if (low.x > high.x || low.y > high.y)
        return {};
    const auto place = [this](const UXDoublePoint& point) {
        return m_toDevice.apply(std::clamp(point.x, -kFarthest, kFarthest),
                                std::clamp(point.y, -kFarthest, kFarthest));
    };
    const UXDoublePoint first = place(low), last = place(high);
    const double reach = m_origin + 1;
    const auto toPixel = [](double edge, int least, int greatest) {
        return static_cast<int>(std::clamp(edge, static_cast<double>(least), static_cast<double>(greatest)));
    };
    return {toPixel(std::floor(std::min(first.x, last.x) - reach), clip.left, clip.right),
            toPixel(std::floor(std::min(first.y, last.y) - reach), clip.top, clip.bottom),
            toPixel(std::ceil(std::max(first.x, last.x) + reach), clip.left, clip.right),
            toPixel(std::ceil(std::max(first.y, last.y) + reach), clip.top, clip.bottom)};
}

/** Finds where the marks lie that cover something of box, and makes the stamps that they need.
 *  @return false where there is no memory for these */
bool UXCairoMarkStamps::_takePlaces(std::span<const UXDoublePoint> centres, const UXCairoPixels::Box& box)
{
    // 1. In steps from a place that is left of and above all that cover something, up to one beyond.
    const int left = box.left - m_origin - 1, top = box.top - m_origin - 1;
    const int lastX = (box.right + m_origin - left) * kPhases;
    const int lastY = (box.bottom + m_origin - top) * kPhases;
    m_steps.resize(centres.size());
    const UXTransform toDevice = m_toDevice; // upright, as pixels are written only then
    UXPoint* steps = m_steps.data();
    for (std::size_t i = 0; i < centres.size(); ++i) {
        steps[i].x = toStep((centres[i].x * toDevice.xx + toDevice.dx - left) * kPhases, lastX);
        steps[i].y = toStep((centres[i].y * toDevice.yy + toDevice.dy - top) * kPhases, lastY);
    }

    // 2. The stamps of those in between.
    m_places.clear();
    for (const UXPoint& step : m_steps) {
        if (step.x == 0 || step.y == 0 || step.x == lastX || step.y == lastY)
            continue;
        const std::size_t phase = static_cast<std::size_t>(step.y % kPhases) * std::size_t{kPhases} +
                                  static_cast<std::size_t>(step.x % kPhases);
        if (m_stampOf[phase] < 0) {
            m_stampOf[phase] = static_cast<std::int32_t>(m_phases.size());
            m_phases.push_back(static_cast<int>(phase));
        }
        m_places.push_back({left - m_origin + step.x / kPhases, top - m_origin + step.y / kPhases,
                            static_cast<std::uint32_t>(m_stampOf[phase])});
    }
    return _makeStamps();
}

/** Has Cairo fill the mark once for each stamp that there is none of yet, one below the other.
 *  @return false where there is no memory for that */
bool UXCairoMarkStamps::_makeStamps()
{
    const auto rowLength = static_cast<std::size_t>(m_width);
    const std::size_t stampSize = static_cast<std::size_t>(m_height) * rowLength;
    const std::size_t first = m_coverage.size() / stampSize, end = m_phases.size();
    if (first == end)
        return true;
    const int rows = m_height * static_cast<int>(end - first);
    const UXCairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_A8, m_height, rows));
    cairo_t* context = cairo_create(surface.get());
    for (std::size_t stamp = first; stamp < end; ++stamp) {
        const double top = m_height * static_cast<double>(stamp - first);
        const int phase = m_phases[stamp], phaseY = phase / kPhases;
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
    const unsigned char* row = cairo_image_surface_get_data(surface.get());
    if (!row)
        return false;
    m_coverage.resize(end * stampSize);
    m_opacities.resize(end * stampSize);
    for (std::size_t at = first * stampSize; at < m_coverage.size(); at += rowLength) {
        std::copy_n(row, m_height, m_coverage.begin() + static_cast<std::ptrdiff_t>(at));
        row += cairo_image_surface_get_stride(surface.get());
    }
    std::transform(m_coverage.begin() + static_cast<std::ptrdiff_t>(first * stampSize), m_coverage.end(),
                   m_opacities.begin() + static_cast<std::ptrdiff_t>(first * stampSize),
                   [factor = m_opacity * (kClear / 255.0)](std::uint8_t part) {
                       return static_cast<std::uint16_t>(std::lround(factor * part));
                   });
    return true;
}

void UXCairoMarkStamps::_drawOneByOne(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres,
                                      const UXCairoPixels::Box& clip)
{
    if (!_takePlaces(centres, clip))
        return;
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

template <class Gathering, class Part>
void UXCairoMarkStamps::_drawTogether(UXCairoPixels& pixels, std::span<const UXDoublePoint> centres,
                                      const UXCairoPixels::Box& box, const std::vector<Part>& stamps)
{
    Gathering gathering(box, m_width, m_height);
    const auto stampSize = static_cast<std::size_t>(m_height) * static_cast<std::size_t>(m_width);
    for (std::size_t first = 0; first < centres.size(); first += kPlacesTogether) {
        const std::size_t count = std::min(kPlacesTogether, centres.size() - first);
        if (!_takePlaces(centres.subspan(first, count), box))
            return;
        for (const Place& place : m_places)
            gathering.add(place.left, place.top, stamps.data() + place.stamp * stampSize);
    }
    gathering.draw(pixels);
}
