#pragma once

#include "kx_chart_item.h"
#include "kx_chart_item_look.h"
#include "kx_collision_grid.h"
#include "kx_export.h"
#include "kx_panel_shape.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <optional>
#include <vector>

/** An item of a panel as it is drawn. */
struct KX_EXPORT KXPanelItem {
    KXChartItem item;
    KXPanelShape shape; /**< in the chart's own space */
    UXColor color{};
    KXChartItemLook look{}; /**< made of the colour, as items stand out just now */
    double share = 1;       /**< what of it is drawn in full, over the whole in light */
    UXColor light{};        /**< of the whole where that is not all of it */
    UXDoublePoint shift{};  /**< how far from its place it is drawn, while it is chosen */

    /** @return the shape as it is drawn just now */
    KXPanelShape obtainDrawnShape() const;
};

/** The items that a panel has laid out, by their name and by their place. */
class KX_EXPORT KXPanelItems {
public:
    /** @param items in the order in which one reads them; of two at a place the later one is in front
     *  @param area where most of them are */
    void set(std::vector<KXPanelItem> items, const UXDoubleRect& area);

    std::vector<KXPanelItem>& getAll() { return m_items; }
    const std::vector<KXPanelItem>& getAll() const { return m_items; }
    /** @return its index, none where it was not laid out */
    std::optional<std::size_t> find(const KXChartItem& item) const;
    /** @return the index of the front one at a point */
    std::optional<std::size_t> findAt(const UXDoublePoint& point) const;

private:
    struct Entry {
        KXChartItem item;
        std::size_t index;
    };

    const std::vector<Entry>& _obtainOrder() const;
    const KXCollisionGrid& _obtainGrid() const;

    std::vector<KXPanelItem> m_items;
    UXDoubleRect m_area;
    // Made when first asked for, as a pointer is not at every layout
    mutable std::vector<Entry> m_order;            // ascending by item
    mutable std::optional<KXCollisionGrid> m_grid; // of the bounds, each its index's
};
