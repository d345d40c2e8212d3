#include "ux/ux_painter.h"

#include "ux/ux_angle.h"
#include "ux/ux_draw_text_result.h"
#include "ux/ux_image.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"
#include "ux/ux_pixel_snapping.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_placement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** An arc about a centre, cut so that no more than two turns remain of any number of them. */
struct Arc {
    double cx, cy, radius, start, sweep;

    Arc(double x, double y, double r, double startAngle, double endAngle)
        : cx(x), cy(y), radius(r), start(std::fmod(startAngle, 360.0)), sweep(endAngle - startAngle)
    {
        if (std::abs(sweep) > 720)
            sweep = std::copysign(360, sweep) + std::fmod(sweep, 360.0);
    }

    bool isFinite() const { return std::isfinite(cx + cy + radius) && std::isfinite(start + sweep); }

    UXDoublePoint pointAt(double angle) const
    {
        return {cx + radius * uxCosDegrees(angle), cy + radius * uxSinDegrees(angle)};
    }
};

/**
 * Draws the arc from the current point on, by one cubic curve for every quarter turn or less. The handles
 * have the length 4/3 tan(angle / 4) for which the curve meets the circle at its middle; it strays from it by
 * at most 0.03 % of the radius.
 */
void addCurves(UXPainter& painter, const Arc& arc)
{
    const int count = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / 90)));
    const double step = arc.sweep / count;
    const double quarter = step / 4;
    const double handle = arc.radius * 4 / 3 * (uxSinDegrees(quarter) / uxCosDegrees(quarter));

    for (int i = 0; i < count; ++i) {
        const double from = arc.start + step * i, to = arc.start + step * (i + 1);
        const UXDoublePoint a = arc.pointAt(from), b = arc.pointAt(to);
        painter.addCubicCurvePath(a.x - handle * uxSinDegrees(from), a.y + handle * uxCosDegrees(from),
                                  b.x + handle * uxSinDegrees(to), b.y - handle * uxCosDegrees(to), b.x, b.y);
    }
}

UXDoubleRect rectAt(const UXDoublePoint& point, const UXDoubleSize& size)
{
    return {point.x, point.y, size.width, size.height};
}

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

} // namespace

UXPainter::~UXPainter() = default;

void UXPainter::preparePaintConfig() {}

void UXPainter::finishPaintConfig() {}

void UXPainter::initializeSpace()
{
    saveState();
    if (m_rootClip) {
        // On whole pixels, so that painting a part anew leaves no seam in what was there.
        addRectanglePath(uxSnapRect(*m_rootClip, getDeviceTransform()));
        clip();
    }
    if (m_objectToRoot.dx != 0 || m_objectToRoot.dy != 0)
        translate(m_objectToRoot.dx, m_objectToRoot.dy);
    if (m_objectToRoot.xx != 1 || m_objectToRoot.yy != 1)
        scale(m_objectToRoot.xx, m_objectToRoot.yy);
}

void UXPainter::finalizeSpace() { restoreState(); }

void UXPainter::setLineDash(UXLineDashStyle dash)
{
    switch (dash) {
    case UXLineDashStyle::Dot:
        return setLineDash({2, 2}, 0);
    case UXLineDashStyle::Dash:
        return setLineDash({6, 4}, 0);
    case UXLineDashStyle::DashDot:
        return setLineDash({6, 3, 2, 3}, 0);
    case UXLineDashStyle::None:
        break;
    }
    setLineDash(std::vector<double>{}, 0);
}

void UXPainter::setLineDash(const std::vector<double>& lengths) { setLineDash(lengths, 0); }

void UXPainter::addLinePath(double x1, double y1, double x2, double y2)
{
    setStartPoint(x1, y1);
    addLinePath(x2, y2);
}

void UXPainter::addRectanglePath(double x, double y, double width, double height)
{
    setStartPoint(x, y);
    addLinePath(x + width, y);
    addLinePath(x + width, y + height);
    addLinePath(x, y + height);
    closePath();
}

void UXPainter::addRectanglePath(const UXDoubleRect& rect)
{
    addRectanglePath(rect.x, rect.y, rect.width, rect.height);
}

void UXPainter::addCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle)
{
    if (radius < 0)
        return;
    startNewSubPath();
    joinCircleArcPath(cx, cy, radius, startAngle, endAngle);
}

void UXPainter::joinCircleArcPath(double cx, double cy, double radius, double startAngle, double endAngle)
{
    if (radius < 0)
        return;
    const Arc arc(cx, cy, radius, startAngle, endAngle);
    if (!arc.isFinite())
        return addLinePath(NAN, NAN);
    const UXDoublePoint first = arc.pointAt(arc.start);
    addLinePath(first.x, first.y);
    addCurves(*this, arc);
}

UXDoubleSize UXPainter::getTextSize(const std::string& text, const UXTextProperty& property)
{
    return getTextSize(text, property.font, property.option, property.lineMode, -1);
}

UXDoubleSize UXPainter::getTextSize(const std::string& text, const UXTextProperty& property,
                                    double widthLimit)
{
    return getTextSize(text, property.font, property.option, property.lineMode, widthLimit);
}

