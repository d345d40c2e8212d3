#include "kx_axis_scale.h"
#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_density_chart.h"
#include "kx_readable_color.h"
#include "ux/ux_painter.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace {

constexpr double gap = 6;
/** Names take no more of the width, and none of a narrower one. */
constexpr double greatestNameShare = 0.3;
constexpr double leastWidthWithNames = 120;
/** In heights of a line: a lower chart has no scale. */
constexpr double leastHeightWithScale = 5;
constexpr double tickDistance = 70;
constexpr int greatestTickCount = 12;
/** A row of less height tells nothing. */
constexpr double leastRowHeight = 4;
constexpr double greatestOverlap = 0.9;
/** Of a row's height: what its marks take. */
constexpr double markShare = 0.86, boxShare = 0.5, stripShare = 0.7;
/** Points of a curve, in logical units. */
constexpr double pointDistance = 2;
constexpr int greatestPointCount = 1000;
constexpr double shadeWidth = 2;
constexpr double meanRadius = 3;
constexpr UXColor white(255, 255, 255);

UXColor mix(const UXColor& from, const UXColor& to, double share)
{
    const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    UXColor mixed = to;
    mixed.red = part(from.red, to.red);
    mixed.green = part(from.green, to.green);
    mixed.blue = part(from.blue, to.blue);
    return mixed;
}

void drawLine(UXPainter& painter, const UXDoublePoint& from, const UXDoublePoint& to)
{
    const UXDoublePoint line[] = {from, to};
    painter.drawPolyline(line);
}

} // namespace

KXDensity::Bounds KXDensityChart::_obtainBounds() const
{
    KXDensity::Bounds bounds;
    if (m_hasLowerBound && std::isfinite(m_lowerBound))
        bounds.lower = m_lowerBound;
    if (m_hasUpperBound && std::isfinite(m_upperBound))
        bounds.upper = m_upperBound;
    return bounds;
}

double KXDensityChart::_obtainKernelWidth(const KXDensity& density) const
{
    const bool isCurve = m_style != KXDensityStyle::Histogram && m_style != KXDensityStyle::Box;
    if (!isCurve || m_smoothing == KXDensitySmoothing::Off)
        return 0;
    const bool isGiven = m_kernelWidth > 0 && std::isfinite(m_kernelWidth);
    return isGiven ? m_kernelWidth : density.obtainKernelWidth();
}

double KXDensityChart::obtainPlace(double value) const
{
    return m_plot.x + m_plot.width * ((value - m_from) / (m_to - m_from));
}

std::vector<KXPanelItem> KXDensityChart::_layoutItems(const UXRect& area)
{
    UXDoubleRect room(area);
    m_rows.clear();
    m_ticks.clear();
    _takeNoteRoom(_countLeftOut(), m_labelProperty, room);
    _makeRows(room);
    _updateRange();
    if (m_rows.empty() || !std::isfinite(m_to - m_from))
        return {};
    _layoutNames(room);
    _layoutScale(room);
    m_plot = room;
    _scaleRows(room.height);
    std::vector<KXPanelItem> items;
    for (const Row& row : m_rows)
        _showsBins() ? _addBars(row, items) : _addItems(row, items);
    return items;
}

/** Zeros are bins without values. Of groups, bins that these do not have have none either, which nobody
 * misses.
 */
KXLeftOutCounts KXDensityChart::_countLeftOut() const
{
    KXLeftOutCounts counts;
    for (std::uint64_t row = 0; row < _obtainRowCount(); ++row)
        for (std::size_t bin = 0; (!_hasGroups() || isGroupShown(row)) && bin < m_edges.size(); ++bin)
            if (const double count = getValue(0, row * m_edges.size() + bin); !(count >= 0))
                counts.add(count, !_hasGroups());
    return counts;
}

void KXDensityChart::_makeRows(const UXDoubleRect& area)
{
    const double most = std::max(area.height / leastRowHeight, 1.0);
    for (std::uint64_t row = 0; row < _obtainRowCount() && static_cast<double>(m_rows.size()) < most; ++row)
        if (_isRowShown(row) && !(_hasGroups() && !getListedGroups().contains(row)))
            m_rows.push_back({row, 0, 0, _obtainKernelWidth(obtainDensity(row)), 0});
}

/** The scale holds all curves whole. */
void KXDensityChart::_updateRange()
{
    m_from = (std::numeric_limits<double>::max)();
    m_to = -m_from;
    for (const Row& row : m_rows) {
        const auto [from, to] = obtainDensity(row.group).obtainRange(row.kernelWidth, _obtainBounds());
        m_from = std::min(m_from, from);
        m_to = std::max(m_to, to);
    }
    if (!(m_from < m_to))
        m_rows.clear();
}

