#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_calendar_time.h"
#include "kx_chart_data_format.h"
#include "kx_key_definitions.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/** Indexes are found from places; this much of a category is the noise of that. */
constexpr double placeNoise = 1e-6;

/** @return where the values of an axis lie along it */
KXAxisChartLinearScale makeMap(const KXAxisChartAxis& own)
{
    KXAxis& axis = *own.axis;
    const double low = axis.getMinValue(), high = axis.getMaxValue();
    const UXDoublePoint start = axis.obtainDoubleValuePositionInAxis(low);
    const UXDoublePoint end = axis.obtainDoubleValuePositionInAxis(high);
    const double from = own.isHorizontal() ? start.x : start.y, to = own.isHorizontal() ? end.x : end.y;
    const double span = high - low;
    return {low, from, span > 0 && std::isfinite(span) ? (to - from) / span : 0};
}

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

std::uint64_t toIndex(double number, std::uint64_t count)
{
    return number > 0 ? static_cast<std::uint64_t>(std::min(number, static_cast<double>(count))) : 0;
}

} // namespace

KXXYAxisChart::KXXYAxisChart() : m_x(_addAxis()), m_y(_addAxis()), m_secondaryY(_addAxis())
{
    m_secondaryY.isUsed = false;
    m_y.property->setShowGridLine(true);
}

KXXYAxisChart::~KXXYAxisChart() = default;

KXAxisProperty* KXXYAxisChart::getXAxisProperty() const { return m_x.property.get(); }
KXAxisProperty* KXXYAxisChart::getYAxisProperty() const { return m_y.property.get(); }
KXAxisProperty* KXXYAxisChart::getSecondaryYAxisProperty() const { return m_secondaryY.property.get(); }
KXChartDataFormat* KXXYAxisChart::getXDataFormat() const { return m_x.dataFormat.get(); }
KXChartDataFormat* KXXYAxisChart::getYDataFormat() const { return m_y.dataFormat.get(); }
KXChartDataFormat* KXXYAxisChart::getSecondaryYDataFormat() const { return m_secondaryY.dataFormat.get(); }
KXAxis* KXXYAxisChart::getXAxis() const { return m_x.axis; }
KXAxis* KXXYAxisChart::getYAxis() const { return m_y.axis; }
KXAxis* KXXYAxisChart::getSecondaryYAxis() const { return m_secondaryY.axis; }

bool KXXYAxisChart::isSeriesOnSecondaryAxis(std::uint64_t series) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(series);
    return view && view->getIsOnSecondaryAxis();
}

bool KXXYAxisChart::shouldIncludeZero(const KXAxisProperty* property) const
{
    return std::ranges::any_of(getDataViews(), [&](const auto& view) {
        return &view->_getValueAxisProperty() == property && view->shouldIncludeZero();
    });
}

bool KXXYAxisChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty*) { return false; }

bool KXXYAxisChart::updateAxisCacheData(KXAxisProperty* property, KXAxisChartAxisCacheData* cache)
{
    return kxUpdateAxisCacheData(property, cache, calculateSuitableMinMaxIfNumberData(property));
}

const KXAxisChartAxisCacheData* KXXYAxisChart::obtainAxisCacheData(const KXAxisProperty* property) const
{
    for (const KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY})
        if (axis->property.get() == property)
            return &axis->cache;
    return nullptr;
}

double KXXYAxisChart::_calculateSuitableRange(double amount, bool forTicks) const
{
    return kxCalculateSuitableRange(amount, forTicks);
}

KXAxisChartAxis* KXXYAxisChart::_obtainScrolledAxis() const { return &m_x; }

KXAxisChartAxis& KXXYAxisChart::_obtainValueAxis(std::uint64_t series) const
{
    return isSeriesOnSecondaryAxis(series) ? m_secondaryY : m_y;
}

std::string KXXYAxisChart::obtainValueText(std::uint64_t series, double value) const
{
    return std::isnan(value) ? std::string() : _obtainValueAxis(series).dataFormat->formatNumber(value);
}

