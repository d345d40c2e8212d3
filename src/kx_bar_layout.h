#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_stacks.h"
#include "kx_bar_plane.h"
#include "kx_export.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/** One bar that is drawn. */
struct KXBar {
    KXAxisChartMark mark;
    double value = 0;
    double from = 0, to = 0; /**< the values between which it lies */
    UXDoubleRect rect;       /**< in the plot's space, whole device pixels wide */
};

/** The bars of one category; of dense ones those of some pixel columns, which many categories share. */
struct KXBarSlot {
    double start = 0, end = 0;            /**< places across */
    std::uint64_t category = 0;           /**< of several the one whose bars reach furthest */
    std::size_t firstBar = 0, endBar = 0; /**< in the bars of the layout */
};

/** The bars that can be seen, by slots from the lowest place on. */
struct KXBarLayout {
    std::vector<KXBar> bars;
    std::vector<KXBarSlot> slots;
    bool isDense = false;
};

/** How wide one bar is and how far the next one of its group begins behind it, in device pixels. */
struct KXBarWidths {
    double width = 0, pitch = 0, total = 0;
};

/** @return the whole pixels of count bars side by side in the room of one category; a width of 0 where they
 * have less than one pixel each, or categories less than two, or than so many logical units */
[[nodiscard]] KX_EXPORT KXBarWidths kxObtainBarWidths(const KXBarPlane& plane, std::size_t count);

/**
 * Places the bars of the categories that can be seen. Where these, or the bars of a group, are closer
 * together than pixels are, the bars are merged by kxLayoutDenseBars.
 */
[[nodiscard]] KX_EXPORT KXBarLayout kxLayoutBars(const KXAxisChartStacks& source, const KXBarPlane& plane);
