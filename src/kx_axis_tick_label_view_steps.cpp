#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_placed_label.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_axis_tick_search.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noise = 1e-9;
/** Between neighbours that stay upright. */
constexpr double collisionGap = 4;
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
    const auto ask = [&](KXAxisTickLabelViewDelegate& delegate) {
        value = delegate.axisTickLabelViewObtainTick(this, index);
    };
    return _askDelegate(std::ref(ask)); // every visible tick: what is referred to needs no memory of its own
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
    if (!_knowText(tick))
        return false;
    if (!tick.size) {
        tick.lines = _obtainLines(*tick.text);
        tick.size = _measureText(tick.lines, m_textProperty);
        _settleSize(tick);
    }
    return true;
}

/** A text that is still to come takes the room of the one before: other values of the same categories, the
 * usual reload, so lay out anew nothing but the labels when their texts come. Where one turns out to need
 * another room, what is known of those before says nothing any more.
 *  @param tick measured, with what stands for its text */
void KXAxisTickLabelView::_settleSize(Tick& tick)
{
    const Tick* former = _findFormerTick(tick);
    if (!tick.isToCome) {
        if (tick.size->width > m_widestText.width)
            m_widestText = *tick.size;
        if (former && former->size != tick.size)
            m_formerTicks.clear();
    } else if (former) {
        tick.size = former->size;
    } else if (tick.size->width < m_widestText.width) {
        tick.size = m_widestText;
    }
}

/** @return the tick as it was before the last reload; null where that says nothing about its room */
const KXAxisTickLabelView::Tick* KXAxisTickLabelView::_findFormerTick(const Tick& tick) const
{
    return m_lineCount == m_formerLineCount ? _findTick(m_formerTicks, tick.index) : nullptr;
}

/** Keeps the sizes of what is about to be forgotten. A reload before its texts came knows no better ones. */
void KXAxisTickLabelView::_keepFormerTicks()
{
    std::vector<Tick> former;
    std::ranges::copy_if(m_visibleTicks, std::back_inserter(former),
                         [](const Tick& tick) { return tick.size && !tick.isToCome; });
    if (former.empty())
        return;
    m_formerTicks = std::move(former);
    m_formerLineCount = m_lineCount;
}

bool KXAxisTickLabelView::_knowText(Tick& tick)
{
    std::string text;
    if (tick.text)
        return true;
    if (!_obtainText(tick.value, text) || !_askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
            tick.isToCome = delegate.axisTickLabelViewIsTickLabelToCome(this, tick.value);
        }))
        return false;
    tick.text = std::move(text);
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
    m_turnedAtSpacing = m_wrappedAtSpacing = -1;
    m_longestLabelLength = m_startOverhang = -1;
}

bool KXAxisTickLabelView::_bringUpToDate(Step step)
{
    if (m_updating)
        return true;
    const UXFlagScope updating(this, m_updating);
    return _doSteps(step);
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
    _keepFormerTicks();
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
    return const_cast<Tick*>(_findTick(m_visibleTicks, index));
}

/** @param ticks by rising index
 *  @return null for none */
const KXAxisTickLabelView::Tick* KXAxisTickLabelView::_findTick(const std::vector<Tick>& ticks, int index)
{
    const auto found = std::ranges::lower_bound(ticks, index, {}, &Tick::index);
    return found != ticks.end() && found->index == index ? &*found : nullptr;
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
    // Every step-th of them is taken so that the anchor is among them.
    for (double& index : indexes)
        index += m_anchorTick % m_visibleStep;
    while (!indexes.empty() && indexes.back() >= m_tickCount)
        indexes.pop_back();
    return _collectVisibleTicks(indexes);
}

/** What was known of ticks that are still visible is kept.
 *  @param indexes by rising number */
