#include "kx_heat_map_colors.h"

#include <algorithm>
#include <cmath>

namespace {

/** Of a scale without classes: finer steps cannot be told apart. */
constexpr std::size_t stepCount = 2048;
constexpr double greatestPart = 255;

} // namespace

std::uint32_t kxObtainPixel(const UXColor& color)
{
    const double alpha = std::isfinite(color.alpha) ? std::clamp(color.alpha, 0.0, 1.0) : 1;
    const auto obtainPart = [&](int part) {
        return static_cast<std::uint32_t>(std::lround(std::clamp<double>(part, 0, greatestPart) * alpha));
    };
    return static_cast<std::uint32_t>(std::lround(greatestPart * alpha)) << 24U |
           obtainPart(color.red) << 16U | obtainPart(color.green) << 8U | obtainPart(color.blue);
}

KXHeatMapColors::KXHeatMapColors(const KXGradientScale& scale)
    : m_least(scale.least), m_halfSpan(scale.greatest / 2 - scale.least / 2)
{
    // Each step has the colour of its middle, which in a class all values have.
    const std::vector<double> bounds = scale.obtainClassBounds();
    const std::size_t count = bounds.empty() ? stepCount : bounds.size() - 1;
    m_colors.reserve(count);
    m_pixels.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double share = (static_cast<double>(i) + 0.5) / static_cast<double>(count);
        m_colors.push_back(scale.obtainColor(scale.least * (1 - share) + scale.greatest * share));
        m_pixels.push_back(kxObtainPixel(m_colors.back()));
    }
}

/** @param value not NaN */
std::size_t KXHeatMapColors::_obtainIndex(double value) const
{
    const auto count = static_cast<double>(m_colors.size());
    const double share = m_halfSpan > 0 ? (value / 2 - m_least / 2) / m_halfSpan : 0.5;
    return static_cast<std::size_t>(std::clamp(share * count, 0.0, count - 1));
}

UXColor KXHeatMapColors::obtainColor(double value) const
{
    return std::isnan(value) || m_colors.empty() ? UXColor(0, 0, 0, 0) : m_colors[_obtainIndex(value)];
}

std::uint32_t KXHeatMapColors::obtainPixel(double value) const
{
    return std::isnan(value) || m_pixels.empty() ? 0 : m_pixels[_obtainIndex(value)];
}
