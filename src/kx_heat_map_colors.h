#pragma once

#include "kx_export.h"
#include "kx_gradient_scale.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/** The colours of a scale, worked out once for all values: as many as one can tell apart, or one a class. */
class KX_EXPORT KXHeatMapColors {
public:
    /** Clear for all values. */
    KXHeatMapColors() = default;
    explicit KXHeatMapColors(const KXGradientScale& scale);

    /** @return a clear colour for NaN */
    UXColor obtainColor(double value) const;
    /** @return the same as a pixel of an image */
    std::uint32_t obtainPixel(double value) const;

private:
    std::size_t _obtainIndex(double value) const;

    double m_least = 0, m_halfSpan = 0;
    std::vector<UXColor> m_colors;
    std::vector<std::uint32_t> m_pixels;
};

/** @return a colour as a pixel of an image, with its parts multiplied by its opacity */
[[nodiscard]] KX_EXPORT std::uint32_t kxObtainPixel(const UXColor& color);
