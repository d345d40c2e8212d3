#include "ux/ux_mirror_painter.h"

#include "ux/ux_draw_text_result.h"

namespace {

// A difference to 0 and no negation: it leaves no -0, which a drawing that is read as text would show.
double mirror(double x) { return 0.0 - x; }

UXDoublePoint mirror(const UXDoublePoint& point) { return {mirror(point.x), point.y}; }

UXDoubleRect mirror(const UXDoubleRect& rect)
{
    return {mirror(rect.x) - rect.width, rect.y, rect.width, rect.height};
}

double mirrorAngle(double degrees) { return 180 - degrees; }

UXTextAlign mirror(UXTextAlign align)
{
    switch (align) {
    case UXTextAlign::Left:
        return UXTextAlign::Right;
    case UXTextAlign::Right:
        return UXTextAlign::Left;
    case UXTextAlign::Center:
        break;
    }
    return align;
}

template <class T>
std::vector<T> mirrorAll(std::span<const T> values)
{
    std::vector<T> mirrored;
    mirrored.reserve(values.size());
    for (const T& value : values)
        mirrored.push_back(mirror(value));
    return mirrored;
}

/** @return what draws as action does, on a layer of a mirrored space */
UXPaintFunction mirror(const UXPaintFunction& action)
{
    return [&action](UXPainter* painter) {
        UXMirrorPainter mirrored(*painter);
        action(&mirrored);
    };
}

} // namespace

UXMirrorPainter::UXMirrorPainter(UXPainter& painter) : m_painter(painter) {}

UXMirrorPainter::UXMirrorPainter(std::unique_ptr<UXPainter> painter)
    : m_ownPainter(std::move(painter)), m_painter(*m_ownPainter)
{
}

UXMirrorPainter::~UXMirrorPainter() = default;

void UXMirrorPainter::preparePaintConfig() { m_painter.preparePaintConfig(); }
void UXMirrorPainter::finishPaintConfig() { m_painter.finishPaintConfig(); }
void UXMirrorPainter::saveState() { m_painter.saveState(); }
void UXMirrorPainter::restoreState() { m_painter.restoreState(); }

void UXMirrorPainter::setColor(const UXColor& color) { m_painter.setColor(color); }
void UXMirrorPainter::setLineWidth(double width) { m_painter.setLineWidth(width); }
void UXMirrorPainter::setLineCap(UXLineCapStyle cap) { m_painter.setLineCap(cap); }
void UXMirrorPainter::setLineJoin(UXLineJoinStyle join) { m_painter.setLineJoin(join); }
void UXMirrorPainter::setLineDash(UXLineDashStyle dash) { m_painter.setLineDash(dash); }

void UXMirrorPainter::setLineDash(const std::vector<double>& lengths, double offset)
{
    m_painter.setLineDash(lengths, offset);
}

void UXMirrorPainter::setFillRule(UXFillRule rule) { m_painter.setFillRule(rule); }
void UXMirrorPainter::setAntialias(UXAntialiasStyle style) { m_painter.setAntialias(style); }
void UXMirrorPainter::setCompositionMode(UXCompositionMode mode) { m_painter.setCompositionMode(mode); }

void UXMirrorPainter::translate(double dx, double dy) { m_painter.translate(mirror(dx), dy); }
void UXMirrorPainter::rotate(double degrees) { m_painter.rotate(mirror(degrees)); }
void UXMirrorPainter::scale(double sx, double sy) { m_painter.scale(sx, sy); }
void UXMirrorPainter::translatePath(double dx, double dy) { m_painter.translatePath(mirror(dx), dy); }
void UXMirrorPainter::rotatePath(double degrees) { m_painter.rotatePath(mirror(degrees)); }
void UXMirrorPainter::scalePath(double sx, double sy) { m_painter.scalePath(sx, sy); }

void UXMirrorPainter::setStartPoint(double x, double y) { m_painter.setStartPoint(mirror(x), y); }
void UXMirrorPainter::addLinePath(double x, double y) { m_painter.addLinePath(mirror(x), y); }

void UXMirrorPainter::addLinePath(double x1, double y1, double x2, double y2)
{
    m_painter.addLinePath(mirror(x1), y1, mirror(x2), y2);
}

void UXMirrorPainter::addRelativeLinePath(double dx, double dy)
{
    m_painter.addRelativeLinePath(mirror(dx), dy);
}

/** The outline begins at the mirrored corner and runs the other way round, as other parts of the path do:
 * dashes and the winding rule go by that. */
void UXMirrorPainter::addRectanglePath(double x, double y, double width, double height)
{
    m_painter.addRectanglePath(mirror(x), y, mirror(width), height);
}

void UXMirrorPainter::addCircleArcPath(double cx, double cy, double radius, double startAngle,
                                       double endAngle)
{
    m_painter.addCircleArcPath(mirror(cx), cy, radius, mirrorAngle(startAngle), mirrorAngle(endAngle));
}

void UXMirrorPainter::joinCircleArcPath(double cx, double cy, double radius, double startAngle,
                                        double endAngle)
{
    m_painter.joinCircleArcPath(mirror(cx), cy, radius, mirrorAngle(startAngle), mirrorAngle(endAngle));
}

void UXMirrorPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    m_painter.addCubicCurvePath(mirror(x1), y1, mirror(x2), y2, mirror(x3), y3);
}