void KXDensityChart::_layoutNames(UXDoubleRect& room)
{
    m_nameWidth = 0;
    if (!_hasGroups() || room.width < leastWidthWithNames)
        return;
    for (const Row& row : m_rows)
        m_nameWidth = std::max(m_nameWidth,
                               std::ceil(uxMeasureText(obtainGroupName(row.group), m_labelProperty).width));
    m_nameWidth = std::min(m_nameWidth, std::floor(room.width * greatestNameShare));
    room.x += m_nameWidth + gap;
    room.width -= m_nameWidth + gap;
}

void KXDensityChart::_layoutScale(UXDoubleRect& room)
{
    const double height = std::ceil(uxMeasureText("0", m_scaleProperty).height);
    if (!m_showScale || room.height < leastHeightWithScale * height)
        return;
    room.height -= height + gap;
    const int count = std::clamp(static_cast<int>(room.width / tickDistance), 1, greatestTickCount);
    const double step = kxCalculateSuitableRange((m_to - m_from) / count, true);
    if (!(step > 0) || !std::isfinite(step))
        return;
    for (double i = std::ceil(m_from / step);
         i * step <= m_to && m_ticks.size() < std::size_t{2} * greatestTickCount; ++i)
        m_ticks.push_back(i * step + 0.0);
}

/** @return the steps of the bins, or else points at even distances, and between two of them the middle of the
 * highest bin there: bins may be narrower than these distances, and a curve peaks at them */
std::vector<UXDoublePoint> KXDensityChart::_obtainCurve(const Row& row) const
{
    const KXDensity& density = obtainDensity(row.group);
    const std::vector<KXDensityBin>& bins = density.getBins();
    std::vector<UXDoublePoint> curve;
    if (!(row.kernelWidth > 0)) {
        curve.reserve(4 * bins.size());
        for (const KXDensityBin& bin : bins)
            for (const UXDoublePoint& corner : {UXDoublePoint(bin.from, 0),
                                                {bin.from, bin.obtainHeight()},
                                                {bin.to, bin.obtainHeight()},
                                                {bin.to, 0}})
                curve.push_back(corner);
        return curve;
    }
    const auto [from, to] = density.obtainRange(row.kernelWidth, _obtainBounds());
    const auto add = [&](double value) {
        curve.emplace_back(value, density.obtainHeight(value, row.kernelWidth, _obtainBounds()));
    };
    const double width = obtainPlace(to) - obtainPlace(from);
    const int count = static_cast<int>(std::clamp(width / pointDistance, 2.0, double{greatestPointCount}));
    curve.emplace_back(from, 0);
    auto bin = bins.begin();
    for (int i = 0; i <= count; ++i) {
        const double value = from + (to - from) * (static_cast<double>(i) / count);
        auto highest = bin;
        for (; bin != bins.end() && bin->obtainMiddle() < value; ++bin)
            if (bin->obtainHeight() > highest->obtainHeight())
                highest = bin;
        if (highest != bin)
            add(highest->obtainMiddle());
        add(value);
    }
    curve.emplace_back(to, 0);
    return curve;
}

/** Divides the height among the rows, and finds how high one value is drawn so that the highest row fits. */
void KXDensityChart::_scaleRows(double height)
{
    const bool isRidge = m_style == KXDensityStyle::Ridge, isViolin = m_style == KXDensityStyle::Violin;
    const double overlap = isRidge && !std::isnan(m_overlap) ? std::clamp(m_overlap, 0.0, greatestOverlap)
                                                             : 0;
    const double count = static_cast<double>(m_rows.size());
    m_rowHeight = height / (1 + (count - 1) * (1 - overlap));
    const double reach = m_rowHeight * (isViolin ? markShare / 2 : markShare);
    double greatest = 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row& row = m_rows[i];
        row.top = m_plot.y + static_cast<double>(i) * m_rowHeight * (1 - overlap);
        row.baseline = row.top + (isViolin ? m_rowHeight / 2 : m_rowHeight);
        row.curve = _obtainCurve(row);
        for (const UXDoublePoint& point : row.curve)
            row.greatestHeight = std::max(row.greatestHeight, std::isfinite(point.y) ? point.y : 0);
        const double own = row.greatestHeight, total = obtainDensity(row.group).getTotal();
        row.unitHeight = m_heightScale == KXDensityHeightScale::Max     ? own > 0 ? 1 / own : 0
                         : m_heightScale == KXDensityHeightScale::Share ? 1 / total
                                                                        : 1;
        greatest = std::max(greatest, own * row.unitHeight);
    }
    for (Row& row : m_rows)
        row.unitHeight *= greatest > 0 ? reach / greatest : 0;
}

