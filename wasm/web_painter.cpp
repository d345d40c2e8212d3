#include "web_painter.h"

#include "ux/ux_drawn_lines.h"
#include "ux/ux_image.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"
#include "ux/ux_pixel_snapping.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_bound.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_placement.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace {

bool hasArea(const UXDoubleRect& rect)
{
    return uxIsFiniteDoubleRect(rect) && rect.width > 0 && rect.height > 0;
}

bool isDrawn(const UXPicture* picture)
{
    return picture && hasArea({0, 0, picture->getSize().width, picture->getSize().height});
}

/** @return whether the map enlarges evenly in all directions, so that discs stay discs */
bool isEven(const UXTransform& map)
{
    const double across = std::hypot(map.xx, map.yx), down = std::hypot(map.xy, map.yy);
    return std::abs(across - down) <= 1e-9 * across &&
           std::abs(map.xx * map.xy + map.yx * map.yy) <= 1e-9 * across * across;
}

UXTransform obtainImageToCanvas(const UXTransform& toCanvas, const UXImage& image, const UXDoubleRect& rect)
{
    return toCanvas.translated(rect.x, rect.y)
        .scaled(rect.width / image.getSize().width, rect.height / image.getSize().height);
}

} // namespace

WebPainter::WebPainter(WebDrawing& drawing, const UXTransform& toCanvas) : m_drawing(drawing)
{
    m_state.toCanvas = toCanvas;
}

WebPainter::~WebPainter()
{
    while (!m_savedStates.empty())
        restoreState();
    if (m_state.isSaved)
        m_drawing.restore();
}

void WebPainter::saveState()
{
    m_savedStates.push_back(m_state);
    m_state.isSaved = false;
}

void WebPainter::restoreState()
{
    if (m_savedStates.empty())
        return;
    if (m_state.isSaved)
        m_drawing.restore();
    m_state = std::move(m_savedStates.back());
    m_savedStates.pop_back();
}

void WebPainter::setColor(const UXColor& color)
{
    if (!std::isnan(color.alpha))
        m_state.source = {color, nullptr, {}};
}

void WebPainter::setLineWidth(double width)
{
    if (std::isfinite(width))
        m_state.pen.width = width;
}

void WebPainter::setLineCap(UXLineCapStyle cap) { m_state.pen.cap = cap; }

void WebPainter::setLineJoin(UXLineJoinStyle join) { m_state.pen.join = join; }

void WebPainter::setLineDash(const std::vector<double>& lengths, double offset)
{
    const double sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    if (!std::isfinite(sum) || !std::isfinite(offset))
        return;
    const bool isDashed = sum > 0 && std::ranges::all_of(lengths, [](double length) { return length >= 0; });
    m_state.pen.dashes = isDashed ? lengths : std::vector<double>{};
    m_state.pen.dashOffset = offset;
}

void WebPainter::setFillRule(UXFillRule rule) { m_state.fillRule = rule; }

void WebPainter::setAntialias(UXAntialiasStyle) {}

void WebPainter::setCompositionMode(UXCompositionMode mode) { m_state.mode = mode; }

void WebPainter::transformSpace(const UXTransform& change)
{
    const UXTransform changed = m_state.toCanvas.combined(change);
    if (changed.isInvertible())
        m_state.toCanvas = changed;
}

void WebPainter::transformPath(const UXTransform& change)
{
    if (change.isInvertible() && m_state.toCanvas.isInvertible())
        m_path.transform(m_state.toCanvas.combined(change).combined(m_state.toCanvas.inverted()));
}

void WebPainter::setStartPoint(double x, double y) { m_path.moveTo(m_state.toCanvas.apply(x, y)); }

void WebPainter::addLinePath(double x, double y) { m_path.lineTo(m_state.toCanvas.apply(x, y)); }

void WebPainter::addRelativeLinePath(double dx, double dy)
{
    const UXDoublePoint* current = m_path.getCurrentPoint();
    if (!current)
        return;
    const UXTransform& map = m_state.toCanvas;
    m_path.lineTo({current->x + map.xx * dx + map.xy * dy, current->y + map.yx * dx + map.yy * dy});
}

void WebPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    const UXTransform& map = m_state.toCanvas;
    m_path.curveTo(map.apply(x1, y1), map.apply(x2, y2), map.apply(x3, y3));
}

void WebPainter::startNewSubPath() { m_path.breakOff(); }

void WebPainter::closePath() { m_path.close(); }

void WebPainter::fillPreserve()
{
    if (!m_path.isDrawable() || _drawsNothing())
        return;
    _useSource();
    m_path.write(m_drawing);
    m_drawing.add(WebCommand::Fill);
    m_drawing.addEnum(m_state.fillRule);
}

