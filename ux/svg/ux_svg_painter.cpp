#include "ux/svg/ux_svg_painter.h"

#include "ux/svg/ux_svg_composition.h"
#include "ux/svg/ux_svg_document.h"
#include "ux/svg/ux_svg_gradient.h"
#include "ux/svg/ux_svg_text.h"
#include "ux/ux_drawn_lines.h"
#include "ux/ux_image.h"
#include "ux/ux_picture.h"
#include "ux/ux_pixel_snapping.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_bound.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_placement.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <string>
#include <utility>

namespace {

/** Fewer marks than these are not worth a definition of their own. */
constexpr std::size_t kFewestUsed = 2;

// Where the baseline stands in a line, as a share of its height: that of Roboto, and near that of other sans
// serifs.
constexpr double baselineShare = 0.79;

bool hasArea(const UXDoubleRect& rect)
{
    return uxIsFiniteDoubleRect(rect) && rect.width > 0 && rect.height > 0;
}

/** @return by how much the map enlarges a pen evenly in all directions, 0 where it does not */
double obtainEvenScale(const UXTransform& map)
{
    const double across = std::hypot(map.xx, map.yx), down = std::hypot(map.xy, map.yy);
    const double skew = map.xx * map.xy + map.yx * map.yy;
    const double tolerance = 1e-9 * across * across;
    const bool isEven = std::abs(across - down) <= 1e-9 * across && std::abs(skew) <= tolerance;
    return isEven && std::isfinite(across) ? across : 0;
}

/** @return an attribute with its blank in front, nothing for the map that changes nothing */
std::string formatTransformAttribute(const UXTransform& transform)
{
    return transform == UXTransform{} ? "" : " transform=\"" + uxFormatSvgTransform(transform) + '"';
}

std::string formatFontFamily(const std::string& family)
{
    if (family.empty() || family == "Default")
        return "Roboto, 'DejaVu Sans', 'WenQuanYi Micro Hei', sans-serif";
    std::string quoted;
    for (const char c : uxBoundFamilyName(family)) {
        if (c == '\'' || c == '\\')
            quoted.push_back('\\');
        quoted.push_back(c);
    }
    return '\'' + uxEscapeSvgText(quoted) + "', sans-serif";
}

std::string formatFont(const UXFont& font)
{
    return " font-family=\"" + formatFontFamily(font.familyName) + "\" font-size=\"" +
           std::to_string(font.size) + '"' + (font.bold ? " font-weight=\"bold\"" : "") +
           (font.italic ? " font-style=\"italic\"" : "");
}

std::string formatAnchor(UXTextAlign align)
{
    return align == UXTextAlign::Center  ? " text-anchor=\"middle\""
           : align == UXTextAlign::Right ? " text-anchor=\"end\""
                                         : "";
}

/** Blanks at the ends of a line and beside one another would be lost otherwise. */
std::string formatBlanks(const std::string& line)
{
    const bool hasMore = line.starts_with(' ') || line.ends_with(' ') || line.find("  ") != std::string::npos;
    return hasMore ? " xml:space=\"preserve\"" : "";
}

} // namespace

UXSvgPainter::UXSvgPainter(UXSvgDocument& document, UXSvgLayer& layer, const UXTransform& toPage)
    : m_document(document), m_layer(layer)
{
    m_state.toPage = toPage;
}

UXSvgPainter::~UXSvgPainter() = default;

void UXSvgPainter::saveState() { m_savedStates.push_back(m_state); }

void UXSvgPainter::restoreState()
{
    if (m_savedStates.empty())
        return;
    m_state = std::move(m_savedStates.back());
    m_savedStates.pop_back();
}

void UXSvgPainter::setColor(const UXColor& color)
{
    if (std::isnan(color.alpha))
        return;
    m_state.color = color;
    m_state.gradient = nullptr;
}

void UXSvgPainter::setLineWidth(double width)
{
    if (std::isfinite(width))
        m_state.lineWidth = width;
}

void UXSvgPainter::setLineCap(UXLineCapStyle cap) { m_state.cap = cap; }

void UXSvgPainter::setLineJoin(UXLineJoinStyle join) { m_state.join = join; }

void UXSvgPainter::setLineDash(const std::vector<double>& lengths, double offset)
{
    const double sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    if (!std::isfinite(sum) || !std::isfinite(offset))
        return;
    const bool isDashed = sum > 0 && std::all_of(lengths.begin(), lengths.end(),
                                                 [](double length) { return length >= 0; });
    m_state.dashes = isDashed ? lengths : std::vector<double>{};
    m_state.dashOffset = offset;
}

