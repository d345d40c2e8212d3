#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_placed_label.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_axis_tick_search.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noise = 1e-9;
/** Between upright labels in even steps, and between labels that are decided one by one. */
constexpr double collisionGap = 4, decisionGap = 2;
/** The most room that a long label asks for at its end. */
constexpr double largestGap = 100;
/** The part of an axis that its last label may keep free. */
constexpr double largestExtraShare = 0.25;
/** How often the axis may change because of what its labels ask for. */
constexpr int mostPasses = 4;
/** More ticks than any screen has units, fewer than memory minds. */
constexpr double mostVisibleTicks = 16384;

/** The ticks' indexes as an axis of their own, to choose every n-th from. */
KXAxisChartAxisCacheData makeIndexAxis(int count)
{
    KXAxisChartAxisCacheData indexes;
    indexes.isValueAxis = false;
    indexes.categoryCount = static_cast<std::uint64_t>(count);
    indexes.axisMax = count;
    indexes.tickInterval = 1;
    indexes.needsUpdate = false;
    return indexes;
}

std::int64_t roundUpToMultiple(std::int64_t number, std::int64_t of) { return (number + of - 1) / of * of; }

std::int64_t obtainWholeInterval(double interval)
{
    return (std::max)(uxSaturateToInt(std::floor(interval)), 1);
}

} // namespace

bool KXAxisTickLabelView::_askAxis(const std::function<void(KXAxis&)>& ask)
{
    KXAxis* axis = getAxis();
    if (!axis)
        return false;
    const UXObjectWatcher self(this);
    ask(*axis);
    return self.isAlive() && m_axis.isAlive();
}

bool KXAxisTickLabelView::_askDelegate(const std::function<void(KXAxisTickLabelViewDelegate&)>& ask)
{
    if (!m_delegate)
        return false;
    const UXObjectWatcher self(this);
    ask(*m_delegate);
    return self.isAlive();
}

bool KXAxisTickLabelView::_obtainTick(int index, double& value)
{
    return _askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
        value = delegate.axisTickLabelViewObtainTick(this, index);
    });
}

bool KXAxisTickLabelView::_obtainText(double value, std::string& text)
{
    text.clear();
    if (!_askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
            delegate.axisTickLabelViewObtainTickLabel(this, value, text);
        }))
        return false;
    // A label has one line.
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return true;
}

bool KXAxisTickLabelView::_measureTick(Tick& tick)
{
    if (!tick.text) {
        std::string text;
        if (!_obtainText(tick.value, text))
            return false;
        tick.text = text;
    }
    if (!tick.size)
        tick.size = _measureText(*tick.text, m_textProperty);
    return true;
}

/** @param tick receives what is known of a visible tick, or is asked for; measured */
bool KXAxisTickLabelView::_takeTick(int index, Tick& tick)
{
    if (Tick* visible = _findVisibleTick(index)) {
        const bool isMeasured = _measureTick(*visible);
        if (isMeasured)
            tick = *visible;
        return isMeasured;
    }
    tick = {};
    tick.index = index;
    return _obtainTick(index, tick.value) && _measureTick(tick);
}

void KXAxisTickLabelView::_forgetMeasures()
{
    m_turnedAtSpacing = -1;
    m_longestLabelLength = m_startOverhang = -1;
}

bool KXAxisTickLabelView::_bringUpToDate(Step step)
{
    if (m_updating)
        return true;
    const UXObjectWatcher self(this);
    m_updating = true;
    const bool isDone = _doSteps(step);
    if (self.isAlive())
        m_updating = false;
    return isDone;
}

/** What is requested of the chart may change the axis, which is then looked at again. */
bool KXAxisTickLabelView::_doSteps(Step step)
{
    for (int pass = 0; pass < mostPasses; ++pass) {
        Scale scale;
        if (!_readScale(scale))
            return false;
        if (scale != m_scale) {
            // A view of another size may show fewer ticks at the same spacing.
            const bool isResized = _obtainLayout().isAlongX() ? scale.area.width != m_scale.area.width
                                                              : scale.area.height != m_scale.area.height;
            if (isResized || scale.freeSpacing != m_scale.freeSpacing)
                _forgetMeasures();
            m_scale = scale;
            m_visibleTicksStale = m_cacheStale = true;
        }
        if (m_ticksStale && !_pullTicks())
            return false;
        if (step == Step::Ticks)
            return true;
        if (m_visibleTicksStale && !_updateVisibleTicks())
            return false;
        if (step == Step::VisibleTicks || !m_cacheStale)
            return true;
        if (!_updateCache())
            return false;
    }
    return true;
}

