#pragma once

#include "ux/ux_image.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"

#include <cmath>
#include <vector>

/** Draws with every operation of a painter; a and b stand where one takes numbers. */
inline void uxDrawEverything(UXPainter& p, double a, double b)
{
    const UXImage image(1, 1, {0x80402010U});
    UXPicture picture;
    const auto paintPicture = [a](UXPainter* on) {
        on->setColor({1 << 30, -(1 << 30), 7, a});
        on->addRectanglePath(0, 0, a, a);
        on->fill();
    };
    picture.registerPaintAction(paintPicture, {4, 2});
    const std::vector<UXDoublePoint> points{{a, 0}, {NAN, 0}, {0, b}, {b, a}};
    const auto layer = [&](UXPainter* on) { on->drawPicture(&picture, UXDoublePoint(a, 0), 1); };

    const UXPainterState state(p);
    p.setColor({1, 2, 3, a});
    p.setLineWidth(a);
    p.setLineCap(UXLineCapStyle::Round);
    p.setLineJoin(UXLineJoinStyle::Bevel);
    p.setLineDash(UXLineDashStyle::DashDot);
    p.setLineDash(UXLineDashStyle::Dash);
    p.setLineDash({1, b});
    p.setLineDash({b, a}, a);
    p.setFillRule(UXFillRule::EvenOdd);
    p.setAntialias(UXAntialiasStyle::None);
    p.setCompositionMode(UXCompositionMode::Multiply);
    p.addRelativeLinePath(a, b); // starts nowhere, so it draws nothing
    p.addCubicCurvePath(a, b, b, a, 1, 1);
    p.setStartPoint(0, -0.0);
    p.addLinePath(a, b);
    p.addLinePath(a, 2, b, 4);
    p.addRelativeLinePath(a, 0);
    p.addRectanglePath(0, a, a, b);
    p.addRectanglePath({5, a, b, 8});
    p.addCircleArcPath(b, 0, a, b, a);
    p.joinCircleArcPath(0, 0, b, a, b);
    p.startNewSubPath();
    p.closePath();
    p.translatePath(a, b);
    p.rotatePath(a);
    p.scalePath(a, b);
    p.strokePreserve();
    p.fillPreserve();
    p.stroke();
    p.drawRects(std::vector<UXDoubleRect>{{a, 0, b, 1}, {0, 0, 0, 10}, {0, 0, a, a}});
    p.drawHorizontalLines(std::vector<double>{a, 1}, b, a, a);
    p.drawPolyline(points);
    p.drawPolygons(std::vector<std::vector<UXDoublePoint>>{{{a, 0}, {b, a}, {0, b}}, points});
    p.drawMarks(points, a);
    p.drawShapes(points, std::vector<UXDoublePoint>{{a, 0}, {0, b}, {-a, 0}});
    p.beginLinearGradientPattern(a, b, 0, a, UXSourceOperator::None);
    p.addGradientPatternColorStop({1, 2, 3, a}, a);
    p.endPattern();
    p.usePattern();
    p.fill();
    p.drawText("a \"b\"\n\x01", {a, 0, b, 20}, UXTextProperty{});
    p.drawText("a long \xc3\xa9", {0, b, a, 20}, UXFont{}, UXTextAlign::Right, UXTextOption::EllipsisEnd, 1);
    p.drawImage(&image, {a, 0, b, 1}, b);
    p.drawImage(&image, UXDoublePoint(a, b), 1);
    p.drawPicture(&picture, {0, a, b, b}, a);
    p.drawPicture(&picture, UXDoublePoint(a, b), 1);
    p.drawMaskedPicture(&picture, &image, {b, a, 5, b});
    p.drawMaskedPicture(&picture, &picture, UXDoublePoint(a, b));
    p.drawMasked(layer, nullptr, {0, 0, a, b});
    p.drawCompositedPicture(&picture, &picture, {b, b, b, a}, UXCompositionMode::Xor);
    p.drawCompositedPicture(&picture, nullptr, {0, 0, b, a}, UXCompositionMode::Xor);
    p.drawComposited(layer, nullptr, {0, 0, b, a}, UXCompositionMode::Screen);
    p.addRectanglePath(0, 0, a, b);
    p.clipPreserve();
    p.clip();
    p.drawRects(std::vector<UXDoubleRect>{{0, 0, a, b}});
}

/** Draws everything, and once more turned, moved and scaled by the numbers. */
inline void uxDrawWithNumbers(UXPainter& p, double a, double b)
{
    uxDrawEverything(p, a, b);
    const UXPainterState state(p);
    p.translate(a, b);
    p.rotate(a);
    p.scale(b, a);
    uxDrawEverything(p, a, b);
}