void UXSvgPainter::setFillRule(UXFillRule rule) { m_state.fillRule = rule; }

void UXSvgPainter::setAntialias(UXAntialiasStyle style) { m_state.antialias = style; }

void UXSvgPainter::setCompositionMode(UXCompositionMode mode) { m_state.mode = mode; }

void UXSvgPainter::transformSpace(const UXTransform& change)
{
    const UXTransform changed = m_state.toPage.combined(change);
    if (changed.isInvertible())
        m_state.toPage = changed;
}

void UXSvgPainter::transformPath(const UXTransform& change)
{
    if (change.isInvertible() && m_state.toPage.isInvertible())
        m_path.transform(m_state.toPage.combined(change).combined(m_state.toPage.inverted()));
}

void UXSvgPainter::setStartPoint(double x, double y) { m_path.moveTo(m_state.toPage.apply(x, y)); }

void UXSvgPainter::addLinePath(double x, double y) { m_path.lineTo(m_state.toPage.apply(x, y)); }

void UXSvgPainter::addRelativeLinePath(double dx, double dy)
{
    const UXDoublePoint* current = m_path.getCurrentPoint();
    if (!current)
        return;
    const UXTransform& map = m_state.toPage;
    m_path.lineTo({current->x + map.xx * dx + map.xy * dy, current->y + map.yx * dx + map.yy * dy});
}

void UXSvgPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const UXTransform& map = m_state.toPage;
    m_path.curveTo(map.apply(x1, y1), map.apply(x2, y2), map.apply(x3, y3));
}

void UXSvgPainter::startNewSubPath() { m_path.breakOff(); }

void UXSvgPainter::closePath() { m_path.close(); }

void UXSvgPainter::fillPreserve()
{
    if (m_path.isDrawable() && !_drawsNothing())
        _add(_obtainFillElement(m_path));
}

void UXSvgPainter::strokePreserve()
{
    if (!m_path.isDrawable() || !(m_state.lineWidth > 0) || _drawsNothing() || !m_state.toPage.isInvertible())
        return;
    // A pen that is wider in one direction than in another is only to be had in the space that it is round
    // in.
    const double scale = obtainEvenScale(m_state.toPage);
    const UXTransform toPage = scale > 0 ? UXTransform{} : m_state.toPage;
    _add("<path" + formatTransformAttribute(toPage) + " d=\"" + m_path.obtainData(toPage.inverted()) +
         "\" fill=\"none\"" + _obtainPaint("stroke", toPage) + _obtainStroke(scale > 0 ? scale : 1) + "/>");
}

void UXSvgPainter::clipPreserve()
{
    const UXSize& page = m_document.getSize();
    const std::optional<UXDoubleRect> rect = m_path.obtainRect();
    const bool holdsPage = rect && rect->x <= 0 && rect->y <= 0 && rect->x + rect->width >= page.width &&
                           rect->y + rect->height >= page.height;
    if (holdsPage)
        return;
    const std::string rule = m_state.fillRule == UXFillRule::EvenOdd ? " clip-rule=\"evenodd\"" : "";
    const std::string outer = m_state.clip.empty() ? "" : " clip-path=\"url(#" + m_state.clip + ")\"";
    m_state.clip = m_document.define(
        "clipPath", outer,
        m_path.isDrawable() ? "<path d=\"" + m_path.obtainData({}) + '"' + rule + "/>" : "");
}

void UXSvgPainter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                              UXSourceOperator beyond)
{
    m_begunGradient.reset();
    if (std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) && std::isfinite(y2))
        m_begunGradient = std::make_unique<UXSvgGradient>(UXSvgGradient{{x1, y1}, {x2, y2}, beyond, {}});
}

void UXSvgPainter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    if (m_begunGradient)
        m_begunGradient->addStop(color, offset);
}

void UXSvgPainter::endPattern()
{
    if (m_begunGradient)
        m_endedGradient = std::move(m_begunGradient);
}

void UXSvgPainter::usePattern()
{
    if (!m_endedGradient)
        return;
    m_state.gradient = m_endedGradient;
    m_state.gradientToPage = m_state.toPage;
}

