#include "ux/cairo/ux_cairo_painter.h"

#include "ux/cairo/ux_cairo_band_coverage.h"
#include "ux/cairo/ux_cairo_line_coverage.h"
#include "ux/cairo/ux_cairo_mark_stamps.h"
#include "ux/cairo/ux_cairo_path_keeper.h"
#include "ux/cairo/ux_cairo_pixel_filler.h"
#include "ux/cairo/ux_cairo_stamp_cache.h"
#include "ux/cairo/ux_cairo_text_cache.h"
#include "ux/ux_draw_text_result.h"
#include "ux/ux_image.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_placement.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>
#include <numeric>
#include <set>
#include <utility>

namespace {

// Cairo keeps device coordinates in 24 bits before the point; this leaves room for line widths and joins.
constexpr double kFarthestPixel = 4e6;
// Dashes of less than this many pixels in all look like a thin line and would be counted one by one.
constexpr double kShortestDashes = 0.1;
// With fewer it is not worth while to look whether they can be written.
constexpr std::size_t kFewestWrittenPoints = 4, kFewestBandPoints = 64;
// More of them in one place could be too much for a sum.
constexpr std::size_t kMostBands = 256;
// Wide lines have an inside, which Cairo fills in one go.
constexpr double kGreatestWrittenWidth = 16;
// Marks that lie closer together than this part of a unit of the device lie at one place.
constexpr double kPlacesPerUnit = 8;
constexpr double kSmallestScale = 1e-6, kLargestScale = 1e6;

bool hasArea(const UXDoubleRect& rect)
{
    return uxIsFiniteDoubleRect(rect) && rect.width > 0 && rect.height > 0;
}

bool isDrawable(const UXPicture* picture)
{
    return picture && hasArea({0, 0, picture->getSize().width, picture->getSize().height});
}

bool isDrawable(const UXImage* image) { return image && image->getPixels(); }

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

double obtainShare(int part) { return std::clamp(part, 0, 255) / 255.0; }

cairo_operator_t obtainOperator(UXCompositionMode mode)
{
    switch (mode) {
    case UXCompositionMode::Clear:
        return CAIRO_OPERATOR_CLEAR;
    case UXCompositionMode::Source:
        return CAIRO_OPERATOR_SOURCE;
    case UXCompositionMode::In:
        return CAIRO_OPERATOR_IN;
    case UXCompositionMode::Out:
        return CAIRO_OPERATOR_OUT;
    case UXCompositionMode::Atop:
        return CAIRO_OPERATOR_ATOP;
    case UXCompositionMode::Destination:
        return CAIRO_OPERATOR_DEST;
    case UXCompositionMode::DestinationOver:
        return CAIRO_OPERATOR_DEST_OVER;
    case UXCompositionMode::DestinationIn:
        return CAIRO_OPERATOR_DEST_IN;
    case UXCompositionMode::DestinationOut:
        return CAIRO_OPERATOR_DEST_OUT;
    case UXCompositionMode::DestinationAtop:
        return CAIRO_OPERATOR_DEST_ATOP;
    case UXCompositionMode::Xor:
        return CAIRO_OPERATOR_XOR;
    case UXCompositionMode::Add:
        return CAIRO_OPERATOR_ADD;
    case UXCompositionMode::Multiply:
        return CAIRO_OPERATOR_MULTIPLY;
    case UXCompositionMode::Screen:
        return CAIRO_OPERATOR_SCREEN;
    case UXCompositionMode::Overlay:
        return CAIRO_OPERATOR_OVERLAY;
    case UXCompositionMode::Darken:
        return CAIRO_OPERATOR_DARKEN;
    case UXCompositionMode::Lighten:
        return CAIRO_OPERATOR_LIGHTEN;
    case UXCompositionMode::Over:
        break;
    }
    return CAIRO_OPERATOR_OVER;
}

cairo_matrix_t obtainMatrix(const UXTransform& transform)
{
    return {transform.xx, transform.yx, transform.xy, transform.yy, transform.dx, transform.dy};
}

/** Draws image stretched to rect, as far as opacity or the current source under the image's alpha. */
class ImagePattern {
public:
    ImagePattern(const UXImage& image, const UXDoubleRect& rect, bool smoothEdges)
    {
        const UXSize size = image.getSize();
        auto* pixels = reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(image.getPixels()));
        const cairo_format_t format = image.isOpaque() ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
        m_surface = cairo_image_surface_create_for_data(pixels, format, size.width, size.height,
                                                        size.width * 4);
        m_pattern = cairo_pattern_create_for_surface(m_surface);
        const double sx = size.width / rect.width, sy = size.height / rect.height;
        const cairo_matrix_t toImage = {sx, 0, 0, sy, -rect.x * sx, -rect.y * sy};
        cairo_pattern_set_matrix(m_pattern, &toImage);
        if (smoothEdges)
            cairo_pattern_set_extend(m_pattern, CAIRO_EXTEND_PAD);
    }

