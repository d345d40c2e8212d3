#include "kx_scatter_chart_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_chart_data_format.h"
#include "kx_drawn_extent.h"
#include "kx_key_definitions.h"
#include "kx_point_shapes.h"
#include "kx_scatter_chart_property.h"
#include "kx_whiskers.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
/** A point is hit as far from its edge, in logical units. */
constexpr double hitReach = 12;
/** Of more points than these the host is not asked for colours, which it has by measure or series. */
constexpr std::size_t greatestSingleCount = 2000;
/** Of points that have no value to be coloured by. */
constexpr UXColor neutralColor(160, 160, 164);
/** Points are opaque while they cover less of the plot than this, and never less opaque than the second. */
constexpr double greatestOpaqueCrowding = 0.05, leastOpacity = 0.25;
/** How much less opaque they are for each layer of them. */
constexpr double crowdingWeight = 0.5;
/** Of the shorter side of a chart, which no point with a size is larger than. */
constexpr double greatestShare = 0.1;
/** What a hint and the keyboard's ring keep off around a point. */
constexpr double leastPlace = 8;
/** How large a point of a legend's symbol can be, as a part of its height. */
constexpr double greatestSymbolPoint = 0.8;

/** @param x, y the numbers of the same points along both axes
 *  @param isLogarithmic whether only values above zero lie on the axis
 *  @return the extremes of the values of the first count points that lie on both axes */
KXValueExtremes findExtremes(std::span<const double> values, std::span<const double> x,
                             std::span<const double> y, std::size_t count, bool isLogarithmic)
{
    const double below = isLogarithmic ? 0 : -std::numeric_limits<double>::infinity();
    KXValueExtremes extremes;
    std::array<double, 256> shown;
    count = std::min({count, values.size(), x.size(), y.size()});
    for (std::size_t first = 0; first < count; first += shown.size()) {
        const std::size_t some = std::min(shown.size(), count - first);
        for (std::size_t i = 0; i < some; ++i) {
            const std::size_t at = first + i;
            shown[i] = values[at] > below && x[at] == x[at] && y[at] == y[at] ? values[at] : noNumber;
        }
        extremes.take(kxFindValueExtremes(std::span(shown).first(some)));
    }
    return extremes;
}

double obtainAt(std::span<const double> values, std::uint64_t category)
{
    return category < values.size() ? values[category] : noNumber;
}

} // namespace

KXScatterChartDataView::KXScatterChartDataView() : m_property(std::make_shared<KXScatterChartProperty>()) {}
KXScatterChartDataView::~KXScatterChartDataView() = default;

bool KXScatterChartDataView::canStack() const { return false; }
bool KXScatterChartDataView::placesItself() const { return true; }
bool KXScatterChartDataView::canBeLogarithmic() const { return true; }
bool KXScatterChartDataView::prefersContinuousDates() const { return true; }
bool KXScatterChartDataView::prefersContinuousNumbers() const { return true; }
bool KXScatterChartDataView::zoomsAlongValues() const { return true; }

double KXScatterChartDataView::obtainReach() const
{
    if (getShownSeries().empty())
        return 0;
    const KXScatterForm form = obtainForm();
    return (form.hasSizes ? std::max(form.greatestDiameter, form.leastDiameter) : form.usualDiameter) / 2;
}

std::size_t KXScatterChartDataView::_obtainCategoryCount() const
{
    return static_cast<std::size_t>(getChart()->obtainShownCategoryCount());
}

std::span<const double> KXScatterChartDataView::obtainNumbers(std::uint64_t series) const
{
    return getChart()->getXValues(series);
}

/** @return where each category lies on the X axis */
const std::vector<double>& KXScatterChartDataView::_obtainCategoryNumbers() const
{
    if (m_categoryNumbers.empty()) {
        m_categoryNumbers.resize(static_cast<std::size_t>(getChart()->getCategoryCount()));
        for (std::size_t category = 0; category < m_categoryNumbers.size(); ++category)
            m_categoryNumbers[category] = getChart()->obtainCategoryValue(category);
    }
    return m_categoryNumbers;
}