void UXSvgPainter::drawText(const std::string& content, const UXDoubleRect& rect, const UXFont& font,
                            UXTextAlign align, UXTextOption option, int lineMode)
{
    if (content.empty() || font.size <= 0 || !uxIsFiniteDoubleRect(rect) || _drawsNothing())
        return;
    const std::string text(uxBoundDrawnText(content, font.size));
    const double width = std::max(0.0, rect.width);
    const std::vector<std::string> lines = uxObtainDrawnLines(text, font, option, lineMode, width);
    const UXDoubleSize size = uxMeasureText(text, font, option, lineMode, width);
    const double lineHeight = size.height / static_cast<double>(lines.size());
    double baseline = uxPlaceText(size, rect, align).y + lineHeight * baselineShare;
    for (const std::string& line : lines) {
        if (!line.empty())
            _drawTextLine(line, rect, baseline, font, align);
        baseline += lineHeight;
    }
}

void UXSvgPainter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    if (!image || !image->getPixels() || !hasArea(rect) || !(opacity > 0) ||
        !uxDrawsOnSvgGround(m_state.mode))
        return;
    _add("<g" + uxFormatSvgOpacity("opacity", opacity) + uxFormatSvgBlend(m_state.mode) + '>' +
         _obtainImageElement(*image, rect) + "</g>");
}

void UXSvgPainter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    if (!(opacity > 0) || !uxDrawsOnSvgGround(m_state.mode))
        return;
    const std::string content = _paintPicture(picture, rect);
    if (!content.empty())
        _add("<g" + uxFormatSvgOpacity("opacity", opacity) + uxFormatSvgBlend(m_state.mode) + ">\n" +
             content + "</g>");
}

void UXSvgPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask, const UXDoubleRect& rect)
{
    if (mask && mask->getPixels() && hasArea(rect))
        _drawMasked(_paintPicture(picture, rect), _obtainImageElement(*mask, rect), rect);
}

void UXSvgPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                     const UXDoubleRect& rect)
{
    if (mask && hasArea(rect))
        _drawMasked(_paintPicture(picture, rect), _paintPicture(mask, rect), rect);
}

void UXSvgPainter::drawMasked(const UXPaintFunction& mask, UXPaintConfig*, const UXDoubleRect& rect)
{
    if (mask && hasArea(rect) && !_drawsNothing())
        _drawMasked(_obtainFillElement(_obtainRectPath(rect)), _paintLayer(mask, m_state.toPage), rect);
}

void UXSvgPainter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                         const UXDoubleRect& rect, UXCompositionMode mode)
{
    if (!upper || !lower || !hasArea(rect) || !uxDrawsOnSvgGround(m_state.mode))
        return;
    const std::string upperContent = _paintPicture(upper, rect), lowerContent = _paintPicture(lower, rect);
    _add(uxComposeSvg(m_document, upperContent, lowerContent, _obtainRegion(rect), mode));
}

void UXSvgPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig*, const UXDoubleRect& rect,
                                  UXCompositionMode mode)
{
    if (!action || !hasArea(rect) || !uxDrawsOnSvgGround(mode))
        return;
    const std::string cut = m_document.define("clipPath", "",
                                              "<path d=\"" + _obtainRectPath(rect).obtainData({}) + "\"/>");
    _add("<g clip-path=\"url(#" + cut + ")\"" + uxFormatSvgBlend(mode) + ">\n" +
         _paintLayer(action, m_state.toPage) + "</g>");
}

void UXSvgPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    // What is clear or blends has to be drawn one by one; the others may share one path, as long as they turn
    // alike.
    const bool canShare = !m_state.gradient && m_state.color.alpha >= 1 &&
                          m_state.mode == UXCompositionMode::Over && m_state.fillRule == UXFillRule::Winding;
    if (!canShare)
        return UXPainter::drawRects(rects);
    for (const UXDoubleRect& rect : rects) {
        if (hasArea(rect))
            addRectanglePath(uxSnapRect(rect, m_state.toPage));
    }
    fill();
}

/** Defines a mark once and uses it at each centre; of opaque ones at one place all but one are hidden.
 *  @param addPath adds the path of a mark about the origin
 *  @return false where marks are not alike: a gradient shows each another part of it */