std::vector<UXDoublePoint> KXDensityChart::_makeOutline(const Row& row) const
{
    std::vector<UXDoublePoint> points(row.curve.size());
    std::ranges::transform(row.curve, points.begin(), [&](const UXDoublePoint& point) {
        return UXDoublePoint(obtainPlace(point.x), row.baseline - point.y * row.unitHeight);
    });
    return points;
}

void KXDensityChart::_addItems(const Row& row, std::vector<KXPanelItem>& items) const
{
    const KXChartItem item{rowKind, row.group, 0};
    const auto [from, to] = obtainDensity(row.group).obtainRange(row.kernelWidth, _obtainBounds());
    const auto makeRect = [&](double low, double high, double share) {
        const double left = obtainPlace(low), height = m_rowHeight * share;
        return UXDoubleRect(left, row.top + (m_rowHeight - height) / 2,
                            std::max(obtainPlace(high) - left, 1.0), height);
    };
    if (m_style == KXDensityStyle::Box) {
        const Summary& summary = m_summaries.at(row.group);
        items.push_back({item, KXPanelShape(makeRect(summary.quantiles[1], summary.quantiles[3], boxShare))});
        return;
    }
    if (m_style == KXDensityStyle::Strip) {
        items.push_back({item, KXPanelShape(makeRect(from, to, stripShare))});
        return;
    }
    std::vector<UXDoublePoint> corners = _makeOutline(row);
    if (m_style == KXDensityStyle::Violin)
        for (std::size_t i = corners.size(); i-- > 0;)
            corners.emplace_back(corners[i].x, 2 * row.baseline - corners[i].y);
    items.push_back({item, KXPanelShape(std::move(corners))});
}

void KXDensityChart::_addBars(const Row& row, std::vector<KXPanelItem>& items) const
{
    const std::vector<KXDensityBin>& bins = obtainDensity(row.group).getBins();
    for (std::size_t i = 0; i < m_edges.size(); ++i) {
        const KXChartItem item = _hasGroups() ? KXChartItem{0, row.group, i} : KXChartItem{0, i, 0};
        const auto bin = std::ranges::lower_bound(bins, m_edges[i], {}, &KXDensityBin::from);
        if (bin == bins.end() || bin->from != m_edges[i] || bin->count != obtainItemValue(item))
            continue;
        const double left = std::round(obtainPlace(bin->from)), right = std::round(obtainPlace(bin->to));
        const double height = std::max(bin->obtainHeight() * row.unitHeight, 1.0);
        const double width = std::max(right - left > 3 ? right - left - 1 : right - left, 1.0);
        if (std::isfinite(height))
            items.push_back({item, KXPanelShape(UXDoubleRect(left, row.baseline - height, width, height))});
    }
}

std::vector<std::uint64_t> KXDensityChart::_obtainNamedMembers(std::uint64_t dimension) const
{
    std::vector<std::uint64_t> members;
    members.reserve(m_rows.size());
    if (dimension == 0 && m_nameWidth > 0)
        for (const Row& row : m_rows)
            members.push_back(row.group);
    return members;
}

void KXDensityChart::_requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const
{
    if (getLaidOutItems().empty())
        return;
    for (const Row& row : m_rows) {
        if (!(m_nameWidth > 0))
            break;
        const std::string name = _findMemberName(0, row.group);
        const double height = placer.measure(name, m_labelProperty).height;
        const bool isOnLine = m_style == KXDensityStyle::Ridge || _showsBins();
        const double top = isOnLine ? row.baseline - height : row.top + (m_rowHeight - height) / 2;
        KXLabelRequest request{name, m_labelProperty, 0, true, KXCollisionGrid::noOwner, {}};
        request.property.align = UXTextAlign::Right;
        request.candidates = {{{m_plot.x - gap - m_nameWidth, top, m_nameWidth, height}, {}}};
        requests.push_back(std::move(request));
    }
    for (const double tick : m_ticks) {
        const std::string text = m_dataFormat->formatNumber(tick);
        const UXDoubleSize size = placer.measure(text, m_scaleProperty);
        KXLabelRequest request{text, m_scaleProperty, 1, false, KXCollisionGrid::noOwner, {}};
        request.property.align = UXTextAlign::Center;
        const double left = std::min(obtainPlace(tick) - size.width / 2,
                                     m_plot.x + m_plot.width - size.width);
        request.candidates = {{{left, m_plot.y + m_plot.height + gap, size.width, size.height}, {}}};
        requests.push_back(std::move(request));
    }
}

const KXDensityChart::Row* KXDensityChart::_findRow(std::uint64_t group) const
{
    const auto found = std::ranges::find(m_rows, group, &Row::group);
    return found == m_rows.end() ? nullptr : &*found;
}