double KXScatterChartDataView::obtainX(const KXAxisChartMark& mark) const
{
    const std::span<const double> numbers = obtainNumbers(mark.series);
    return numbers.empty() ? getChart()->obtainCategoryValue(mark.category)
                           : obtainAt(numbers, mark.category);
}

std::string KXScatterChartDataView::obtainXText(const KXAxisChartMark& mark) const
{
    const std::span<const double> numbers = obtainNumbers(mark.series);
    if (numbers.empty())
        return getChart()->obtainCategoryLabel(mark.category);
    const double x = obtainAt(numbers, mark.category);
    return std::isnan(x) ? std::string() : getChart()->getXDataFormat()->formatNumber(x);
}

double KXScatterChartDataView::obtainValue(const KXAxisChartMark& mark) const
{
    const double x = obtainX(mark), y = getChart()->getValue(mark.series, mark.category);
    const bool isOnX = getChart()->isLogarithmic(*getChart()->getXAxisProperty()) ? x > 0 : !std::isnan(x);
    const bool isOnY = !getChart()->isLogarithmic(_getValueAxisProperty()) || y > 0;
    return isOnX && isOnY ? y : noNumber;
}

/** With the value of a point the axis shows between which ones it is thought to lie. */
std::optional<KXAxisChartValueRange> KXScatterChartDataView::obtainValueRange() const
{
    if (getShownSeries().empty())
        return std::nullopt;
    KXValueExtremes range;
    const bool isLogarithmic = getChart()->isLogarithmic(_getValueAxisProperty());
    for (const std::uint64_t series : getShownSeries()) {
        const std::span<const double> x = obtainNumbers(series), y = getChart()->getSeriesValues(series);
        for (const std::span<const double> values :
             {y, std::span<const double>(getChart()->getBandLows(series)),
              std::span<const double>(getChart()->getBandHighs(series))})
            range.take(findExtremes(values, x.empty() ? y : x, y, _obtainCategoryCount(), isLogarithmic));
    }
    return range.isEmpty() ? KXAxisChartValueRange()
                           : KXAxisChartValueRange{range.min, range.max, std::min(range.min, 0.0),
                                                   std::max(range.max, 0.0)};
}

std::optional<KXValueExtremes> KXScatterChartDataView::obtainNumberRange() const
{
    KXValueExtremes range;
    const bool isLogarithmic = getChart()->getAxisChartProperty()->getIsXLogarithmic();
    bool hasNumbers = false;
    for (const std::uint64_t series : getShownSeries()) {
        const std::span<const double> x = obtainNumbers(series), y = getChart()->getSeriesValues(series);
        hasNumbers = hasNumbers || !x.empty();
        range.take(findExtremes(x, x, y, _obtainCategoryCount(), isLogarithmic));
    }
    if (hasNumbers && range.isEmpty())
        return KXValueExtremes{0, 0}; // an axis of numbers, on which nothing lies
    return range.isEmpty() ? std::nullopt : std::optional(range);
}

void KXScatterChartDataView::reload()
{
    m_layout.clear();
    m_index.clear();
    m_labels.clear();
    m_batches.clear();
    m_whiskers.clear();
    m_categoryNumbers.clear();
    m_sizes = m_colors = {};
    m_hasSizes = false;
    for (const std::uint64_t series : getShownSeries()) {
        const std::span<const double> x = obtainNumbers(series), y = getChart()->getSeriesValues(series),
                                      sizes = getChart()->getSizeValues(series),
                                      colors = getChart()->getColorValues(series);
        const auto find = [&](std::span<const double> values) {
            return findExtremes(values, x.empty() ? y : x, y, _obtainCategoryCount(), false);
        };
        m_sizes.take(find(sizes));
        m_colors.take(find(colors));
        m_hasSizes = m_hasSizes || !sizes.empty();
    }
}

/** In a small chart the largest points would hide the others. */
double KXScatterChartDataView::_obtainGreatestDiameter() const
{
    const UXRect& chart = getChart()->getRect();
    return std::min(kxBoundExtent(m_property->getMaxPointSize()),
                    greatestShare * std::max(std::min(chart.width, chart.height), 0));
}

