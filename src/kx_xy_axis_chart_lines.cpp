#include "kx_xy_axis_chart.h"

#include "kx_assistant_line_data_view.h"
#include "kx_axis_chart_property.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>

// The lines of reference: behind the marks and in front of them, in the legend, and under the pointer.

namespace {

/** A line of reference is explained only; the item's group says on which side of the marks it is. */
constexpr int assistantLineKind = -2;

} // namespace

void KXXYAxisChart::_updateAssistantLines()
{
    m_linesBehind->updateLines();
    m_linesInFront->updateLines();
}

/** Values that somebody has fixed are seen, wherever the data lie. */
void KXXYAxisChart::_includeFixedValues(const KXAxisChartAxis& axis, double& min, double& max) const
{
    const auto include = [&](int operation, double value) {
        const bool isOnAxis = std::isfinite(value) && (!axis.cache.isLogarithmic || value > 0);
        if (operation != static_cast<int>(KXChartValueOperation::FixedValue) || !isOnAxis)
            return;
        min = std::min(min, value);
        max = std::max(max, value);
    };
    for (const KXAssistantLineProperty& line : getAxisChartProperty()->getAssistantLines()) {
        const KXAxisChartAxis& own = line.getIsOnXAxis()           ? m_x
                                     : line.getIsOnSecondaryAxis() ? m_secondaryY
                                                                   : m_y;
        if (&own != &axis)
            continue;
        include(line.getOperation(), line.getValue());
        if (line.getIsBand())
            include(line.getToOperation(), line.getToValue());
    }
}

const KXAssistantLineDataView::Line* KXXYAxisChart::_hitAssistantLine(UXPoint point) const
{
    const UXPoint place = translatePoint(point, getPlot());
    if (!uxPointInRect(place, getMarksArea()))
        return nullptr;
    const KXAssistantLineDataView::Line* line = m_linesInFront->hitLine(place);
    return line ? line : m_linesBehind->hitLine(place);
}

std::optional<KXChartItem> KXXYAxisChart::obtainExplainedAt(UXPoint point) const
{
    if (const KXAssistantLineDataView::Line* line = _hitAssistantLine(point))
        return KXChartItem{assistantLineKind, 0, line->index};
    return KXAxisChart::obtainExplainedAt(point);
}

UXHintInfo KXXYAxisChart::obtainItemHint(const KXChartItem& item)
{
    if (item.kind != assistantLineKind)
        return KXAxisChart::obtainItemHint(item);
    UXHintInfo info = getAxisChartProperty()->getHintSettings();
    info.clearRows();
    for (const KXAssistantLineDataView* view : {m_linesBehind.get(), m_linesInFront.get()})
        for (const KXAssistantLineDataView::Line& line : view->getLines())
            if (line.index == item.index)
                view->fillHint(info, line);
    return info;
}

/** @return the lines with a cell, which follow the series in the legend */
std::vector<KXAssistantLineProperty> KXXYAxisChart::_obtainLegendLines() const
{
    std::vector<KXAssistantLineProperty> lines = getAxisChartProperty()->getAssistantLines();
    std::erase_if(lines, [](const KXAssistantLineProperty& line) { return !line.getShowInLegend(); });
    return lines;
}

std::optional<KXAssistantLineProperty> KXXYAxisChart::_findLegendLine(std::uint64_t index)
{
    const std::uint64_t seriesCells = KXAxisChart::obtainLegendCellSize();
    const std::vector<KXAssistantLineProperty> lines = _obtainLegendLines();
    return index >= seriesCells && index - seriesCells < lines.size()
               ? std::optional(lines[static_cast<std::size_t>(index - seriesCells)])
               : std::nullopt;
}

std::uint64_t KXXYAxisChart::obtainLegendCellSize()
{
    return preparedAndReloadedData() ? KXAxisChart::obtainLegendCellSize() + _obtainLegendLines().size()
                                     : KXAxisChart::obtainLegendCellSize();
}

bool KXXYAxisChart::obtainLegendShouldShowCell(std::uint64_t index)
{
    return _findLegendLine(index) || KXAxisChart::obtainLegendShouldShowCell(index);
}

std::string KXXYAxisChart::obtainLegendLabel(std::uint64_t index)
{
    const auto line = _findLegendLine(index);
    return line ? line->obtainCaption() : KXAxisChart::obtainLegendLabel(index);
}

bool KXXYAxisChart::obtainLegendSymbolColor(std::uint64_t index, UXColor& color)
{
    const auto line = _findLegendLine(index);
    if (!line)
        return KXAxisChart::obtainLegendSymbolColor(index, color);
    color = line->getColor();
    return true;
}

std::vector<KXObjectID> KXXYAxisChart::obtainLegendCellObjectID(std::uint64_t index)
{
    if (!_findLegendLine(index))
        return KXAxisChart::obtainLegendCellObjectID(index);
    return {KXObjectID::instance()
                .path(kxCreateObjectIDPath("AssistantLine"))
                .index(index - KXAxisChart::obtainLegendCellSize())};
}

bool KXXYAxisChart::obtainLegendCellIsOn(std::uint64_t index)
{
    return _findLegendLine(index) || KXAxisChart::obtainLegendCellIsOn(index);
}

void KXXYAxisChart::legendCellClicked(std::uint64_t index, const UXEvent& event)
{
    if (!_findLegendLine(index))
        KXAxisChart::legendCellClicked(index, event);
}

void KXXYAxisChart::legendCellHovered(std::uint64_t index, bool hovered)
{
    if (!_findLegendLine(index))
        KXAxisChart::legendCellHovered(index, hovered);
}
