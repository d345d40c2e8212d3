#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_alignment.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_logarithmic_scale.h"

#include <algorithm>
#include <cmath>
#include <utility>

// What the axes hold: the ranges of the data, and what is shown of them.

namespace {

/** Gives an axis exactly these bounds. Its setters take a value close to the one before for the same, but no
 * chart looks other for what it showed before. */
void setBounds(KXAxis& axis, double min, double max)
{
    const auto awayFrom = [](double value) { return std::abs(value) < 1 ? 2.0 : 0.0; };
    if (axis.getMinValue() != min)
        axis.setMinValue(awayFrom(min));
    axis.setMinValue(min);
    if (axis.getMaxValue() != max)
        axis.setMaxValue(awayFrom(max));
    axis.setMaxValue(max);
}

} // namespace

/** @return whether the X axis is one of the values of marks */
bool KXXYAxisChart::_takeNumberRange()
{
    KXValueExtremes all;
    for (const auto& view : getDataViews())
        all.take(view->obtainNumberRange().value_or(KXValueExtremes()));
    m_numberRange = all.isEmpty() ? std::nullopt : std::optional(all);
    return m_numberRange.has_value();
}

void KXXYAxisChart::_updateCategoryRange()
{
    KXAxisChartAxisCacheData& cache = m_x.cache;
    m_isContinuous = m_numberRange || !m_places.isEmpty();
    cache.isValueAxis = m_isContinuous;
    cache.isLogarithmic = m_isContinuous && isLogarithmic(*m_x.property);
    cache.categoryCount = obtainShownCategoryCount();
    if (!m_isContinuous)
        return;
    const KXValueExtremes range = m_numberRange ? *m_numberRange
                                                : KXValueExtremes{m_places.getNumbers().front(),
                                                                  m_places.getNumbers().back()};
    cache.dataMin = range.min;
    cache.dataMax = range.max;
    _includeFixedValues(m_x, cache.dataMin, cache.dataMax);
}

bool KXXYAxisChart::_updateValueRange(KXAxisChartAxis& axis)
{
    const bool fits = m_isContinuous && getAxisChartProperty()->getFitValuesToVisible();
    const bool wasMirrored = axis.cache.isMirrored, wasLogarithmic = axis.cache.isLogarithmic;
    const auto isOnAxis = [&](const auto& view) {
        return view->getIsOnSecondaryAxis() == (&axis == &m_secondaryY);
    };
    axis.cache.isUnstackable = std::ranges::any_of(
        getDataViews(), [&](const auto& view) { return isOnAxis(view) && view->placesItself(); });
    axis.cache.isMirrored = std::ranges::any_of(
        getDataViews(), [&](const auto& view) { return isOnAxis(view) && view->isMirrored(); });
    axis.cache.isLogarithmic = isLogarithmic(*axis.property);
    if ((wasLogarithmic && !axis.cache.isLogarithmic) || (wasMirrored && !axis.cache.isMirrored))
        axis.cache.ownTicks.clear();
    std::optional<KXAxisChartValueRange> range;
    for (const auto& view : getDataViews()) {
        if (!isOnAxis(view))
            continue;
        const std::optional<KXAxisChartValueRange> shown = fits ? _obtainShownValueRange(*view)
                                                                : std::nullopt;
        range = kxUniteValueRanges(range, shown ? shown : view->obtainValueRange());
    }
    const bool isUsed = range.has_value();
    if (!range)
        range.emplace();
    if (!axis.cache.isLogarithmic && shouldIncludeZero(axis.property.get())) {
        range->min = std::min(range->min, 0.0);
        range->max = std::max(range->max, 0.0);
    }
    if (isUsed) {
        _includeFixedValues(axis, range->min, range->max);
        _includeFixedValues(axis, range->stackedMin, range->stackedMax);
    }
    axis.cache.dataMin = range->min;
    axis.cache.dataMax = range->max;
    axis.cache.stackedMin = range->stackedMin;
    axis.cache.stackedMax = range->stackedMax;
    axis.cache.hasSums = axis.property->getIsStacked();
    axis.cache.needsUpdate = true;
    return isUsed;
}