UXDoubleSize UXPainter::getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                    int lineMode)
{
    return getTextSize(text, font, option, lineMode, -1);
}

UXDoubleSize UXPainter::getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                    int lineMode, double widthLimit)
{
    return uxMeasureText(text, font, option, lineMode, widthLimit);
}

void UXPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXTextProperty& property)
{
    const UXPainterState state(*this);
    setColor(property.textColor);
    drawText(text, rect, property.font, property.align, property.option, property.lineMode);
}

UXDrawTextResult& UXPainter::drawText(const std::string& text, const UXDoubleRect& rect,
                                      const UXTextProperty& property, UXDrawTextResult& result)
{
    const UXPainterState state(*this);
    setColor(property.textColor);
    return drawText(text, rect, property.font, property.align, property.option, property.lineMode, result);
}

UXDrawTextResult& UXPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                                      UXTextAlign align, UXTextOption option, int lineMode,
                                      UXDrawTextResult& result)
{
    result.reset();
    if (text.empty())
        return result;
    drawText(text, rect, font, align, option, lineMode);
    const UXDoubleSize size = getTextSize(text, font, option, lineMode, std::max(0.0, rect.width));
    result.textRect = uxPlaceText(size, rect, align);
    result.fits = size.width <= rect.width && size.height <= rect.height;
    return result;
}

void UXPainter::drawImage(const UXImage* image, const UXDoublePoint& point, double opacity)
{
    if (image)
        drawImage(image, rectAt(point, image->getSize()), opacity);
}

void UXPainter::drawPicture(const UXPicture* picture, const UXDoublePoint& point, double opacity)
{
    if (picture)
        drawPicture(picture, rectAt(point, picture->getSize()), opacity);
}

void UXPainter::drawMaskedPicture(const UXPicture* picture, const UXImage* mask, const UXDoublePoint& point)
{
    if (picture)
        drawMaskedPicture(picture, mask, rectAt(point, picture->getSize()));
}

void UXPainter::drawMaskedPicture(const UXPicture* picture, const UXPicture* mask, const UXDoublePoint& point)
{
    if (picture)
        drawMaskedPicture(picture, mask, rectAt(point, picture->getSize()));
}

UXTransform UXPainter::getDeviceTransform() const
{
    return UXTransform{}.scaled(getDeviceScale(), getDeviceScale());
}

void UXPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    const UXTransform toDevice = getDeviceTransform();
    for (const UXDoubleRect& rect : rects) {
        if (!(rect.width > 0 && rect.height > 0))
            continue;
        addRectanglePath(uxSnapRect(rect, toDevice));
        fill();
    }
}

void UXPainter::drawHorizontalLines(std::span<const double> ys, double left, double right, double thickness)
{
    const UXTransform toDevice = getDeviceTransform();
    std::vector<UXDoubleRect> lines;
    lines.reserve(ys.size());
    for (const double y : ys)
        lines.push_back(uxSnapHorizontalLine(y, left, right, thickness, toDevice));
    drawRects(lines);
}

void UXPainter::drawVerticalLines(std::span<const double> xs, double top, double bottom, double thickness)
{
    const UXTransform toDevice = getDeviceTransform();
    std::vector<UXDoubleRect> lines;
    lines.reserve(xs.size());
    for (const double x : xs)
        lines.push_back(uxSnapVerticalLine(x, top, bottom, thickness, toDevice));
    drawRects(lines);
}

void UXPainter::drawPolyline(std::span<const UXDoublePoint> points)
{
    bool isInsideLine = false;
    for (const UXDoublePoint& point : points) {
        if (!isFinite(point))
            isInsideLine = false;
        else if (std::exchange(isInsideLine, true))
            addLinePath(point.x, point.y);
        else
            setStartPoint(point.x, point.y);
    }
    stroke();
}

void UXPainter::drawPolygons(std::span<const std::vector<UXDoublePoint>> polygons)
{
    for (const std::vector<UXDoublePoint>& polygon : polygons) {
        if (polygon.empty() || !std::ranges::all_of(polygon, isFinite))
            continue;
        setStartPoint(polygon.front().x, polygon.front().y);
        for (const UXDoublePoint& point : std::span(polygon).subspan(1))
            addLinePath(point.x, point.y);
        closePath();
    }
    fill();
}

void UXPainter::drawMarks(std::span<const UXDoublePoint> centres, double radius)
{
    for (const UXDoublePoint& centre : centres) {
        if (!isFinite(centre) || !(radius > 0))
            continue;
        addCircleArcPath(centre.x, centre.y, radius, 0, 360);
        closePath();
        fill();
    }
}

void UXPainter::drawStamp(const std::string&, const UXDoubleRect&, const UXPaintFunction& draw)
{
    draw(this);
}

void UXPainter::drawShapes(std::span<const UXDoublePoint> centres, std::span<const UXDoublePoint> corners)
{
    for (const UXDoublePoint& centre : centres) {
        if (!isFinite(centre))
            continue;
        for (std::size_t i = 0; i < corners.size(); ++i)
            if (i == 0)
                setStartPoint(centre.x + corners[i].x, centre.y + corners[i].y);
            else
                addLinePath(centre.x + corners[i].x, centre.y + corners[i].y);
        closePath();
        fill();
    }
}