double KXXYAxisChart::_obtainMinCategorySpacing() const
{
    if (m_isContinuous)
        return -1;
    double least = KXAxisChart::_obtainMinCategorySpacing();
    for (const auto& view : getDataViews())
        least = least < 0 ? least : std::max(least, view->obtainMinCategorySpacing());
    return least;
}

double KXXYAxisChart::_obtainLabelledCategorySpacing() const
{
    double spacing = 0;
    for (const auto& view : getDataViews())
        spacing = std::max(spacing, view->obtainLabelledCategorySpacing());
    return spacing;
}

bool KXXYAxisChart::_wantsContinuous() const
{
    if (getCategoryDataType() == KXChartDataType::String)
        return false;
    return m_x.property->getIsCustomizedIsContinuous() || m_x.property->getIsContinuous()
               ? m_x.property->getIsContinuous()
               : getCategorySetting().firstFlag;
}

void KXXYAxisChart::_updateDataRanges()
{
    const UXObjectWatcher self(this);
    const bool hasNumbers = !_takeNumberRange() && _wantsContinuous();
    const std::vector<double> numbers = hasNumbers ? obtainCategoryNumbers() : std::vector<double>();
    if (!self.isAlive())
        return;
    m_categoryNumbers = numbers;
    m_categoryNumbers.resize(std::min<std::size_t>(numbers.size(), obtainShownCategoryCount()));
    _updateCategoryRange();
    _updateValueRange(m_y);
    m_secondaryY.isUsed = _updateValueRange(m_secondaryY);
    _updateDefaultTitles();
}

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
    kxSetAxisDimension(cache, m_numberRange ? KXChartDataType::Float : getCategoryDataType());
    m_isContinuous = m_numberRange || !m_categoryNumbers.empty();
    m_categoriesGrow = std::ranges::is_sorted(m_categoryNumbers);
    m_categoryDistance = 1;
    cache.isValueAxis = m_isContinuous;
    cache.categoryCount = obtainShownCategoryCount();
    if (!m_isContinuous)
        return;
    const KXValueExtremes range = m_numberRange ? *m_numberRange : kxFindValueExtremes(m_categoryNumbers);
    cache.dataMin = range.min;
    cache.dataMax = range.max;
    double distance = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; m_categoriesGrow && i < m_categoryNumbers.size(); ++i)
        if (m_categoryNumbers[i] > m_categoryNumbers[i - 1])
            distance = std::min(distance, m_categoryNumbers[i] - m_categoryNumbers[i - 1]);
    if (std::isfinite(distance))
        m_categoryDistance = distance;
}

bool KXXYAxisChart::_updateValueRange(KXAxisChartAxis& axis)
{
    std::optional<KXAxisChartValueRange> range;
    const bool wasMirrored = axis.cache.isMirrored;
    axis.cache.isUnstackable = axis.cache.isMirrored = false;
    for (const auto& view : getDataViews())
        if (view->getIsOnSecondaryAxis() == (&axis == &m_secondaryY)) {
            range = kxUniteValueRanges(range, view->obtainValueRange());
            axis.cache.isUnstackable = axis.cache.isUnstackable || view->placesItself();
            axis.cache.isMirrored = axis.cache.isMirrored || view->isMirrored();
        }
    if (wasMirrored && !axis.cache.isMirrored)
        axis.cache.ownTicks.clear();
    const bool isUsed = range.has_value();
    if (!range)
        range.emplace();
    if (shouldIncludeZero(axis.property.get())) {
        range->min = std::min(range->min, 0.0);
        range->max = std::max(range->max, 0.0);
    }
    axis.cache.dataMin = range->min;
    axis.cache.dataMax = range->max;
    axis.cache.stackedMin = range->stackedMin;
    axis.cache.stackedMax = range->stackedMax;
    axis.cache.hasSums = axis.property->getIsStacked();
    axis.cache.needsUpdate = true;
    return isUsed;
}

