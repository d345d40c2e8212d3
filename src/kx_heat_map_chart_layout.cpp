#include "kx_chart_data_format.h"
#include "kx_chart_heat_map_column_header_panel.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_data_requests.h"
#include "kx_heat_map_chart.h"
#include "kx_heat_map_legend.h"
#include "kx_heat_map_panel.h"
#include "kx_no_data_label.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <tuple>
#include <utility>

// From the data of a heat map to what is drawn.

namespace {

/** Totals have a scale of their own, which is none of the colours of cells. */
constexpr UXColor leastTotalColor(243, 243, 246), middleTotalColor(206, 206, 214),
    greatestTotalColor(160, 160, 172);
/** Of the device, where a cell may be as small as can be pointed at. */
constexpr double leastPixels = 2;
/** Around a text in a cell. */
constexpr double cellPadding = 8;
/** Items of less height have nothing told below them. */
constexpr int leastHeightWithNote = 100, noteGap = 4;
constexpr double wholePercent = 100;
/** More cells than these have no rings around them. */
constexpr std::size_t greatestRingCount = 32;

/** @return the least and the greatest value, both 0 where all are null */
std::pair<double, double> findRange(std::span<const double> values)
{
    std::pair<double, double> range{0, 0};
    bool isFirst = true;
    for (const double value : values) {
        if (std::isnan(value))
            continue;
        range = isFirst ? std::pair(value, value)
                        : std::pair(std::min(range.first, value), std::max(range.second, value));
        isFirst = false;
    }
    return range;
}

/** @param sorted not empty */
double obtainPercentile(const std::vector<double>& sorted, double percent)
{
    const double share = std::isfinite(percent) ? std::clamp(percent / wholePercent, 0.0, 1.0) : 0;
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto index = static_cast<std::size_t>(place);
    const double rest = place - static_cast<double>(index);
    return index + 1 < sorted.size() ? sorted[index] * (1 - rest) + sorted[index + 1] * rest : sorted[index];
}

} // namespace

/** Looks at all values once. */
void KXHeatMapChart::_summarize()
{
    std::tie(m_least, m_greatest) = findRange(_obtainShownValues());
    m_labelRange = getMeasureCount() > 1 ? findRange(getValues(1)) : std::pair(m_least, m_greatest);
    m_sorted.clear();
    m_countedScale.reset();
    for (Totals& totals : m_totals) {
        const auto [least, greatest] = findRange(totals.values);
        totals.scale = {least, greatest, least, leastTotalColor, middleTotalColor, greatestTotalColor, 0};
    }
}

void KXHeatMapChart::_updateScale()
{
    const bool wantsPercentiles = m_lowPercentile > 0 || m_highPercentile < wholePercent;
    if (wantsPercentiles && m_sorted.empty()) {
        const std::span<const double> values = _obtainShownValues();
        m_sorted.reserve(values.size());
        std::ranges::copy_if(values, std::back_inserter(m_sorted),
                             [](double value) { return !std::isnan(value); });
        std::ranges::sort(m_sorted);
    }
    double least = m_least, greatest = m_greatest;
    if (wantsPercentiles && !m_sorted.empty()) {
        least = obtainPercentile(m_sorted, m_lowPercentile);
        greatest = obtainPercentile(m_sorted, m_highPercentile);
    }
    if (m_hasLowerBound && std::isfinite(m_lowerBound))
        least = m_lowerBound;
    if (m_hasUpperBound && std::isfinite(m_upperBound))
        greatest = m_upperBound;
    const bool hasMiddle = m_isDiverging && std::isfinite(m_middleValue);
    // A middle at the end of the range is none.
    m_scale = {std::min(least, greatest),
               std::max(least, greatest),
               hasMiddle ? m_middleValue : std::min(least, greatest),
               m_minColor,
               m_middleColor,
               m_maxColor,
               m_classCount};
}