bool UXSvgPainter::_useShape(std::span<const UXDoublePoint> centres, const std::function<void()>& addPath)
{
    if (m_state.gradient || m_state.mode != UXCompositionMode::Over || centres.size() < kFewestUsed)
        return false;
    forgetPath();
    UXTransform map = m_state.toPage;
    map.dx = map.dy = 0;
    std::swap(m_state.toPage, map);
    addPath();
    std::swap(m_state.toPage, map);
    if (!m_path.isDrawable() || _drawsNothing()) {
        forgetPath();
        return true;
    }
    const bool isOpaque = m_state.color.alpha >= 1;
    const std::string name = m_document.define("path", " d=\"" + m_path.obtainData({}) + '"', "");
    forgetPath();
    std::string uses;
    std::set<std::string> places;
    for (const UXDoublePoint& centre : centres) {
        const UXDoublePoint at = m_state.toPage.apply(centre.x, centre.y);
        if (!std::isfinite(at.x) || !std::isfinite(at.y))
            continue;
        const std::string place = " x=\"" + uxFormatSvgNumber(at.x) + "\" y=\"" + uxFormatSvgNumber(at.y) +
                                  '"';
        if (!isOpaque || places.insert(place).second)
            uses.append("<use href=\"#").append(name).append("\"").append(place).append("/>\n");
    }
    _add("<g" + _obtainPaint("fill", {}) +
         (m_state.antialias == UXAntialiasStyle::None ? " shape-rendering=\"crispEdges\"" : "") + ">\n" +
         uses + "</g>");
    return true;
}

void UXSvgPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    const auto addPath = [this, radius] {
        if (!(radius > 0))
            return;
        addCircleArcPath(0, 0, radius, 0, 360);
        closePath();
    };
    if (!_useShape(centres, addPath))
        UXPainter::drawMarks(centres, radius);
}

void UXSvgPainter::drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners)
{
    const auto addPath = [this, corners] {
        for (const UXDoublePoint& corner : corners)
            addLinePath(corner.x, corner.y);
        closePath();
    };
    if (!_useShape(centres, addPath))
        UXPainter::drawShapes(centres, corners);
}

void UXSvgPainter::_add(const std::string& element) { m_layer.add(m_state.clip, element); }

bool UXSvgPainter::_drawsNothing() const
{
    const bool isClear = m_state.gradient ? m_state.gradient->stops.empty() : !(m_state.color.alpha > 0);
    return isClear || !uxDrawsOnSvgGround(m_state.mode);
}

UXSvgPath UXSvgPainter::_obtainRectPath(const UXDoubleRect& rect) const
{
    const UXTransform& map = m_state.toPage;
    const double right = rect.x + rect.width, bottom = rect.y + rect.height;
    UXSvgPath path;
    path.moveTo(map.apply(rect.x, rect.y));
    path.lineTo(map.apply(right, rect.y));
    path.lineTo(map.apply(right, bottom));
    path.lineTo(map.apply(rect.x, bottom));
    path.close();
    return path;
}

std::string UXSvgPainter::_obtainRegion(const UXDoubleRect& rect) const
{
    const UXTransform& map = m_state.toPage;
    const UXDoublePoint origin = map.apply(rect.x, rect.y);
    const double width = map.xx * rect.width, skewX = map.xy * rect.height;
    const double height = map.yy * rect.height, skewY = map.yx * rect.width;
    const double left = origin.x + std::min(0.0, width) + std::min(0.0, skewX);
    const double top = origin.y + std::min(0.0, height) + std::min(0.0, skewY);
    return " x=\"" + uxFormatSvgNumber(left) + "\" y=\"" + uxFormatSvgNumber(top) + "\" width=\"" +
           uxFormatSvgNumber(std::abs(width) + std::abs(skewX)) + "\" height=\"" +
           uxFormatSvgNumber(std::abs(height) + std::abs(skewY)) + '"';
}

std::string UXSvgPainter::_obtainPaint(const std::string& property, const UXTransform& elementToPage) const
{
    const std::string opening = ' ' + property + "=\"";
    if (m_state.gradient) {
        const UXTransform toElement = elementToPage.inverted().combined(m_state.gradientToPage);
        return opening + "url(#" + uxDefineSvgGradient(m_document, *m_state.gradient, toElement) + ")\"";
    }
    return opening + uxFormatSvgColor(m_state.color) + '"' +
           uxFormatSvgOpacity(property + "-opacity", uxObtainSvgOpacity(m_state.color.alpha));
}