void UXMirrorPainter::startNewSubPath() { m_painter.startNewSubPath(); }
void UXMirrorPainter::closePath() { m_painter.closePath(); }

void UXMirrorPainter::fill() { m_painter.fill(); }
void UXMirrorPainter::fillPreserve() { m_painter.fillPreserve(); }
void UXMirrorPainter::stroke() { m_painter.stroke(); }
void UXMirrorPainter::strokePreserve() { m_painter.strokePreserve(); }
void UXMirrorPainter::clip() { m_painter.clip(); }
void UXMirrorPainter::clipPreserve() { m_painter.clipPreserve(); }

void UXMirrorPainter::beginLinearGradientPattern(double x1, double y1, double x2, double y2,
                                                 UXSourceOperator beyond)
{
    m_painter.beginLinearGradientPattern(mirror(x1), y1, mirror(x2), y2, beyond);
}

void UXMirrorPainter::addGradientPatternColorStop(const UXColor& color, double offset)
{
    m_painter.addGradientPatternColorStop(color, offset);
}

void UXMirrorPainter::endPattern() { m_painter.endPattern(); }
void UXMirrorPainter::usePattern() { m_painter.usePattern(); }

UXDoubleSize UXMirrorPainter::getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                          int lineMode, double widthLimit)
{
    return m_painter.getTextSize(text, font, option, lineMode, widthLimit);
}

void UXMirrorPainter::drawText(const std::string& text, const UXDoubleRect& rect,
                               const UXTextProperty& property)
{
    UXTextProperty mirrored = property;
    mirrored.align = mirror(property.align);
    m_painter.drawText(text, mirror(rect), mirrored);
}

void UXMirrorPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                               UXTextAlign align, UXTextOption option, int lineMode)
{
    m_painter.drawText(text, mirror(rect), font, mirror(align), option, lineMode);
}

UXDrawTextResult& UXMirrorPainter::drawText(const std::string& text, const UXDoubleRect& rect,
                                            const UXFont& font, UXTextAlign align, UXTextOption option,
                                            int lineMode, UXDrawTextResult& result)
{
    m_painter.drawText(text, mirror(rect), font, mirror(align), option, lineMode, result);
    result.textRect = mirror(result.textRect);
    return result;
}

void UXMirrorPainter::drawImage(const UXImage* image, const UXDoubleRect& rect, double opacity)
{
    m_painter.drawImage(image, mirror(rect), opacity);
}

void UXMirrorPainter::drawPicture(const UXPicture* picture, const UXDoubleRect& rect, double opacity)
{
    m_painter.drawPicture(picture, mirror(rect), opacity);
}

void UXMirrorPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask,
                                        const UXDoubleRect& rect)
{
    m_painter.drawMaskedPicture(picture, mask, mirror(rect));
}

void UXMirrorPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask,
                                        const UXDoubleRect& rect)
{
    m_painter.drawMaskedPicture(picture, mask, mirror(rect));
}

void UXMirrorPainter::drawMasked(const UXPaintFunction& mask, UXPaintConfig* config, const UXDoubleRect& rect)
{
    m_painter.drawMasked(mask ? mirror(mask) : mask, config, mirror(rect));
}

void UXMirrorPainter::drawCompositedPicture(const UXPicture* upper, const UXPicture* lower,
                                            const UXDoubleRect& rect, UXCompositionMode mode)
{
    m_painter.drawCompositedPicture(upper, lower, mirror(rect), mode);
}

void UXMirrorPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig* config,
                                     const UXDoubleRect& rect, UXCompositionMode mode)
{
    m_painter.drawComposited(action ? mirror(action) : action, config, mirror(rect), mode);
}

double UXMirrorPainter::getDeviceScale() const { return m_painter.getDeviceScale(); }

UXTransform UXMirrorPainter::getDeviceTransform() const
{
    return m_painter.getDeviceTransform().scaled(-1, 1);
}

void UXMirrorPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    m_painter.drawRects(mirrorAll(rects));
}

void UXMirrorPainter::drawHorizontalLines(std::span<const double> ys, double left, double right,
                                          double thickness)
{
    m_painter.drawHorizontalLines(ys, mirror(right), mirror(left), thickness);
}

void UXMirrorPainter::drawVerticalLines(std::span<const double> xs, double top, double bottom,
                                        double thickness)
{
    m_painter.drawVerticalLines(mirrorAll(xs), top, bottom, thickness);
}

void UXMirrorPainter::drawPolyline(std::span<const UXDoublePoint> points)
{
    m_painter.drawPolyline(mirrorAll(points));
}

void UXMirrorPainter::drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons)
{
    std::vector<std::vector<UXDoublePoint>> mirrored;
    mirrored.reserve(polygons.size());
    for (const std::vector<UXDoublePoint>& polygon : polygons)
        mirrored.push_back(mirrorAll(std::span(polygon)));
    m_painter.drawPolygons(mirrored);
}

void UXMirrorPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    m_painter.drawMarks(mirrorAll(centres), radius);
}

void UXMirrorPainter::drawShapes(std::span<const UXDoublePoint> centres,
                                 std::span<const UXDoublePoint> corners)
{
    m_painter.drawShapes(mirrorAll(centres), mirrorAll(corners));
}