    ~ImagePattern()
    {
        cairo_pattern_destroy(m_pattern);
        // What still refers to the surface, a PDF page for one, copies the pixels now: they are not ours.
        cairo_surface_finish(m_surface);
        cairo_surface_destroy(m_surface);
    }

    ImagePattern(const ImagePattern&) = delete;
    ImagePattern& operator=(const ImagePattern&) = delete;

    cairo_pattern_t* get() const { return m_pattern; }

private:
    cairo_surface_t* m_surface;
    cairo_pattern_t* m_pattern;
};

} // namespace

class UXCairoPainter::Scope {
public:
    explicit Scope(UXCairoPainter& painter) : m_painter(painter)
    {
        m_painter.forgetPath();
        m_painter.saveState();
        m_lowestDepth = std::exchange(m_painter.m_lowestDepth, m_painter.m_depth);
    }

    ~Scope()
    {
        m_painter.forgetPath();
        while (m_painter.m_depth > m_painter.m_lowestDepth)
            m_painter.restoreState();
        m_painter.m_lowestDepth = m_lowestDepth;
        m_painter.restoreState();
    }

    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    UXCairoPainter& m_painter;
    int m_lowestDepth = 0; // of the scope around this one
};

UXCairoPainter::UXCairoPainter(UXCairoSurface* surface, double scale, const UXDoublePoint& origin)
    : m_context(cairo_create(surface))
{
    double sx = 1, sy = 1, dx = 0, dy = 0;
    cairo_surface_get_device_scale(surface, &sx, &sy);
    cairo_surface_get_device_offset(surface, &dx, &dy);
    m_ground = {sx, 0, 0, sy, dx, dy};
    m_toDevice = m_ground;
    m_deviceScale = sx * scale;
    cairo_set_line_width(m_context, 1);
    if (scale != 1 || origin.x != 0 || origin.y != 0)
        _transform(UXTransform{}.translated(origin.x, origin.y).scaled(scale, scale));
}

UXCairoPainter::~UXCairoPainter() { cairo_destroy(m_context); }

void UXCairoPainter::finishPaintConfig() { cairo_surface_flush(cairo_get_target(m_context)); }

void UXCairoPainter::saveState()
{
    ++m_depth;
    cairo_save(m_context);
}

void UXCairoPainter::restoreState()
{
    if (m_depth <= m_lowestDepth)
        return;
    --m_depth;
    cairo_restore(m_context);
    m_pixels.reset();
    cairo_matrix_t matrix;
    cairo_get_matrix(m_context, &matrix);
    m_toDevice = m_ground.combined({matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0});
}

void UXCairoPainter::setColor(const UXColor& color)
{
    if (std::isnan(color.alpha))
        return;
    cairo_set_source_rgba(m_context, obtainShare(color.red), obtainShare(color.green),
                          obtainShare(color.blue), std::clamp(color.alpha, 0.0, 1.0));
    m_isSourceTaken = false;
}

void UXCairoPainter::setLineWidth(double width)
{
    if (std::isfinite(width))
        cairo_set_line_width(m_context, std::clamp(width, 0.0, kFarthestPixel));
}