bool KXAxisTickLabelView::_readScale(Scale& scale)
{
    scale = {};
    scale.area = obtainContentRectWithoutScrollBar();
    KXAxis* const axis = getAxis();
    if (!axis)
        return true;
    const UXObject* parent = axis->getParent();
    scale.origin = !parent || !getParent() || parent == getParent()
                       ? UXPoint(getRect().x, getRect().y)
                       : translatePoint({0, 0}, this, axis->getParent());
    scale.xNotation = axis->getVectorNotationX();
    scale.yNotation = axis->getVectorNotationY();
    scale.isReversed = axis->isReversed();
    scale.freeSpacing = axis->obtainValueSpacing(
        (std::max)(axis->obtainTotalExtraLength() - axis->getExtraLength(getExtraLengthKey()), 0.0));
    return _askAxis([&](KXAxis& asked) { scale.isValid = asked.isValidAxis(); }) &&
           _askAxis([&](KXAxis& asked) { scale.spacing = asked.obtainCurrentValueSpacing(); }) &&
           _askAxis([&](KXAxis& asked) { scale.length = asked.obtainAxisLength(); }) &&
           _askAxis([&](KXAxis& asked) { scale.start = asked.obtainStartEndPoints().first; }) &&
           _askAxis([&](KXAxis& asked) {
               std::tie(scale.first, scale.last) = asked.obtainCurrentFirstLastValues();
           }) &&
           _askAxis([&](KXAxis& asked) {
               scale.minValue = asked.getMinValue();
               scale.maxValue = asked.getMaxValue();
               const double shift = std::abs(asked.obtainShiftHalfValueSpacingOffset());
               scale.shift = scale.spacing > 0 ? shift / scale.spacing : 0;
           });
}

bool KXAxisTickLabelView::_pullTicks()
{
    m_ticksStale = false;
    m_visibleTicksStale = m_cacheStale = true;
    m_visibleTicks.clear();
    _forgetMeasures();
    m_tickCount = 0;
    m_firstTick = m_tickDistance = 0;
    if (!m_delegate)
        return true;
    int count = 0;
    if (!_askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
            count = delegate.axisTickLabelViewObtainTickLabelCount(this);
        }))
        return false;
    m_tickCount = (std::max)(count, 0);
    double first = 0, second = 0;
    if ((m_tickCount > 0 && !_obtainTick(0, first)) || (m_tickCount > 1 && !_obtainTick(1, second)))
        return false;
    m_firstTick = first;
    if (m_tickCount > 1 && second > m_firstTick)
        m_tickDistance = (std::min)(second - m_firstTick, (std::numeric_limits<double>::max)());
    return true;
}

/** @return the first index whose tick is not below value */
std::optional<int> KXAxisTickLabelView::_findTick(double value)
{
    const double interval = m_tickInterval > 0 ? m_tickInterval : m_tickDistance;
    const int guess = interval > 0 ? uxSaturateToInt(std::ceil((value - m_firstTick) / interval)) : 0;
    return kxFindTick(m_tickCount, value, guess,
                      [this](int index, double& tick) { return _obtainTick(index, tick); });
}

KXAxisTickLabelView::Tick* KXAxisTickLabelView::_findVisibleTick(int index)
{
    const auto found = std::lower_bound(m_visibleTicks.begin(), m_visibleTicks.end(), index,
                                        [](const Tick& tick, int wanted) { return tick.index < wanted; });
    return found != m_visibleTicks.end() && found->index == index ? &*found : nullptr;
}

bool KXAxisTickLabelView::_updateVisibleTicks()
{
    m_visibleTicksStale = false;
    m_cacheStale = true;
    std::vector<double> indexes;
    if (m_tickCount > 0 && m_scale.isValid) {
        // A tick at an end of the axis counts, whatever the divisions on the way here made of the end.
        const double tolerance = noise * (m_scale.last - m_scale.first);
        const std::optional<int> first = _findTick(m_scale.first - tolerance);
        if (!first)
            return false;
        const std::optional<int> end = _findTick(std::nextafter(m_scale.last + tolerance, infinity));
        if (!end)
            return false;
        const double limit = std::clamp(std::ceil(m_scale.length) + 1, 1.0, mostVisibleTicks);
        indexes = kxObtainAxisTicks(makeIndexAxis(m_tickCount), *first, *end - 1.0,
                                    static_cast<std::size_t>(limit));
    }
    m_visibleStep = indexes.size() > 1 ? uxSaturateToInt(indexes[1] - indexes[0]) : 1;
    return _collectVisibleTicks(indexes);
}