KXScatterForm KXScatterChartDataView::obtainForm() const
{
    return {.usualDiameter = kxBoundExtent(m_property->getPointSize()),
            .leastDiameter = kxBoundExtent(m_property->getMinPointSize()),
            .greatestDiameter = _obtainGreatestDiameter(),
            .hasSizes = m_hasSizes,
            .greatestSize = m_sizes.isEmpty() ? 0 : std::max(m_sizes.max, 0.0),
            .colors = m_property->getColorByValue() ? m_colors : KXValueExtremes()};
}

void KXScatterChartDataView::layout(const KXAxisChartPlotFrame& frame)
{
    m_frame = frame;
    m_labels.clear();
    m_index.clear();
    m_batches.clear();
    m_categoryNumbers.clear();
    m_form = obtainForm();
    const std::size_t count = _obtainCategoryCount();
    const auto takeFirst = [count](std::span<const double> values) {
        return values.first(std::min(values.size(), count));
    };
    std::vector<KXScatterSeries> sources;
    sources.reserve(getShownSeries().size());
    for (const std::uint64_t series : getShownSeries()) {
        const std::span<const double> numbers = obtainNumbers(series);
        sources.push_back({series, takeFirst(numbers.empty() ? std::span(_obtainCategoryNumbers()) : numbers),
                           getChart()->getSeriesValues(series), getChart()->getSizeValues(series),
                           getChart()->getColorValues(series)});
    }
    kxLayoutScatter(sources, frame, m_form, m_layout);
    _placeWhiskers();
}

/** A point shows between which values its own is thought to lie, where these can be seen and it cannot too.
 */
void KXScatterChartDataView::_placeWhiskers()
{
    m_whiskers.clear();
    const KXAxisChartInterval room = m_frame.obtainAcross();
    for (const std::uint64_t series : getShownSeries()) {
        const std::vector<double>&lows = getChart()->getBandLows(series),
              &highs = getChart()->getBandHighs(series);
        const std::size_t count = std::min({lows.size(), highs.size(), _obtainCategoryCount()});
        for (std::size_t category = 0; category < count; ++category) {
            const double low = lows[category], high = highs[category];
            const KXAxisChartMark mark{series, category};
            if (std::isnan(low) || std::isnan(high) || std::isnan(obtainValue(mark)) ||
                (m_frame.values.isLogarithmic && !(low > 0 && high > 0)))
                continue;
            const double across = m_frame.categories.obtainPosition(obtainX(mark));
            const double cap = std::min(_obtainDiameter(mark), kxGreatestWhiskerCap);
            if (across + cap >= room.start && across - cap <= room.end)
                kxAppendWhisker(m_whiskers, m_frame, across, low, high, cap);
        }
    }
}

std::vector<KXAxisChartMark> KXScatterChartDataView::obtainSingleMarks() const
{
    std::vector<KXAxisChartMark> marks;
    if (m_layout.getCount() > greatestSingleCount)
        return marks;
    marks.reserve(m_layout.getCount());
    for (std::size_t point = 0; point < m_layout.getCount(); ++point)
        marks.push_back(m_layout.obtainMark(point));
    return marks;
}

std::optional<KXGradientScale> KXScatterChartDataView::obtainColorScale() const
{
    if (!m_property->getColorByValue() || m_colors.isEmpty())
        return std::nullopt;
    return KXGradientScale{m_colors.min,
                           m_colors.max,
                           m_property->getMiddleValue(),
                           m_property->getMinColor(),
                           m_property->getMiddleColor(),
                           m_property->getMaxColor(),
                           m_property->getClassCount()};
}

UXColor KXScatterChartDataView::obtainColor(const KXAxisChartMark& mark) const
{
    if (m_layout.getCount() <= greatestSingleCount)
        if (const std::optional<UXColor> own = getChart()->obtainHostColor(mark))
            return *own;
    const std::optional<KXGradientScale> scale = obtainColorScale();
    if (!scale)
        return getChart()->obtainSeriesColor(mark.series);
    const double value = obtainAt(getChart()->getColorValues(mark.series), mark.category);
    return std::isnan(value) ? neutralColor : scale->obtainColor(value);
}

