#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_transform.h"

#include <span>
#include <vector>

/** Writes many rectangles of whole pixels straight into a picture in memory, as Cairo would fill them one by
 * one. */
class UXCairoPixelFiller {
public:
    /** @param pixels usable ones, being written as long as this lives
     *  @param toDevice from the present space to the pixels */
    UXCairoPixelFiller(UXCairoPixels& pixels, const UXTransform& toDevice);

    /** Fills one after the other.
     *  @param rects in the present space, moved to pixels; what is not finite or empty is left out */
    void fill(std::span<const UXDoubleRect> rects);

private:
    UXCairoPixels::Box _toBox(const UXDoubleRect& rect, const UXCairoPixels::Box& clip) const;
    void _fillRow();
    void _fillBand(int top, int bottom);

    UXCairoPixels& m_pixels;
    UXTransform m_toDevice;
    std::vector<UXCairoPixels::Box> m_row; // from left to right, sharing no column, to be filled together
};
