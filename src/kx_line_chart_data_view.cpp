#include "kx_line_chart_data_view.h"

#include "kx_axis_chart_axis_cache_data.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_chart_item_look.h"
#include "kx_key_definitions.h"
#include "kx_line_bands.h"
#include "kx_line_chart_property.h"
#include "kx_line_point.h"
#include "kx_whiskers.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace {

/** A line is hit as far from what is drawn of it, in logical units. */
constexpr double hitReach = 12;
/** Points within one column may be out of order. */
constexpr double columnReach = 2;
/** More points of one series are not drawn unless the user wants them. */
constexpr std::size_t greatestPointCount = 40;
/** The short lines at the ends of whiskers, in logical units. */
constexpr double whiskerCap = 6;
/** More colours along a line cannot be told from each other, and each is looked for by the back end. */
constexpr std::size_t greatestColorCount = 256;
/** Of what has no value to be coloured by. */
constexpr UXColor neutralColor(160, 160, 164);
/** What a hint keeps off around a point. */
constexpr double leastPointSize = 8;
/** A point that stands out is as much larger, and so large at least, in logical units. */
constexpr double standingOutRatio = 1.4, leastStandingOutSize = 8;
/** How far a shape reaches from its centre, as a part of its size, with the soft edge of its ring. */
constexpr double shapeReach = 0.7, edgeReach = 1;

/** @return the place of the piece of a line between from and to that is nearest to point */
UXDoublePoint findNearestPlace(const UXDoublePoint& point, const UXDoublePoint& from, const UXDoublePoint& to)
{
    const double width = to.x - from.x, height = to.y - from.y, square = width * width + height * height;
    const double way = (point.x - from.x) * width + (point.y - from.y) * height;
    const double share = square > 0 ? std::clamp(way / square, 0.0, 1.0) : 0;
    return {from.x + share * width, from.y + share * height};
}

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isInside(const std::vector<UXDoublePoint>& polygon, const UXDoublePoint& at)
{
    bool isInside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const UXDoublePoint &from = polygon[i], &to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        if ((from.y > at.y) != (to.y > at.y) &&
            at.x < from.x + (at.y - from.y) / (to.y - from.y) * (to.x - from.x))
            isInside = !isInside;
    }
    return isInside;
}

/** The middle of the pixel that the pointer is on. */
UXDoublePoint obtainMiddle(UXPoint point) { return {point.x + 0.5, point.y + 0.5}; }

} // namespace

KXLineChartDataView::KXLineChartDataView(KXAxisChartType type, bool canStack,
                                         std::shared_ptr<KXLineChartProperty> property)
    : m_property(property ? std::move(property) : std::make_shared<KXLineChartProperty>()), m_type(type),
      m_canStack(canStack)
{
}

KXLineChartDataView::~KXLineChartDataView() = default;

bool KXLineChartDataView::drawsSeriesAsOne() const { return true; }
bool KXLineChartDataView::canStack() const { return m_canStack; }
bool KXLineChartDataView::prefersContinuousDates() const { return true; }

bool KXLineChartDataView::shouldIncludeZero() const
{
    return m_type == KXAxisChartType::Area || m_property->getNullHandling() == KXLineNullHandling::Zero;
}

void KXLineChartDataView::reload()
{
    m_texts.clear();
    m_edges.clear();
    m_layout = {};
    m_points.clear();
    m_bands.clear();
    m_labels.clear();
    m_colors.clear();
    m_pointColors.clear();
}

void KXLineChartDataView::layout(const KXAxisChartPlotFrame& frame)
{
    m_frame = frame;
    m_labels.clear();
    m_edges.take(_makeStacks(), m_property->getNullHandling());
    const bool hasDashes = std::ranges::any_of(
        getShownSeries(), [this](std::uint64_t series) { return _obtainPen(series).isDashed(); });
    m_layout = kxLayoutLines(m_edges, frame,
                             {m_property->getCurve(),
                              m_property->getNullHandling() == KXLineNullHandling::Connect,
                              m_type == KXAxisChartType::Area, hasDashes});
    _layoutPoints();
    _layoutBands();
}