UXColor KXScatterChartDataView::_obtainPointColor(std::size_t point,
                                                  const std::optional<KXGradientScale>& scale) const
{
    if (!scale || m_layout.colorSteps.empty())
        return obtainColor(m_layout.obtainMark(point));
    const double value = kxObtainScatterColorValue(m_layout.colorSteps[point], m_form.colors);
    return std::isnan(value) ? neutralColor : scale->obtainColor(value);
}

/** @return the end of the points from first on that surely look alike */
std::size_t KXScatterChartDataView::_findEndOfLike(std::size_t first) const
{
    const std::size_t count = m_layout.getCount();
    const bool isAlone = count <= greatestSingleCount ||
                         (!m_form.colors.isEmpty() && m_layout.colorSteps.empty());
    if (isAlone)
        return first + 1;
    const auto& [series, diameters, areHollow, steps] = std::tie(m_layout.series, m_layout.diameters,
                                                                 m_layout.areHollow, m_layout.colorSteps);
    if (series.empty() && diameters.empty() && steps.empty())
        return count;
    const auto isLike = [first](const auto& list, std::size_t point) {
        return list.empty() || list[point] == list[first];
    };
    std::size_t end = first + 1;
    while (end < count && isLike(series, end) && isLike(diameters, end) && isLike(areHollow, end) &&
           isLike(steps, end))
        ++end;
    return end;
}

void KXScatterChartDataView::updateLook()
{
    // 1. Where points crowd, those below are seen through those above.
    const double crowding = m_layout.obtainCrowding(m_frame.area);
    const double usual = crowding <= greatestOpaqueCrowding
                             ? 1
                             : std::max(1 / (1 + crowdingWeight * crowding), leastOpacity);
    m_opacity = m_property->getOpacity() < 0 ? usual : std::min(m_property->getOpacity(), 1.0);

    // 2. Neighbours that look alike are drawn at once.
    const std::optional<KXGradientScale> scale = obtainColorScale();
    m_batches.clear();
    const auto isLike = [this](std::size_t point, std::size_t other) {
        return m_layout.obtainDiameter(point) == m_layout.obtainDiameter(other) &&
               m_layout.isHollow(point) == m_layout.isHollow(other) &&
               m_layout.obtainMark(point).series == m_layout.obtainMark(other).series;
    };
    for (std::size_t point = 0, end = 0; point < m_layout.getCount(); point = end) {
        end = _findEndOfLike(point);
        const UXColor color = _obtainPointColor(point, scale);
        if (m_batches.empty() || m_batches.back().color != color || !isLike(point, point - 1))
            m_batches.push_back({end, color});
        else
            m_batches.back().end = end;
    }
}

const KXScatterIndex& KXScatterChartDataView::_obtainIndex() const
{
    if (m_index.isEmpty() && m_layout.getCount() > 0)
        m_index.build(m_layout, UXDoubleRect(m_frame.area));
    return m_index;
}

double KXScatterChartDataView::obtainSize(const KXAxisChartMark& mark) const
{
    return obtainAt(getChart()->getSizeValues(mark.series), mark.category);
}

double KXScatterChartDataView::_obtainDiameter(const KXAxisChartMark& mark) const
{
    return m_form.hasSizes ? m_form.obtainDiameter(obtainSize(mark)) : m_form.usualDiameter;
}

bool KXScatterChartDataView::_isHollow(const KXAxisChartMark& mark) const
{
    return m_form.hasSizes && !(obtainSize(mark) >= 0);
}

std::optional<UXDoublePoint> KXScatterChartDataView::_placeMark(const KXAxisChartMark& mark) const
{
    const bool isShown = std::ranges::binary_search(getShownSeries(), mark.series) &&
                         mark.category < getChart()->obtainShownCategoryCount();
    const double value = isShown ? obtainValue(mark) : noNumber;
    if (std::isnan(value))
        return std::nullopt;
    return m_frame.makePoint(m_frame.categories.obtainPosition(obtainX(mark)),
                             m_frame.values.obtainPosition(value));
}

