#pragma once

#include "ux/cairo/ux_cairo_types.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_transform.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/**
 * Writes many rectangles of whole pixels straight into a picture in memory, as Cairo would fill them one by
 * one. It can where the context draws one colour over what is there, upright, and clipped by whole pixels.
 */
class UXCairoPixelFiller {
public:
    /** @param toDevice from the present space of context to the pixels of its surface */
    UXCairoPixelFiller(UXCairoContext* context, const UXTransform& toDevice);
    /** Tells Cairo of what was written. */
    ~UXCairoPixelFiller();

    UXCairoPixelFiller(const UXCairoPixelFiller&) = delete;
    UXCairoPixelFiller& operator=(const UXCairoPixelFiller&) = delete;

    bool isUsable() const { return m_pixels != nullptr; }
    /** @param rect in the present space, its edges between pixels; what is not finite is left out */
    void fill(const UXDoubleRect& rect);

private:
    /** Pixels from left and top up to right and bottom, without these. */
    struct Box {
        int left, top, right, bottom;
    };

    bool _takeSource(UXCairoContext* context);
    bool _takeClip(UXCairoContext* context, int width, int height);
    void _fill(const Box& box);

    UXCairoSurface* m_surface = nullptr;
    UXTransform m_toDevice;
    std::uint32_t* m_pixels = nullptr;
    std::ptrdiff_t m_rowLength = 0;
    std::vector<Box> m_clip;
    std::uint32_t m_color = 0; // its parts multiplied by alpha
};
