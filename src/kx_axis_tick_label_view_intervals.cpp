#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_layout.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

// Which ticks have labels, and how much room each of these has beside its neighbours.

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noise = 1e-9;
/** Between labels that show. */
constexpr double decisionGap = 2;
/** The most room that a long label asks for at its end. */
constexpr double largestGap = 100;

std::int64_t roundUpToMultiple(std::int64_t number, std::int64_t of) { return (number + of - 1) / of * of; }

std::int64_t obtainWholeInterval(double interval)
{
    return (std::max)(uxSaturateToInt(std::floor(interval)), 1);
}

} // namespace

/** @return every how many ticks the user wants a label, 1 where that is left to the view */
std::int64_t KXAxisTickLabelView::_obtainCustomInterval() const
{
    return m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Custom
               ? obtainWholeInterval(m_tickLabelInterval)
               : 1;
}

/** @return the first index not below from, 0 or more, at which a label stands where every step-th tick has
 * one
 */
std::int64_t KXAxisTickLabelView::_obtainLabelledIndex(std::int64_t from, std::int64_t step) const
{
    const std::int64_t first = m_anchorTick % step;
    return first + roundUpToMultiple((std::max)(from - first, std::int64_t{0}), step);
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

/** Which step keeps labels apart depends on texts of ticks between them too. Where the room of one that is
 * still to come is a guess, all that are visible are asked for together: one step at a time, the rounds of a
 * layout would end too early. Only where the labels are placed: on the way there, while the axis finds its
 * length, others are visible. */
bool KXAxisTickLabelView::_wantTexts()
{
    const auto isGuess = [this](const Tick& tick) {
        return tick.text && tick.isToCome && !_findFormerTick(tick);
    };
    if (m_tickLabelIntervalMode != KXAxisTickLabelIntervalMode::Auto ||
        std::ranges::none_of(m_visibleTicks, isGuess))
        return true;
    for (Tick& tick : m_visibleTicks)
        if (!_knowText(tick))
            return false;
    return true;
}

/** @param areApart whether the labels of the present interval are, wherever their places are rounded to. Of
 *                  lines of text the letters are, whose boxes are higher by more than the gap. */
bool KXAxisTickLabelView::_areLabelsApart(bool& areApart)
{
    const bool isUpright = _canTurnLabels() && m_resolvedRotation == KXAxisTickLabelRotationType::Horizontal;
    const double gap = isUpright ? decisionGap : 0;
    const Tick* previous = nullptr;
    const std::int64_t step = m_shownInterval;
    for (std::int64_t index = _obtainLabelledIndex(m_visibleTicks.front().index, step);
         index <= m_visibleTicks.back().index; index += step) {
        Tick* tick = _findVisibleTick(static_cast<int>(index));
        if (!tick)
            continue;
        if (!_measureTick(*tick))
            return false;
        areApart = !previous || _obtainWholeDistance(*previous, *tick) + noise >=
                                    0.5 * _obtainLengthKept(*previous) + 0.5 * _obtainLengthKept(*tick) + gap;
        if (!areApart)
            return true;
        previous = tick;
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
    const double extra = axis ? axis->obtainTotalExtraLength() - axis->getGap() : 0;
    return values * m_scale.spacing + extra + (grows ? high : low) - m_scale.length;
}

/** @param direction 1 to the right, -1 to the left
 *  @param edge the room between the tick and the edge of the area there
 *  @return the room between the tick and a neighbour's label, nothing without one. Each label may have half
 * of what is between two ticks, and what the other one leaves of its own */
std::optional<double> KXAxisTickLabelView::_obtainRoomToNeighbor(const Tick& tick, int direction, double edge)
{
    const std::int64_t notation = m_scale.xNotation > 0 ? 1 : -1;
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
    return _isEachDecided() ? tick.state == ShowState::Show
                            : (tick.index - m_anchorTick) % m_shownInterval == 0;
}