void WebPainter::strokePreserve()
{
    if (!m_path.isDrawable() || !(m_state.pen.width > 0) || _drawsNothing())
        return;
    _usePen();
    m_path.write(m_drawing);
    m_drawing.add(WebCommand::Stroke);
}

void WebPainter::clipPreserve()
{
    // Only a canvas that was saved gets rid of its clip again.
    if (!m_state.isSaved)
        m_drawing.save();
    m_state.isSaved = true;
    if (m_path.isDrawable())
        m_path.write(m_drawing);
    else
        m_drawing.add(WebCommand::BeginPath);
    m_drawing.add(WebCommand::Clip);
    m_drawing.addEnum(m_state.fillRule);
}

void WebPainter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                            UXSourceOperator beyond)
{
    m_begunGradient.reset();
    if (std::isfinite(x1) && std::isfinite(y1) && std::isfinite(x2) && std::isfinite(y2))
        m_begunGradient = std::make_unique<WebGradient>(WebGradient{x1, y1, x2, y2, beyond, {}});
}

void WebPainter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    if (!m_begunGradient || std::isnan(offset) || std::isnan(color.alpha))
        return;
    const double least = m_begunGradient->stops.empty() ? 0 : m_begunGradient->stops.back().offset;
    m_begunGradient->stops.push_back({color, std::clamp(offset, least, 1.0)});
}

void WebPainter::endPattern()
{
    if (m_begunGradient)
        m_endedGradient = std::move(m_begunGradient);
}

void WebPainter::usePattern()
{
    if (!m_endedGradient)
        return;
    m_state.source.gradient = m_endedGradient;
    m_state.source.gradientToCanvas = m_state.toCanvas;
}

void WebPainter::drawText(const std::string& content, const UXDoubleRect& rect, const UXFont& font,
                          UXTextAlign align, UXTextOption option, int lineMode)
{
    if (content.empty() || font.size <= 0 || !uxIsFiniteDoubleRect(rect) || _drawsNothing())
        return;
    const std::string text(uxBoundDrawnText(content, font.size));
    const double width = std::max(0.0, rect.width);
    const std::vector<std::string> lines = uxObtainDrawnLines(text, font, option, lineMode, width);
    const UXDoubleSize size = uxMeasureText(text, font, option, lineMode, width);
    const double lineHeight = size.height / static_cast<double>(lines.size());
    const double share = align == UXTextAlign::Left ? 0 : align == UXTextAlign::Center ? 0.5 : 1;
    double top = uxPlaceText(size, rect, align).y;
    _useSource();
    m_drawing.use(font);
    for (const std::string& line : lines) {
        if (!line.empty()) {
            m_drawing.add(WebCommand::Text);
            m_drawing.addNumbers({rect.x + rect.width * share, top, share * 2});
            m_drawing.addTransform(m_state.toCanvas);
            m_drawing.addText(line);
        }
        top += lineHeight;
    }
}

void WebPainter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    if (!image || !image->getPixels() || !hasArea(rect) || !(opacity > 0))
        return;
    m_drawing.use(m_state.mode);
    m_drawing.addImage(*image, opacity, obtainImageToCanvas(m_state.toCanvas, *image, rect));
}

void WebPainter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    if (!isDrawn(picture) || !hasArea(rect) || !(opacity > 0))
        return;
    m_drawing.beginLayer();
    _paintPicture(*picture, rect);
    m_drawing.endLayer(m_state.mode, opacity);
}

void WebPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask, const UXDoubleRect& rect)
{
    if (!isDrawn(picture) || !mask || !mask->getPixels() || !hasArea(rect))
        return;
    m_drawing.beginLayer();
    _paintPicture(*picture, rect);
    m_drawing.beginLayer();
    m_drawing.addImage(*mask, 1, obtainImageToCanvas(m_state.toCanvas, *mask, rect));
    m_drawing.endLayer(UXCompositionMode::DestinationIn, 1);
    m_drawing.endLayer(m_state.mode, 1);
}

void WebPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask, const UXDoubleRect& rect)
{
    if (!isDrawn(picture) || !isDrawn(mask) || !hasArea(rect))
        return;
    m_drawing.beginLayer();
    _paintPicture(*picture, rect);
    m_drawing.beginLayer();
    _paintPicture(*mask, rect);
    m_drawing.endLayer(UXCompositionMode::DestinationIn, 1);
    m_drawing.endLayer(m_state.mode, 1);
}

void WebPainter::drawMasked(const UXPaintFunction& mask, UXPaintConfig*, const UXDoubleRect& rect)
{
    if (!mask || !hasArea(rect) || _drawsNothing())
        return;
    m_drawing.beginLayer();
    const auto fillRect = [&](UXPainter* painter) {
        painter->addRectanglePath(rect);
        painter->fill();
    };
    _paintLayer(fillRect, m_state.toCanvas);
    m_drawing.beginLayer();
    _paintLayer(mask, m_state.toCanvas);
    m_drawing.endLayer(UXCompositionMode::DestinationIn, 1);
    m_drawing.endLayer(m_state.mode, 1);
}