/** What was known of ticks that are still visible is kept. */
bool KXAxisTickLabelView::_collectVisibleTicks(const std::vector<double>& indexes)
{
    std::vector<Tick> ticks;
    for (const double number : indexes) {
        Tick tick;
        tick.index = uxSaturateToInt(number);
        if (Tick* known = _findVisibleTick(tick.index)) {
            tick = *known;
            tick.state = ShowState::Undecided;
        } else if (!_obtainTick(tick.index, tick.value)) {
            return false;
        }
        if (std::isfinite(tick.value) && (ticks.empty() || tick.value > ticks.back().value))
            ticks.push_back(std::move(tick));
    }
    m_visibleTicks = std::move(ticks);
    return true;
}

bool KXAxisTickLabelView::_updateCache()
{
    m_cacheStale = false;
    if (std::exchange(m_sizesStale, false))
        for (Tick& tick : m_visibleTicks)
            tick.size.reset();
    return _updateRequireRotateCache(m_scale.spacing) && _calcTickLabelInterval(m_scale.spacing) &&
           _decideTickLabels() && _calcLongestTickLabelLength() && _calcStartOverhang() &&
           _requestExtraLength();
}

/** Labels that were turned automatically stay so until ticks or spacing change: neither scrolling nor the
 *  room that upright labels had at the end turns them back. */
bool KXAxisTickLabelView::_updateRequireRotateCache(double spacing)
{
    using enum KXAxisTickLabelRotationType;
    KXAxisTickLabelRotationType resolved = Horizontal;
    if (m_tickLabelRotationType == Vertical || m_tickLabelRotationType == Degrees45) {
        if (_canTurnLabels())
            resolved = m_tickLabelRotationType;
    } else if (m_tickLabelRotationType == Auto && m_autoRotateLabels && m_showTickLabels &&
               m_tickCount >= 2 && _canTurnLabels() && m_scale.isValid) {
        bool isTurned = m_turnedAtSpacing == m_scale.freeSpacing;
        if (!isTurned && !_findCollision(spacing, isTurned))
            return false;
        m_turnedAtSpacing = isTurned ? m_scale.freeSpacing : -1;
        resolved = isTurned ? Degrees45 : Horizontal;
    }
    if (resolved != m_resolvedRotation)
        m_longestLabelLength = m_startOverhang = -1;
    m_resolvedRotation = resolved;
    return true;
}

/** @param found whether two neighbours among the labels would come too close to each other side by side */
bool KXAxisTickLabelView::_findCollision(double spacing, bool& found)
{
    const bool isCustom = m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Custom;
    const std::int64_t step = isCustom ? obtainWholeInterval(m_tickLabelInterval) : 1;
    found = false;
    for (Tick& tick : m_visibleTicks) {
        // Near the end there is none that many after it, but one before.
        const bool isBeforeEnd = tick.index + step < m_tickCount;
        const std::int64_t other = isBeforeEnd ? tick.index + step : tick.index - step;
        Tick neighbor;
        if (other < 0)
            continue;
        if (!_measureTick(tick) || !_takeTick(static_cast<int>(other), neighbor))
            return false;
        const double needed = 0.5 * tick.size->width + 0.5 * neighbor.size->width + collisionGap;
        found = std::abs(neighbor.value - tick.value) * spacing < needed - noise;
        if (found)
            return true;
    }
    return true;
}

bool KXAxisTickLabelView::_calcTickLabelInterval(double spacing)
{
    m_calculatedInterval = -1;
    m_shownInterval = 1;
    if (!(spacing > 0) || m_visibleTicks.empty())
        return true;
    switch (m_tickLabelIntervalMode) {
    case KXAxisTickLabelIntervalMode::All:
        m_calculatedInterval = 1;
        break;
    case KXAxisTickLabelIntervalMode::Custom:
        m_calculatedInterval = m_tickLabelInterval;
        break;
    case KXAxisTickLabelIntervalMode::Auto:
        if (_isEachDecided())
            return true;
        if (!_measureTick(m_visibleTicks.front()))
            return false;
        const UXDoubleSize size = *m_visibleTicks.front().size;
        double extent = size.height, gap = 0;
        if (_canTurnLabels() && m_resolvedRotation == KXAxisTickLabelRotationType::Horizontal) {
            extent = 0.5 * size.width;
            gap = (std::min)(extent, largestGap);
        } else if (_canTurnLabels()) {
            extent = (std::max)(size.height - 1, 0.0);
        }
        m_calculatedInterval = kxObtainTickLabelInterval(extent, gap, m_tickDistance * spacing);
        break;
    }
    return _updateShownInterval();
}

/** Labels stand at ticks that are visible, and where the mode is automatic they keep apart: turned ones lie
 * no closer than the lines of a page, upright ones do not run into each other. */