/** Counts the values beyond the colours where these have changed. */
void KXHeatMapChart::_countBeyond()
{
    if (m_countedScale == m_scale)
        return;
    m_countedScale = m_scale;
    m_beyond = std::pair<std::uint64_t, std::uint64_t>();
    if (m_least >= m_scale.least && m_greatest <= m_scale.greatest)
        return;
    const std::span<const double> values = _obtainShownValues();
    m_beyond.first = static_cast<std::uint64_t>(
        std::ranges::count_if(values, [this](double value) { return value < m_scale.least; }));
    m_beyond.second = static_cast<std::uint64_t>(
        std::ranges::count_if(values, [this](double value) { return value > m_scale.greatest; }));
}

/** @return the first measure's, of the rows that are shown */
std::span<const double> KXHeatMapChart::_obtainShownValues() const
{
    const std::size_t count = obtainRowCount() * obtainColumnCount();
    return std::span(getValues(0)).first(std::min(count, getValues(0).size()));
}

void KXHeatMapChart::_updateColors()
{
    _updateScale();
    m_legend->setScale(m_scale, getChartProperty()->getLegendLabelColor(),
                       [this](double value) { return m_dataFormat->formatNumber(value); });
}

void KXHeatMapChart::registerChartPropertyUpdatedEvents()
{
    KXPanelChart::registerChartPropertyUpdatedEvents();
    getChartProperty()->registerUpdatedEvents({"m_legendLabelColor"},
                                              [this](const std::string&) { _updateColors(); });
}

void KXHeatMapChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    if (effect == UXPropertyEffect::Recolor) {
        _updateColors();
        m_panel->getContentPanel().setScale(m_scale);
        _updateLooks();
    }
    if (self.isAlive())
        KXPanelChart::_applyKeyEffect(effect);
}

void KXHeatMapChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    const bool hasData = preparedAndReloadedData() && obtainRowCount() > 0 && obtainColumnCount() > 0;
    _updateColors();
    UXRect area = m_legend->takeRoom(plotArea, *getChartProperty(), hasData);
    m_noDataLabel->update(plotArea, hasData);
    if (!self.isAlive())
        return;
    m_panel->setVisible(hasData);
    m_note.clear();
    if (!hasData)
        return;
    _layoutNote(area);
    m_panel->setRect(area);
    _setNames();
    KXHeatMapArrangement arrangement;
    arrangement.rowCount = obtainRowCount();
    arrangement.columnCount = obtainColumnCount();
    arrangement.leastRowExtent = _obtainLeastCellExtent(true);
    arrangement.leastColumnExtent = _obtainLeastCellExtent(false);
    arrangement.neverScrolls = m_fit;
    arrangement.rowTotalsExtent = _hasTotals(true) ? _obtainTotalExtent(true) : 0;
    arrangement.columnTotalsExtent = _hasTotals(false) ? _obtainTotalExtent(false) : 0;
    m_panel->arrange(arrangement, std::exchange(m_keepsNames, false));
    if (!self.isAlive())
        return;
    _fillPanels();
    _updateLooks();
}

/** @return the extent of a cell with the label of either end of a range */
double KXHeatMapChart::_measureWidest(const std::pair<double, double>& range) const
{
    const auto measure = [this](double value) {
        return uxMeasureText(m_dataFormat->formatNumber(value), m_labelProperty).width;
    };
    return std::ceil(std::max(measure(range.first), measure(range.second))) + cellPadding;
}

/** @param ofRows whether it is their height, or the width of columns */
double KXHeatMapChart::_obtainLeastCellExtent(bool ofRows) const
{
    if (m_minCellSize > 0 && std::isfinite(m_minCellSize))
        return m_minCellSize;
    if (m_showLabels && ofRows) // where each row has its name too
        return std::ceil(std::max(uxMeasureText("0", m_labelProperty).height + std::max(m_cellGap, 0.0),
                                  uxMeasureText("0", m_captionProperty).height));
    if (m_showLabels)
        return _measureWidest(m_labelRange);
    const UXTransform toDevice = uxObtainDeviceTransform(*this).unmirrored();
    return leastPixels / (toDevice.xx > 0 ? toDevice.xx : 1);
}

