#include "kx_menu_icon.h"

#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_unmirrored_space.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace {

/** Icons are designed on a grid of 16 by 16 units. */
constexpr double gridExtent = 16;
constexpr double lineWidth = 1.3; // grid units

/** Draws in grid units. */
class Pen {
public:
    Pen(UXPainter& painter, const UXDoubleRect& bounds)
        : m_painter(painter), m_unit(std::min(bounds.width, bounds.height) / gridExtent),
          m_left(bounds.x + (bounds.width - gridExtent * m_unit) / 2),
          m_top(bounds.y + (bounds.height - gridExtent * m_unit) / 2)
    {
        m_painter.setLineWidth(lineWidth * m_unit);
        m_painter.setLineCap(UXLineCapStyle::Round);
        m_painter.setLineJoin(UXLineJoinStyle::Round);
    }

    void line(std::initializer_list<UXDoublePoint> points) const
    {
        _addPath(points);
        m_painter.stroke();
    }
    void outline(std::initializer_list<UXDoublePoint> points) const
    {
        _addPath(points);
        m_painter.closePath();
        m_painter.stroke();
    }
    void arc(double cx, double cy, double radius, double start, double end) const
    {
        m_painter.addCircleArcPath(_x(cx), _y(cy), radius * m_unit, start, end);
        m_painter.stroke();
    }
    void dots(std::initializer_list<UXDoublePoint> centres, double radius) const
    {
        std::vector<UXDoublePoint> placed;
        for (const UXDoublePoint& centre : centres)
            placed.push_back({_x(centre.x), _y(centre.y)});
        m_painter.drawMarks(placed, radius * m_unit);
    }
    void bars(std::initializer_list<UXDoubleRect> rects) const
    {
        std::vector<UXDoubleRect> placed;
        for (const UXDoubleRect& rect : rects)
            placed.push_back({_x(rect.x), _y(rect.y), rect.width * m_unit, rect.height * m_unit});
        m_painter.drawRects(placed);
    }
    void level(std::initializer_list<double> ys, double left, double right) const
    {
        std::vector<double> placed;
        for (const double y : ys)
            placed.push_back(_y(y));
        m_painter.drawHorizontalLines(placed, _x(left), _x(right), lineWidth * m_unit);
    }
    void upright(std::initializer_list<double> xs, double top, double bottom) const
    {
        std::vector<double> placed;
        for (const double x : xs)
            placed.push_back(_x(x));
        m_painter.drawVerticalLines(placed, _y(top), _y(bottom), lineWidth * m_unit);
    }

private:
    double _x(double x) const { return m_left + x * m_unit; }
    double _y(double y) const { return m_top + y * m_unit; }
    void _addPath(std::initializer_list<UXDoublePoint> points) const
    {
        m_painter.startNewSubPath();
        for (const UXDoublePoint& point : points)
            m_painter.addLinePath(_x(point.x), _y(point.y));
    }

    UXPainter& m_painter;
    double m_unit, m_left, m_top;
};

void drawSort(const Pen& pen)
{
    pen.upright({4.5}, 3, 13);
    pen.line({{2, 10.5}, {4.5, 13}, {7, 10.5}});
    pen.level({4}, 9, 14);
    pen.level({8}, 9, 12.5);
    pen.level({12}, 9, 11);
}

void drawExport(const Pen& pen)
{
    pen.upright({8}, 2, 10);
    pen.line({{5, 7}, {8, 10}, {11, 7}});
    pen.line({{2.5, 10.5}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 10.5}});
}

void drawExpand(const Pen& pen)
{
    pen.line({{6, 2.5}, {2.5, 2.5}, {2.5, 6}});
    pen.line({{10, 2.5}, {13.5, 2.5}, {13.5, 6}});
    pen.line({{13.5, 10}, {13.5, 13.5}, {10, 13.5}});
    pen.line({{6, 13.5}, {2.5, 13.5}, {2.5, 10}});
}

void drawRefresh(const Pen& pen)
{
    pen.arc(8, 8, 5.2, -20, -320);
    pen.line({{12.9, 2.6}, {12.9, 6.2}, {9.3, 6.2}});
}

void drawSettings(const Pen& pen)
{
    pen.level({5, 11}, 2, 14);
    pen.dots({{10.5, 5}, {5.5, 11}}, 2.2);
}

void drawTable(const Pen& pen)
{
    pen.level({3, 6.5, 10, 13.5}, 2.5, 13.5);
    pen.upright({2.5, 7, 13.5}, 3, 13.5);
}

} // namespace

void kxDrawMenuIcon(UXPainter& painter, KXMenuIcon icon, const UXDoubleRect& bounds, const UXColor& color)
{
    if (!uxIsFiniteDoubleRect(bounds) || bounds.width <= 0 || bounds.height <= 0)
        return;
    const UXPainterState state(painter);
    painter.setColor(color);
    const Pen pen(painter, bounds);
    switch (icon) {
    case KXMenuIcon::None:
        break;
    case KXMenuIcon::Menu:
        pen.level({4, 8, 12}, 2, 14);
        break;
    case KXMenuIcon::More:
        pen.dots({{3, 8}, {8, 8}, {13, 8}}, 1.4);
        break;
    case KXMenuIcon::Filter:
        pen.outline({{2, 3}, {14, 3}, {9.5, 8.5}, {9.5, 13.5}, {6.5, 11.5}, {6.5, 8.5}});
        break;
    case KXMenuIcon::Sort:
        drawSort(pen);
        break;
    case KXMenuIcon::Export:
        drawExport(pen);
        break;
    case KXMenuIcon::Expand:
        drawExpand(pen);
        break;
    case KXMenuIcon::Refresh:
        drawRefresh(pen);
        break;
    case KXMenuIcon::Settings:
        drawSettings(pen);
        break;
    case KXMenuIcon::Table:
        drawTable(pen);
        break;
    case KXMenuIcon::Chart:
        pen.bars({{2.5, 8, 3, 5.5}, {6.5, 3, 3, 10.5}, {10.5, 6, 3, 7.5}});
        break;
    case KXMenuIcon::Check: {
        const UXUnmirroredSpace space(painter, uxMidDoubleX(bounds));
        pen.line({{3, 8.5}, {6.5, 12}, {13, 4.5}});
        break;
    }
    case KXMenuIcon::SubMenu:
        pen.line({{6, 4}, {10, 8}, {6, 12}});
        break;
    case KXMenuIcon::Close:
        pen.line({{4, 4}, {12, 12}});
        pen.line({{12, 4}, {4, 12}});
        break;
    }
}