bool KXAxisTickLabelView::_updateShownInterval()
{
    m_shownInterval = roundUpToMultiple(obtainWholeInterval(m_calculatedInterval), m_visibleStep);
    if (m_tickLabelIntervalMode != KXAxisTickLabelIntervalMode::Auto || !_canTurnLabels())
        return true;
    const bool isUpright = m_resolvedRotation == KXAxisTickLabelRotationType::Horizontal;
    if (isUpright)
        return _spaceUprightLabels();
    _widenShownInterval(_obtainLayout().obtainLengthAlong(*m_visibleTicks.front().size));
    return true;
}

/** The first label may be the shortest, as 0 is among numbers. The widest one that shows counts, as far as
 *  labels of that length are still read whole; what is longer is cut. */
bool KXAxisTickLabelView::_spaceUprightLabels()
{
    const double first = m_visibleTicks.front().size->width;
    const double most = first > 2 * largestGap ? 0 : (std::max)(first, largestGap);
    std::int64_t interval = 0;
    while (interval != m_shownInterval) {
        interval = m_shownInterval;
        double widest = first;
        for (Tick& tick : m_visibleTicks) {
            if (tick.index % interval != 0)
                continue;
            if (!_measureTick(tick))
                return false;
            widest = (std::max)(widest, tick.size->width);
        }
        _widenShownInterval((std::min)(widest, most) + collisionGap);
    }
    return true;
}

/** @param length that each label has along the axis */
void KXAxisTickLabelView::_widenShownInterval(double length)
{
    const double interval = kxObtainTickLabelInterval(length, 0, m_tickDistance * m_scale.spacing);
    m_shownInterval = (std::max)(m_shownInterval,
                                 roundUpToMultiple(obtainWholeInterval(interval), m_visibleStep));
}

/** Upright labels in even steps share the room between their ticks: a longer one is cut rather than left out,
 *  and has what shorter neighbours leave.
 *  @return the most width that the label may have */
double KXAxisTickLabelView::_obtainWidthBetweenNeighbors(const Tick& tick)
{
    double limit = infinity;
    if (m_tickLabelIntervalMode != KXAxisTickLabelIntervalMode::Auto || _isEachDecided() ||
        !_canTurnLabels() || m_resolvedRotation != KXAxisTickLabelRotationType::Horizontal)
        return limit;
    for (const std::int64_t index : {tick.index - m_shownInterval, tick.index + m_shownInterval}) {
        const Tick* neighbor = _findVisibleTick(uxSaturateToInt(index));
        if (!neighbor || !neighbor->size)
            continue;
        const double distance = std::abs(neighbor->value - tick.value) * m_scale.spacing - collisionGap;
        limit = (std::min)(limit, 2 * distance - (std::min)(neighbor->size->width, distance));
    }
    return limit;
}

/** Decides for each visible tick by itself, from the end of the axis where a neighbour comes first. */
bool KXAxisTickLabelView::_decideTickLabels()
{
    for (Tick& tick : m_visibleTicks)
        tick.state = ShowState::Undecided;
    if (!_isEachDecided())
        return true;
    const Tick* shown = nullptr;
    const std::size_t count = m_visibleTicks.size();
    for (std::size_t i = 0; i < count; ++i) {
        Tick& tick = m_visibleTicks[m_scale.isReversed ? count - 1 - i : i];
        if (!_shouldShowTickLabelsForAutoMode(tick, shown))
            return false;
        if (tick.state == ShowState::Show)
            shown = &tick;
    }
    return true;
}

/** @param neighbor the nearest label that shows, null for none */
bool KXAxisTickLabelView::_shouldShowTickLabelsForAutoMode(Tick& tick, const Tick* neighbor)
{
    if (!_measureTick(tick))
        return false;
    double room = infinity;
    if (neighbor)
        room = std::abs(tick.value - neighbor->value) * m_scale.spacing - 0.5 * _estimateLabelSize(tick) -
               0.5 * _estimateLabelSize(*neighbor);
    tick.state = room >= decisionGap - noise ? ShowState::Show : ShowState::Hide;
    return true;
}

/** @return what a measured label takes along the axis */
double KXAxisTickLabelView::_estimateLabelSize(const Tick& tick) const
{
    return _obtainLayout().obtainLengthAlong(*tick.size);
}

bool KXAxisTickLabelView::_isShown(const Tick& tick) const
{
    return _isEachDecided() ? tick.state == ShowState::Show : tick.index % m_shownInterval == 0;
}

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
    std::int64_t interval = 1;
    if (m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Custom)
        interval = obtainWholeInterval(m_tickLabelInterval);
    Tick last;
    if (!_takeTick(static_cast<int>((m_tickCount - 1) / interval * interval), last))
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
    for (int i = 0; i < mostLabels && i * m_shownInterval < m_tickCount; ++i) {
        Tick tick;
        if (!_takeTick(static_cast<int>(i * m_shownInterval), tick))
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
