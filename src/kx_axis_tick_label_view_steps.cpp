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
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noise = 1e-9;
/** Between neighbours that stay upright, and between labels that show. */
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
    if (!tick.size) {
        tick.lines = _obtainLines(*tick.text);
        tick.size = _measureText(tick.lines, m_textProperty);
    }
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
    const bool isCustom = m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Custom;
    const std::int64_t step = isCustom ? obtainWholeInterval(m_tickLabelInterval) : 1;
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
            extent = 0.5 * (std::min)(size.width, _obtainLengthForAll().value_or(infinity));
            gap = (std::min)(extent, largestGap);
        } else if (_canTurnLabels()) {
            extent = (std::max)(size.height - 1, 0.0);
        }
        m_calculatedInterval = kxObtainTickLabelInterval(extent, gap, m_tickDistance * spacing);
        break;
    }
    return _updateShownInterval();
}

/** Labels stand at ticks that are visible, and where the mode is automatic they keep apart: the step is the
 *  same from end to end, wherever the axis is scrolled to. */
bool KXAxisTickLabelView::_updateShownInterval()
{
    m_shownInterval = roundUpToMultiple(obtainWholeInterval(m_calculatedInterval), m_visibleStep);
    bool areApart = m_tickLabelIntervalMode != KXAxisTickLabelIntervalMode::Auto;
    while (!areApart) {
        if (!_areLabelsApart(areApart))
            return false;
        if (!areApart)
            m_shownInterval += m_visibleStep;
    }
    return true;
}

/** @param areApart whether the labels of the present interval are, wherever their places are rounded to. Of
 *                  lines of text the letters are, whose boxes are higher by more than the gap. */
bool KXAxisTickLabelView::_areLabelsApart(bool& areApart)
{
    const bool isUpright = _canTurnLabels() && m_resolvedRotation == KXAxisTickLabelRotationType::Horizontal;
    const double gap = isUpright ? decisionGap : 0;
    const Tick* previous = nullptr;
    for (Tick& tick : m_visibleTicks) {
        if (tick.index % m_shownInterval != 0)
            continue;
        if (!_measureTick(tick))
            return false;
        areApart = !previous || _obtainWholeDistance(*previous, tick) + noise >=
                                    0.5 * _obtainLengthKept(*previous) + 0.5 * _obtainLengthKept(tick) + gap;
        if (!areApart)
            return true;
        previous = &tick;
    }
    areApart = true;
    return true;
}

/** @return how far apart the places of two ticks are at least, which are rounded to whole units */
double KXAxisTickLabelView::_obtainWholeDistance(const Tick& tick, const Tick& other) const
{
    return std::floor(std::abs(tick.value - other.value) * m_scale.spacing + noise);
}

/** @return what a measured label takes along the axis at least: a long one is shortened, a number or what is
 *          turned is not, and moves inside at an end of the axis */
double KXAxisTickLabelView::_obtainLengthKept(const Tick& tick) const
{
    const double length = _estimateLabelSize(tick);
    const bool isUpright = m_resolvedRotation == KXAxisTickLabelRotationType::Horizontal;
    if (!_canTurnLabels() || !isUpright || kxIsNumberLabel(*tick.text))
        return length + 2 * _obtainMoveInside(tick, _obtainLayout());
    const double first = _estimateLabelSize(m_visibleTicks.front());
    const double usual = first > 2 * largestGap ? 0 : (std::max)(first, largestGap);
    return (std::min)(length, _obtainLengthForAll().value_or(usual));
}

/** @return the length to which upright texts are shortened before they are thinned out, nothing where there
 * is too little room between two ticks for that */
std::optional<double> KXAxisTickLabelView::_obtainLengthForAll() const
{
    const double room = std::floor(m_tickDistance * m_scale.spacing + noise) - decisionGap;
    return m_prefersAllLabels && room >= largestGap ? std::optional(room) : std::nullopt;
}

