#include "kx_legend_delegate.h"

#include "ux/ux_color.h"

std::uint64_t KXLegendDelegate::obtainLegendCellSize() { return 0; }
std::string KXLegendDelegate::obtainLegendLabel(std::uint64_t) { return {}; }
UXSymbolStyle KXLegendDelegate::obtainLegendSymbolStyle(std::uint64_t) { return UXSymbolStyle::Rectangle; }
bool KXLegendDelegate::obtainLegendSymbolColor(std::uint64_t, UXColor&) { return false; }
bool KXLegendDelegate::obtainLegendShouldShowCell(std::uint64_t) { return true; }
std::vector<KXObjectID> KXLegendDelegate::obtainLegendCellObjectID(std::uint64_t) { return {}; }
void KXLegendDelegate::legendCellClicked(std::uint64_t, const UXEvent&) {}
void KXLegendDelegate::legendCellHovered(std::uint64_t, bool) {}
bool KXLegendDelegate::obtainLegendCellIsOn(std::uint64_t) { return true; }

bool KXLegendDelegate::paintLegendSymbol(std::uint64_t, UXPainter&, const UXDoubleRect&, const UXColor&) const
{
    return false;
}
