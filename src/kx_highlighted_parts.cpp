#include "kx_highlighted_parts.h"

#include "kx_chart_data_provider.h"
#include "kx_sentence.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr double KXHighlightedParts::lineHeight;
constexpr double KXHighlightedParts::lineGap;

namespace {

constexpr double half = 0.5;
constexpr double none = std::numeric_limits<double>::quiet_NaN();

} // namespace

KXHighlightedParts::KXHighlightedParts() = default;

KXHighlightedParts::KXHighlightedParts(std::vector<double> parts, std::span<const double> values)
    : m_parts(std::move(parts))
{
    m_parts.resize(values.size(), none);
    std::ranges::transform(m_parts, values, m_parts.begin(), clampPart);
}

KXHighlightedParts KXHighlightedParts::pull(KXChartDataProvider& provider, KXChartDataUser* user,
                                            const KXIndexPath& first, std::size_t along,
                                            std::span<const double> values)
{
    std::vector<double> parts(values.size(), none);
    if (values.empty() || along >= first.size() ||
        !provider.obtainHighlightedValues(user, first, along, parts))
        return {};
    return {std::move(parts), values};
}

double KXHighlightedParts::clampPart(double part, double value)
{
    if (std::isnan(value))
        return none;
    if (std::isnan(part) || (part < 0) != (value < 0))
        return 0;
    return std::abs(part) > std::abs(value) ? value : part;
}

double KXHighlightedParts::obtainPart(std::size_t index) const
{
    return index < m_parts.size() ? m_parts[index] : none;
}

double KXHighlightedParts::obtainShare(double part, double value)
{
    if (std::isnan(part) || std::isnan(value))
        return 1;
    return value == 0 ? 0 : std::clamp(part / value, 0.0, 1.0);
}

UXColor KXHighlightedParts::obtainLightColor(const UXColor& color, double opacity)
{
    UXColor light = color;
    light.alpha *= std::clamp(opacity, 0.0, 1.0);
    return light;
}

UXColor KXHighlightedParts::obtainTextGround(const UXColor& color, double share, double opacity)
{
    return share < half ? obtainLightColor(color, opacity) : color;
}

/** Asks for words, so that callers look at no chart afterwards that may be gone. */
std::string KXHighlightedParts::tellPart(const std::string& part, const std::string& whole)
{
    return kxWriteSentence("%1 of %2", {part, whole});
}

void KXHighlightedParts::paintLine(UXPainter& painter, const UXDoubleRect& rect, double share,
                                   const UXColor& color, double opacity)
{
    painter.setColor(obtainLightColor(color, opacity));
    painter.drawRects({&rect, 1});
    const UXDoubleRect part(rect.x, rect.y, rect.width * share, rect.height);
    painter.setColor(color);
    painter.drawRects({&part, 1});
}