bool KXAxisTickLabelView::_collectVisibleTicks(const std::vector<double>& indexes)
{
    std::vector<Tick> ticks;
    ticks.reserve(indexes.size());
    for (std::size_t known = 0; const double number : indexes) {
        Tick tick;
        tick.index = uxSaturateToInt(number);
        while (known < m_visibleTicks.size() && m_visibleTicks[known].index < tick.index)
            ++known;
        if (known < m_visibleTicks.size() && m_visibleTicks[known].index == tick.index) {
            tick = m_visibleTicks[known];
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
    if (std::exchange(m_sizesStale, false)) {
        m_formerTicks.clear();
        for (Tick& tick : m_visibleTicks)
            tick.size.reset();
    }
    return _updateRequireRotateCache(m_scale.spacing) && _calcTickLabelInterval(m_scale.spacing) &&
           _decideTickLabels() && _calcLongestTickLabelLength() && _calcStartOverhang() &&
           _requestExtraLength();
}

bool KXAxisTickLabelView::_updateRequireRotateCache(double spacing)
{
    using enum KXAxisTickLabelRotationType;
    KXAxisTickLabelRotationType resolved = Horizontal;
    const bool isAuto = m_tickLabelRotationType == Auto && m_showTickLabels && m_tickCount >= 2 &&
                        _canTurnLabels() && m_scale.isValid;
    bool turns = false;
    if (!isAuto)
        _setLineCount(1);
    else if (!_resolveAutoRotation(spacing, turns))
        return false;
    if (turns)
        resolved = Degrees45;
    else if (m_tickLabelRotationType != Auto && _canTurnLabels())
        resolved = m_tickLabelRotationType;
    if (resolved != m_resolvedRotation)
        m_longestLabelLength = m_startOverhang = -1;
    m_resolvedRotation = resolved;
    return true;
}

/** Labels that were turned or broken automatically stay so until ticks or spacing change: neither scrolling
 *  nor the room that upright labels had at the end turns them back. */
bool KXAxisTickLabelView::_resolveAutoRotation(double spacing, bool& turns)
{
    turns = m_autoRotateLabels && m_turnedAtSpacing == m_scale.freeSpacing;
    if (!turns) {
        if (!_wrapLabels(spacing) || !_findCollision(spacing, false, turns))
            return false;
        turns = turns && m_autoRotateLabels;
    }
    m_turnedAtSpacing = turns ? m_scale.freeSpacing : -1;
    m_wrappedAtSpacing = !turns && m_lineCount > 1 ? m_scale.freeSpacing : -1;
    if (turns)
        _setLineCount(1);
    return true;
}

/** Breaks the labels in two lines where one is too long and two show all of them. */
bool KXAxisTickLabelView::_wrapLabels(double spacing)
{
    bool isCrowded = m_wrappedAtSpacing == m_scale.freeSpacing;
    if (!m_prefersAllLabels || !isCrowded)
        _setLineCount(1);
    if (!m_prefersAllLabels)
        return true;
    if (!isCrowded && !_findCollision(spacing, true, isCrowded))
        return false;
    if (!isCrowded)
        return true;
    _setLineCount(2);
    if (!_findCollision(spacing, true, isCrowded))
        return false;
    const double limit = _obtainLengthLimit().value_or(infinity);
    if (isCrowded || std::ranges::any_of(m_visibleTicks, [limit](const Tick& tick) {
            return tick.size && tick.size->height > limit;
        }))
        _setLineCount(1);
    return true;
}

/** What was measured of the labels in another number of lines is measured anew. */
void KXAxisTickLabelView::_setLineCount(int count)
{
    if (count == m_lineCount)
        return;
    m_lineCount = count;
    m_longestLabelLength = m_startOverhang = -1;
    for (Tick& tick : m_visibleTicks)
        tick.size.reset();
}

/** @param staysInside whether labels count as moved inside the view where they are
 *  @param found whether two neighbours among the labels would come too close to each other side by side */
bool KXAxisTickLabelView::_findCollision(double spacing, bool staysInside, bool& found)
{
    const std::int64_t step = _obtainCustomInterval();
    const KXAxisTickLabelLayout upright(m_position, KXAxisTickLabelRotationType::Horizontal);
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
        double needed = 0.5 * tick.size->width + 0.5 * neighbor.size->width + collisionGap;
        if (staysInside)
            needed += _obtainMoveInside(tick, upright) + _obtainMoveInside(neighbor, upright);
        found = std::abs(neighbor.value - tick.value) * spacing < needed - noise;
        if (found)
            return true;
    }
    return true;
}
