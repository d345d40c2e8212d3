#include "kx_table_panel.h"

#include "kx_key_type.h"
#include "kx_table_panel_delegate.h"
#include "ux/ux_event.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_option.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double markSize = 7; // of a triangle's long side

/** Of the bar that stands for what is still to come: its share of the cell's width, and its height. */
constexpr double awaitedShare = 0.5, awaitedHeight = 6;
constexpr UXColor awaitedColor(232, 233, 237);
/** Where a header would be put down. */
constexpr double dropWidth = 3;
constexpr UXColor dropColor(33, 105, 199);

bool overlaps(const UXDoubleRect& a, const UXDoubleRect& b)
{
    return a.x < uxMaxDoubleX(b) && b.x < uxMaxDoubleX(a) && a.y < uxMaxDoubleY(b) && b.y < uxMaxDoubleY(a);
}

void paintMark(UXPainter& painter, const KXTableDrawnCell& cell)
{
    using enum KXTableDrawnCell::Mark;
    const double x = cell.markRect.x + cell.markRect.width / 2;
    const double y = cell.markRect.y + cell.markRect.height / 2;
    const double far = markSize / 2, near = markSize / 4;
    painter.setColor(cell.textColor);
    switch (cell.mark) {
    case Open:
    case Descending:
        painter.setStartPoint(x - far, y - near);
        painter.addLinePath(x + far, y - near);
        painter.addLinePath(x, y + near);
        break;
    case Closed:
        painter.setStartPoint(x - near, y - far);
        painter.addLinePath(x - near, y + far);
        painter.addLinePath(x + near, y);
        break;
    case Ascending:
        painter.setStartPoint(x - far, y + near);
        painter.addLinePath(x + far, y + near);
        painter.addLinePath(x, y - near);
        break;
    case None:
    case Awaited:
        return;
    }
    painter.closePath();
    painter.fill();
}

} // namespace

KXTablePanel::KXTablePanel() = default;
KXTablePanel::KXTablePanel(KXTablePanelType type) : m_type(type) {}
KXTablePanel::~KXTablePanel() = default;

void KXTablePanel::customSerialize()
{
    KXGridPanel::customSerialize();
    kxWriteKey(this, "m_type", m_type);
}

std::string KXTablePanel::customSerializeTypeID() { return "KXTablePanel"; }

bool KXTablePanel::customDeserialize()
{
    const bool isComplete = KXGridPanel::customDeserialize();
    return kxReadKey(this, "m_type", m_type) && isComplete;
}

void KXTablePanel::setCells(const Look& look, std::vector<KXTableDrawnCell> cells)
{
    m_look = look;
    m_cells = std::move(cells);
    m_lineYs.clear();
    m_lineXs.clear();
    const KXGridRange rows = obtainVisibleRows(), columns = obtainVisibleColumns();
    m_lineYs.reserve(rows.obtainCount());
    m_lineXs.reserve(columns.obtainCount());
    for (std::uint64_t row = rows.first; row < rows.end; ++row) {
        const UXDoubleRect rect = obtainCellRect({row, columns.first});
        m_lineYs.push_back(rect.y + rect.height - 0.5);
    }
    for (std::uint64_t column = columns.first; m_look.hasColumnLines && column < columns.end; ++column) {
        const UXDoubleRect rect = obtainCellRect({rows.first, column});
        m_lineXs.push_back(rect.x + rect.width - 0.5);
    }
}

void KXTablePanel::setDropEdge(std::optional<double> edge)
{
    if (std::exchange(m_dropEdge, edge) != edge)
        invalidate();
}

void KXTablePanel::placeCells()
{
    _layoutCells();
    invalidate();
}

void KXTablePanel::_layoutCells()
{
    if (m_delegate)
        m_delegate->layoutTablePanel(*this);
}

void KXTablePanel::_paintCells(UXPainter& painter, const UXRect& dirtyRect) const
{
    const UXDoubleRect seen(dirtyRect);
    if (m_look.ground.alpha > 0) {
        painter.setColor(m_look.ground);
        painter.drawRects({&seen, 1});
    }
    _paintGrounds(painter, seen);
    _paintLines(painter);
    _paintTexts(painter, seen);
    _paintDropEdge(painter);
}