/** Stacked series have none: a band is about the value and not about a sum. */
void KXLineChartDataView::_layoutBands()
{
    m_bands.assign(m_layout.shapes.size(), {});
    for (std::size_t position = 0; !m_edges.isStacked() && position < m_bands.size(); ++position) {
        const std::uint64_t series = getShownSeries()[position];
        const std::vector<double>&lows = getChart()->getBandLows(series),
              &highs = getChart()->getBandHighs(series);
        if (lows.empty() || highs.empty())
            continue;
        if (!m_drawsWhiskers) {
            m_bands[position] = kxLayoutBand(m_edges, lows, highs, m_frame, m_property->getCurve());
            continue;
        }
        std::vector<UXDoublePoint>& whiskers = m_bands[position].emplace_back();
        for (const KXLineVertex& vertex : m_layout.shapes[position].line.vertices)
            if (_isInSight(vertex) && !std::isnan(lows[vertex.category]) &&
                !std::isnan(highs[vertex.category]))
                kxAppendWhisker(whiskers, m_frame, vertex.across, lows[vertex.category],
                                highs[vertex.category], whiskerCap);
    }
}

double KXLineChartDataView::_obtainAcross(const UXDoublePoint& point) const
{
    return m_frame.isVertical ? point.x : point.y;
}

/** @return whether the vertex is one of a value, where it can be seen */
bool KXLineChartDataView::_isInSight(const KXLineVertex& vertex) const
{
    const KXAxisChartInterval across = m_frame.obtainAcross(), along = m_frame.obtainAlong();
    return vertex.across >= across.start && vertex.across <= across.end && vertex.along >= along.start &&
           vertex.along <= along.end;
}

KXLinePlace KXLineChartDataView::_makePlace(std::size_t position, const KXLineVertex& vertex) const
{
    const KXAxisChartMark mark{getShownSeries()[position], vertex.category};
    return {mark, getChart()->getValue(mark.series, mark.category),
            m_frame.makePoint(vertex.across, vertex.along)};
}

double KXLineChartDataView::_obtainLineWidth(std::uint64_t series) const
{
    return m_type == KXAxisChartType::Scatter ? 0 : m_property->obtainLineWidth(series);
}

KXLinePen KXLineChartDataView::_obtainPen(std::uint64_t series) const
{
    return {_obtainLineWidth(series), m_property->obtainLineStyle(series), m_property->getLineCapStyle(),
            m_property->getLineJoinStyle()};
}

double KXLineChartDataView::_obtainStandingOutSize(const KXChartItemLook& look) const
{
    return std::max(m_property->obtainPointSize() * standingOutRatio, leastStandingOutSize) * look.sizeRatio;
}

void KXLineChartDataView::_layoutPoints()
{
    m_points.clear();
    const KXLinePointDisplay display = m_property->getPointDisplay();
    if (display == KXLinePointDisplay::Never)
        return;
    for (std::size_t position = 0; position < m_layout.shapes.size(); ++position) {
        const std::vector<KXLineVertex>& vertices = m_layout.shapes[position].line.vertices;
        const auto isSeen = [this](const KXLineVertex& vertex) { return _isInSight(vertex); };
        const bool showsAll = display == KXLinePointDisplay::Always ||
                              _obtainLineWidth(getShownSeries()[position]) <= 0 ||
                              static_cast<std::size_t>(std::ranges::count_if(vertices, isSeen)) <=
                                  greatestPointCount;
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            const bool isAlone = vertices[i].startsRun &&
                                 (i + 1 == vertices.size() || vertices[i + 1].startsRun);
            if ((!showsAll && !isAlone) || !isSeen(vertices[i]))
                continue;
            // In a stack, and where nulls are zeros, a line also runs through places without a value.
            const KXLinePlace place = _makePlace(position, vertices[i]);
            if (!std::isnan(place.value))
                m_points.push_back(place);
        }
    }
}

std::vector<KXAxisChartMark> KXLineChartDataView::obtainSingleMarks() const
{
    std::vector<KXAxisChartMark> marks;
    if (!isDense())
        std::ranges::transform(m_points, std::back_inserter(marks), &KXLinePlace::mark);
    return marks;
}

std::optional<KXGradientScale> KXLineChartDataView::obtainColorScale() const
{
    const KXAxisChartAxisCacheData* axis = getChart()->obtainAxisCacheData(&_getValueAxisProperty());
    if (!m_property->getColorByValue() || !axis)
        return std::nullopt;
    KXValueExtremes range;
    // All that the chart colours by another measure is coloured alike.
    for (const std::uint64_t series : getChart()->getShownSeries())
        range.take(kxFindValueExtremes(getChart()->getColorValues(series)));
    if (range.isEmpty())
        range = {axis->dataMin, std::max(axis->dataMin, axis->dataMax)};
    return KXGradientScale{range.min,
                           range.max,
                           m_property->getMiddleValue(),
                           m_property->getMinColor(),
                           m_property->getMiddleColor(),
                           m_property->getMaxColor(),
                           m_property->getClassCount()};
}