std::string UXSvgPainter::_obtainStroke(double scale) const
{
    std::string attributes = " stroke-width=\"" + uxFormatSvgNumber(m_state.lineWidth * scale) + '"';
    if (m_state.cap != UXLineCapStyle::Butt)
        attributes.append(m_state.cap == UXLineCapStyle::Round ? " stroke-linecap=\"round\""
                                                               : " stroke-linecap=\"square\"");
    if (m_state.join != UXLineJoinStyle::Miter)
        attributes.append(m_state.join == UXLineJoinStyle::Round ? " stroke-linejoin=\"round\""
                                                                 : " stroke-linejoin=\"bevel\"");
    if (!m_state.dashes.empty()) {
        attributes.append(" stroke-dasharray=\"");
        for (const double length : m_state.dashes)
            attributes.append(attributes.ends_with('"') ? "" : " ").append(uxFormatSvgNumber(length * scale));
        attributes.append("\"");
        if (m_state.dashOffset != 0)
            attributes.append(" stroke-dashoffset=\"" + uxFormatSvgNumber(m_state.dashOffset * scale) + '"');
    }
    if (m_state.antialias == UXAntialiasStyle::None)
        attributes.append(" shape-rendering=\"crispEdges\"");
    return attributes + uxFormatSvgBlend(m_state.mode);
}

std::string UXSvgPainter::_obtainFillElement(const UXSvgPath& path) const
{
    return "<path d=\"" + path.obtainData({}) + '"' + _obtainPaint("fill", {}) +
           (m_state.fillRule == UXFillRule::EvenOdd ? " fill-rule=\"evenodd\"" : "") +
           (m_state.antialias == UXAntialiasStyle::None ? " shape-rendering=\"crispEdges\"" : "") +
           uxFormatSvgBlend(m_state.mode) + "/>";
}

std::string UXSvgPainter::_obtainImageElement(const UXImage& image, const UXDoubleRect& rect) const
{
    const UXTransform toPage = m_state.toPage.translated(rect.x, rect.y)
                                   .scaled(rect.width / image.getSize().width,
                                           rect.height / image.getSize().height);
    return "<use href=\"#" + m_document.defineImage(image) + '"' + formatTransformAttribute(toPage) + "/>";
}

void UXSvgPainter::_drawTextLine(const std::string& line, const UXDoubleRect& rect, double baseline,
                                 const UXFont& font, UXTextAlign align)
{
    const double share = align == UXTextAlign::Left ? 0 : align == UXTextAlign::Center ? 0.5 : 1;
    const double x = rect.x + rect.width * share;
    // In an upright space of the page's scale the text needs no transform of its own.
    const UXTransform& map = m_state.toPage;
    const bool isPlain = map.isUpright() && map.xx == 1 && map.yy == 1;
    const UXDoublePoint place = isPlain ? map.apply(x, baseline) : UXDoublePoint(x, baseline);
    const UXTransform toPage = isPlain ? UXTransform{} : map;
    _add("<text" + formatTransformAttribute(toPage) + " x=\"" + uxFormatSvgNumber(place.x) + "\" y=\"" +
         uxFormatSvgNumber(place.y) + '"' + formatFont(font) + formatAnchor(align) +
         _obtainPaint("fill", toPage) + formatBlanks(line) + uxFormatSvgBlend(m_state.mode) + '>' +
         uxEscapeSvgText(line) + "</text>");
}

std::string UXSvgPainter::_paintPicture(const UXPicture* picture, const UXDoubleRect& rect) const
{
    if (!picture || !hasArea(rect) || !hasArea({0, 0, picture->getSize().width, picture->getSize().height}))
        return "";
    const UXDoubleSize size = picture->getSize();
    const UXTransform toPage =
        m_state.toPage.translated(rect.x, rect.y).scaled(rect.width / size.width, rect.height / size.height);
    const auto action = [&](UXPainter* painter) {
        painter->addRectanglePath(0, 0, size.width, size.height);
        painter->clip();
        picture->paint(painter);
    };
    return _paintLayer(action, toPage);
}

std::string UXSvgPainter::_paintLayer(const UXPaintFunction& action, const UXTransform& toPage) const
{
    if (m_nesting == uxDeepestPictureNesting)
        return "";
    UXSvgLayer layer;
    UXSvgPainter painter(m_document, layer, toPage);
    painter.m_nesting = m_nesting + 1;
    painter.m_state = m_state;
    painter.m_state.toPage = toPage;
    painter.m_state.mode = UXCompositionMode::Over;
    painter.m_state.clip.clear();
    painter.m_endedGradient = m_endedGradient;
    action(&painter);
    return layer.obtainContent();
}

void UXSvgPainter::_drawMasked(const std::string& content, const std::string& mask, const UXDoubleRect& rect)
{
    if (!content.empty() && uxDrawsOnSvgGround(m_state.mode))
        _add("<g mask=\"url(#" + uxDefineSvgMask(m_document, mask, _obtainRegion(rect)) + ")\">\n" + content +
             "</g>");
}