void KXXYAxisChart::_customUpdateAxes()
{
    _placeSides();
    m_knowsAxisLengths = false;
    if (updateAxisCacheData(m_x.property.get(), &m_x.cache))
        m_x.ticksChanged = true;
    _setCategoryScale();
    const bool fits = m_isContinuous && getAxisChartProperty()->getFitValuesToVisible();
    for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY})
        if (fits || (axis->property->getIsStacked() && !axis->cache.hasSums))
            _updateValueRange(*axis);
    // The range of one may follow from that of the other.
    if (m_y.cache.needsUpdate || m_secondaryY.cache.needsUpdate) {
        m_y.cache.needsUpdate = m_secondaryY.cache.needsUpdate = true;
        for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY}) {
            updateAxisCacheData(axis->property.get(), &axis->cache);
            axis->ticksChanged = true;
        }
        _alignValueAxes();
    }
    for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY})
        _setValueScale(*axis);
}

/** Two automatic axes share one grid. Where they cannot, the second one has none. */
void KXXYAxisChart::_alignValueAxes()
{
    const auto mayMove = [](const KXAxisChartAxis& axis) {
        return axis.isUsed && axis.property->getAutoAxisRange() && axis.property->getAutoAxisTicks() &&
               !axis.cache.isLogarithmic && !axis.cache.isMirrored;
    };
    m_secondaryY.sharesGrid = true;
    if (!m_y.isUsed || !m_secondaryY.isUsed)
        return;
    m_secondaryY.sharesGrid = false;
    if (!getAxisChartProperty()->getAlignValueAxes() || !mayMove(m_y) || !mayMove(m_secondaryY) ||
        isPercentageAxis(*m_secondaryY.property))
        return;
    KXAxisChartAxisCacheData first = m_y.cache, second = m_secondaryY.cache;
    const bool isStacked = m_secondaryY.property->getIsStacked() && !second.isUnstackable;
    const KXValueExtremes data = isStacked ? KXValueExtremes{second.stackedMin, second.stackedMax}
                                           : KXValueExtremes{second.dataMin, second.dataMax};
    const bool isAligned = kxAlignAxes(first, second, data);
    const bool keepsFirst = first.axisMin == m_y.cache.axisMin && first.axisMax == m_y.cache.axisMax;
    if (!isAligned || (isPercentageAxis(*m_y.property) && !keepsFirst))
        return;
    m_y.cache = std::move(first);
    m_secondaryY.cache = std::move(second);
    m_secondaryY.sharesGrid = true;
}

void KXXYAxisChart::_setValueScale(KXAxisChartAxis& axis)
{
    const KXVisibleRange shown = _obtainShownRange(axis);
    setBounds(*axis.axis, shown.from, shown.to);
    const bool isPart = shown != _obtainWholeRange(axis);
    if (isPart)
        _updateNumberTicks(axis, shown);
    else if (&axis == &m_y && m_isPartOfYShown)
        _setTicks(axis, axis.cache.isLogarithmic
                            ? kxObtainLogarithmicTicks(shown.from, shown.to,
                                                       axis.property->getAxisPossibleTickCount())
                            : std::vector<double>());
    if (&axis == &m_y)
        m_isPartOfYShown = isPart;
    double extra = 0;
    for (const auto& view : getDataViews())
        if (view->getIsOnSecondaryAxis() == (&axis == &m_secondaryY))
            extra = std::max(extra, view->obtainExtraLength());
    axis.axis->setExtraLength("marks", extra);
}

void KXXYAxisChart::_setCategoryScale()
{
    KXAxis& axis = *m_x.axis;
    const KXAxisChartAxisCacheData& cache = m_x.cache;
    // Where all categories are to be seen at once, a longer axis than there is room for fills the room.
    const int length = getAxisChartProperty()->getEnableScroll() ? m_x.property->getAxisLength() : 0;
    double room = 0;
    for (const auto& view : getDataViews())
        room = std::max(room, view->obtainExtraRoomAcross());
    axis.setExtraLength("marks", room);
    axis.setShiftHalfValueSpacing(!m_isContinuous);
    if (m_isContinuous) {
        const KXVisibleRange shown = _obtainShownRange(m_x);
        setBounds(axis, shown.from, shown.to);
        axis.setValueSpacing(-1);
        return;
    }
    const auto count = static_cast<double>(cache.categoryCount);
    setBounds(axis, -1, count - 1);
    axis.setValueSpacing(length > 0 && count > 0 ? length / count : -1);
}