void WebPainter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                       const UXDoubleRect& rect, UXCompositionMode mode)
{
    if (!isDrawn(upper) || !isDrawn(lower) || !hasArea(rect))
        return;
    m_drawing.beginLayer();
    _paintPicture(*lower, rect);
    m_drawing.beginLayer();
    _paintPicture(*upper, rect);
    m_drawing.endLayer(mode, 1);
    m_drawing.endLayer(m_state.mode, 1);
}

void WebPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig*, const UXDoubleRect& rect,
                                UXCompositionMode mode)
{
    if (!action || !hasArea(rect))
        return;
    const UXPainterState state(*this);
    addRectanglePath(rect);
    clip(); // what the layer is drawn on
    m_drawing.beginLayer();
    _paintLayer(action, m_state.toCanvas);
    m_drawing.endLayer(mode, 1);
}

void WebPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    if (_drawsNothing())
        return forgetPath();
    if (!m_state.toCanvas.isUpright() || m_state.source.gradient)
        return UXPainter::drawRects(rects);
    std::vector<UXDoubleRect> drawn;
    drawn.reserve(rects.size());
    for (const UXDoubleRect& rect : rects) {
        if (!hasArea(rect))
            continue;
        const UXDoubleRect snapped = uxSnapRect(rect, m_state.toCanvas);
        const UXDoublePoint a = m_state.toCanvas.apply(snapped.x, snapped.y);
        const UXDoublePoint b = m_state.toCanvas.apply(snapped.x + snapped.width, snapped.y + snapped.height);
        drawn.emplace_back(std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x), std::abs(b.y - a.y));
    }
    if (drawn.empty())
        return;
    _useSource();
    m_drawing.add(WebCommand::Rects);
    m_drawing.addCount(drawn.size());
    for (const UXDoubleRect& rect : drawn)
        m_drawing.addNumbers({rect.x, rect.y, rect.width, rect.height});
}

void WebPainter::drawPolyline(std::span<const UXDoublePoint> points)
{
    if (points.empty() || !(m_state.pen.width > 0) || _drawsNothing())
        return;
    _usePen();
    m_drawing.add(WebCommand::Polyline);
    m_drawing.addCount(points.size());
    for (const UXDoublePoint& point : points) {
        const UXDoublePoint at = m_state.toCanvas.apply(point.x, point.y);
        m_drawing.addNumbers({at.x, at.y});
    }
}

void WebPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    if (!isEven(m_state.toCanvas) || m_state.source.gradient)
        return UXPainter::drawMarks(centres, radius);
    if (centres.empty() || !(radius > 0) || _drawsNothing())
        return;
    _useSource();
    m_drawing.add(WebCommand::Marks);
    m_drawing.addNumber(radius * std::hypot(m_state.toCanvas.xx, m_state.toCanvas.yx));
    m_drawing.addCount(centres.size());
    for (const UXDoublePoint& centre : centres) {
        const UXDoublePoint at = m_state.toCanvas.apply(centre.x, centre.y);
        m_drawing.addNumbers({at.x, at.y});
    }
}

bool WebPainter::_drawsNothing() const
{
    if (m_state.mode != UXCompositionMode::Over)
        return false;
    const WebSource& source = m_state.source;
    return source.gradient ? source.gradient->stops.empty() : !(source.color.alpha > 0);
}

void WebPainter::_useSource()
{
    m_drawing.use(m_state.mode);
    m_drawing.use(m_state.source);
}

void WebPainter::_usePen()
{
    _useSource();
    m_drawing.use(m_state.pen, m_state.toCanvas);
}

void WebPainter::_paintPicture(const UXPicture& picture, const UXDoubleRect& rect)
{
    const UXDoubleSize size = picture.getSize();
    const UXTransform toCanvas = m_state.toCanvas.translated(rect.x, rect.y)
                                     .scaled(rect.width / size.width, rect.height / size.height);
    const auto paint = [&](UXPainter* painter) {
        painter->addRectanglePath(0, 0, size.width, size.height);
        painter->clip();
        picture.paint(painter);
    };
    _paintLayer(paint, toCanvas);
}

void WebPainter::_paintLayer(const UXPaintFunction& action, const UXTransform& toCanvas)
{
    if (m_nesting == uxDeepestPictureNesting)
        return;
    WebPainter painter(m_drawing, toCanvas);
    painter.m_nesting = m_nesting + 1;
    painter.m_state = m_state;
    painter.m_state.toCanvas = toCanvas;
    painter.m_state.mode = UXCompositionMode::Over;
    painter.m_state.isSaved = false;
    painter.m_endedGradient = m_endedGradient;
    action(&painter);
}