std::optional<KXAxisChartMark> KXScatterChartDataView::hitMark(UXPoint point) const
{
    // The middle of the pixel that the pointer is on.
    const std::optional<std::size_t> found = _obtainIndex().findNearest(
        m_layout, {point.x + 0.5, point.y + 0.5}, hitReach);
    return found ? std::optional(m_layout.obtainMark(*found)) : std::nullopt;
}

std::vector<KXAxisChartMark> KXScatterChartDataView::findInside(const UXDoubleRect& rect) const
{
    std::vector<KXAxisChartMark> marks;
    for (const std::uint32_t point : _obtainIndex().findInside(m_layout, rect))
        marks.push_back(m_layout.obtainMark(point));
    return marks;
}

/** The nearest of those that lie rather in the direction than beside it, else the nearest in that half; those
 * at the same place follow each other in the provider's order. */
std::optional<KXAxisChartMark> KXScatterChartDataView::findBeside(const KXAxisChartMark& from,
                                                                  KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::optional<UXDoublePoint> start = _placeMark(from);
    if (!start)
        return std::nullopt;
    const bool liesAlongX = step == Left || step == Right, isForwards = step == Right || step == Down;
    std::optional<KXAxisChartMark> nearest;
    std::tuple<int, double> best;
    for (const std::uint64_t series : getShownSeries()) {
        for (std::uint64_t category = 0; category < _obtainCategoryCount(); ++category) {
            const KXAxisChartMark mark{series, category};
            const std::optional<UXDoublePoint> place = mark == from ? std::nullopt : _placeMark(mark);
            if (!place)
                continue;
            const double dx = place->x - start->x, dy = place->y - start->y;
            const double along = (liesAlongX ? dx : dy) * (isForwards ? 1 : -1);
            const double beside = std::abs(liesAlongX ? dy : dx);
            const bool isSame = dx == 0 && dy == 0;
            if (isSame ? (mark > from) != isForwards : !(along > 0))
                continue;
            const std::tuple own{isSame ? 0 : beside <= along ? 1 : 2, std::hypot(dx, dy)};
            // Of those at one place the next one in the order.
            const bool isNearer = !nearest || own < best || (own == best && !isForwards);
            if (isNearer) {
                best = own;
                nearest = mark;
            }
        }
    }
    return nearest;
}

UXRect KXScatterChartDataView::obtainMarkPlace(const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    if (!place)
        return {};
    const double size = std::max(_obtainDiameter(mark), leastPlace);
    return uxSurroundingRect(UXDoubleRect(place->x - size / 2, place->y - size / 2, size, size));
}

std::optional<UXPoint> KXScatterChartDataView::obtainHintPoint(const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    return place ? std::optional(UXPoint(uxSaturateToInt(place->x), uxSaturateToInt(place->y)))
                 : std::nullopt;
}

std::optional<UXSymbolStyle> KXScatterChartDataView::obtainLegendSymbolStyle(std::uint64_t) const
{
    return UXSymbolStyle::Circle;
}

bool KXScatterChartDataView::paintLegendSymbol(std::uint64_t series, UXPainter& painter,
                                               const UXDoubleRect& bounds, const UXColor& color) const
{
    const KXPointShape shape = m_property->obtainPointShape(series);
    if (shape == KXPointShape::Circle || !(bounds.width > 0) || !(bounds.height > 0))
        return false;
    const UXDoublePoint centre(bounds.x + bounds.width / 2, bounds.y + bounds.height / 2);
    painter.setColor(color);
    kxDrawPoints(painter, shape, {&centre, 1}, greatestSymbolPoint * bounds.height);
    return true;
}

const UXPropertyTable& KXScatterChartDataView::obtainPropertyTable()
{
    using Self = KXScatterChartDataView;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_scatterChartProperty", uxObtainNestedObjectType, m_property, "the points")};
    static const UXPropertyTable table("KXScatterChartDataView", &KXAxisChartDataView::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

KX_DEFINE_DOCUMENT(KXScatterChartDataView, KXAxisChartDataView)
