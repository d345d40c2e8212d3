#pragma once

#include "kx_grid_panel.h"
#include "kx_table_chart_options.h"
#include "kx_table_drawn_cell.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"

#include <optional>
#include <string>
#include <vector>

class KXTablePanelDelegate;

/** One of the nine parts of a table, which draws what the table has placed there. */
class KX_EXPORT KXTablePanel : public KXGridPanel {
public:
    /** How all of its cells look. */
    struct Look {
        UXFont font;
        UXColor ground{0, 0, 0, 0}; /**< of the whole panel; nothing where its alpha is 0 */
        UXColor lineColor{0, 0, 0, 0};
        UXColor highlightColor{0, 0, 0, 0};
        bool hasColumnLines = false;
        UXColor edgeColor{0, 0, 0, 0}; /**< of a line at its right edge; nothing where its alpha is 0 */
    };

    KXTablePanel();
    explicit KXTablePanel(KXTablePanelType type);
    ~KXTablePanel() override;

    KXTablePanelType getType() const { return m_type; }
    /** @param delegate the table; not owned, null for none */
    void setDelegate(KXTablePanelDelegate* delegate) { m_delegate = delegate; }
    /** Takes what is to be drawn from now on. */
    void setCells(const Look& look, std::vector<KXTableDrawnCell> cells);
    const std::vector<KXTableDrawnCell>& getCells() const { return m_cells; }
    /** Shows where a header that is dragged would be put down, in the own space; none for nowhere. */
    void setDropEdge(std::optional<double> edge);
    /** Has the delegate place all anew, without a layout. */
    void placeCells();
    /** Marks what stands out. @return whether something looks different now */
    template <class Predicate>
    bool highlightCells(const Predicate& isHighlighted)
    {
        bool isChanged = false;
        for (KXTableDrawnCell& cell : m_cells) {
            const bool stands = cell.item && isHighlighted(*cell.item);
            isChanged = isChanged || stands != cell.isHighlighted;
            cell.isHighlighted = stands;
        }
        return isChanged;
    }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    // From KXGridPanel and UXObject
    void _layoutCells() override;
    void _paintCells(UXPainter& painter, const UXRect& dirtyRect) const override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;

private:
    void _paintGrounds(UXPainter& painter, const UXDoubleRect& seen) const;
    void _paintLines(UXPainter& painter) const;
    void _paintDropEdge(UXPainter& painter) const;
    void _paintTexts(UXPainter& painter, const UXDoubleRect& seen) const;

    KXTablePanelType m_type = KXTablePanelType::Content;
    KXTablePanelDelegate* m_delegate = nullptr; // the table
    Look m_look;
    std::vector<KXTableDrawnCell> m_cells;
    std::vector<double> m_lineYs, m_lineXs;
    std::optional<double> m_dropEdge;
};
