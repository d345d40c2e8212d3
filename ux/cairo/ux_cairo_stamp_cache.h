#pragma once

#include "ux/cairo/ux_cairo_types.h"
#include "ux/ux_double_point.h"
#include "ux/ux_size.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

/** Keeps the pixels of small drawings that come again. Bounded: when it is full it starts anew. */
class UXCairoStampCache {
public:
    static constexpr int greatestExtent = 64; // in pixels

    /** How a drawing lies on the pixels. */
    struct Place {
        double scale;        /**< pixels per logical unit */
        UXDoublePoint phase; /**< of the drawing's corner in the first pixel, 0 to 1 */
        UXSize size;         /**< in pixels, at least 1 by 1 */
    };

    static UXCairoStampCache& obtainShared();

    /** @param draw called with a clear surface of that size where the drawing is not known
     *  @return as many pixels, row after row, valid until the next call */
    const std::vector<std::uint32_t>& obtainStamp(const std::string& name, const Place& place,
                                                  const std::function<void(UXCairoSurface*)>& draw);

private:
    std::unordered_map<std::string, std::vector<std::uint32_t>> m_stamps;
    std::size_t m_pixelCount = 0;
    std::string m_key; // kept for its memory
};
