#pragma once

#include "ux/cairo/ux_cairo_paint_config.h"
#include "ux/ux_double_size.h"
#include "ux/ux_image.h"
#include "ux/ux_size.h"

#include <cstdint>
#include <string>

/** Paints into memory, on a ground that is clear at first, to be had as pixels or as a PNG file. */
class UX_CAIRO_EXPORT UXCairoImagePaintConfig : public UXCairoPaintConfig {
public:
    /**
     * @param size in logical units. Without a positive width and height, or with more than 32767 pixels
     * either way or 2^27 in all, the configuration is invalid.
     * @param scale pixels per logical unit; a part of a pixel at the right and bottom counts as one
     */
    explicit UXCairoImagePaintConfig(const UXDoubleSize& size, double scale = 1);

    /** @return width and height in pixels, 0 x 0 for an invalid configuration */
    UXSize getPixelSize() const;

    /** @return what has been painted so far, lent: rows from the top, getRowLength() values each, as UXImage
     * has them; null for an invalid configuration */
    const std::uint32_t* getPixels() const;
    int getRowLength() const;

    /** @return a copy of what has been painted so far, without pixels for an invalid configuration */
    UXImage obtainImage() const;

    /**
     * Writes what has been painted so far. The file appears whole or not at all; one that was there before
     * stays as it was when writing fails.
     * @param path UTF-8
     * @return whether the file was written
     */
    bool writePng(const std::string& path) const;
};