/** Grounds of one colour side by side are filled at once. */
void KXTablePanel::_paintGrounds(UXPainter& painter, const UXDoubleRect& seen) const
{
    std::vector<UXDoubleRect> rects;
    UXColor color;
    const auto fill = [&] {
        if (rects.empty())
            return;
        painter.setColor(color);
        painter.drawRects(rects);
        rects.clear();
    };
    const auto add = [&](const UXDoubleRect& rect, const UXColor& rectColor) {
        if (!overlaps(rect, seen))
            return;
        if (rectColor != color)
            fill();
        color = rectColor;
        rects.push_back(rect);
    };
    for (const KXTableDrawnCell& cell : m_cells) {
        if (cell.ground.alpha > 0)
            add(cell.rect, cell.ground);
        if (cell.isHighlighted)
            add(cell.rect, m_look.highlightColor);
    }
    for (const KXTableDrawnCell& cell : m_cells) {
        if (cell.bar.width > 0)
            add(cell.bar, cell.barColor);
        if (cell.fullBar.width > 0)
            add(cell.fullBar, cell.fullBarColor);
        if (cell.mark == KXTableDrawnCell::Mark::Awaited)
            add({cell.textRect.x + cell.textRect.width * (1 - awaitedShare),
                 cell.textRect.y + (cell.textRect.height - awaitedHeight) / 2,
                 cell.textRect.width * awaitedShare, awaitedHeight},
                awaitedColor);
    }
    fill();
}

void KXTablePanel::_paintLines(UXPainter& painter) const
{
    if (!(m_look.lineColor.alpha > 0))
        return;
    painter.setColor(m_look.lineColor);
    painter.drawHorizontalLines(m_lineYs, 0, getRect().width, 0);
    painter.drawVerticalLines(m_lineXs, 0, getRect().height, 0);
    if (m_look.edgeColor.alpha > 0) {
        const double x = getRect().width - 0.5;
        painter.setColor(m_look.edgeColor);
        painter.drawVerticalLines({&x, 1}, 0, getRect().height, 0);
    }
}

/** Within the panel also at its edges. */
void KXTablePanel::_paintDropEdge(UXPainter& painter) const
{
    if (!m_dropEdge)
        return;
    const double x = std::clamp(*m_dropEdge - dropWidth / 2, 0.0, std::max(getRect().width - dropWidth, 0.0));
    const UXDoubleRect rect{x, 0, dropWidth, static_cast<double>(getRect().height)};
    painter.setColor(dropColor);
    painter.drawRects({&rect, 1});
}

void KXTablePanel::_paintTexts(UXPainter& painter, const UXDoubleRect& seen) const
{
    UXFont font = m_look.font;
    // The places of numbers stand under each other only where their last digits do, also in a mirrored table.
    const UXTextAlign numbers = isRightToLeft() ? UXTextAlign::Left : UXTextAlign::Right;
    for (const KXTableDrawnCell& cell : m_cells) {
        if (!overlaps(cell.rect, seen))
            continue;
        paintMark(painter, cell);
        if (cell.text.empty())
            continue;
        font.bold = m_look.font.bold || cell.isBold;
        painter.setColor(cell.textColor);
        painter.drawText(cell.text, cell.textRect, font,
                         cell.align == UXTextAlign::Right ? numbers : cell.align, UXTextOption::EllipsisEnd,
                         2);
    }
}

bool KXTablePanel::customMouseDown(const UXEvent& event, bool& stop)
{
    if (m_delegate && m_delegate->tablePanelPressed(*this, event)) {
        stop = true;
        return true;
    }
    return KXGridPanel::customMouseDown(event, stop);
}

bool KXTablePanel::customMouseMove(const UXEvent& event, bool&)
{
    if (m_delegate)
        m_delegate->tablePanelPointed(*this, event);
    return false;
}

bool KXTablePanel::customMouseDragging(const UXEvent& event, bool& stop)
{
    if (m_delegate && m_delegate->tablePanelDragged(*this, event)) {
        stop = true;
        return true;
    }
    return KXGridPanel::customMouseDragging(event, stop);
}

bool KXTablePanel::customMouseUp(const UXEvent& event, bool& stop)
{
    if (m_delegate && m_delegate->tablePanelReleased(*this, event)) {
        stop = true;
        return true;
    }
    return KXGridPanel::customMouseUp(event, stop);
}

bool KXTablePanel::customMouseDoubleClick(const UXEvent& event, bool& stop)
{
    if (m_delegate && m_delegate->tablePanelDoubleClicked(*this, event)) {
        stop = true;
        return true;
    }
    return KXGridPanel::customMouseDoubleClick(event, stop);
}
