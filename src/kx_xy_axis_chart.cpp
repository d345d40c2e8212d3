#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_layer.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_chart_data_format.h"
#include "kx_chart_toolbox_item.h"
#include "kx_key_definitions.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_label.h"
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
KXAxisChartScale makeMap(const KXAxisChartAxis& own)
{
    KXAxis& axis = *own.axis;
    const double low = axis.getMinValue(), high = axis.getMaxValue();
    const UXDoublePoint start = axis.obtainDoubleValuePositionInAxis(low);
    const UXDoublePoint end = axis.obtainDoubleValuePositionInAxis(high);
    const double from = own.isHorizontal() ? start.x : start.y, to = own.isHorizontal() ? end.x : end.y;
    const double span = high - low, gap = low < 0 && high > 0 ? std::copysign(axis.getGap(), to - from) : 0;
    const double spacing = span > 0 && std::isfinite(span) ? (to - from - gap) / span : 0;
    return {low, from, spacing, own.cache.isLogarithmic, gap};
}

std::uint64_t toIndex(double number, std::uint64_t count)
{
    return number > 0 ? static_cast<std::uint64_t>(std::min(number, static_cast<double>(count))) : 0;
}

} // namespace

KXXYAxisChart::KXXYAxisChart()
    : m_x(_addAxis()), m_y(_addAxis()), m_secondaryY(_addAxis()),
      m_linesBehind(std::make_unique<KXAssistantLineDataView>(false)),
      m_linesInFront(std::make_unique<KXAssistantLineDataView>(true)), m_zoomButton(new KXChartToolboxItem),
      m_note(new UXLabel)
{
    m_secondaryY.isUsed = false;
    m_y.property->setShowGridLine(true);
    m_linesBehind->m_chart = m_linesInFront->m_chart = this;
    _addZoomParts();
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

bool KXXYAxisChart::isLogarithmic(const KXAxisProperty& property) const
{
    const KXAxisChartProperty& own = *getAxisChartProperty();
    if (&property == m_x.property.get())
        return own.getIsXLogarithmic() && (m_numberRange || !m_x.cache.isTemporalDimension);
    const bool isWanted = &property == m_y.property.get() ? own.getIsYLogarithmic()
                                                          : own.getIsSecondaryYLogarithmic();
    const bool isStacked = property.getIsStacked() && !_obtainCache(property).isUnstackable;
    return isWanted && !isStacked && std::ranges::all_of(getDataViews(), [&](const auto& view) {
               return &view->_getValueAxisProperty() != &property || view->canBeLogarithmic();
           });
}

bool KXXYAxisChart::isPercentageAxis(const KXAxisProperty& property) const
{
    return property.obtainIs100PercentStacked() && !_obtainCache(property).isUnstackable;
}

const KXAxisChartAxisCacheData& KXXYAxisChart::_obtainCache(const KXAxisProperty& property) const
{
    return &property == m_x.property.get()   ? m_x.cache
           : &property == m_y.property.get() ? m_y.cache
                                             : m_secondaryY.cache;
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

void KXXYAxisChart::_updateDataRanges()
{
    const UXObjectWatcher self(this);
    const bool hasNumbers = !_takeNumberRange() && _mayBeContinuous();
    const std::vector<double> numbers = hasNumbers ? obtainCategoryNumbers() : std::vector<double>();
    if (!self.isAlive())
        return;
    kxSetAxisDimension(m_x.cache, m_numberRange ? KXChartDataType::Float : getCategoryDataType());
    _takePlaces(std::span(numbers).first(std::min<std::size_t>(numbers.size(), obtainShownCategoryCount())));
    _updateCategoryRange();
    _updateValueRange(m_y);
    m_secondaryY.isUsed = _updateValueRange(m_secondaryY);
    m_leftOutCount = _countLeftOut(numbers);
    _updateDefaultTitles();
    _updateAssistantLines();
}

void KXXYAxisChart::_updateDefaultTitles()
{
    m_x.property->setDefaultTitleValue(_obtainProposedTitle(m_x));
    m_y.property->setDefaultTitleValue(_obtainProposedTitle(m_y));
    m_secondaryY.property->setDefaultTitleValue(_obtainProposedTitle(m_secondaryY));
}

/** One measure names each axis that its series stand on; of several, one that has an axis to itself does.
 * Shown or not makes no difference, so that switching a series off changes no title. */
std::string KXXYAxisChart::_obtainProposedTitle(const KXAxisChartAxis& axis) const
{
    if (&axis == &m_x)
        return getCategoryDimensionLabel();
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
    if (effect == UXPropertyEffect::Reload && reloadedData())
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

/** The one place that knows the orientation: everything else follows the sides at which the axes stand. */
void KXXYAxisChart::_placeSides()
{
    const bool hasData = preparedAndReloadedData() && obtainShownCategoryCount() > 0;
    m_x.position = isVertical() ? UXPosition::Bottom : UXPosition::Left;
    m_y.position = isVertical() ? UXPosition::Left : UXPosition::Bottom;
    m_secondaryY.position = isVertical() ? UXPosition::Right : UXPosition::Top;
    m_x.isUsed = m_y.isUsed = hasData;
    m_x.labelsInGap = !isVertical() && !m_isContinuous &&
                      std::ranges::any_of(getDataViews(),
                                          [](const auto& view) { return view->labelsCategoriesInGap(); });
    if (!hasData)
        m_secondaryY.isUsed = false;
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
        text = isPercentageAxis(*axis->property)
                   ? kxFormatPercentage(value)
                   : axis->dataFormat->formatNumber(axis->cache.isMirrored ? std::abs(value)
                                                    : axis->cache.isLogarithmic
                                                        ? kxObtainValueOfExponent(value)
                                                        : value);
}

/** The last tick of a continuous axis may stand anywhere, and its label moves inside. */
bool KXXYAxisChart::axisTickLabelViewShouldConsiderStartEndLabelLength(KXAxisTickLabelView* view,
                                                                       bool& consider)
{
    if (!m_isContinuous || _findAxis(view) != &m_x)
        return KXAxisChart::axisTickLabelViewShouldConsiderStartEndLabelLength(view, consider);
    consider = false;
    return true;
}

bool KXXYAxisChart::axisTickLabelViewIsTickLabelToCome(KXAxisTickLabelView* view, double value)
{
    const std::uint64_t count = getCategoryCount();
    return !m_isContinuous && _findAxis(view) == &m_x && value >= 0 && toIndex(value, count) < count &&
           !hasCategoryText(toIndex(value, count));
}

/** On a continuous axis ticks are values between the categories. */
std::string KXXYAxisChart::_obtainCategoryTickText(double value)
{
    if (!m_isContinuous)
        return value >= 0 ? obtainCategoryLabel(toIndex(value, getCategoryCount())) : std::string();
    const std::vector<double>& ticks = m_x.cache.ownTicks;
    const auto tick = static_cast<std::size_t>(std::ranges::lower_bound(ticks, value) - ticks.begin());
    if (m_x.cache.isTemporalDimension)
        return tick < m_tickTexts.size() && ticks[tick] == value ? m_tickTexts[tick] : std::string();
    return m_x.dataFormat->formatNumber(m_x.cache.isLogarithmic ? kxObtainValueOfExponent(value) : value);
}

double KXXYAxisChart::obtainCategoryValue(std::uint64_t category) const
{
    if (m_places.isEmpty())
        return static_cast<double>(category);
    const std::uint64_t place = m_places.obtainPlace(category);
    return place < m_places.getCount() ? m_places.getNumbers()[place]
                                       : std::numeric_limits<double>::quiet_NaN();
}

KXAxisChartScale KXXYAxisChart::obtainCategoryMap() const
{
    KXAxisChartScale map = makeMap(m_x);
    // The axis moves its values by whole units; slots begin exactly where the axis does.
    if (!m_isContinuous)
        map.position -= map.spacing / 2 - std::floor(map.spacing / 2);
    return map;
}

double KXXYAxisChart::obtainCategorySpacing() const
{
    return makeMap(m_x).spacing * (m_isContinuous ? _obtainCategoryDistance() : 1);
}

KXAxisChartScale KXXYAxisChart::obtainValueScale(std::uint64_t series) const
{
    return makeMap(_obtainValueAxis(series));
}

std::pair<std::uint64_t, std::uint64_t> KXXYAxisChart::obtainVisibleCategories()
{
    return preparedAndReloadedData() ? _findVisibleCategories() : std::pair<std::uint64_t, std::uint64_t>();
}

std::pair<std::uint64_t, std::uint64_t> KXXYAxisChart::_findVisibleCategories() const
{
    const std::uint64_t count = obtainShownCategoryCount();
    const KXAxisChartScale map = obtainCategoryMap();
    const UXRect& area = getMarksArea();
    if (uxIsEmptyRect(area) || map.spacing == 0)
        return {0, 0};
    const double start = m_x.isHorizontal() ? area.x : area.y;
    const double end = m_x.isHorizontal() ? uxMaxX(area) : uxMaxY(area);
    if (!m_isContinuous)
        return {toIndex(std::floor(map.obtainValue(start) + 0.5 + placeNoise), count),
                toIndex(std::ceil(map.obtainValue(end) + 0.5 - placeNoise), count)};
    if (m_numberRange)
        return {0, count};
    // Marks reach half of their room to both sides.
    const double reach = obtainCategorySpacing() / 2;
    return m_places.findInside(map.obtainValue(start - reach), map.obtainValue(end + reach));
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
    const KXAxisChartScale map = obtainCategoryMap();
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
    const std::optional<std::uint64_t> nearest = m_places.findNearest(value);
    return nearest ? std::optional(m_places.obtainCategory(*nearest)) : std::nullopt;
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

std::string KXXYAxisChart::customSerializeTypeID() { return "KXXYAxisChart"; }

bool KXXYAxisChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXAxisChart::customDeserialize();
    if (self.isAlive() && reloadedData()) // a legend shows series without values too
        reloadData();
    if (!self.isAlive())
        return false;
    for (KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY})
        axis->cache.needsUpdate = true;
    _layoutAnew();
    return isComplete;
}