void KXLineChartDataView::updateLook()
{
    const KXXYAxisChart& chart = *getChart();
    const std::optional<KXGradientScale> scale = obtainColorScale();
    m_colors.clear();
    for (std::size_t position = 0; position < m_layout.shapes.size(); ++position)
        m_colors.push_back(
            {chart.obtainSeriesColor(getShownSeries()[position]), scale, m_property->getNegativeColor(), {}});
    for (std::size_t position = 0; scale && position < m_colors.size(); ++position)
        _fillPlaces(m_colors[position], position);
    m_pointColors.clear();
    for (const KXLinePlace& point : m_points) {
        const auto position = static_cast<std::size_t>(
            std::ranges::find(getShownSeries(), point.mark.series) - getShownSeries().begin());
        const std::optional<UXColor> own = isDense() ? std::nullopt : chart.obtainHostColor(point.mark);
        m_pointColors.push_back(own ? *own : _obtainColor(position, point.mark));
    }
}

UXColor KXLineChartDataView::_obtainColor(std::size_t position, const KXAxisChartMark& mark) const
{
    const KXValueColors& colors = m_colors[position];
    const std::vector<double>& others = getChart()->getColorValues(mark.series);
    if (!colors.scale || others.empty())
        return colors.obtainColor(obtainValue(mark));
    const double other = mark.category < others.size() ? others[mark.category] : std::nan("");
    return std::isnan(other) ? neutralColor : colors.scale->obtainColor(other);
}

/** Where another measure gives the colours, these follow each other along the line. */
void KXLineChartDataView::_fillPlaces(KXValueColors& colors, std::size_t position) const
{
    const std::uint64_t series = getShownSeries()[position];
    const std::vector<KXLineVertex>& vertices = m_layout.shapes[position].line.vertices;
    if (getChart()->getColorValues(series).empty() || vertices.empty())
        return;
    const double span = vertices.back().across - vertices.front().across;
    const double least = span / static_cast<double>(greatestColorCount);
    for (const KXLineVertex& vertex : vertices)
        if (colors.places.empty() || vertex.across - colors.places.back().first > least)
            colors.places.emplace_back(vertex.across, _obtainColor(position, {series, vertex.category}));
}

std::optional<UXDoublePoint> KXLineChartDataView::_placeMark(const KXAxisChartMark& mark) const
{
    KXXYAxisChart& chart = *getChart();
    const auto found = std::ranges::find(getShownSeries(), mark.series);
    const auto position = static_cast<std::size_t>(found - getShownSeries().begin());
    const double value = chart.getValue(mark.series, mark.category);
    if (position >= m_layout.shapes.size() || std::isnan(value))
        return std::nullopt;
    if (!m_edges.isStacked())
        return m_frame.makePoint(m_frame.categories.obtainPosition(chart.obtainCategoryValue(mark.category)),
                                 m_frame.values.obtainPosition(value));
    for (const KXLineVertex& vertex : m_layout.shapes[position].line.vertices)
        if (vertex.category == mark.category)
            return m_frame.makePoint(vertex.across, vertex.along);
    return std::nullopt;
}

bool KXLineChartDataView::_isPoint(std::size_t position, const KXLineVertex& vertex) const
{
    return _isInSight(vertex) &&
           !std::isnan(getChart()->getValue(getShownSeries()[position], vertex.category));
}

/** Takes place where that is nearer to at than the one before. */
void KXLineChartDataView::Hit::take(const UXDoublePoint& at, const UXDoublePoint& other)
{
    const double way = std::hypot(other.x - at.x, other.y - at.y);
    if (way >= distance)
        return;
    place = other;
    distance = way;
}

