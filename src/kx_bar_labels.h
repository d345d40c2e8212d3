#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_bar_chart_options.h"
#include "kx_bar_layout.h"
#include "kx_bar_plane.h"
#include "kx_export.h"
#include "kx_label_placer.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class KXBarChartDataView;

/** A text that has found a place beside or on its bar. */
struct KXBarLabel {
    std::optional<KXAxisChartMark> mark; /**< none for a total */
    std::string text;
    UXDoubleRect rect; /**< in the plot's space */
    UXTextProperty property;
    bool isReadOnBar = false; /**< its colour is dark or light, as the bar's wants it */
};

/** How the labels of bars are to look and to stand. */
struct KXBarLabelStyle {
    KXBarLabelPosition position = KXBarLabelPosition::Outside;
    KXBarLabelOverflow overflow = KXBarLabelOverflow::Hidden;
    bool isReadableOnBars = true; /**< labels on bars are dark or white, as the bar's colour wants it */
};

/**
 * Says what the labels of bars request, and has them placed: totals have the first choice, then extremes,
 * then all others. A label outside that has no room beyond its bar's end stands inside of it. One that its
 * bar cannot hold is left out, or, where it may overflow, stands outside or over the bar's edges.
 */
class KX_EXPORT KXBarLabelPlacer {
public:
    /** @param view lent for the life of this */
    KXBarLabelPlacer(const KXBarChartDataView& view, const KXBarLabelStyle& style);
    ~KXBarLabelPlacer();

    /** A label that wants to be read on a bar. */
    struct Request {
        std::string text;
        UXTextProperty property;
        UXColor barColor;
        bool isExtreme = false;      /**< stays also where most labels have no room */
        bool canStandOutside = true; /**< off where another bar follows beyond the end of this one */
        bool hasOwnColor = false;    /**< keeps the colour of property also on the bar */
    };

    /** Keeps labels off what others have placed. */
    void addObstacle(const UXDoubleRect& rect) { m_placer.addObstacle(rect); }
    /** A label that is longer than one and a half categories are wide tells nobody whose it is, so only
     * extremes get such a one.
     *  @param bar its index in the data view */
    void add(std::size_t bar, const Request& request);
    /** Adds a total, which stands beyond the bars of a slot, on the side of zero where value is, or else on
     * the other. */
    void addTotal(const KXBarSlot& slot, double value, const std::string& text,
                  const UXTextProperty& property);

    /** @return those that have a place */
    std::vector<KXBarLabel> place();
    /** @return the texts of the others */
    const KXTextLosses& getLosses() const { return m_placer.getLosses(); }

private:
    UXDoubleRect _makeRect(const UXDoubleRect& bar, KXBarLabelPosition position, bool growsForwards,
                           const UXDoubleSize& size) const;
    /** @return the bar that reaches furthest to one side of zero, null for none */
    const KXBar* _findOutermost(const KXBarSlot& slot, bool isBelow) const;
    bool _isTooLong(const UXDoubleSize& size) const;

    const KXBarChartDataView& m_view;
    const KXBarPlane& m_plane;
    KXBarLabelStyle m_style;
    KXLabelPlacer m_placer;
    std::vector<KXLabelRequest> m_requests;
};
