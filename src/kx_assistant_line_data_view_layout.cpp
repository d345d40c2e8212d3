#include "kx_assistant_line_data_view.h"

#include "kx_label_placer.h"
#include "kx_line_edges.h"
#include "kx_line_layout.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <ranges>
#include <tuple>
#include <utility>

// Where the lines of reference lie, and how they are drawn.

namespace {

/** A line is hit this far beside it, in logical units. */
constexpr double hitReach = 4;
/** A trend is drawn in so many pieces: its band is curved, and on a logarithmic axis it is too. */
constexpr int trendPieceCount = 64;
/** Between a line and its label, and around labels, in logical units. */
constexpr double labelGap = 2, labelEdge = 4;

/** @return the place on the middle of a pixel, so that a thin line is crisp */
double snap(double place, double scale) { return (std::floor(place * scale) + 0.5) / scale; }

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

double obtainDistance(const UXDoublePoint& point, const UXDoublePoint& from, const UXDoublePoint& to)
{
    const double width = to.x - from.x, height = to.y - from.y, square = width * width + height * height;
    const double way = (point.x - from.x) * width + (point.y - from.y) * height;
    const double share = square > 0 ? std::clamp(way / square, 0.0, 1.0) : 0;
    return std::hypot(from.x + share * width - point.x, from.y + share * height - point.y);
}

UXDoubleRect obtainRect(const UXDoublePoint& from, const UXDoublePoint& to)
{
    return {std::min(from.x, to.x), std::min(from.y, to.y), std::max(std::abs(to.x - from.x), 1.0),
            std::max(std::abs(to.y - from.y), 1.0)};
}

UXLineDashStyle toPaintStyle(KXChartLineStyle style)
{
    switch (style) {
    case KXChartLineStyle::Dash:
        return UXLineDashStyle::Dash;
    case KXChartLineStyle::Dot:
        return UXLineDashStyle::Dot;
    case KXChartLineStyle::None:
        break;
    }
    return UXLineDashStyle::None;
}

} // namespace

void KXAssistantLineDataView::layout(const KXAxisChartPlotFrame&)
{
    const KXAxisChartPlotFrame first = getChart()->obtainPlotFrame(false);
    const KXAxisChartPlotFrame second = getChart()->obtainPlotFrame(true);
    const bool hasData = getChart()->preparedAndReloadedData() && getChart()->obtainShownCategoryCount() > 0;
    m_labels.clear();
    if (hasData && m_areStacked != _obtainStackedAxes())
        updateLines();
    for (Line& line : m_lines) {
        line.path.clear();
        line.band.clear();
        const KXAxisChartPlotFrame& frame = line.property.getIsOnSecondaryAxis() ? second : first;
        if (!hasData || uxIsEmptyRect(frame.area) || frame.values.spacing == 0 || !_isDrawn(line))
            continue;
        if (_standsAtMember(line.property))
            _updateMember(line);
        if (!line.means.empty())
            _layoutMeans(line, frame);
        else if (line.trend)
            _layoutTrend(line, frame);
        else
            _layoutLine(line, frame);
    }
}

/** A straight line across the marks, or a band of the same. */
void KXAssistantLineDataView::_layoutLine(Line& line, const KXAxisChartPlotFrame& frame) const
{
    const bool isOnX = line.property.getIsOnXAxis();
    const KXAxisChartScale& scale = isOnX ? frame.categories : frame.values;
    const KXAxisChartInterval room = isOnX ? frame.obtainAcross() : frame.obtainAlong();
    const KXAxisChartInterval length = isOnX ? frame.obtainAlong() : frame.obtainAcross();
    const auto isOnAxis = [&scale](double value) {
        return !std::isnan(value) && (!scale.isLogarithmic || value > 0);
    };
    const auto makePoint = [&](double place, double way) {
        return isOnX ? frame.makePoint(place, way) : frame.makePoint(way, place);
    };
    if (!isOnAxis(line.value))
        return;
    const double place = scale.obtainPosition(line.value);
    if (place >= room.start && place <= room.end) {
        const double drawn = std::min(snap(place, frame.pixelScale), room.end - 0.5 / frame.pixelScale);
        line.path = {makePoint(drawn, length.start), makePoint(drawn, length.end)};
    }
    if (!isOnAxis(line.toValue))
        return;
    const double other = scale.obtainPosition(line.toValue);
    const double from = std::clamp(std::min(place, other), room.start, room.end);
    const double to = std::clamp(std::max(place, other), room.start, room.end);
    if (from < to)
        line.band = {makePoint(from, length.start), makePoint(from, length.end), makePoint(to, length.end),
                     makePoint(to, length.start)};
}