void UXCairoPainter::setLineCap(UXLineCapStyle cap)
{
    cairo_set_line_cap(m_context, cap == UXLineCapStyle::Round    ? CAIRO_LINE_CAP_ROUND
                                  : cap == UXLineCapStyle::Square ? CAIRO_LINE_CAP_SQUARE
                                                                  : CAIRO_LINE_CAP_BUTT);
}

void UXCairoPainter::setLineJoin(UXLineJoinStyle join)
{
    cairo_set_line_join(m_context, join == UXLineJoinStyle::Round   ? CAIRO_LINE_JOIN_ROUND
                                   : join == UXLineJoinStyle::Bevel ? CAIRO_LINE_JOIN_BEVEL
                                                                    : CAIRO_LINE_JOIN_MITER);
}

void UXCairoPainter::setLineDash(const std::vector<double>& lengths, double offset)
{
    const double sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    if (!std::isfinite(sum) || !std::isfinite(offset))
        return;
    const bool isDashed = sum * m_deviceScale > kShortestDashes &&
                          std::all_of(lengths.begin(), lengths.end(), [](double l) { return l >= 0; });
    // An odd list is run through twice before it repeats.
    const double period = lengths.size() % 2 ? 2 * sum : sum;
    cairo_set_dash(m_context, lengths.data(), isDashed ? uxSaturateToInt(std::int64_t(lengths.size())) : 0,
                   isDashed ? std::fmod(offset, period) : 0);
}

void UXCairoPainter::setFillRule(UXFillRule rule)
{
    cairo_set_fill_rule(m_context,
                        rule == UXFillRule::EvenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
}

void UXCairoPainter::setAntialias(UXAntialiasStyle style)
{
    cairo_set_antialias(m_context,
                        style == UXAntialiasStyle::None ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
}

void UXCairoPainter::setCompositionMode(UXCompositionMode mode)
{
    cairo_set_operator(m_context, obtainOperator(mode));
    m_isSourceTaken = false;
}

/** @return false, and nothing changed, where the space could not be left again */
bool UXCairoPainter::_transform(const UXTransform& change)
{
    // A context with a transform that cannot be undone draws nothing any more, not even after restoring.
    const UXTransform changed = m_toDevice.combined(change);
    const double determinant = changed.xx * changed.yy - changed.xy * changed.yx;
    if (!std::isfinite(changed.dx) || !std::isfinite(changed.dy) || !(std::abs(determinant) < 1e12) ||
        !(std::abs(determinant) > 1e-12))
        return false;
    m_toDevice = changed;
    const cairo_matrix_t matrix = obtainMatrix(change);
    cairo_transform(m_context, &matrix);
    return true;
}

void UXCairoPainter::transformPath(const UXTransform& change)
{
    const UXDoublePoint probe = change.apply(1, 1);
    if (!std::isfinite(probe.x) || !std::isfinite(probe.y))
        return;
    cairo_path_t* path = cairo_copy_path(m_context);
    for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
        for (int k = 1; k < path->data[i].header.length; ++k) {
            auto& point = path->data[i + k].point;
            const UXDoublePoint moved = change.apply(point.x, point.y);
            point.x = moved.x;
            point.y = moved.y;
            _acceptPoint(point.x, point.y);
        }
    }
    cairo_new_path(m_context);
    if (path->num_data > 0)
        cairo_append_path(m_context, path);
    cairo_path_destroy(path);
}

/** Moves a point that Cairo could not count to the farthest it can; false for one that breaks the path. */
bool UXCairoPainter::_acceptPoint(double& x, double& y)
{
    UXDoublePoint device = m_toDevice.apply(x, y);
    if (std::abs(device.x) <= kFarthestPixel && std::abs(device.y) <= kFarthestPixel) {
        m_hasPath = true;
        return true;
    }
    if (!std::isfinite(x) || !std::isfinite(y)) {
        m_hasPath = m_pathBroken = true;
        return false;
    }
    // A sum that overflowed to infinity is clamped too; one of infinities of both signs is not a number.
    device.x = std::isnan(device.x) ? 0 : std::clamp(device.x, -kFarthestPixel, kFarthestPixel);
    device.y = std::isnan(device.y) ? 0 : std::clamp(device.y, -kFarthestPixel, kFarthestPixel);
    const UXDoublePoint moved = m_toDevice.inverted().apply(device.x, device.y);
    x = moved.x;
    y = moved.y;
    m_hasPath = true;
    return true;
}

void UXCairoPainter::setStartPoint(double x, double y)
{
    if (_acceptPoint(x, y))
        cairo_move_to(m_context, x, y);
}

void UXCairoPainter::addLinePath(double x, double y)
{
    if (_acceptPoint(x, y))
        cairo_line_to(m_context, x, y);
}

void UXCairoPainter::addRelativeLinePath(double dx, double dy)
{
    if (!cairo_has_current_point(m_context))
        return;
    double x = 0, y = 0;
    cairo_get_current_point(m_context, &x, &y);
    addLinePath(x + dx, y + dy);
}

void UXCairoPainter::addRectanglePath(double x, double y, double width, double height)
{
    double left = x, top = y, right = x + width, bottom = y + height;
    if (!_acceptPoint(left, top) || !_acceptPoint(right, bottom))
        return;
    if (left == x && top == y && right == x + width && bottom == y + height)
        cairo_rectangle(m_context, x, y, width, height);
    else
        UXPainter::addRectanglePath(x, y, width, height);
}

void UXCairoPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const bool first = _acceptPoint(x1, y1), second = _acceptPoint(x2, y2), third = _acceptPoint(x3, y3);
    if (first && second && third)
        cairo_curve_to(m_context, x1, y1, x2, y2, x3, y3);
}

