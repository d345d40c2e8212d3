#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_stacks.h"
#include "kx_bar_layout.h"
#include "kx_bar_plane.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_point.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class UXPainter;

/** The bars of a chart that can be seen: where they are, which one is hit, and how they are painted. All
 * answers come from the records of the last layout. */
class KX_EXPORT KXBarChartDataView {
public:
    using ColorOf = std::function<UXColor(std::size_t bar)>;

    KXBarChartDataView();
    ~KXBarChartDataView();

    /** Places the bars anew. Nothing of source is kept. */
    void layout(const KXAxisChartStacks& source, const KXBarPlane& plane);
    void clear();

    const std::vector<KXBar>& getBars() const { return m_layout.bars; }
    const std::vector<KXBarSlot>& getSlots() const { return m_layout.slots; }
    const KXBarPlane& getPlane() const { return m_plane; }
    /** @return whether a bar can stand for those of many categories */
    bool isDense() const { return m_layout.isDense; }

    /** @return the bar at a point of the plot's space, none beside the bars. Short bars can be hit a little
     * beside their ends. */
    const KXBar* hitBar(UXPoint point) const;
    /** @return the slot at that place across, null where there is none */
    const KXBarSlot* findSlot(UXPoint point) const;
    /** @return the slots that a stretch across touches, by their indexes: the first and the one after the
     * last */
    std::pair<std::size_t, std::size_t> findSlots(const KXAxisChartStretch& across) const;

    /** Fills the bars, all of one colour at once. */
    void paint(UXPainter& painter, const ColorOf& colorOf) const;

private:
    double _obtainPlaceAcross(UXPoint point) const;

    KXBarPlane m_plane;
    KXBarLayout m_layout;
    double m_widestSlot = 0;
};
