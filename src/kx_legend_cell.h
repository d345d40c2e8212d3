#pragma once

#include "kx_export.h"
#include "kx_interaction.h"
#include "kx_interaction_chart_object.h"
#include "kx_list_cell.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_symbol_style.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class KXLegend;
class UXPainter;

/** Draws one cell of a legend, a symbol and the label beside it, and explains a label that is cut. A legend
 * has as many of these as show just now; while it scrolls they stand for other cells in turn. */
class KX_EXPORT KXLegendCell : public KXListCell,
                               public KXInteraction,
                               public KXInteractionChartObject,
                               public UXHintDelegate {
public:
    /** @param legend the one that shows the cell, not owned; it outlives the cell. Null for an empty one of
     * the cell's own. */
    explicit KXLegendCell(KXLegend* legend = nullptr);
    ~KXLegendCell() override;

    const std::string& getLabel() const { return m_label; }
    /** Stands for the cell of that index from now on. */
    void showCell(std::uint64_t index, const std::string& label, UXSymbolStyle style);

    /** @return whether the pointer is over the cell and is to be a pointing hand there */
    bool getShowPointingHand() const { return m_showPointingHand; }

    // From KXListCell
    void endHover() override;
    /** Shows the whole label as a hint where the cell cuts it or the host wants it shown. */
    void explain(UXPoint point, UXEvent* event) override;
    void endExplanation() override;

    // From KXInteractionChartObject, UXJsonObject and UXObject
    void updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects) override;
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    UXRect customDirtyRect() override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    void _beginHover();
    UXDoubleRect _obtainDrawnSymbolRect() const;
    void _drawWalkMark(UXPainter& painter) const;

    std::unique_ptr<KXLegend> m_ownLegend; // of a cell that stands alone
    KXLegend* m_legend;                    // the parent's parent, or the own one
    std::string m_label;
    UXSymbolStyle m_symbolStyle = UXSymbolStyle::Rectangle;
    bool m_showPointingHand = false;
};
