#include "kx_axis_chart.h"
#include "kx_axis_chart_axis.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart_data_view.h"
#include "kx_chart.h"
#include "kx_chart_diagnostic.h"
#include "kx_chart_heat_map_column_header_panel.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_control_chart_row.h"
#include "kx_figure_chart.h"
#include "kx_gauge_chart.h"
#include "kx_heat_map_chart.h"
#include "kx_heat_map_panel.h"
#include "kx_legend.h"
#include "kx_legend_cell.h"
#include "kx_line_chart_data_view.h"
#include "kx_member_panel_chart.h"
#include "kx_table_chart.h"
#include "kx_table_grid.h"
#include "kx_table_panel.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_label.h"
#include "ux/ux_localize.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_virtual_scroll_view.h"

#include <initializer_list>
#include <map>

// What of a chart is not seen in full, as its last layout left it. Reasons are put into the host's language
// when all is told, as asking for that may destroy the chart.

namespace {

using Diagnostics = std::vector<KXChartDiagnostic>;
using enum KXChartDiagnosticKind;

constexpr const char* noRoom = "there is no room for it";

/** The cells in sight whose texts are cut. What a list has scrolled out of sight is there for the asking. */
void addCutCells(const UXObject& object, const KXChart& chart, Diagnostics& diagnostics)
{
    for (const UXObject* child : object.getChildren()) {
        if (!child->getVisible())
            continue;
        const auto add = [&](const std::string& text) {
            diagnostics.push_back(
                {ShortenedText, text, noRoom,
                 child->translateRectToParent(child->getBoundingRect(), const_cast<KXChart*>(&chart)), 1});
        };
        if (const auto* cell = dynamic_cast<const KXLegendCell*>(child)) {
            if (chart.getLegend()->isLabelCut(cell->getLabel(), cell->getRect().width))
                add(cell->getLabel());
        } else if (const auto* row = dynamic_cast<const KXControlChartRow*>(child)) {
            if (row->isCut())
                add(row->getContent().text);
        } else {
            addCutCells(*child, chart, diagnostics);
        }
    }
}

void addTitle(const KXChart& chart, Diagnostics& diagnostics)
{
    const KXChartLabel& title = *chart.getTitle();
    const std::string text = chart.obtainTitleText();
    if (text.empty() || !chart.getChartProperty()->getShowTitle())
        return;
    const UXRect rect = title.getRect();
    const UXTextProperty& property = title.getTextProperty();
    const bool wraps = chart.getChartProperty()->getTitleValueWrap();
    const UXDoubleSize size = uxMeasureText(text, property, wraps ? rect.width : 0);
    const UXRect seen = uxIntersectionRect(rect, chart.getContentRect());
    const bool isLeftOut = uxIsEmptyRect(seen) || seen.height + 1 < uxMeasureText(text, property).height;
    if (isLeftOut || size.width > rect.width + 1 || size.height > seen.height + 1)
        diagnostics.push_back({isLeftOut ? LeftOutText : ShortenedText, text, noRoom, seen, 1});
}

void addValueOutside(Diagnostics& diagnostics, std::uint64_t count)
{
    if (count > 0)
        diagnostics.push_back({ClippedValue, {}, "the axis does not reach so far", {}, count});
}

/** Each reason is asked for once. */
void translateReasons(Diagnostics& diagnostics)
{
    std::map<std::string, std::string> translated;
    for (KXChartDiagnostic& diagnostic : diagnostics) {
        const auto [reason, isNew] = translated.try_emplace(diagnostic.reason);
        if (isNew)
            reason->second = uxLocalizeString(diagnostic.reason);
        diagnostic.reason = reason->second;
    }
}

} // namespace

std::vector<KXChartDiagnostic> KXChart::diagnostics() const
{
    Diagnostics diagnostics;
    for (const std::string& key : getDeserializedUnknownKeys())
        diagnostics.push_back({UnknownKey, key, "nothing reads it", {}, 1});
    addTitle(*this, diagnostics);
    const std::size_t legend = diagnostics.size();
    const bool wantsLegend = m_legend->getVisible() && const_cast<KXChart*>(this)->obtainLegendCellSize() > 0;
    const bool lacksLegend = wantsLegend && uxIsEmptyRect(m_legend->getRect());
    if (lacksLegend)
        diagnostics.push_back({LeftOutText, "Legend", noRoom, {}, 1});
    addCutCells(*this, *this, diagnostics);
    _diagnose(diagnostics);

    translateReasons(diagnostics);
    if (lacksLegend)
        diagnostics[legend].text = uxLocalizeString(diagnostics[legend].text);
    return diagnostics;
}

