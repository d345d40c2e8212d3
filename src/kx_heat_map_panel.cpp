#include "kx_heat_map_panel.h"

#include "kx_chart_heat_map_column_header_panel.h"
#include "kx_heat_map_content_panel.h"
#include "kx_heat_map_header_panel.h"

#include <algorithm>
#include <cmath>

namespace {

/** Of the extent: what names take at most. */
constexpr double greatestNameShare = 1.0 / 3;
/** What is decided first is decided anew with what it leads to. */
constexpr int roundCount = 2;

/** The lines of one direction, and whether they scroll. */
struct Lines {
    KXGridLines lines;
    bool scrolls = false;
};

Lines divide(std::uint64_t count, double room, double least, bool neverScrolls)
{
    const double equal = count > 0 ? std::max(room, 0.0) / static_cast<double>(count) : 0;
    const bool scrolls = !neverScrolls && equal < least;
    return {KXGridLines::makeEqual(count, scrolls ? least : equal), scrolls};
}

} // namespace

KXHeatMapPanel::KXHeatMapPanel()
    : m_content(new KXHeatMapContentPanel), m_rowTotals(new KXHeatMapContentPanel),
      m_columnTotals(new KXHeatMapContentPanel), m_grandTotal(new KXHeatMapContentPanel),
      m_columnHeader(new KXChartHeatMapColumnHeaderPanel), m_rowHeader(new KXHeatMapHeaderPanel),
      m_rowTotalsHeader(new KXHeatMapHeaderPanel), m_columnTotalsHeader(new KXHeatMapHeaderPanel)
{
    using enum KXGridBand;
    setPanel(Content, Content, m_content);
    setPanel(Content, Totals, m_rowTotals);
    setPanel(Totals, Content, m_columnTotals);
    setPanel(Totals, Totals, m_grandTotal);
    setPanel(Header, Content, m_columnHeader);
    setPanel(Content, Header, m_rowHeader);
    setPanel(Header, Totals, m_rowTotalsHeader);
    setPanel(Totals, Header, m_columnTotalsHeader);
}

KXHeatMapPanel::~KXHeatMapPanel() = default;

std::string KXHeatMapPanel::customSerializeTypeID() { return "KXHeatMapPanel"; }

void KXHeatMapPanel::_forgetNames()
{
    for (KXHeatMapHeaderPanel* header : {m_rowHeader, m_rowTotalsHeader, m_columnTotalsHeader,
                                         static_cast<KXHeatMapHeaderPanel*>(m_columnHeader)})
        header->forgetWidths();
    m_rowHeaderExtent = m_columnHeaderExtent = 0;
}

/** @return the rows and the columns in what the names leave */
KXHeatMapPanel::Division KXHeatMapPanel::_divide(const KXHeatMapArrangement& arrangement) const
{
    const UXRect own = getContentRect();
    const double width = own.width - m_rowHeaderExtent - _obtainTotalsExtent(arrangement, true);
    const double height = own.height - m_columnHeaderExtent - _obtainTotalsExtent(arrangement, false);
    const auto divideRows = [&](double room) {
        return divide(arrangement.rowCount, room, arrangement.leastRowExtent, arrangement.neverScrolls);
    };
    const auto divideColumns = [&](double room) {
        return divide(arrangement.columnCount, room, arrangement.leastColumnExtent, arrangement.neverScrolls);
    };
    // A bar of one direction takes room from the other one.
    Lines rows = divideRows(height), columns = divideColumns(width);
    if (rows.scrolls)
        columns = divideColumns(width - extraExtent);
    if (columns.scrolls)
        rows = divideRows(height - extraExtent);
    return {rows.lines, columns.lines};
}

double KXHeatMapPanel::_obtainTotalsExtent(const KXHeatMapArrangement& arrangement, bool ofRows) const
{
    const UXRect own = getContentRect();
    return ofRows ? std::min(arrangement.rowTotalsExtent, std::floor(own.width * greatestTotalsShare))
                  : std::min(arrangement.columnTotalsExtent, std::floor(own.height * greatestTotalsShare));
}

void KXHeatMapPanel::arrange(const KXHeatMapArrangement& arrangement, bool keepsNames)
{
    const UXRect own = getContentRect();
    const bool hasThisSize = UXSize(own.width, own.height) == m_arrangedSize;
    m_arrangedSize = {own.width, own.height};
    if (!keepsNames || !hasThisSize)
        _forgetNames();
    for (int round = 0; round < roundCount; ++round)
        _fitHeaders(arrangement, _divide(arrangement));
    const Division division = _divide(arrangement);
    using enum KXGridBand;
    const auto obtainOne = [](double extent) { return KXGridLines::makeEqual(extent > 0 ? 1 : 0, extent); };
    setColumns(Header, obtainOne(m_rowHeaderExtent));
    setRows(Header, obtainOne(m_columnHeaderExtent));
    setColumns(Totals, obtainOne(_obtainTotalsExtent(arrangement, true)));
    setRows(Totals, obtainOne(_obtainTotalsExtent(arrangement, false)));
    setRows(Content, division.rows);
    setColumns(Content, division.columns);
}

void KXHeatMapPanel::_fitHeaders(const KXHeatMapArrangement& arrangement, const Division& division)
{
    const auto& [rows, columns] = division;
    const UXRect own = getContentRect();
    const auto left = static_cast<double>(getContentOffsetX()),
               top = static_cast<double>(getContentOffsetY());
    const auto mostAcross = static_cast<int>(own.width * greatestNameShare);
    const auto mostDown = static_cast<int>(own.height * greatestNameShare);
    m_rowHeaderExtent = m_rowHeader->fit(rows, rows.obtainRange(top, top + own.height), mostAcross);
    m_columnHeaderExtent = m_columnHeader->fit(columns, columns.obtainRange(left, left + own.width),
                                               mostDown);
    const auto fitTotal = [](KXHeatMapHeaderPanel& header, double extent, int most) {
        return extent > 0 ? header.fit(KXGridLines::makeEqual(1, extent), {0, 1}, most) : 0;
    };
    m_columnHeaderExtent = std::max(m_columnHeaderExtent,
                                    fitTotal(*m_rowTotalsHeader, arrangement.rowTotalsExtent, mostDown));
    m_rowHeaderExtent = std::max(m_rowHeaderExtent,
                                 fitTotal(*m_columnTotalsHeader, arrangement.columnTotalsExtent, mostAcross));
}
