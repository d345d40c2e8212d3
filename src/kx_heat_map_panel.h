#pragma once

#include "kx_export.h"
#include "kx_grid.h"

#include <cstdint>
#include <string>

class KXChartHeatMapColumnHeaderPanel;
class KXHeatMapContentPanel;
class KXHeatMapHeaderPanel;

/** How the rows and the columns of a heat map share its place. */
struct KXHeatMapArrangement {
    std::uint64_t rowCount = 0, columnCount = 0;
    double leastRowExtent = 0,
           leastColumnExtent = 0; /**< of a cell, in logical units; with less it scrolls */
    bool neverScrolls = false;
    double rowTotalsExtent = 0;    /**< of the column with the totals of the rows, 0 without one */
    double columnTotalsExtent = 0; /**< of the row with the totals of the columns */
};

/**
 * The grid of a heat map: the cells with the names of rows and columns beside them, and totals, which all
 * stay in sight while the cells scroll. Cells fill the room that there is.
 */
class KX_EXPORT KXHeatMapPanel : public KXGrid {
public:
    KXHeatMapPanel();
    ~KXHeatMapPanel() override;

    // Its parts: children, never null
    KXHeatMapContentPanel& getContentPanel() const { return *m_content; }
    KXChartHeatMapColumnHeaderPanel& getColumnHeaderPanel() const { return *m_columnHeader; }
    KXHeatMapHeaderPanel& getRowHeaderPanel() const { return *m_rowHeader; }
    /** @param ofRows those of the rows, right of the cells, or of the columns, below */
    KXHeatMapContentPanel& getTotalsPanel(bool ofRows) const
    {
        return ofRows ? *m_rowTotals : *m_columnTotals;
    }
    KXHeatMapContentPanel& getGrandTotalPanel() const { return *m_grandTotal; }
    /** @param ofRows the name above the totals of the rows, or left of those of the columns */
    KXHeatMapHeaderPanel& getTotalsHeaderPanel(bool ofRows) const
    {
        return ofRows ? *m_rowTotalsHeader : *m_columnTotalsHeader;
    }

    /** Gives rows and columns their extents, and the headers what their names need; called in a layout, with
     * the rectangle set.
     *  @param keepsNames whether the headers keep the room that names seen before have needed */
    void arrange(const KXHeatMapArrangement& arrangement, bool keepsNames);

    // From UXJsonObject
    std::string customSerializeTypeID() override;

private:
    struct Division {
        KXGridLines rows, columns;
    };

    Division _divide(const KXHeatMapArrangement& arrangement) const;
    double _obtainTotalsExtent(const KXHeatMapArrangement& arrangement, bool ofRows) const;
    void _fitHeaders(const KXHeatMapArrangement& arrangement, const Division& division);
    void _forgetNames();

    KXHeatMapContentPanel *m_content, *m_rowTotals, *m_columnTotals, *m_grandTotal; // children
    KXChartHeatMapColumnHeaderPanel* m_columnHeader;
    KXHeatMapHeaderPanel *m_rowHeader, *m_rowTotalsHeader, *m_columnTotalsHeader;
    UXSize m_arrangedSize;
    int m_rowHeaderExtent = 0, m_columnHeaderExtent = 0;
};