void KXXYAxisChart::_updateDefaultTitles()
{
    m_x.property->setDefaultTitleValue(getCategoryDimensionLabel());
    m_y.property->setDefaultTitleValue(_obtainProposedTitle(m_y));
    m_secondaryY.property->setDefaultTitleValue(_obtainProposedTitle(m_secondaryY));
}

/** One measure names each axis that its series stand on; of several, one that has an axis to itself does.
 * Shown or not makes no difference, so that switching a series off changes no title. */
std::string KXXYAxisChart::_obtainProposedTitle(const KXAxisChartAxis& axis) const
{
    if (!getMeasureLabel().empty())
        return getMeasureLabel();
    std::optional<std::uint64_t> only;
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series) {
        if (!isOwnSeries(series) || &_obtainValueAxis(series) != &axis)
            continue;
        if (only)
            return {};
        only = series;
    }
    return only ? getSeriesLabel(*only) : std::string();
}

void KXXYAxisChart::_axisPropertyUpdated(KXAxisChartAxis& axis, UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    if (effect == UXPropertyEffect::Reload && preparedAndReloadedData())
        reloadData();
    if (self.isAlive())
        KXAxisChart::_axisPropertyUpdated(axis, effect);
}

void KXXYAxisChart::_categoryTextsArrived(bool areFirst)
{
    const UXObjectWatcher self(this);
    m_x.ticksChanged = m_x.ticksChanged || areFirst;
    KXAxisChart::_categoryTextsArrived(areFirst);
    if (self.isAlive())
        _updateTickTexts(m_x);
}

void KXXYAxisChart::_customUpdateAxes()
{
    for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY})
        if (axis->property->getIsStacked() && !axis->cache.hasSums)
            _updateValueRange(*axis);
    _placeSides();
    for (KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY})
        if (updateAxisCacheData(axis->property.get(), &axis->cache))
            axis->ticksChanged = true;
    _setCategoryScale();
    for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY}) {
        setBounds(*axis->axis, axis->cache.axisMin, axis->cache.axisMax);
        double extra = 0;
        for (const auto& view : getDataViews())
            if (view->getIsOnSecondaryAxis() == (axis == &m_secondaryY))
                extra = std::max(extra, view->obtainExtraLength());
        axis->axis->setExtraLength("marks", extra);
    }
}

/** The one place that knows the orientation: everything else follows the sides at which the axes stand. */
void KXXYAxisChart::_placeSides()
{
    const bool hasData = preparedAndReloadedData() && obtainShownCategoryCount() > 0;
    m_x.position = isVertical() ? UXPosition::Bottom : UXPosition::Left;
    m_y.position = isVertical() ? UXPosition::Left : UXPosition::Bottom;
    m_secondaryY.position = isVertical() ? UXPosition::Right : UXPosition::Top;
    m_x.isUsed = m_y.isUsed = hasData;
    if (!hasData)
        m_secondaryY.isUsed = false;
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
        double overhang = 0; // on both sides, so that marks at the ends are whole
        for (const auto& view : getDataViews())
            overhang = std::max(overhang, view->obtainOverhang() * m_categoryDistance);
        setBounds(axis, cache.axisMin - overhang, cache.axisMax + overhang);
        axis.setValueSpacing(-1);
        return;
    }
    const auto count = static_cast<double>(cache.categoryCount);
    setBounds(axis, -1, count - 1);
    axis.setValueSpacing(length > 0 && count > 0 ? length / count : -1);
}

KXAxisProperty* KXXYAxisChart::obtainAxisPropertyOfTickLabelView(KXAxisTickLabelView* view)
{
    const KXAxisChartAxis* axis = _findAxis(view);
    return axis ? axis->property.get() : nullptr;
}

KXAxisChartAxisCacheData* KXXYAxisChart::obtainAxisCacheDataOfTickLabelView(KXAxisTickLabelView* view)
{
    KXAxisChartAxis* axis = _findAxis(view);
    return axis ? &axis->cache : nullptr;
}