/** @return what the widest total needs, or of columns a line of text */
double KXHeatMapChart::_obtainTotalExtent(bool ofRows) const
{
    if (!ofRows)
        return std::ceil(uxMeasureText("0", m_labelProperty).height) + cellPadding;
    const KXGradientScale& scale = _getTotals(true).scale;
    return std::max(_measureWidest({scale.least, scale.greatest}), _measureWidest(findRange(m_grandTotal)));
}

void KXHeatMapChart::_setNames()
{
    // A layout asks nobody: a name that is missing comes with a later one.
    const auto makeNames = [this](std::uint64_t dimension) {
        return [this, dimension](std::uint64_t member) {
            const bool isMissing = dimension < getDimensionCount() && !hasMemberText(dimension, member);
            const std::string name = _obtainName(dimension, member);
            return isMissing ? std::string(KXDataRequests::placeholder) : name;
        };
    };
    const bool areWords = getDimensionCount() < 2 || getDimensionDataType(1) == KXChartDataType::String;
    m_panel->getRowHeaderPanel().setNames(makeNames(0), m_captionProperty, false);
    m_panel->getColumnHeaderPanel().setNames(makeNames(1), m_captionProperty, areWords);
    for (const bool ofRows : {true, false})
        m_panel->getTotalsHeaderPanel(ofRows).setNames([this](std::uint64_t) { return m_words[0]; },
                                                       m_captionProperty, false);
}

std::string KXHeatMapChart::_writeLabel(const KXGridCell& cell) const
{
    const double value = getValue(getMeasureCount() > 1 ? 1 : 0, _obtainCell(cell));
    return std::isnan(value) ? std::string() : m_dataFormat->formatNumber(value);
}

/** Gives the panels the values that there are. */
void KXHeatMapChart::_fillPanels()
{
    KXHeatMapCells cells;
    cells.rowCount = obtainRowCount();
    cells.columnCount = obtainColumnCount();
    cells.values = _obtainShownValues();
    cells.parts = getHighlightedParts(0);
    cells.lightOpacity = KXPanelChart::obtainDimmedOpacity();
    cells.scale = m_scale;
    if (m_isDiverging && std::isfinite(m_middleValue))
        cells.middle = m_middleValue;
    KXHeatMapCellStyle style{m_cellGap, m_showNullPattern, m_showLabels, m_labelProperty, m_autoLabelColor};
    m_panel->getContentPanel().setCells(cells, style,
                                        [this](const KXGridCell& cell) { return _writeLabel(cell); });
    style.showsLabels = true; // as no legend tells what their colours stand for
    for (const bool ofRows : {true, false})
        _fillTotals(ofRows, style);
    KXHeatMapCells total;
    total.values = m_grandTotal;
    total.rowCount = total.columnCount = m_grandTotal.size();
    total.scale = {0, 0, 0, middleTotalColor, middleTotalColor, middleTotalColor, 0};
    m_panel->getGrandTotalPanel().setCells(total, style, [this](const KXGridCell&) {
        const double value = m_grandTotal.empty() ? std::nan("") : m_grandTotal.front();
        return std::isnan(value) ? std::string() : m_dataFormat->formatNumber(value);
    });
}

void KXHeatMapChart::_fillTotals(bool ofRows, const KXHeatMapCellStyle& style)
{
    const Totals& totals = _getTotals(ofRows);
    KXHeatMapCells cells;
    const std::size_t count = std::min<std::size_t>(totals.values.size(),
                                                    ofRows ? obtainRowCount() : obtainColumnCount());
    cells.values = std::span(totals.values).first(count);
    cells.rowCount = ofRows ? count : count > 0 ? 1 : 0;
    cells.columnCount = ofRows ? (count > 0 ? 1 : 0) : count;
    cells.scale = totals.scale;
    m_panel->getTotalsPanel(ofRows).setCells(cells, style, [this, ofRows](const KXGridCell& cell) {
        const double value = obtainItemValue(ofRows ? KXChartItem{rowTotalKind, cell.row, 0}
                                                    : KXChartItem{columnTotalKind, 0, cell.column});
        return std::isnan(value) ? std::string() : m_dataFormat->formatNumber(value);
    });
}