void KXDensityChart::_paintUnderItems(UXPainter& painter) const
{
    painter.setColor(m_gridLineColor);
    painter.setLineWidth(1);
    const double bottom = m_plot.y + m_plot.height;
    for (const double tick : m_ticks) {
        const double x = std::floor(obtainPlace(tick)) + 0.5;
        drawLine(painter, {x, m_plot.y}, {x, bottom});
    }
    if (m_style != KXDensityStyle::Strip)
        for (const Row& row : m_rows) {
            const double y =
                std::floor(m_style == KXDensityStyle::Box ? row.top + m_rowHeight / 2 : row.baseline) + 0.5;
            drawLine(painter, {m_plot.x, y}, {m_plot.x + m_plot.width, y});
        }
}

void KXDensityChart::_paintOverItems(UXPainter& painter) const
{
    if (_showsBins())
        return;
    for (const KXPanelItem& item : getLaidOutItems()) {
        if (m_style == KXDensityStyle::Strip)
            _paintShades(painter, item);
        _paintSummary(painter, item);
    }
}

/** A strip is the lighter the fewer values lie there. */
void KXDensityChart::_paintShades(UXPainter& painter, const KXPanelItem& item) const
{
    const Row* row = _findRow(item.item.group);
    const double greatest = row ? row->greatestHeight : 0;
    if (!(greatest > 0))
        return;
    const UXColor& background = getChartProperty()->getBackgroundColor();
    const UXColor ground = background.alpha > 0 ? background : white;
    const UXDoubleRect& bounds = item.shape.getBounds();
    painter.setColor(ground);
    painter.drawRects({&bounds, 1});
    for (double x = bounds.x; x < bounds.x + bounds.width; x += shadeWidth) {
        const double width = std::min(shadeWidth, bounds.x + bounds.width - x);
        const double value = m_from + (m_to - m_from) * ((x + width / 2 - m_plot.x) / m_plot.width);
        const double height =
            obtainDensity(row->group).obtainHeight(value, row->kernelWidth, _obtainBounds());
        const UXDoubleRect shade[] = {{x, bounds.y, width, bounds.height}};
        painter.setColor(mix(ground, item.look.fill, std::clamp(height / greatest, 0.0, 1.0)));
        painter.drawRects(shade);
    }
}

/** Median, quartiles, whiskers and mean. */
void KXDensityChart::_paintSummary(UXPainter& painter, const KXPanelItem& item) const
{
    const Row* row = _findRow(item.item.group);
    if (!row || item.item.group >= m_summaries.size())
        return;
    const Summary& summary = m_summaries[item.item.group];
    const bool isBox = m_style == KXDensityStyle::Box, isViolin = m_style == KXDensityStyle::Violin;
    const double middle = row->top + m_rowHeight / 2;
    const double half = m_rowHeight * (isBox ? boxShare : stripShare) / 2;
    const UXColor ink = kxObtainReadableColor(item.look.fill);
    const auto drawAt = [&](double value, double width, const UXColor& color) {
        const double x = obtainPlace(value);
        const double height =
            obtainDensity(row->group).obtainHeight(value, row->kernelWidth, _obtainBounds()) *
            row->unitHeight;
        painter.setColor(color);
        painter.setLineWidth(width);
        if (isBox || m_style == KXDensityStyle::Strip)
            drawLine(painter, {x, middle - half}, {x, middle + half});
        else
            drawLine(painter, {x, row->baseline - height}, {x, row->baseline + (isViolin ? height : 0)});
    };
    if (isBox) {
        painter.setColor(item.look.fill);
        painter.setLineWidth(2);
        const auto& [low, first, median, third, high] = summary.quantiles;
        drawLine(painter, {obtainPlace(low), middle}, {obtainPlace(first), middle});
        drawLine(painter, {obtainPlace(third), middle}, {obtainPlace(high), middle});
        for (const double end : {low, high})
            drawLine(painter, {obtainPlace(end), middle - half / 2}, {obtainPlace(end), middle + half / 2});
        drawAt(median, 2, ink);
    } else if (m_showQuartiles) {
        drawAt(summary.quantiles[1], 1, ink);
        drawAt(summary.quantiles[2], 2, ink);
        drawAt(summary.quantiles[3], 1, ink);
    }
    if (!m_showMean)
        return;
    // Two discs, as the point may lie on the mark or beside it: one of them shows on either.
    const double y = m_style == KXDensityStyle::Ridge ? row->baseline - 2 * meanRadius : middle;
    for (const bool isInner : {false, true}) {
        painter.setColor(isInner ? item.look.fill : ink);
        painter.addCircleArcPath(obtainPlace(summary.mean), y, isInner ? meanRadius - 1 : meanRadius + 1, 0,
                                 360);
        painter.fill();
    }
}