int KXXYAxisChart::axisTickLabelViewObtainTickLabelCount(KXAxisTickLabelView* view)
{
    const KXAxisChartAxisCacheData* cache = obtainAxisCacheDataOfTickLabelView(view);
    return cache ? kxObtainAxisTickCount(*cache) : 0;
}

double KXXYAxisChart::axisTickLabelViewObtainTick(KXAxisTickLabelView* view, int index)
{
    const KXAxisChartAxisCacheData* cache = obtainAxisCacheDataOfTickLabelView(view);
    return cache ? kxObtainAxisTick(*cache, index) : 0;
}

void KXXYAxisChart::axisTickLabelViewObtainTickLabel(KXAxisTickLabelView* view, double value,
                                                     std::string& text)
{
    const KXAxisChartAxis* axis = _findAxis(view);
    if (axis == &m_x)
        text = _obtainCategoryTickText(value);
    else if (axis)
        text = axis->cache.isUnstackable
                   ? axis->dataFormat->formatNumber(axis->cache.isMirrored ? std::abs(value) : value)
                   : kxFormatAxisTick(*axis->property, *axis->dataFormat, value);
}

/** On a continuous axis ticks are values between the categories. */
std::string KXXYAxisChart::_obtainCategoryTickText(double value)
{
    if (!m_isContinuous)
        return value >= 0 ? obtainCategoryLabel(toIndex(value, getCategoryCount())) : std::string();
    if (!m_x.cache.isTemporalDimension)
        return m_x.dataFormat->formatNumber(value);
    const std::string moment = kxObtainCalendarText(kxObtainCalendarTime(value));
    const bool isTime = getCategoryDataType() == KXChartDataType::Time;
    return m_x.dataFormat->formatDateTime(isTime ? moment.substr(moment.find(' ') + 1) : moment,
                                          getCategoryDataType(), getCategoryAggregateType());
}

double KXXYAxisChart::obtainCategoryValue(std::uint64_t category)
{
    return category < m_categoryNumbers.size() ? m_categoryNumbers[category] : static_cast<double>(category);
}

KXAxisChartLinearScale KXXYAxisChart::obtainCategoryMap() const
{
    KXAxisChartLinearScale map = makeMap(m_x);
    // The axis moves its values by whole units; slots begin exactly where the axis does.
    if (!m_isContinuous)
        map.position -= map.spacing / 2 - std::floor(map.spacing / 2);
    return map;
}

double KXXYAxisChart::obtainCategorySpacing() const { return makeMap(m_x).spacing * m_categoryDistance; }

KXAxisChartLinearScale KXXYAxisChart::obtainLinearScale(std::uint64_t series) const
{
    return makeMap(_obtainValueAxis(series));
}

std::pair<std::uint64_t, std::uint64_t> KXXYAxisChart::obtainVisibleCategories()
{
    const std::uint64_t count = obtainShownCategoryCount();
    const KXAxisChartLinearScale map = obtainCategoryMap();
    const UXRect& area = getMarksArea();
    if (uxIsEmptyRect(area) || map.spacing == 0 || !preparedAndReloadedData())
        return {0, 0};
    const double first = map.obtainValue(m_x.isHorizontal() ? area.x : area.y);
    const double last = map.obtainValue(m_x.isHorizontal() ? uxMaxX(area) : uxMaxY(area));
    if (!m_isContinuous)
        return {toIndex(std::floor(first + 0.5 + placeNoise), count),
                toIndex(std::ceil(last + 0.5 - placeNoise), count)};
    if (m_numberRange || !m_categoriesGrow)
        return {0, count};
    const auto begin = m_categoryNumbers.begin();
    const auto from = std::lower_bound(begin, m_categoryNumbers.end(), first - m_categoryDistance / 2);
    const auto to = std::upper_bound(begin, m_categoryNumbers.end(), last + m_categoryDistance / 2);
    return {static_cast<std::uint64_t>(from - begin), static_cast<std::uint64_t>(to - begin)};
}

