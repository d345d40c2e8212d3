#pragma once

#include "kx_export.h"
#include "kx_panel_items.h"
#include "kx_squarify.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_rect.h"

#include <cstddef>
#include <vector>

class UXPainter;

/**
 * What is drawn of a panel's items, made ready once for many paints: rectangles of one colour that follow
 * each other are drawn at once, and those that make up a larger one are that one.
 */
class KX_EXPORT KXPanelItemRuns {
public:
    /** Takes the items as they look just now. */
    void set(const std::vector<KXPanelItem>& items);
    /** @param items those that this was set to */
    void paint(UXPainter& painter, const UXRect& dirtyRect, const std::vector<KXPanelItem>& items) const;

private:
    /** Rectangles of one colour, or an item of another shape or with a line around it. */
    struct Run {
        UXColor color;
        std::size_t firstRect = 0, endRect = 0;
        std::size_t item = 0; // where there is no rectangle
        double share = 1;     // what is drawn of that
    };

    void _addItem(const KXPanelItem& item, std::size_t index, const UXColor& color, double share);
    void _addRect(const UXDoubleRect& rect, const UXColor& color);
    void _paintRects(UXPainter& painter, const UXRect& dirtyRect, const Run& run) const;

    std::vector<Run> m_runs;
    std::vector<UXDoubleRect> m_rects;
    KXTileEdges m_edges{}; // around the rectangles
};