KXLineChartDataView::Hit KXLineChartDataView::_hitLine(std::size_t position, const UXDoublePoint& at) const
{
    Hit hit{position, at, std::numeric_limits<double>::infinity()};
    const KXLinePath& line = m_layout.shapes[position].line;
    if (_obtainLineWidth(getShownSeries()[position]) <= 0) {
        for (const KXLineVertex& vertex : line.vertices)
            if (_isPoint(position, vertex))
                hit.take(at, m_frame.makePoint(vertex.across, vertex.along));
        return hit;
    }
    const std::vector<UXDoublePoint>& points = line.points;
    const auto obtainAcross = [this](const UXDoublePoint& point) { return _obtainAcross(point); };
    const double reach = hitReach + columnReach, across = _obtainAcross(at);
    auto first = std::ranges::lower_bound(points, across - reach, {}, obtainAcross);
    auto end = std::ranges::upper_bound(points, across + reach, {}, obtainAcross);
    first -= first == points.begin() ? 0 : 1;
    end += end == points.end() ? 0 : 1;
    for (auto point = first; point < end; ++point) {
        if (!isFinite(*point))
            continue;
        const bool leadsOn = point + 1 < end && isFinite(point[1]);
        hit.take(at, findNearestPlace(at, *point, leadsOn ? point[1] : *point));
    }
    return hit;
}

bool KXLineChartDataView::_isInArea(std::size_t position, const UXDoublePoint& at) const
{
    return std::ranges::any_of(m_layout.shapes[position].fills,
                               [&at](const auto& polygon) { return isInside(polygon, at); });
}

/** Of what is in an area the nearest point is that of where the pointer is. */
std::optional<KXLineChartDataView::Hit> KXLineChartDataView::_hitShape(const UXDoublePoint& at) const
{
    std::optional<Hit> nearest;
    for (std::size_t i = m_layout.shapes.size(); i > 0; --i)
        if (const Hit hit = _hitLine(i - 1, at);
            hit.distance <= hitReach && (!nearest || hit.distance < nearest->distance))
            nearest = hit;
    for (std::size_t i = m_layout.shapes.size(); !nearest && i > 0; --i)
        if (_isInArea(i - 1, at))
            nearest = Hit{i - 1, at, hitReach};
    return nearest;
}

const KXLineVertex* KXLineChartDataView::_findNearest(std::size_t position, const UXDoublePoint& at) const
{
    const double across = _obtainAcross(at), along = m_frame.isVertical ? at.y : at.x;
    const KXLineVertex* nearest = nullptr;
    for (const KXLineVertex& vertex : m_layout.shapes[position].line.vertices) {
        if (!_isPoint(position, vertex))
            continue;
        // Of those in one column the nearest one along.
        const double further = nearest ? std::abs(vertex.across - across) - std::abs(nearest->across - across)
                                       : -1.0;
        const bool isSame = std::abs(further) * m_frame.pixelScale < 1;
        if (!nearest ||
            (isSame ? std::abs(vertex.along - along) < std::abs(nearest->along - along) : further < 0))
            nearest = &vertex;
    }
    return nearest;
}

std::optional<KXAxisChartMark> KXLineChartDataView::hitMark(UXPoint point) const
{
    const std::optional<Hit> hit = _hitShape(obtainMiddle(point));
    const KXLineVertex* vertex = hit ? _findNearest(hit->position, hit->place) : nullptr;
    return vertex ? std::optional(KXAxisChartMark{getShownSeries()[hit->position], vertex->category})
                  : std::nullopt;
}

double KXLineChartDataView::obtainHitDistance(UXPoint point) const
{
    const std::optional<Hit> hit = _hitShape(obtainMiddle(point));
    return hit ? hit->distance : KXAxisChartDataView::obtainHitDistance(point);
}

UXRect KXLineChartDataView::obtainMarkPlace(const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    if (!place)
        return {};
    const double size = std::max(m_property->obtainPointSize(), leastPointSize);
    return uxSurroundingRect(UXDoubleRect(place->x - size / 2, place->y - size / 2, size, size));
}

/** What stands out is a point and its label; the line behind it is that of the whole series. */
std::vector<UXRect> KXLineChartDataView::obtainMarkRects(const KXAxisChartMark& mark) const
{
    std::vector<UXRect> rects;
    if (const std::optional<UXDoublePoint> place = _placeMark(mark)) {
        const double size = _obtainStandingOutSize(getChart()->obtainMarkLook(mark, UXColor()));
        const double reach = shapeReach * (size + 2 * KXLinePoint::ringWidth) + edgeReach;
        rects.push_back(
            uxSurroundingRect(UXDoubleRect(place->x - reach, place->y - reach, 2 * reach, 2 * reach)));
    }
    for (const KXLineLabel& label : m_labels)
        if (label.mark == mark)
            rects.push_back(uxSurroundingRect(label.rect));
    return rects;
}

