#include "kx_grid_panel.h"

#include "kx_grid.h"
#include "kx_grid_selection.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

namespace {

// What is chosen
constexpr UXColor blockColor(33, 105, 199, 0.16), headerColor(33, 105, 199, 0.22), edgeColor(33, 105, 199);
constexpr double edgeWidth = 2;

} // namespace

KXGridPanel::KXGridPanel() = default;

KXGridPanel::~KXGridPanel()
{
    setParent(nullptr);
    if (m_grid)
        std::ranges::replace(m_grid->m_panels, this, nullptr);
}

std::string KXGridPanel::customSerializeTypeID() { return "KXGridPanel"; }

KXGridRange KXGridPanel::obtainVisibleRows() const
{
    return m_rows.obtainRange(m_offset.y, m_offset.y + getRect().height);
}

KXGridRange KXGridPanel::obtainVisibleColumns() const
{
    return m_columns.obtainRange(m_offset.x, m_offset.x + getRect().width);
}

UXDoubleRect KXGridPanel::obtainCellRect(const KXGridCell& cell) const
{
    return {m_columns.obtainStart(cell.column) - m_offset.x, m_rows.obtainStart(cell.row) - m_offset.y,
            m_columns.obtainExtent(cell.column), m_rows.obtainExtent(cell.row)};
}

std::optional<KXGridCell> KXGridPanel::findCell(const UXDoublePoint& point) const
{
    const std::optional<std::uint64_t> row = m_rows.findAt(point.y + m_offset.y);
    const std::optional<std::uint64_t> column = m_columns.findAt(point.x + m_offset.x);
    if (!row || !column || !uxPointInDoubleRect(point, UXDoubleRect(getBoundingRect())))
        return std::nullopt;
    return KXGridCell{*row, *column};
}

void KXGridPanel::_layoutCells() {}

void KXGridPanel::customLayout()
{
    const UXObjectWatcher self(this);
    UXObject::customLayout();
    if (self.isAlive() && m_grid)
        _layoutCells();
}

void KXGridPanel::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXObjectWatcher self(this);
    const UXRect seen = uxIntersectionRect(getBoundingRect(), dirtyRect);
    if (config && m_grid && !uxIsEmptyRect(seen)) {
        const UXPaintClip clip(*config, UXDoubleRect(translateRectToParent(getBoundingRect(), nullptr)));
        if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
            _paintCells(*painter, seen);
            _paintSelection(*painter);
            uxDestroyPainter(painter);
        }
    }
    if (self.isAlive())
        UXObject::paint(config, dirtyRect);
}

UXDoubleRect KXGridPanel::_obtainBlockRect(const KXGridRange& rows, const KXGridRange& columns) const
{
    const double left = m_columns.obtainStart(columns.first), top = m_rows.obtainStart(rows.first);
    return {left - m_offset.x, top - m_offset.y, m_columns.obtainStart(columns.end) - left,
            m_rows.obtainStart(rows.end) - top};
}

/** @param selected lines as the selection counts them
 *  @return those that are in sight here; of headers, which the selection does not count, all */
KXGridRange KXGridPanel::_obtainOwnRange(const KXGridRange& selected, bool areRows) const
{
    const KXGridBand band = areRows ? m_rowBand : m_columnBand;
    const KXGridLines& own = areRows ? m_rows : m_columns;
    if (band == KXGridBand::Header)
        return {0, own.getCount()};
    const std::uint64_t before = KXGrid::_countBefore(areRows ? m_grid->m_rows : m_grid->m_columns, band);
    const KXGridRange found = kxIntersectRanges(selected, {before, before + own.getCount()});
    return found.isEmpty() ? KXGridRange() : KXGridRange{found.first - before, found.end - before};
}

/** Headers show beside which cells some are chosen. */
void KXGridPanel::_paintSelection(UXPainter& painter) const
{
    const bool isHeader = m_rowBand == KXGridBand::Header || m_columnBand == KXGridBand::Header;
    if (!m_grid->showsSelection() || (m_rowBand == KXGridBand::Header && m_columnBand == KXGridBand::Header))
        return;
    const KXGridSelection& selection = m_grid->getSelection();
    for (const KXGridBlock& block : selection.getBlocks()) {
        const KXGridRange rows = _obtainOwnRange(block.rows, true);
        const KXGridRange columns = _obtainOwnRange(block.columns, false);
        const UXDoubleRect rect = uxIntersectionDoubleRect(
            _obtainBlockRect(rows, columns),
            uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), edgeWidth, edgeWidth));
        if (rows.isEmpty() || columns.isEmpty() || !(rect.width > 0) || !(rect.height > 0))
            continue;
        painter.setColor(isHeader ? headerColor : blockColor);
        painter.drawRects({&rect, 1});
    }
    const std::optional<KXGridCell>& focus = selection.getFocus();
    if (isHeader || !focus || !m_grid->showsFocus())
        return;
    const KXGridRange row = _obtainOwnRange({focus->row, focus->row + 1}, true);
    const KXGridRange column = _obtainOwnRange({focus->column, focus->column + 1}, false);
    if (row.isEmpty() || column.isEmpty())
        return;
    painter.setColor(edgeColor);
    painter.setLineWidth(edgeWidth);
    painter.addRectanglePath(
        uxInflateDoubleRect(_obtainBlockRect(row, column), -edgeWidth / 2, -edgeWidth / 2));
    painter.stroke();
}
