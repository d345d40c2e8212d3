#pragma once

#include "kx_export.h"
#include "kx_object_id.h"
#include "ux/ux_symbol_style.h"

#include <cstdint>
#include <string>
#include <vector>

class KXChartDataUser;
class UXEvent;
class UXPainter;
struct UXColor;
struct UXDoubleRect;

/** What a chart tells its legend. Cells are numbered from 0. */
class KX_EXPORT KXLegendDelegate {
public:
    /** @return whose provider is asked about a cell, null when there is none */
    virtual KXChartDataUser* obtainLegendDataUser() = 0;
    /** @return the number of cells */
    virtual std::uint64_t obtainLegendCellSize();
    virtual std::string obtainLegendLabel(std::uint64_t index);
    virtual UXSymbolStyle obtainLegendSymbolStyle(std::uint64_t index);
    /** @return whether color was set; otherwise the legend's own series of colours answers */
    virtual bool obtainLegendSymbolColor(std::uint64_t index, UXColor& color);
    virtual bool obtainLegendShouldShowCell(std::uint64_t index);
    /** @return what the cell stands for, for interactions */
    virtual std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index);
    virtual bool shouldShowPointingHandWhenMouseOverLegendCell(std::uint64_t index, const UXEvent& event) = 0;
    /** The user clicked a cell of a legend that takes clicks. By default nothing happens; the same below. */
    virtual void legendCellClicked(std::uint64_t index, const UXEvent& event);
    /** @param hovered whether the pointer came over the cell, otherwise it left */
    virtual void legendCellHovered(std::uint64_t index, bool hovered);
    /** @return whether what the cell stands for is switched on; the label of one that is off is faint. Clicks
     *  are what switches where the chart takes them so. */
    virtual bool obtainLegendCellIsOn(std::uint64_t index);
    /** Paints the symbol of a cell that is like no other; nobody is asked.
     *  @param bounds its place in the cell, in logical units
     *  @return false, as by default, for the one of the symbol's style */
    virtual bool paintLegendSymbol(std::uint64_t index, UXPainter& painter, const UXDoubleRect& bounds,
                                   const UXColor& color) const;

protected:
    ~KXLegendDelegate() = default;
};