void UXCairoPainter::startNewSubPath() { cairo_new_sub_path(m_context); }

void UXCairoPainter::closePath() { cairo_close_path(m_context); }

void UXCairoPainter::forgetPath()
{
    cairo_new_path(m_context);
    m_hasPath = m_pathBroken = false;
}

void UXCairoPainter::fillPreserve()
{
    if (_isPathDrawable())
        cairo_fill_preserve(m_context);
}

void UXCairoPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    UXCairoPixels* pixels = rects.empty() ? nullptr : _obtainPixels();
    if (!pixels)
        return UXPainter::drawRects(rects);
    forgetPath();
    const UXCairoPixels::Writing writing(*pixels);
    UXCairoPixelFiller(*pixels, m_toDevice).fill(rects);
}

void UXCairoPainter::drawPolyline(std::span<const UXDoublePoint> points)
{
    if (_writePolyline(points))
        forgetPath();
    else
        UXPainter::drawPolyline(points);
}

/** A stroke of many pieces costs Cairo more than each pixel's distance from them.
 *  @return whether the line could be drawn so: a full one with round ends, to pixels in memory */
bool UXCairoPainter::_writePolyline(std::span<const UXDoublePoint> points)
{
    const double width = cairo_get_line_width(m_context) * std::abs(m_toDevice.xx);
    if (points.size() < kFewestWrittenPoints || !(width > 0) || width > kGreatestWrittenWidth ||
        std::abs(std::abs(m_toDevice.xx) - std::abs(m_toDevice.yy)) > 1e-9 ||
        cairo_get_line_cap(m_context) != CAIRO_LINE_CAP_ROUND ||
        cairo_get_line_join(m_context) != CAIRO_LINE_JOIN_ROUND || cairo_get_dash_count(m_context) > 0 ||
        cairo_get_antialias(m_context) == CAIRO_ANTIALIAS_NONE)
        return false;
    UXCairoPixels* pixels = _obtainPixels();
    if (!pixels)
        return false;
    const UXCairoPixels::Writing writing(*pixels);
    const std::vector<UXDoublePoint> places = _toPixels(points);
    for (const UXCairoPixels::Box& clip : pixels->getClip())
        UXCairoLineCoverage(places, width, clip).draw(*pixels);
    return true;
}

void UXCairoPainter::drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons)
{
    if (_writeBands(polygons))
        forgetPath();
    else
        UXPainter::drawPolygons(polygons);
}

/** The fill of an area that goes up and down in each column of pixels costs Cairo each of its crossings with
 *  a row.
 *  @return whether the polygons could be drawn so: areas along x, to pixels in memory */
