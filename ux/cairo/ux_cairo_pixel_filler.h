#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_transform.h"

/** Writes many rectangles of whole pixels straight into a picture in memory, as Cairo would fill them one by
 * one. */
class UXCairoPixelFiller {
public:
    /** @param toDevice from the present space of context to the pixels of its surface */
    UXCairoPixelFiller(UXCairoContext* context, const UXTransform& toDevice);

    bool isUsable() const { return m_pixels.isUsable(); }
    /** @param rect in the present space, its edges between pixels; what is not finite is left out */
    void fill(const UXDoubleRect& rect);

private:
    UXCairoPixels m_pixels;
    UXTransform m_toDevice;
};