// What is told below

std::string KXHeatMapChart::_writeNote() const
{
    const auto [below, above] = m_beyond;
    std::string told;
    if (below > 0)
        told = std::to_string(below) + " " + m_words[3];
    if (above > 0)
        told += (told.empty() ? "" : ", ") + std::to_string(above) + " " + m_words[4];
    return told.empty() ? told : m_words[2] + ": " + told;
}

void KXHeatMapChart::_layoutNote(UXRect& area)
{
    _countBeyond();
    m_note = _writeNote();
    m_noteRect = {};
    if (m_note.empty() || area.height < leastHeightWithNote)
        return;
    const UXDoubleSize size = uxMeasureText(m_note, m_captionProperty);
    const int height = static_cast<int>(std::ceil(size.height));
    area.height -= height + noteGap;
    if (size.width <= area.width)
        m_noteRect = {area.x, area.y + area.height + noteGap, area.width, height};
}

void KXHeatMapChart::_paintUnderChildren(UXPainter& painter)
{
    KXPanelChart::_paintUnderChildren(painter);
    if (!m_note.empty() && m_noteRect.width > 0)
        painter.drawText(m_note, UXDoubleRect(m_noteRect), m_captionProperty);
}

// What stands out

/** @return the cells that an item stands for */
std::optional<KXGridBlock> KXHeatMapChart::_obtainBlock(const KXChartItem& item) const
{
    if (!hasItem(item))
        return std::nullopt;
    KXGridBlock block{{0, obtainRowCount()}, {0, obtainColumnCount()}};
    if (item.kind == cellKind || item.kind == rowKind || item.kind == rowTotalKind)
        block.rows = {item.group, item.group + 1};
    if (item.kind == cellKind || item.kind == columnKind || item.kind == columnTotalKind)
        block.columns = {item.index, item.index + 1};
    return block;
}

void KXHeatMapChart::_updateLooks()
{
    const KXChartItems& items = *getItems();
    KXHeatMapContentPanel& content = m_panel->getContentPanel();
    KXHeatMapHighlight highlight;
    highlight.restOpacity = items.isHighlighting() ? std::clamp(obtainDimmedOpacity(), 0.0, 1.0) : 1;
    std::vector<KXChartItem> standing = items.getLinked();
    standing.insert(standing.end(), items.getSelected().begin(), items.getSelected().end());
    if (items.getHovered())
        standing.push_back(*items.getHovered());
    for (const KXChartItem& item : standing) {
        const std::optional<KXGridBlock> block = _obtainBlock(item);
        if (!block)
            continue;
        highlight.blocks.push_back(*block);
        if (item.kind != cellKind)
            continue;
        const KXGridCell cell{item.group, item.index};
        const UXColor color = content.obtainColor(cell);
        const KXChartItemLook look = items.obtainLook(item, color);
        if (look.fill != color || look.standsOut())
            highlight.looks.emplace_back(cell, look);
        if (highlight.rings.size() < greatestRingCount)
            highlight.rings.push_back(cell);
    }
    content.setHighlight(std::move(highlight));
    _markValue();
}

/** The legend shows the value of the cell that is explained just now. */
void KXHeatMapChart::_markValue()
{
    const std::optional<KXChartItem>& hovered = getItems()->getHovered();
    const bool isCell = hovered && hovered->kind == cellKind && hasItem(*hovered);
    m_legend->setMarkedValue(isCell ? std::optional(obtainItemValue(*hovered)) : std::nullopt);
}

void KXHeatMapChart::itemLooksChanged() { _updateLooks(); }