/** Where no series has a value, or categories are merged, a hint is about what is drawn next to it. */
std::optional<std::uint64_t> KXLineChartDataView::obtainCategoryAt(UXPoint point) const
{
    const UXDoublePoint at = obtainMiddle(point);
    const double slot = std::floor(m_frame.categories.obtainValue(_obtainAcross(at)) + 0.5);
    const auto hasValue = [&](std::uint64_t series) {
        return slot >= 0 && !std::isnan(getChart()->getValue(series, static_cast<std::uint64_t>(slot)));
    };
    const bool areSlots = !getChart()->isContinuous();
    if (areSlots && !isDense() && std::ranges::any_of(getChart()->getShownSeries(), hasValue))
        return std::nullopt;
    const KXLineVertex* nearest = nullptr;
    const auto obtainDistanceTo = [&](const KXLineVertex& vertex) {
        return std::abs(vertex.across - _obtainAcross(at));
    };
    for (std::size_t position = 0; position < m_layout.shapes.size(); ++position) {
        const KXLineVertex* own = _findNearest(position, at);
        if (own && (!nearest || obtainDistanceTo(*own) < obtainDistanceTo(*nearest)))
            nearest = own;
    }
    return nearest ? std::optional(nearest->category) : std::nullopt;
}

std::optional<UXPoint> KXLineChartDataView::obtainHintPoint(const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    return place ? std::optional(UXPoint(uxSaturateToInt(place->x), uxSaturateToInt(place->y)))
                 : std::nullopt;
}

void KXLineChartDataView::fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark)
{
    const auto found = std::ranges::find(getShownSeries(), mark.series);
    const auto position = static_cast<std::size_t>(found - getShownSeries().begin());
    if (position < m_colors.size())
        row.color = _obtainColor(position, mark);
    const KXAxisChartStacks source = _makeStacks();
    if (position < source.series.size() &&
        kxTellsPercentages(source.form, m_property->getLabelDisplayOption()))
        row.value += " (" + m_texts.obtainPercentageText(*getChart(), source, mark, position) + ")";
}

void KXLineChartDataView::fillHintFooter(UXHintInfo& info, std::uint64_t category)
{
    _addTotal(info, category);
}

/** Where both value axes are in use, the symbol says which of them is that of the series. */
std::optional<UXSymbolStyle> KXLineChartDataView::obtainLegendSymbolStyle(std::uint64_t) const
{
    if (m_type == KXAxisChartType::Scatter)
        return UXSymbolStyle::Circle;
    const bool hasBoth = std::ranges::any_of(getChart()->getDataViews(), [this](const auto& view) {
        return view->getIsOnSecondaryAxis() != getIsOnSecondaryAxis() && !view->getShownSeries().empty();
    });
    const bool isArea = m_type == KXAxisChartType::Area;
    if (!hasBoth)
        return isArea ? UXSymbolStyle::Area : UXSymbolStyle::Line;
    if (getIsOnSecondaryAxis())
        return isArea ? UXSymbolStyle::AreaRight : UXSymbolStyle::LineRight;
    return isArea ? UXSymbolStyle::AreaLeft : UXSymbolStyle::LineLeft;
}

const UXPropertyTable& KXLineChartDataView::obtainPropertyTable()
{
    using Self = KXLineChartDataView;
    static constexpr UXProperty rows[] = {
        {.key = "m_type",
         .type = kxObtainKeyType<KXAxisChartType>,
         .place = [](void* owner) -> void* { return &static_cast<Self*>(owner)->m_type; },
         .meaning = "lines, areas, or points alone"},
        {.key = "m_canStack",
         .type = kxObtainKeyType<bool>,
         .place = [](void* owner) -> void* { return &static_cast<Self*>(owner)->m_canStack; },
         .meaning = "the series pile up where the axis of values is stacked"},
        KX_OBJECT_ROW("m_lineChartProperty", uxObtainNestedObjectType, m_property, "the lines")};
    static const UXPropertyTable table("KXLineChartDataView", &KXAxisChartDataView::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

KX_DEFINE_DOCUMENT(KXLineChartDataView, KXAxisChartDataView)
