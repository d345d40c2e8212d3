#pragma once

#include "kx_export.h"
#include "kx_grid_panel.h"
#include "kx_heat_map_cells.h"
#include "kx_heat_map_colors.h"
#include "kx_heat_map_highlight.h"
#include "kx_heat_map_label.h"
#include "ux/ux_color.h"
#include "ux/ux_image.h"
#include "ux/ux_text_property.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class KXPixelGrid;

/** How the cells of a heat map are drawn. */
struct KXHeatMapCellStyle {
    double gap = 0; /**< at the right and the lower side of a cell, in logical units */
    bool hatchesNulls = false;
    bool showsLabels = false;
    UXTextProperty labelProperty;
    bool autoLabelColor = true; /**< dark or white, whichever can be read on the cell */
};

/**
 * The cells of a heat map, or of its totals, in the colours of their values. A few are rectangles; of many an
 * image is made with the pixels of the device that shows them, and where several cells meet in one pixel it
 * shows the strongest of them.
 */
class KX_EXPORT KXHeatMapContentPanel : public KXGridPanel {
public:
    /** @return what is written in a cell, empty for nothing; asks nobody */
    using TextFunction = std::function<std::string(const KXGridCell&)>;

    KXHeatMapContentPanel();
    ~KXHeatMapContentPanel() override;

    const KXHeatMapCells& getCells() const { return m_cells; }
    /** @param cells as many as there are lines; laid out with the next layout */
    void setCells(const KXHeatMapCells& cells, const KXHeatMapCellStyle& style, TextFunction text);
    /** Draws the cells that there are in other colours, at once. */
    void setScale(const KXGradientScale& scale);
    void setHighlight(KXHeatMapHighlight highlight);
    UXColor obtainColor(const KXGridCell& cell) const
    {
        return m_colors.obtainColor(m_cells.obtainValue(cell));
    }

    /** @return the cells that are drawn at a point, of the own space: one, or all that share its pixel */
    std::optional<KXGridBlock> findCells(const UXDoublePoint& point) const;
    /** @return what is written in the cells in sight */
    const std::vector<KXHeatMapLabel>& getLabels() const { return m_labels; }
    /** @return whether cells share pixels, so that only the strongest ones are seen */
    bool isMerged() const { return m_isMerged; }

    // From UXJsonObject
    std::string customSerializeTypeID() override;

protected:
    void _layoutCells() override;
    void _paintCells(UXPainter& painter, const UXRect& dirtyRect) const override;

private:
    struct Drawn {
        KXGridCell cell;
        UXDoubleRect rect;
        UXColor color; // clear for a null
    };

    double _obtainGap() const;
    void _drawCells();
    void _drawRects(const KXGridBlock& seen, const KXPixelGrid& grid);
    void _drawImage();
    void _placeLabels(const KXGridBlock& seen);
    UXDoubleRect _obtainDrawnRect(const KXGridCell& cell, const KXPixelGrid& grid) const;
    bool _standsOut(const KXGridCell& cell) const;
    void _paintRects(UXPainter& painter, const UXRect& dirtyRect) const;
    void _paintImage(UXPainter& painter) const;
    void _paintLooks(UXPainter& painter) const;
    void _paintLabels(UXPainter& painter, const UXRect& dirtyRect) const;

    KXHeatMapCells m_cells;
    KXHeatMapCellStyle m_style;
    KXHeatMapColors m_colors;
    TextFunction m_text;
    KXHeatMapHighlight m_highlight;

    // Made by the layout of what is in sight
    std::vector<Drawn> m_drawn;
    std::vector<std::pair<UXDoublePoint, UXDoublePoint>> m_hatch;
    UXImage m_image; // of many cells
    UXDoubleRect m_imageRect;
    std::vector<KXHeatMapLabel> m_labels;
    bool m_isMerged = false;
};
