#pragma once

#include "kx_export.h"
#include "kx_grid_band.h"
#include "kx_grid_cell.h"
#include "kx_grid_lines.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"

#include <optional>

class KXGrid;
class UXPainter;

/**
 * One part of a grid, where a band of rows crosses a band of columns. The grid gives it its place, its lines
 * and how far they are scrolled; a kind lays out and draws the cells that are in sight, and of these alone
 * it keeps anything.
 */
class KX_EXPORT KXGridPanel : public UXObject {
public:
    KXGridPanel();
    ~KXGridPanel() override;

    KXGridBand getRowBand() const { return m_rowBand; }
    KXGridBand getColumnBand() const { return m_columnBand; }
    const KXGridLines& getRows() const { return m_rows; }
    const KXGridLines& getColumns() const { return m_columns; }
    /** @return what of its rows is in sight, as far as it is scrolled just now */
    KXGridRange obtainVisibleRows() const;
    KXGridRange obtainVisibleColumns() const;

    // In the own space
    /** @return the place of a cell, in sight or not */
    UXDoubleRect obtainCellRect(const KXGridCell& cell) const;
    std::optional<KXGridCell> findCell(const UXDoublePoint& point) const;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    /** @return the grid that it is a part of, null before that */
    KXGrid* _getGrid() const { return m_grid; }
    /** Measures and places what is written in the cells in sight; called in the layout after each scroll. By
     * default there is nothing to place. */
    virtual void _layoutCells();
    /** Draws the cells in sight, in the own space, of which dirtyRect is seen. Asks nobody. */
    virtual void _paintCells(UXPainter& painter, const UXRect& dirtyRect) const = 0;

    void customLayout() override;

private:
    friend class KXGrid;
    void _paintSelection(UXPainter& painter) const;
    UXDoubleRect _obtainBlockRect(const KXGridRange& rows, const KXGridRange& columns) const;
    KXGridRange _obtainOwnRange(const KXGridRange& selected, bool areRows) const;

    KXGrid* m_grid = nullptr; // which has this as a child
    KXGridBand m_rowBand = KXGridBand::Content, m_columnBand = KXGridBand::Content;
    KXGridLines m_rows, m_columns;
    UXDoublePoint m_offset; // of the lines, at the top left corner
};