/** @return how far the label moves away from an end of the axis while that is not scrolled away */
double KXAxisTickLabelView::_obtainMoveInside(const Tick& tick, const KXAxisTickLabelLayout& layout) const
{
    if (layout.isAlongX() && layout.getDegrees() == 0 && !m_showLabelInBound)
        return 0; // it is shortened
    double move = 0;
    for (const int direction : {1, -1}) { // towards the axis's end, and its start
        const int notation = m_scale.xNotation != 0 ? m_scale.xNotation : -m_scale.yNotation;
        const double reach = layout.obtainReach(*tick.size, direction * notation);
        move = (std::max)(move, reach - _obtainRoomAtEnd(tick, direction));
    }
    return move;
}

/** @param direction 1 towards the axis's end, -1 towards its start, as if that were not scrolled away
 *  @return the room between the tick and the edge of the area */
double KXAxisTickLabelView::_obtainRoomAtEnd(const Tick& tick, int direction) const
{
    const double values = direction > 0 ? m_scale.maxValue - tick.value + m_scale.shift
                                        : tick.value - m_scale.minValue - m_scale.shift;
    const UXPoint start(m_scale.start.x - m_scale.origin.x, m_scale.start.y - m_scale.origin.y);
    const UXRect& area = m_scale.area;
    const bool alongX = m_scale.xNotation != 0;
    const double low = alongX ? start.x - area.x : start.y - area.y;
    const double high = alongX ? uxMaxX(area) - start.x : uxMaxY(area) - start.y;
    const bool grows = alongX ? m_scale.xNotation > 0 : m_scale.yNotation < 0;
    if (direction < 0)
        return values * m_scale.spacing + (grows ? low : high);
    const KXAxis* axis = getAxis();
    const double extra = axis ? axis->obtainTotalExtraLength() : 0;
    return values * m_scale.spacing + extra + (grows ? high : low) - m_scale.length;
}

/** @param direction 1 to the right, -1 to the left
 *  @param edge the room between the tick and the edge of the area there
 *  @return the room between the tick and a neighbour's label, nothing without one. Each label may have half
 * of what is between two ticks, and what the other one leaves of its own */
std::optional<double> KXAxisTickLabelView::_obtainRoomToNeighbor(const Tick& tick, int direction, double edge)
{
    const int notation = m_scale.xNotation > 0 ? 1 : -1;
    const Tick* neighbor = _findVisibleTick(
        uxSaturateToInt(tick.index + direction * notation * m_shownInterval));
    if (!neighbor || !neighbor->size)
        return std::nullopt;
    const double distance = _obtainWholeDistance(tick, *neighbor), room = distance - decisionGap;
    const double width = neighbor->size->width;
    double reach = width / 2;
    if (m_showLabelInBound)
        reach = (std::max)(reach, width - (std::max)(edge - distance, 0.0));
    return room - (std::min)(reach, room / 2);
}

/** Upright labels in even steps share the room between their ticks: a longer one is shortened rather than
 * left out.
 *  @param point the tick's place
 *  @return the most width that the label may have */
double KXAxisTickLabelView::_obtainWidthBetweenNeighbors(const Tick& tick, const UXPoint& point)
{
    if (m_tickLabelIntervalMode != KXAxisTickLabelIntervalMode::Auto || _isEachDecided() ||
        !_canTurnLabels() || m_resolvedRotation != KXAxisTickLabelRotationType::Horizontal)
        return infinity;
    const double left = static_cast<double>(point.x) - m_scale.area.x;
    const double right = static_cast<double>(uxMaxX(m_scale.area)) - point.x;
    const std::optional<double> toLeft = _obtainRoomToNeighbor(tick, -1, left);
    const std::optional<double> toRight = _obtainRoomToNeighbor(tick, 1, right);
    if (toLeft && toRight)
        return 2 * (std::min)(*toLeft, *toRight);
    if (!toLeft && !toRight)
        return infinity;
    // At an end of the view, a label that is moved inside has also the room beyond its middle.
    const double room = toLeft ? *toLeft : *toRight, edge = toLeft ? right : left;
    return m_showLabelInBound && room > edge ? room + edge : 2 * room;
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
