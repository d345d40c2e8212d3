#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <limits>

// The room that labels need across their axis, and beyond its ends.

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noise = 1e-9;
/** The part of an axis that its last label may keep free. */
constexpr double largestExtraShare = 0.25;

} // namespace

/** While the axis scrolls, the length does not shrink: the chart beside would jump to and fro. */
bool KXAxisTickLabelView::_calcLongestTickLabelLength()
{
    if (!m_showTickLabels)
        return true;
    const KXAxisTickLabelLayout layout = _obtainLayout();
    const double limit = _obtainLengthLimit().value_or(infinity);
    for (Tick& tick : m_visibleTicks) {
        if (!_isShown(tick))
            continue;
        if (!_measureTick(tick))
            return false;
        const double length = layout.obtainBandLength(*tick.size);
        if (length > limit && kxIsNumberLabel(*tick.text))
            continue; // it is left out, not cut
        m_longestLabelLength = (std::max)(m_longestLabelLength, uxSaturateToInt(std::ceil(length - noise)));
    }
    return true;
}

bool KXAxisTickLabelView::_requestExtraLength()
{
    double length = 0;
    if (!m_delegate)
        return true;
    if (!_calcExtraLengthRequired(length))
        return false;
    return _askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
        delegate.axisTickLabelViewRequestExtraLengthAtTheEnd(this, length);
    });
}

bool KXAxisTickLabelView::_calcExtraLengthRequired(double& length)
{
    // 1. Labels that move inside need no room, and a chart may have other room for them.
    if (!m_showTickLabels || m_showLabelInBound || !m_scale.isValid || m_tickCount == 0)
        return true;
    bool isConsidered = true;
    if (!_askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
            bool answer = true;
            if (delegate.axisTickLabelViewShouldConsiderStartEndLabelLength(this, answer))
                isConsidered = answer;
        }))
        return false;
    if (!isConsidered)
        return true;

    // 2. The last label counts, shown or not: which ones show depends on the room that is asked for here.
    const std::int64_t beyond = _obtainLabelledIndex(m_tickCount, _obtainCustomInterval());
    Tick last;
    if (!_takeTick(static_cast<int>((std::max)(beyond - _obtainCustomInterval(), std::int64_t{0})), last))
        return false;
    const double valuesAfter = (std::max)(m_scale.maxValue - last.value, 0.0) + m_scale.shift;
    length = _obtainExtraLength(_obtainOverhang(*last.size, 1), valuesAfter);
    return true;
}

/** Known until ticks, spacing or rotation change: where the axis is scrolled to makes no difference. */
bool KXAxisTickLabelView::_calcStartOverhang()
{
    constexpr int mostLabels = 8;
    if (m_startOverhang >= 0 || !m_showTickLabels || !m_scale.isValid)
        return true;
    double overhang = 0;
    std::int64_t index = _obtainLabelledIndex(0, m_shownInterval);
    for (int i = 0; i < mostLabels && index < m_tickCount; ++i, index += m_shownInterval) {
        Tick tick;
        if (!_takeTick(static_cast<int>(index), tick))
            return false;
        const double distance = (tick.value - m_scale.minValue - m_scale.shift) * m_scale.spacing;
        overhang = (std::max)(overhang, _obtainOverhang(*tick.size, -1) - distance);
    }
    m_startOverhang = uxSaturateToInt(std::ceil(overhang - noise));
    return true;
}

/** @param direction 1 towards the end of the axis, -1 towards its start
 *  @return how far a label reaches beyond its tick in that direction */
double KXAxisTickLabelView::_obtainOverhang(const UXDoubleSize& text, int direction) const
{
    const KXAxisTickLabelLayout layout = _obtainLayout();
    const UXDoublePoint center = layout.obtainPlace(text, {0, 0}).center;
    const UXDoubleSize size = layout.obtainTurnedSize(text);
    const double overhang = m_scale.xNotation != 0
                                ? size.width / 2 + center.x * m_scale.xNotation * direction
                                : size.height / 2 - center.y * m_scale.yNotation * direction;
    // A sloping label is as wide as it is high, and cut at the band's length.
    const bool isSloping = m_resolvedRotation == KXAxisTickLabelRotationType::Degrees45;
    return isSloping ? (std::min)(overhang, _obtainLengthLimit().value_or(infinity)) : overhang;
}

/** Room for an overhang leaves the values closer together, and with them less room after the last one. */
double KXAxisTickLabelView::_obtainExtraLength(double overhang, double valuesAfter) const
{
    constexpr int mostRounds = 16;
    const KXAxis* axis = getAxis();
    if (!axis)
        return 0;
    const double others = axis->obtainTotalExtraLength() - axis->getExtraLength(getExtraLengthKey());
    double length = 0;
    for (int round = 0; round < mostRounds; ++round) {
        const double room = valuesAfter * axis->obtainValueSpacing(others + length);
        length = std::clamp(overhang - room, 0.0, m_scale.length * largestExtraShare);
    }
    return std::ceil(length - noise);
}
