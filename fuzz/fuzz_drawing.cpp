#include "fuzz_drawing.h"

#include "fuzz_input.h"
#include "ux/ux_image.h"
#include "ux/ux_painter.h"
#include "ux/ux_picture.h"

#include <array>
#include <cstdint>
#include <vector>

namespace {

/** Six numbers, taken in their order with every compiler. */
using Numbers = std::array<double, 6>;

Numbers takeNumbers(FuzzInput& input)
{
    Numbers numbers{};
    for (double& number : numbers)
        number = input.takeNumber();
    return numbers;
}

UXPicture makePicture(const Numbers& n)
{
    UXPicture picture;
    picture.registerPaintAction(
        [n](UXPainter* painter) {
            painter->setColor({1, 2, 3, n[0]});
            painter->addRectanglePath(n[1], n[2], n[3], n[4]);
            painter->fill();
        },
        {n[5], n[4]});
    return picture;
}

void addPath(UXPainter& p, int kind, const Numbers& n)
{
    switch (kind) {
    case 0:
        return p.setStartPoint(n[0], n[1]);
    case 1:
        return p.addLinePath(n[0], n[1]);
    case 2:
        return p.addRectanglePath(n[0], n[1], n[2], n[3]);
    case 3:
        return p.addCircleArcPath(n[0], n[1], n[2], n[3], n[4]);
    case 4:
        return p.joinCircleArcPath(n[0], n[1], n[2], n[3], n[4]);
    case 5:
        return p.addCubicCurvePath(n[0], n[1], n[2], n[3], n[4], n[5]);
    case 6:
        return p.translatePath(n[0], n[1]);
    case 7:
        return p.scalePath(n[0], n[1]);
    case 8:
        return p.rotatePath(n[0]);
    default:
        return p.closePath();
    }
}

int takeChoice(const Numbers& n) { return n[5] > 0 && n[5] < 256 ? static_cast<int>(n[5]) : 0; }

void changeState(UXPainter& p, int kind, const Numbers& n)
{
    const int choice = takeChoice(n);
    switch (kind) {
    case 0:
        return p.saveState();
    case 1:
        return p.restoreState();
    case 2:
        return p.translate(n[0], n[1]);
    case 3:
        return p.rotate(n[0]);
    case 4:
        return p.scale(n[0], n[1]);
    case 5:
        return p.setLineDash({n[0], n[1], n[2]}, n[3]);
    case 6:
        return p.setCompositionMode(static_cast<UXCompositionMode>(choice % 20));
    case 7:
        return p.setLineWidth(n[0]);
    case 8:
        return p.setFillRule(static_cast<UXFillRule>(choice % 3));
    case 9:
        return p.setLineJoin(static_cast<UXLineJoinStyle>(choice % 4));
    case 10:
        return p.setLineCap(static_cast<UXLineCapStyle>(choice % 4));
    case 11:
        return p.setColor({choice, 3, 7, n[0]});
    case 12:
        return p.setAntialias(static_cast<UXAntialiasStyle>(choice % 3));
    default:
        p.beginLinearGradientPattern(n[0], n[1], n[2], n[3], static_cast<UXSourceOperator>(choice % 5));
        p.addGradientPatternColorStop({choice, 2, 3, n[4]}, n[5]);
        p.addGradientPatternColorStop({1, choice, 3, n[5]}, n[4]);
        p.endPattern();
        p.usePattern();
    }
}

void paintPath(UXPainter& p, int kind)
{
    using Step = void (UXPainter::*)();
    static constexpr Step steps[] = {&UXPainter::fill,         &UXPainter::stroke,
                                     &UXPainter::fillPreserve, &UXPainter::strokePreserve,
                                     &UXPainter::clip,         &UXPainter::clipPreserve};
    (p.*steps[kind % 6])();
}

void paintMarks(UXPainter& p, int kind, const Numbers& n)
{
    switch (kind) {
    case 0:
        return p.drawRects(std::vector<UXDoubleRect>{{n[0], n[1], n[2], n[3]}, {n[3], n[2], n[1], n[0]}});
    case 1:
        return p.drawPolyline(std::vector<UXDoublePoint>{{n[0], n[1]}, {n[2], n[3]}, {n[4], n[5]}});
    case 2:
        return p.drawMarks(std::vector<UXDoublePoint>{{n[0], n[1]}, {n[2], n[3]}}, n[4]);
    case 3:
        return p.drawHorizontalLines(std::vector<double>{n[0], n[1]}, n[2], n[3], n[4]);
    default:
        return p.drawVerticalLines(std::vector<double>{n[0], n[1]}, n[2], n[3], n[4]);
    }
}

void paintPictures(UXPainter& p, int kind, const Numbers& n)
{
    const UXImage image(2, 1, {0x80402010U, 0xFFFFFFFFU});
    const UXPicture picture = makePicture(n);
    const UXDoubleRect rect(n[0], n[1], n[2], n[3]);
    const auto mode = static_cast<UXCompositionMode>(takeChoice(n) % 20);
    switch (kind % 6) {
    case 0:
        return p.drawImage(&image, rect, n[4]);
    case 1:
        return p.drawPicture(&picture, rect, n[4]);
    case 2:
        return p.drawMaskedPicture(&picture, &image, rect);
    case 3:
        return p.drawMaskedPicture(&picture, &picture, rect);
    case 4:
        return p.drawMasked([&](UXPainter* on) { on->drawPicture(&picture, rect, n[5]); }, nullptr, rect);
    default:
        return p.drawCompositedPicture(&picture, &picture, rect, mode);
    }
}

void paintText(UXPainter& p, const std::string& text, int kind, const Numbers& n)
{
    const UXDoubleRect rect(n[0], n[1], n[2], n[3]);
    UXTextProperty property;
    property.font.size = kind - 8;
    property.font.bold = kind % 2 != 0;
    property.font.familyName = kind == 13 ? text : "Default";
    property.align = static_cast<UXTextAlign>(kind % 4);
    property.option = static_cast<UXTextOption>(kind / 2 % 5);
    property.lineMode = kind % 3;
    p.drawText(text, rect, property);
}

} // namespace

void drawAnything(UXPainter& painter, FuzzInput& input)
{
    for (int count = input.takeBelow(16); count >= 0; --count) {
        const int what = input.takeBelow(8);
        const int kind = input.takeBelow(14);
        if (what == 6) {
            paintPath(painter, kind);
            continue;
        }
        const std::string text = what == 7 ? input.takeText() : std::string();
        const Numbers numbers = takeNumbers(input);
        if (what == 7)
            paintText(painter, text, kind, numbers);
        else if (what == 5)
            paintMarks(painter, kind % 5, numbers);
        else if (what == 4)
            paintPictures(painter, kind, numbers);
        else if (what >= 2)
            changeState(painter, kind, numbers);
        else
            addPath(painter, kind, numbers);
    }
}