bool UXCairoPainter::_writeBands(std::span<const std::vector<UXDoublePoint>> polygons)
{
    const auto isLong = [](const auto& polygon) { return polygon.size() >= kFewestBandPoints; };
    if (!std::ranges::any_of(polygons, isLong) || polygons.size() > kMostBands ||
        cairo_get_fill_rule(m_context) != CAIRO_FILL_RULE_WINDING ||
        cairo_get_antialias(m_context) == CAIRO_ANTIALIAS_NONE)
        return false;
    UXCairoPixels* pixels = _obtainPixels();
    if (!pixels)
        return false;
    std::vector<std::vector<UXDoublePoint>> bands;
    bands.reserve(polygons.size());
    for (const std::vector<UXDoublePoint>& polygon : polygons) {
        std::vector<UXDoublePoint> band = _toPixels(polygon);
        if (!std::ranges::all_of(band, isFinite))
            continue;
        for (UXDoublePoint& point : band)
            point = {std::clamp(point.x, -kFarthestPixel, kFarthestPixel),
                     std::clamp(point.y, -kFarthestPixel, kFarthestPixel)};
        if (!UXCairoBandCoverage::isBand(band))
            return false;
        bands.push_back(std::move(band));
    }
    const UXCairoPixels::Writing writing(*pixels);
    for (const UXCairoPixels::Box& clip : pixels->getClip())
        UXCairoBandCoverage(bands, clip).draw(*pixels);
    return true;
}

std::vector<UXDoublePoint> UXCairoPainter::_toPixels(std::span<const UXDoublePoint> points) const
{
    std::vector<UXDoublePoint> pixels;
    pixels.reserve(points.size());
    for (const UXDoublePoint& point : points)
        pixels.push_back(m_toDevice.apply(point.x, point.y));
    return pixels;
}

/** @param reach of a mark from its centre
 *  @return whether equal marks could be drawn so: small ones, in one colour, to pixels in memory */
bool UXCairoPainter::_stamp(std::span<const UXDoublePoint> centres, double reach,
                            const std::function<void(UXCairoContext*)>& addPath)
{
    const double pixels = reach * std::max(std::abs(m_toDevice.xx), std::abs(m_toDevice.yy));
    if (!(pixels > 0) || pixels > UXCairoMarkStamps::greatestReach ||
        cairo_get_antialias(m_context) == CAIRO_ANTIALIAS_NONE)
        return false;
    UXCairoPixels* target = _obtainPixels();
    if (!target)
        return false;
    const UXCairoPixels::Writing writing(*target);
    UXCairoMarkStamps(pixels, addPath, m_toDevice).draw(*target, centres);
    forgetPath();
    return true;
}

/** Of opaque marks at one place all but one are hidden, and need no place in a file.
 *  @return the centres that are to be drawn */
std::vector<UXDoublePoint> UXCairoPainter::_leaveOutHidden(std::span<const UXDoublePoint> centres) const
{
    double red = 0, green = 0, blue = 0, alpha = 0;
    const bool isOpaque = cairo_pattern_get_rgba(cairo_get_source(m_context), &red, &green, &blue, &alpha) ==
                              CAIRO_STATUS_SUCCESS &&
                          alpha >= 1 && cairo_get_operator(m_context) == CAIRO_OPERATOR_OVER;
    std::vector<UXDoublePoint> shown;
    std::set<std::pair<double, double>> places;
    for (const UXDoublePoint& centre : centres) {
        const UXDoublePoint at = m_toDevice.apply(centre.x, centre.y);
        const auto round = [](double place) { return std::round(place * kPlacesPerUnit); };
        if (!isOpaque || places.insert({round(at.x), round(at.y)}).second)
            shown.push_back(centre);
    }
    return shown;
}

void UXCairoPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    if (_stamp(centres, radius, [radius](UXCairoContext* context) {
            cairo_arc(context, 0, 0, radius, 0, 2 * std::numbers::pi);
        }))
        return;
    UXPainter::drawMarks(_leaveOutHidden(centres), radius);
}

