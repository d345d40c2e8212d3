#pragma once

#include "kx_axis_chart_value_map.h"
#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_rect.h"

#include <optional>

/** A stretch of places, from start to end, which is not below it. */
struct KXBarStretch {
    double start = 0, end = 0;

    double obtainLength() const { return end - start; }
};

/**
 * Where bars are drawn. Places across run along the categories and places along run along the values, both
 * in the units of the plot; only this class knows which of them is x.
 */
struct KX_EXPORT KXBarPlane {
    /** Bars never get wider, in logical units. */
    static constexpr double greatestWidth = 64;

    bool isVertical = true; /**< bars stand, and categories follow each other along x */
    UXRect area;            /**< nothing lies outside of it */
    KXAxisChartValueMap categories, values;
    double spacing = 0;                     /**< the room of one category */
    double share = 0.7;                     /**< of that room which its bars take together */
    double pixelScale = 1, pixelOffset = 0; /**< the device pixel at a place across: place * scale + offset */

    KXBarStretch obtainAcross() const { return isVertical ? obtainX() : obtainY(); }
    KXBarStretch obtainAlong() const { return isVertical ? obtainY() : obtainX(); }
    double toPixel(double across) const { return across * pixelScale + pixelOffset; }
    double fromPixel(double pixel) const { return (pixel - pixelOffset) / pixelScale; }

    /** @return the part of a bar between two values that lies in the area; none for a bar beside it. A bar
     * without length is one without extent. */
    std::optional<KXBarStretch> placeAlong(double from, double to) const;
    UXDoubleRect makeRect(const KXBarStretch& across, const KXBarStretch& along) const;
    KXBarStretch obtainAcross(const UXDoubleRect& rect) const;
    KXBarStretch obtainAlong(const UXDoubleRect& rect) const;
    /** @return whether larger values have larger places */
    bool growsForwards() const { return values.spacing >= 0; }

private:
    KXBarStretch obtainX() const { return {double(area.x), double(area.x) + area.width}; }
    KXBarStretch obtainY() const { return {double(area.y), double(area.y) + area.height}; }
};
