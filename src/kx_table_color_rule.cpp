#include "kx_table_color_rule.h"

#include "kx_gradient_scale.h"
#include "kx_key_definitions.h"
#include "kx_key_record_type.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

KX_DEFINE_KEYS(KXTableColorRule, KXChartPropertyBase, KX_TABLE_COLOR_RULE_KEYS)

namespace {

constexpr double percent = 100;

/** @return the value that a percentage of the cells has or is below */
double obtainPercentile(std::span<const double> percentiles, double share)
{
    const double place = std::clamp(share / percent, 0.0, 1.0) * static_cast<double>(percentiles.size() - 1);
    const auto before = static_cast<std::size_t>(place);
    const std::size_t after = std::min(before + 1, percentiles.size() - 1);
    const double part = place - static_cast<double>(before);
    return part > 0 ? percentiles[before] + part * (percentiles[after] - percentiles[before])
                    : percentiles[before];
}

} // namespace

KXTableColorRule::KXTableColorRule() = default;
KXTableColorRule::KXTableColorRule(const KXTableColorRule&) = default;
KXTableColorRule& KXTableColorRule::operator=(const KXTableColorRule&) = default;
KXTableColorRule::~KXTableColorRule() = default;

std::optional<UXColor> KXTableColorRule::obtainColor(double value, const KXTableExtent& extent,
                                                     std::span<const double> percentiles) const
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double length = extent.greatest - extent.least;
    switch (m_kind) {
    case KXTableColorRuleKind::Value:
        return value >= m_from && value <= m_to ? std::optional(m_fillColor) : std::nullopt;
    case KXTableColorRuleKind::Percent: {
        const double share = length > 0 ? percent * ((value - extent.least) / length) : 0;
        const bool holds = extent.hasValues && share >= m_from && share <= m_to;
        return holds ? std::optional(m_fillColor) : std::nullopt;
    }
    case KXTableColorRuleKind::Percentile: {
        const bool holds = !percentiles.empty() && value >= obtainPercentile(percentiles, m_from) &&
                           value <= obtainPercentile(percentiles, m_to);
        return holds ? std::optional(m_fillColor) : std::nullopt;
    }
    case KXTableColorRuleKind::Scale:
        break;
    }
    const bool isGiven = m_to > m_from;
    const double from = isGiven ? m_from : extent.least, to = isGiven ? m_to : extent.greatest;
    if (!isGiven && !extent.hasValues)
        return std::nullopt;
    const KXGradientScale scale{from, to, from + (to - from) / 2, m_fillColor, m_middleColor, m_toColor};
    return scale.obtainColor(value);
}

bool operator==(const KXTableColorRule& a, const KXTableColorRule& b) { return kxEqualRecords(a, b); }

const UXPropertyType& KXKeyTypeOf<KXTableColorRule>::obtain()
{
    static constexpr UXPropertyType type = kxMakeRecordKeyType<KXTableColorRule>("KXTableColorRule");
    return type;
}