void UXCairoPainter::drawShapes(std::span<const UXDoublePoint> centres,
                                std::span<const UXDoublePoint> corners)
{
    double reach = 0;
    for (const UXDoublePoint& corner : corners)
        reach = std::max({reach, std::abs(corner.x), std::abs(corner.y)});
    const auto addPath = [corners](UXCairoContext* context) {
        for (const UXDoublePoint& corner : corners)
            cairo_line_to(context, corner.x, corner.y);
        cairo_close_path(context);
    };
    if (std::isfinite(reach) && _stamp(centres, reach, addPath))
        return;
    UXPainter::drawShapes(_leaveOutHidden(centres), corners);
}

void UXCairoPainter::drawStamp(const std::string& name, const UXDoubleRect& bounds,
                               const UXPaintFunction& draw)
{
    const double scale = m_toDevice.xx;
    const UXDoublePoint first = m_toDevice.apply(bounds.x, bounds.y);
    const UXDoublePoint last = m_toDevice.apply(bounds.x + bounds.width, bounds.y + bounds.height);
    const bool isKept = scale > 0 && scale == m_toDevice.yy && bounds.width > 0 && bounds.height > 0 &&
                        std::max(last.x - first.x, last.y - first.y) <= UXCairoStampCache::greatestExtent &&
                        std::abs(first.x) + std::abs(first.y) <= kFarthestPixel;
    UXCairoPixels* pixels = isKept ? _obtainPixels() : nullptr;
    if (!pixels)
        return UXPainter::drawStamp(name, bounds, draw);
    forgetPath();
    const int left = static_cast<int>(std::floor(first.x)), top = static_cast<int>(std::floor(first.y));
    const UXCairoPixels::Box box{left, top, static_cast<int>(std::ceil(last.x)),
                                 static_cast<int>(std::ceil(last.y))};
    const UXDoublePoint phase(first.x - left, first.y - top);
    const std::vector<std::uint32_t>& stamp = UXCairoStampCache::obtainShared().obtainStamp(
        name, {scale, phase, {box.right - left, box.bottom - top}}, [&](UXCairoSurface* surface) {
            UXCairoPainter painter(surface, scale, {phase.x - bounds.x * scale, phase.y - bounds.y * scale});
            draw(&painter);
        });
    const UXCairoPixels::Writing writing(*pixels);
    pixels->drawOver(box, stamp);
}

void UXCairoPainter::strokePreserve()
{
    if (_isPathDrawable() && cairo_get_line_width(m_context) > 0)
        cairo_stroke_preserve(m_context);
}

void UXCairoPainter::clipPreserve()
{
    m_pixels.reset();
    if (!m_pathBroken)
        return cairo_clip_preserve(m_context);
    const UXCairoPathKeeper keeper(m_context);
    cairo_clip(m_context);
}

void UXCairoPainter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                                UXSourceOperator beyond)
{
    m_lastOffset = 0;
    m_begunPattern.reset();
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return;
    m_begunPattern.reset(cairo_pattern_create_linear(x1, y1, x2, y2));
    const cairo_extend_t extend = beyond == UXSourceOperator::None      ? CAIRO_EXTEND_NONE
                                  : beyond == UXSourceOperator::Repeat  ? CAIRO_EXTEND_REPEAT
                                  : beyond == UXSourceOperator::Reflect ? CAIRO_EXTEND_REFLECT
                                                                        : CAIRO_EXTEND_PAD;
    cairo_pattern_set_extend(m_begunPattern.get(), extend);
}

void UXCairoPainter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    if (!m_begunPattern || std::isnan(offset) || std::isnan(color.alpha))
        return;
    m_lastOffset = std::clamp(offset, m_lastOffset, 1.0);
    cairo_pattern_add_color_stop_rgba(m_begunPattern.get(), m_lastOffset, obtainShare(color.red),
                                      obtainShare(color.green), obtainShare(color.blue),
                                      std::clamp(color.alpha, 0.0, 1.0));
}

void UXCairoPainter::endPattern()
{
    if (m_begunPattern)
        m_endedPattern = std::move(m_begunPattern);
}