void KXAssistantLineDataView::_layoutTrend(Line& line, const KXAxisChartPlotFrame& frame) const
{
    const KXAxisChartInterval across = frame.obtainAcross();
    const double first = std::max(frame.categories.obtainPosition(line.firstX), across.start);
    const double last = std::min(frame.categories.obtainPosition(line.lastX), across.end);
    if (!(first < last))
        return;
    std::vector<UXDoublePoint> lower;
    for (int i = 0; i <= trendPieceCount; ++i) {
        const double place = first + (last - first) * i / trendPieceCount;
        const double x = frame.categories.obtainValue(place), value = line.trend->obtainValue(x);
        const double half = line.trend->obtainHalfBand(x);
        line.path.push_back(frame.makePoint(place, frame.values.obtainPosition(value)));
        if (std::isnan(half))
            continue;
        line.band.push_back(frame.makePoint(place, frame.values.obtainPosition(value + half)));
        lower.push_back(frame.makePoint(place, frame.values.obtainPosition(value - half)));
    }
    line.band.insert(line.band.end(), lower.rbegin(), lower.rend());
}

void KXAssistantLineDataView::_layoutMeans(Line& line, const KXAxisChartPlotFrame& frame) const
{
    KXXYAxisChart& chart = *getChart();
    KXAxisChartStacks source;
    source.series = {{0, line.means}};
    source.categoryNumbers = chart.getCategoryPlaces().getNumbers();
    std::tie(source.first, source.end) = chart.obtainVisibleCategories();
    line.edges->take(source, KXLineNullHandling::Gap);
    line.path = kxLayoutLines(*line.edges, frame, {}).shapes.front().line.points;
}

std::string KXAssistantLineDataView::_obtainLabelText(const Line& line) const
{
    const KXAssistantLineProperty& property = line.property;
    const bool hasText = property.getLabelContent() != KXAssistantLineLabelContent::Value;
    const bool hasValue = property.getLabelContent() != KXAssistantLineLabelContent::Text &&
                          property.obtainOperation() != KXChartValueOperation::Trend;
    // A value that somebody has fixed speaks for itself.
    const bool isNamed = !property.getLabelText().empty() ||
                         property.obtainOperation() != KXChartValueOperation::FixedValue;
    std::string text = hasText && isNamed ? property.obtainCaption() : std::string();
    if (hasValue && !line.valueText.empty())
        text += (text.empty() ? "" : " ") + line.valueText;
    return text;
}