KXAxisChartPlotFrame KXXYAxisChart::obtainPlotFrame(bool isOnSecondaryAxis) const
{
    KXAxisChartPlotFrame frame;
    frame.isVertical = isVertical();
    frame.area = getMarksArea();
    frame.categories = obtainCategoryMap();
    frame.values = makeMap(isOnSecondaryAxis ? m_secondaryY : m_y);
    frame.spacing = obtainCategorySpacing();
    frame.takePixels(uxObtainDeviceTransform(*getMarksLayer()));
    return frame;
}

std::optional<std::uint64_t> KXXYAxisChart::_obtainPlacedCategoryAt(UXPoint point) const
{
    const std::uint64_t count = obtainShownCategoryCount();
    const KXAxisChartLinearScale map = obtainCategoryMap();
    if (map.spacing == 0 || count == 0)
        return std::nullopt;
    // The middle of the pixel that the pointer is on.
    const double value = map.obtainValue((m_x.isHorizontal() ? point.x : point.y) + 0.5);
    if (!m_isContinuous) {
        const double category = std::floor(value + 0.5);
        return category >= 0 && category < static_cast<double>(count)
                   ? std::optional<std::uint64_t>(static_cast<std::uint64_t>(category))
                   : std::nullopt;
    }
    if (!m_categoriesGrow || m_categoryNumbers.empty())
        return std::nullopt;
    const auto begin = m_categoryNumbers.begin(), end = m_categoryNumbers.end();
    auto nearest = std::lower_bound(begin, end, value);
    if (nearest == end || (nearest != begin && value - *(nearest - 1) < *nearest - value))
        --nearest;
    return static_cast<std::uint64_t>(nearest - begin);
}

const UXPropertyTable& KXXYAxisChart::obtainPropertyTable()
{
    using Self = KXXYAxisChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_KEY("m_xAxisProperty", uxObtainNestedObjectType, m_x.property,
                      "the axis of the categories"),
        KX_OBJECT_KEY("m_yAxisProperty", uxObtainNestedObjectType, m_y.property, "the axis of the values"),
        KX_OBJECT_KEY("m_secondaryYAxisProperty", uxObtainNestedObjectType, m_secondaryY.property,
                      "a second axis of values"),
        KX_OBJECT_KEY("m_xDataFormat", uxObtainNestedObjectType, m_x.dataFormat,
                      "how categories are written"),
        KX_OBJECT_KEY("m_yDataFormat", uxObtainNestedObjectType, m_y.dataFormat, "how values are written"),
        KX_OBJECT_KEY("m_secondaryYDataFormat", uxObtainNestedObjectType, m_secondaryY.dataFormat,
                      "how values on the second axis are written"),
        {.key = "m_viewsOnOtherAxis",
         .type = _obtainViewsType,
         .place = [](void* owner) { return owner; },
         .update =
             [](void* owner, const void* places) {
                 static_cast<Self*>(owner)->_updateViewsOnOtherAxis(
                     *static_cast<const std::vector<int>*>(places));
             },
         .effect = UXPropertyEffect::Reload,
         .meaning = "sorts of marks, by their places in the order of painting, whose values the other axis "
                    "tells than usual; left out where there are none"},
    };
    static const UXPropertyTable table("KXXYAxisChart", &KXAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

void KXXYAxisChart::customSerialize()
{
    KXAxisChart::customSerialize();
    obtainPropertyTable().write(*this);
}

std::string KXXYAxisChart::customSerializeTypeID() { return "KXXYAxisChart"; }

bool KXXYAxisChart::customDeserialize()
{
    bool complete = KXAxisChart::customDeserialize();
    complete = obtainPropertyTable().read(*this) && complete;
    const UXObjectWatcher self(this);
    if (reloadedData())
        reloadData();
    else
        reloadColors(); // of a legend without values
    if (!self.isAlive())
        return complete;
    for (KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY})
        axis->cache.needsUpdate = true;
    _layoutAnew();
    return complete;
}
