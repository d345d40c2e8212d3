#pragma once

#include "kx_axis_chart_scale.h"
#include "kx_export.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_rect.h"
#include "ux/ux_transform.h"

#include <optional>

/** Places along an axis, from start to end, which is not below it. */
struct KXAxisChartInterval {
    double start = 0, end = 0;

    double obtainLength() const { return end - start; }
};

/**
 * Where the marks against one value axis are drawn. Places across run along the categories and places along
 * run along the values, both in the units of the plot; only this class knows which of them is x.
 */
struct KX_EXPORT KXAxisChartPlotFrame {
    bool isVertical = true; /**< values grow upwards, and categories follow each other along x */
    UXRect area;            /**< nothing lies outside of it */
    KXAxisChartScale categories, values;
    double spacing = 0;                     /**< the room of one category */
    double pixelScale = 1, pixelOffset = 0; /**< the device pixel at a place across: place * scale + offset */

    KXAxisChartInterval obtainAcross() const { return isVertical ? _obtainX() : _obtainY(); }
    KXAxisChartInterval obtainAlong() const { return isVertical ? _obtainY() : _obtainX(); }
    double toPixel(double across) const { return across * pixelScale + pixelOffset; }
    double fromPixel(double pixel) const { return (pixel - pixelOffset) / pixelScale; }

    /** Takes the pixels of the device that toDevice leads to, where that leaves upright what is upright. */
    void takePixels(const UXTransform& toDevice);
    /** @return whether the pixels of the other frame's device lie as those of this one's */
    bool hasSamePixels(const KXAxisChartPlotFrame& other) const;
    /** @return a rectangle of whole pixels across, moved to the nearest whole pixels of this frame's device;
     * all that are equally wide stay so */
    UXDoubleRect snapAcross(const UXDoubleRect& rect) const;

    /** @return the part of a mark between two values that lies in the area; none for a mark beside it. A mark
     * without length is one without extent. */
    std::optional<KXAxisChartInterval> placeAlong(double from, double to) const;
    UXDoublePoint makePoint(double across, double along) const;
    UXDoubleRect makeRect(const KXAxisChartInterval& across, const KXAxisChartInterval& along) const;
    KXAxisChartInterval obtainAcross(const UXDoubleRect& rect) const;
    KXAxisChartInterval obtainAlong(const UXDoubleRect& rect) const;
    /** @return whether larger values have larger places */
    bool growsForwards() const { return values.spacing >= 0; }

private:
    KXAxisChartInterval _obtainX() const { return {double(area.x), double(area.x) + area.width}; }
    KXAxisChartInterval _obtainY() const { return {double(area.y), double(area.y) + area.height}; }
};
