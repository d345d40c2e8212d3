#pragma once

#include "ux/ux_image.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"

#include <vector>

/** Draws with all that takes numbers, upright and then turned, moved and scaled by them as well. */
inline void uxDrawWithNumbers(UXPainter& p, double v, double other)
{
    const UXImage image(1, 1, {0x80402010U});
    UXPicture picture;
    const auto paintPicture = [v](UXPainter* on) {
        on->setColor({1 << 30, -(1 << 30), 7, v});
        on->addRectanglePath(0, 0, v, v);
        on->fill();
    };
    picture.registerPaintAction(paintPicture, {4, 2});
    p.setColor({1, 2, 3, 0.5});
    for (const bool isMoved : {false, true}) {
        const UXPainterState state(p);
        if (isMoved) {
            p.translate(v, other);
            p.rotate(v);
            p.scale(other, v);
        }
        p.setColor({1, 2, 3, v});
        p.setLineWidth(v);
        p.setLineDash({other, v}, v);
        p.addCircleArcPath(other, 0, v, other, v);
        p.joinCircleArcPath(0, 0, other, v, other);
        p.addCubicCurvePath(v, other, other, v, 1, 1);
        p.addRelativeLinePath(v, 0);
        p.addRectanglePath(0, v, v, other);
        p.translatePath(v, other);
        p.rotatePath(v);
        p.scalePath(v, other);
        p.strokePreserve();
        p.fillPreserve();
        p.clip();
        p.drawRects(std::vector<UXDoubleRect>{{v, 0, other, 1}, {0, 0, v, v}});
        p.drawHorizontalLines(std::vector<double>{v, 1}, other, v, v);
        p.drawPolyline(std::vector<UXDoublePoint>{{v, 0}, {0, other}, {other, v}});
        p.drawMarks(std::vector<UXDoublePoint>{{v, 0}, {0, other}}, v);
        p.beginLinearGradientPattern(v, other, 0, v, UXSourceOperator::None);
        p.addGradientPatternColorStop({1, 2, 3, v}, v);
        p.endPattern();
        p.usePattern();
        p.drawText("text", {v, 0, other, 20}, UXTextProperty{});
        p.drawText("a long text", {0, other, v, 20}, UXFont{}, UXTextAlign::Right, UXTextOption::EllipsisEnd,
                   1);
        p.drawImage(&image, {v, 0, other, 1}, other);
        p.drawPicture(&picture, {0, v, other, other}, v);
        p.drawMaskedPicture(&picture, &image, {other, v, 5, other});
        p.drawCompositedPicture(&picture, &picture, {other, other, other, v}, UXCompositionMode::Xor);
        p.drawMasked([&](UXPainter* on) { on->drawPicture(&picture, UXDoublePoint(v, 0), 1); }, nullptr,
                     {0, 0, v, other});
    }
}