void UXCairoPainter::usePattern()
{
    if (m_endedPattern)
        cairo_set_source(m_context, m_endedPattern.get());
    m_isSourceTaken = false;
}

void UXCairoPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                              UXTextAlign align, UXTextOption option, int lineMode)
{
    _drawText(text, rect, font, align, option, lineMode, nullptr);
}

UXDrawTextResult& UXCairoPainter::drawText(const std::string& text, const UXDoubleRect& rect,
                                           const UXFont& font, UXTextAlign align, UXTextOption option,
                                           int lineMode, UXDrawTextResult& result)
{
    result.reset();
    _drawText(text, rect, font, align, option, lineMode, &result);
    return result;
}

void UXCairoPainter::_drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                               UXTextAlign align, UXTextOption option, int lineMode, UXDrawTextResult* result)
{
    if (text.empty() || !uxIsFiniteDoubleRect(rect))
        return;
    const UXCairoTextLayout& layout = UXCairoTextCache::obtainShared().obtainLayout(
        text, font, option, lineMode, std::max(0.0, rect.width));
    const UXDoubleSize size = layout.getSize();
    const UXDoubleRect placed = uxPlaceText(size, rect, align);
    if (result) {
        result->textRect = placed;
        result->fits = size.width <= rect.width && size.height <= rect.height;
    }

    layout.draw(m_context, _obtainPixels(), m_toDevice, m_ground, rect.x, placed.y, rect.width, align);
}

/** Whether every point of rect has device coordinates that Cairo can count. */
bool UXCairoPainter::_isReachable(const UXDoubleRect& rect) const
{
    const UXDoublePoint corners[] = {m_toDevice.apply(rect.x, rect.y),
                                     m_toDevice.apply(rect.x + rect.width, rect.y),
                                     m_toDevice.apply(rect.x, rect.y + rect.height),
                                     m_toDevice.apply(rect.x + rect.width, rect.y + rect.height)};
    return std::all_of(std::begin(corners), std::end(corners), [](const UXDoublePoint& corner) {
        return std::abs(corner.x) <= kFarthestPixel && std::abs(corner.y) <= kFarthestPixel;
    });
}

/** Inside a scope: clips to rect; false where that leaves nothing to draw on. */
bool UXCairoPainter::_clipToRect(const UXDoubleRect& rect)
{
    if (!hasArea(rect))
        return false;
    addRectanglePath(rect);
    clip();
    return true;
}

/** @return the pixels behind the present clip; null where they cannot be written */
UXCairoPixels* UXCairoPainter::_obtainPixels()
{
    if (!m_toDevice.isUpright())
        return nullptr;
    if (!m_pixels)
        m_pixels.emplace(m_context, m_toDevice);
    else if (!m_isSourceTaken)
        m_pixels->takeSource(m_context);
    m_isSourceTaken = true;
    return m_pixels->isUsable() ? &*m_pixels : nullptr;
}

/** Runs what the host draws with, unless it stands too deep in others or in itself. */
void UXCairoPainter::_runNested(const std::function<void()>& action)
{
    if (m_nesting == uxDeepestPictureNesting)
        return;
    ++m_nesting;
    action();
    --m_nesting;
}

/** Draws on a layer of its own, in the present space, which begins clear and is drawn over. */
UXCairoPatternHandle UXCairoPainter::_drawLayer(Layer kind, const std::function<void()>& action)
{
    const Scope scope(*this);
    cairo_push_group_with_content(m_context,
                                  kind == Layer::AlphaOnly ? CAIRO_CONTENT_ALPHA : CAIRO_CONTENT_COLOR_ALPHA);
    cairo_set_operator(m_context, CAIRO_OPERATOR_OVER);
    m_pixels.reset();
    {
        const Scope inner(*this);
        action();
    }
    m_pixels.reset();
    return UXCairoPatternHandle(cairo_pop_group(m_context));
}

/** Combines a layer by mode with what is there, wherever the clip lets it. */
void UXCairoPainter::_combineLayer(const UXCairoPatternHandle& layer, UXCompositionMode mode)
{
    const UXPainterState state(*this);
    cairo_set_operator(m_context, obtainOperator(mode));
    cairo_set_source(m_context, layer.get());
    cairo_paint(m_context);
}