void KXAssistantLineDataView::layoutLabels()
{
    m_labels.clear();
    const KXAxisChartPlotFrame frame = getChart()->obtainPlotFrame(false);
    const UXDoubleRect area(frame.area);
    KXLabelPlacer placer(area, labelEdge);
    if (const std::optional<UXDoubleRect> note = getChart()->obtainNoteRect())
        placer.addObstacle(*note);
    for (const auto& view : getChart()->getDataViews())
        for (const UXDoubleRect& rect : view->obtainLabelRects())
            placer.addObstacle(rect);
    if (m_isInFront) // those behind have theirs already
        for (const Label& label : getChart()->getAssistantLineView(false).getLabels())
            placer.addObstacle(label.rect);
    // No label is crossed by the line of another one.
    for (const bool isInFront : {false, true})
        for (const Line& line : getChart()->getAssistantLineView(isInFront).getLines())
            for (std::size_t i = 0; i + 1 < line.path.size(); ++i)
                if (isFinite(line.path[i]) && isFinite(line.path[i + 1]))
                    placer.addObstacle(obtainRect(line.path[i], line.path[i + 1]), line.index);
    std::vector<KXLabelRequest> requests;
    std::vector<std::size_t> owners;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        Line& line = m_lines[i];
        _updateText(line);
        const auto isSeen = [&](const UXDoublePoint& point) {
            return isFinite(point) && uxPointInDoubleRect(point, uxInflateDoubleRect(area, 1.0, 1.0));
        };
        std::vector<UXDoublePoint> seen;
        std::ranges::copy_if(line.path, std::back_inserter(seen), isSeen);
        KXLabelRequest request;
        request.text = _obtainLabelText(line);
        if (seen.empty() || request.text.empty())
            continue;
        request.mark = line.index;
        request.property = line.property.getLabelProperty();
        const UXDoubleSize size = placer.measure(request.text, request.property);
        const bool runsAlongX = frame.isVertical != line.property.getIsOnXAxis();
        // A line that runs upwards ends at the top.
        const bool endsLast = runsAlongX || !frame.isVertical;
        const auto addAt = [&](KXAssistantLineLabelPosition position) {
            double part = position == KXAssistantLineLabelPosition::Start    ? 0
                          : position == KXAssistantLineLabelPosition::Middle ? 0.5
                                                                             : 1;
            part = endsLast ? part : 1 - part;
            const bool isStraight = seen.size() == 2;
            const UXDoublePoint& from = seen.front();
            const UXDoublePoint& to = seen.back();
            const UXDoublePoint at =
                isStraight
                    ? UXDoublePoint(from.x + part * (to.x - from.x), from.y + part * (to.y - from.y))
                    : seen[static_cast<std::size_t>(std::round(part * static_cast<double>(seen.size() - 1)))];
            const double left = std::clamp(
                at.x - part * size.width, area.x + labelEdge,
                std::max(area.x + area.width - labelEdge - size.width, area.x + labelEdge));
            const double top = std::clamp(
                at.y - part * size.height, area.y + labelEdge,
                std::max(area.y + area.height - labelEdge - size.height, area.y + labelEdge));
            for (const bool before : {true, false}) {
                UXDoubleRect rect(left, top, size.width, size.height);
                if (runsAlongX)
                    rect.y = before ? at.y - labelGap - size.height : at.y + labelGap;
                else
                    rect.x = before ? at.x + labelEdge : at.x - labelEdge - size.width;
                request.candidates.push_back({rect, std::nullopt});
            }
        };
        using enum KXAssistantLineLabelPosition;
        addAt(line.property.getLabelPosition());
        for (const KXAssistantLineLabelPosition other : {End, Middle, Start})
            if (other != line.property.getLabelPosition())
                addAt(other);
        requests.push_back(std::move(request));
        owners.push_back(i);
    }
    for (const KXPlacedLabel& placed : placer.place(requests))
        m_labels.push_back({owners[placed.request], placed.text, placed.rect, placed.property});
    _setLabelLosses(placer.getLosses());
}

const KXAssistantLineDataView::Line* KXAssistantLineDataView::hitLine(UXPoint point) const
{
    const UXDoublePoint at(point.x + 0.5, point.y + 0.5);
    for (const Line& line : std::views::reverse(m_lines))
        for (std::size_t i = 0; i + 1 < line.path.size(); ++i)
            if (isFinite(line.path[i]) && isFinite(line.path[i + 1]) &&
                obtainDistance(at, line.path[i], line.path[i + 1]) <= hitReach)
                return &line;
    return nullptr;
}

void KXAssistantLineDataView::paint(UXPainter& painter, const UXRect&) const
{
    const UXPainterState state(painter);
    for (const Line& line : m_lines) {
        UXColor color = line.property.getColor();
        if (!line.band.empty()) {
            color.alpha *= std::clamp(line.property.getBandOpacity(), 0.0, 1.0);
            painter.setColor(color);
            painter.drawPolygons({&line.band, 1});
        }
        if (line.path.size() < 2 || !(line.property.getLineWidth() > 0))
            continue;
        painter.setColor(line.property.getColor());
        painter.setLineWidth(line.property.getLineWidth());
        painter.setLineDash(toPaintStyle(line.property.getLineStyle()));
        painter.drawPolyline(line.path);
    }
}

void KXAssistantLineDataView::paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    for (const Label& label : m_labels)
        if (uxIntersectsRect(uxSurroundingRect(label.rect), dirtyRect))
            painter.drawText(label.text, label.rect, label.property);
}
