#include "ux/ux_path_painter.h"

void UXPathPainter::translate(double dx, double dy) { transformSpace(UXTransform{}.translated(dx, dy)); }

void UXPathPainter::rotate(double degrees) { transformSpace(UXTransform{}.rotated(degrees)); }

void UXPathPainter::scale(double sx, double sy)
{
    if (sx != 0 && sy != 0)
        transformSpace(UXTransform{}.scaled(sx, sy));
}

void UXPathPainter::translatePath(double dx, double dy) { transformPath(UXTransform{}.translated(dx, dy)); }

void UXPathPainter::rotatePath(double degrees) { transformPath(UXTransform{}.rotated(degrees)); }

void UXPathPainter::scalePath(double sx, double sy)
{
    if (sx != 0 && sy != 0)
        transformPath(UXTransform{}.scaled(sx, sy));
}

void UXPathPainter::fill()
{
    fillPreserve();
    forgetPath();
}

void UXPathPainter::stroke()
{
    strokePreserve();
    forgetPath();
}

void UXPathPainter::clip()
{
    clipPreserve();
    forgetPath();
}