void UXCairoPainter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    if (!isDrawable(image) || !(opacity > 0) || !hasArea(rect) || !_isReachable(rect))
        return;
    const UXSize size = image->getSize();
    const double ratios[] = {rect.width / size.width, rect.height / size.height};
    if (std::any_of(std::begin(ratios), std::end(ratios),
                    [](double ratio) { return ratio < kSmallestScale || ratio > kLargestScale; }))
        return;

    const Scope scope(*this);
    const bool isPixels = cairo_surface_get_type(cairo_get_target(m_context)) == CAIRO_SURFACE_TYPE_IMAGE;
    const ImagePattern pattern(*image, rect, isPixels);
    if (!_clipToRect(rect))
        return;
    cairo_set_source(m_context, pattern.get());
    cairo_paint_with_alpha(m_context, std::min(opacity, 1.0));
}

/** Inside a scope: draws the whole of picture stretched to rect, which becomes its space. */
void UXCairoPainter::_placePicture(const UXPicture& picture, const UXDoubleRect& rect)
{
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    const UXDoubleSize size = picture.getSize();
    if (_transform({rect.width / size.width, 0, 0, rect.height / size.height, rect.x, rect.y}))
        _runNested([&] { picture.paint(this); });
}

void UXCairoPainter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    if (!isDrawable(picture) || !(opacity > 0))
        return;
    if (opacity >= 1 && cairo_get_operator(m_context) == CAIRO_OPERATOR_OVER)
        return _placePicture(*picture, rect);
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    const UXCairoPatternHandle layer = _drawLayer(Layer::Colours, [&] { _placePicture(*picture, rect); });
    cairo_set_source(m_context, layer.get());
    cairo_paint_with_alpha(m_context, std::min(opacity, 1.0));
}

void UXCairoPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask,
                                       const UXDoubleRect& rect)
{
    if (!isDrawable(mask))
        return;
    UXPicture maskPicture;
    maskPicture.registerPaintAction(
        [mask](UXPainter* painter) { painter->drawImage(mask, UXDoublePoint(0, 0), 1); },
        {double(mask->getSize().width), double(mask->getSize().height)});
    drawMaskedPicture(picture, &maskPicture, rect);
}

void UXCairoPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                       const UXDoubleRect& rect)
{
    if (!isDrawable(picture) || !isDrawable(mask))
        return;
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    const UXCairoPatternHandle through = _drawLayer(Layer::AlphaOnly, [&] { _placePicture(*mask, rect); });
    const UXCairoPatternHandle layer = _drawLayer(Layer::Colours, [&] { _placePicture(*picture, rect); });
    cairo_set_source(m_context, layer.get());
    cairo_mask(m_context, through.get());
}

void UXCairoPainter::drawMasked(const UXPaintFunction& mask, UXPaintConfig*, const UXDoubleRect& rect)
{
    if (!mask)
        return;
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    const UXCairoPatternHandle through = _drawLayer(Layer::AlphaOnly,
                                                    [&] { _runNested([&] { mask(this); }); });
    cairo_mask(m_context, through.get());
}

void UXCairoPainter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                           const UXDoubleRect& rect, UXCompositionMode mode)
{
    if (!isDrawable(upper) || !isDrawable(lower))
        return;
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    const UXCairoPatternHandle both = _drawLayer(Layer::Colours, [&] {
        _placePicture(*lower, rect);
        _combineLayer(_drawLayer(Layer::Colours, [&] { _placePicture(*upper, rect); }), mode);
    });
    cairo_set_source(m_context, both.get());
    cairo_paint(m_context);
}

void UXCairoPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig*, const UXDoubleRect& rect,
                                    UXCompositionMode mode)
{
    if (!action)
        return;
    const Scope scope(*this);
    if (!_clipToRect(rect))
        return;
    _combineLayer(_drawLayer(Layer::Colours, [&] { _runNested([&] { action(this); }); }), mode);
}
