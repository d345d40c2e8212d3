#pragma once

#include "ux/ux_export.h"
#include "ux/ux_size.h"

#include <cstdint>
#include <memory>
#include <vector>

/** A picture made of pixels, which never change: copies share them, and a painter may keep a copy. */
class UX_EXPORT UXImage {
public:
    /** An image without pixels; drawing it draws nothing. */
    UXImage() = default;

    /**
     * @param pixels the rows from the top, width values each: alpha in the highest byte, then red, green and
     * blue, the colours multiplied by alpha. Any other number of them than width x height makes an image
     * without pixels.
     */
    UXImage(int width, int height, std::vector<std::uint32_t> pixels);

    /** One pixel is one logical unit. */
    UXSize getSize() const { return m_size; }

    /** @return the first of width x height pixels, as the constructor takes them; null for an image without
     * pixels */
    const std::uint32_t* getPixels() const { return m_pixels ? m_pixels->data() : nullptr; }

    /** @return whether nothing of what lies behind shows through, which is drawn faster */
    bool isOpaque() const { return m_isOpaque; }

private:
    UXSize m_size;
    std::shared_ptr<const std::vector<std::uint32_t>> m_pixels;
    bool m_isOpaque = false;
};