void KXChart::_diagnose(std::vector<KXChartDiagnostic>&) const {}

void KXAxisChartBase::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXChart::_diagnose(diagnostics);
    for (const auto& axis : _getAxes()) {
        if (!axis->isUsed)
            continue;
        const std::string title = axis->obtainTitleText();
        const bool isSeen = axis->title->getVisible();
        if (axis->showsTitle() && (!isSeen || axis->title->getText() != title))
            diagnostics.push_back({isSeen ? ShortenedText : LeftOutText, title, noRoom,
                                   isSeen ? translateRect(axis->title->getBoundingRect(), axis->title,
                                                          const_cast<KXAxisChartBase*>(this))
                                          : UXRect(),
                                   1});
        if (axis->labels->getVisible())
            axis->labels->diagnose(diagnostics, *this);
        else if (axis->property->getShowTickLabels())
            diagnostics.push_back({LeftOutText, title, "labels of the axis have no room", {}, 1});
    }
}

void KXAxisChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXAxisChartBase::_diagnose(diagnostics);
    for (const auto& view : m_views) {
        view->getLabelLosses().tell(diagnostics, *getPlot(), *this);
        const auto* bars = dynamic_cast<const KXBarChartDataView*>(view.get());
        const auto* lines = dynamic_cast<const KXLineChartDataView*>(view.get());
        if ((bars && bars->isDense()) || (lines && lines->isDense()))
            diagnostics.push_back({MergedMarks,
                                   {},
                                   "several share a pixel, and their extremes are drawn",
                                   {},
                                   view->getShownSeries().size() * obtainShownCategoryCount()});
    }
}

void KXXYAxisChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXAxisChart::_diagnose(diagnostics);
    for (const KXAssistantLineDataView* view : {m_linesInFront.get(), m_linesBehind.get()})
        view->getLabelLosses().tell(diagnostics, *getPlot(), *this);
    if (m_leftOutCount > 0)
        diagnostics.push_back(
            {LeftOutValue, {}, "a logarithmic axis has no place for it", {}, m_leftOutCount});
    std::uint64_t outside = 0;
    for (const std::uint64_t series : getShownSeries()) {
        const KXAxisChartDataView* view = obtainViewOfSeries(series);
        const KXAxisChartAxis& axis = _obtainValueAxis(series);
        if (!view || kxIsStack(view->obtainStacking()) || view->placesItself())
            continue;
        for (const double value : obtainPlottedValues(series)) {
            const double counted = _toAxis(axis, value);
            outside += counted < axis.cache.axisMin || counted > axis.cache.axisMax;
        }
    }
    addValueOutside(diagnostics, outside);
}

void KXMemberPanelChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXPanelChart::_diagnose(diagnostics);
    m_labelLosses.tell(diagnostics, *this, *this);
    for (const KXListedGroups* listed : {&m_listed, &m_listedIndexes})
        if (const std::size_t count = listed->getGathered().size(); count > 0)
            diagnostics.push_back(
                {Others, m_othersName, "members too small or too many are gathered", {}, count});
    if (!m_note.empty())
        diagnostics.push_back({LeftOutValue, m_note, "no shape can show it", {}, 1});
}

void KXFigureChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXMemberPanelChart::_diagnose(diagnostics);
    m_textLosses.tell(diagnostics, *this, *this);
}

void KXGaugeChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXPanelChart::_diagnose(diagnostics);
    m_textLosses.tell(diagnostics, *this, *this);
}

void KXHeatMapChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXPanelChart::_diagnose(diagnostics);
    if (m_panel->getVisible())
        for (const KXHeatMapHeaderPanel* header : std::initializer_list<const KXHeatMapHeaderPanel*>{
                 &m_panel->getRowHeaderPanel(), &m_panel->getColumnHeaderPanel()})
            header->getLosses().tell(diagnostics, *header, *this);
    if (const std::uint64_t count = m_beyond.first + m_beyond.second; count > 0)
        diagnostics.push_back({ClippedValue, {}, "the colours do not reach so far", {}, count});
}

void KXTableChart::_diagnose(std::vector<KXChartDiagnostic>& diagnostics) const
{
    KXPanelChart::_diagnose(diagnostics);
    if (!m_grid->getVisible())
        return;
    KXTextLosses losses;
    for (const KXTablePanel* panel : m_panels) {
        losses.clear();
        for (const KXTableDrawnCell& cell : panel->getCells())
            if (!cell.wholeText.empty() && cell.text.empty())
                losses.leaveOut(cell.wholeText, cell.rect);
            else if (!cell.wholeText.empty())
                losses.shorten(cell.wholeText, cell.rect);
        losses.tell(diagnostics, *panel, *this);
    }
}
