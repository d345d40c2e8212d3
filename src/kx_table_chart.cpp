#include "kx_table_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_data_requests.h"
#include "kx_key_definitions.h"
#include "kx_measure_format.h"
#include "kx_no_data_label.h"
#include "kx_percentages.h"
#include "kx_table_chart_data_provider.h"
#include "kx_table_grid.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr int KXTableChart::cellKind;
constexpr int KXTableChart::rowKind;
constexpr int KXTableChart::columnKind;

namespace {

constexpr std::uint64_t allMembers = KXTableChartDataProvider::allMembers;
/** Of numbers of which some have a fraction and no format says how many decimals. */
constexpr int usualDecimals = 2;
constexpr double tenths = 10;
/** Not more columns are frozen: all of these are laid out. */
constexpr std::uint64_t greatestFrozenCount = 64;
constexpr KXGridBand rowBands[] = {KXGridBand::Header, KXGridBand::Content, KXGridBand::Totals};
constexpr KXGridBand columnBands[] = {KXGridBand::Header, KXGridBand::Content, KXGridBand::Totals,
                                      KXGridBand::Frozen};

std::size_t obtainSlot(KXGridBand rowBand, KXGridBand columnBand)
{
    return static_cast<std::size_t>(rowBand) * kxGridBandCount + static_cast<std::size_t>(columnBand);
}

} // namespace

KXTableChart::KXTableChart()
    : KXTableChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_grid(new KXTableGrid), m_noDataLabel(new KXNoDataLabel)
{
    addChild(m_grid);
    addChild(m_noDataLabel);
    static constexpr KXTablePanelType types[] = {
        KXTablePanelType::LeftTop, KXTablePanelType::Top,         KXTablePanelType::RightTop,
        KXTablePanelType::Top,     KXTablePanelType::Left,        KXTablePanelType::Content,
        KXTablePanelType::Right,   KXTablePanelType::Content,     KXTablePanelType::LeftBottom,
        KXTablePanelType::Bottom,  KXTablePanelType::RightBottom, KXTablePanelType::Bottom};
    for (const KXGridBand rowBand : rowBands)
        for (const KXGridBand columnBand : columnBands) {
            const std::size_t slot = obtainSlot(rowBand, columnBand);
            m_panels[slot] = new KXTablePanel(types[slot]);
            m_panels[slot]->setDelegate(this);
            m_grid->setPanel(rowBand, columnBand, m_panels[slot]);
        }
    _makeItems(*this, *this, *this, *this);
}

KXTableChart::~KXTableChart() { _leaveView(); }

KX_DEFINE_CHART_KEYS(KXTableChart, KX_TABLE_CHART_KEYS)

const UXPropertyTable& KXTableChart::obtainPropertyTable()
{
    using Self = KXTableChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat, "how values are written")
            KX_TABLE_CHART_KEYS(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXTableChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

UXTextProperty KXTableChart::_makeTextProperty(const UXColor& color)
{
    UXTextProperty property;
    property.textColor = color;
    return property;
}

std::string KXTableChart::customSerializeTypeID() { return "KXTableChart"; }

/** What is open, left out and in which order is another matter with another document: as the host is asked
 * for it, after the next layout. */
bool KXTableChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXPanelChart::customDeserialize();
    if (self.isAlive())
        m_isStale = true;
    return isComplete;
}

KXTablePanel* KXTableChart::getPanel(KXTablePanelType type) const
{
    const auto found = std::ranges::find(m_panels, type, &KXTablePanel::getType);
    return found == m_panels.end() ? nullptr : *found;
}

KXTableHeaderTree::Style KXTableChart::_obtainTreeStyle(bool isRow) const
{
    KXTableHeaderTree::Style style;
    style.hasGroupLines = isRow && m_rowLayout == KXTableRowLayout::Tree;
    style.totals = isRow ? m_rowTotals : m_columnTotals;
    return style;
}

bool KXTableChart::_isGroupOpen(bool isRow, const std::string& identity) const
{
    return m_expandsGroups != (std::ranges::count(isRow ? m_toggledRows : m_toggledColumns, identity) > 0);
}

bool KXTableChart::_hidesEmptyMembers(bool isRow) const
{
    return isRow ? m_hideEmptyRows : m_hideEmptyColumns;
}

const std::vector<std::string>& KXTableChart::_obtainMemberOrder(bool isRow) const
{
    static const std::vector<std::string> asTheHostHasIt;
    return isRow ? asTheHostHasIt : m_columnOrder;
}

void KXTableChart::resetData()
{
    KXTableChartDataUser::resetData();
    _endColumnDrag(); // which knows members by their places among the data
    m_headerWidths.clear();
    m_measureWidths.clear();
    m_isSettled = false;
    m_shownFormats.clear();
    m_measureOrder.clear();
}

void KXTableChart::customReloadData()
{
    const UXObjectWatcher self(this);
    m_isStale = false;
    KXTableChartDataUser::customReloadData();
    if (!self.isAlive())
        return;
    _orderMeasures();
    std::string total = uxLocalizeString("Total");
    if (self.isAlive())
        m_totalWord = std::move(total);
}

void KXTableChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, KXTriggerCondition());
}

void KXTableChart::_blocksArrived()
{
    m_keepsWidths = m_isSettled;
    setRequireToVerifyLayout(true, true);
}

// What stands where

std::uint64_t KXTableChart::_obtainMeasuresAlong(bool isRow) const
{
    return isRow == m_measuresOnRows ? std::max<std::uint64_t>(getMeasures().size(), 1) : 1;
}

bool KXTableChart::_hasGrandTotal(bool isRow) const
{
    return (isRow ? m_rowTotals : m_columnTotals) != KXTableTotals::None && hasTotals(isRow, 0);
}

/** A single measure beside column members needs no name of its own. */
bool KXTableChart::_hasMeasureHeaders() const
{
    return !m_measuresOnRows && (getMeasures().size() > 1 || getDimensions(false).empty());
}

std::uint64_t KXTableChart::_obtainRowHeaderCount() const
{
    const std::uint64_t levels = getDimensions(true).size();
    const std::uint64_t columns = m_rowLayout == KXTableRowLayout::Tree ? std::min<std::uint64_t>(levels, 1)
                                                                        : levels;
    return columns + (m_measuresOnRows ? 1 : 0);
}

std::uint64_t KXTableChart::_obtainColumnHeaderCount() const
{
    return std::max<std::uint64_t>(getDimensions(false).size() + (_hasMeasureHeaders() ? 1 : 0), 1);
}

std::uint64_t KXTableChart::_obtainContentCount(bool isRow) const
{
    return getMeasures().empty() ? 0 : getTree(isRow).obtainLineCount() * _obtainMeasuresAlong(isRow);
}

std::uint64_t KXTableChart::obtainRowCount() const
{
    return _obtainContentCount(true) + (_hasGrandTotal(true) ? _obtainMeasuresAlong(true) : 0);
}

std::uint64_t KXTableChart::obtainColumnCount() const
{
    return _obtainContentCount(false) + (_hasGrandTotal(false) ? _obtainMeasuresAlong(false) : 0);
}

std::uint64_t KXTableChart::_obtainFrozenCount() const
{
    const auto wanted = static_cast<std::uint64_t>(std::max(m_frozenColumns, 0));
    return std::min({wanted, _obtainContentCount(false), greatestFrozenCount});
}

KXTableChart::Columns KXTableChart::_obtainColumns(KXGridBand band) const
{
    if (band == KXGridBand::Frozen)
        return {KXGridBand::Content, 0};
    return {band, band == KXGridBand::Content ? _obtainFrozenCount() : 0};
}

std::uint64_t KXTableChart::_obtainMeasureAt(bool isRow, std::uint64_t place) const
{
    return isRow == m_measuresOnRows && place < m_measureOrder.size() ? m_measureOrder[place] : place;
}

KXTableChart::Line KXTableChart::_obtainLine(bool isRow, KXGridBand band, std::uint64_t index) const
{
    if (band == KXGridBand::Header)
        return {true, index, {}, 0};
    const std::uint64_t along = _obtainMeasuresAlong(isRow);
    const std::uint64_t measure = _obtainMeasureAt(isRow, index % along);
    if (band == KXGridBand::Totals)
        return {false, 0, {{}, KXTableLine::Kind::Total, false}, measure};
    return {false, 0, getTree(isRow).obtainLine(index / along), measure};
}

/** @param index as items count: the totals of all after the content */
KXTableChart::Line KXTableChart::_obtainLineAt(bool isRow, std::uint64_t index) const
{
    const std::uint64_t count = _obtainContentCount(isRow);
    return index < count ? _obtainLine(isRow, KXGridBand::Content, index)
                         : _obtainLine(isRow, KXGridBand::Totals, index - count);
}

KXTableChart::Lines KXTableChart::_obtainLines(const KXGridPanel& panel, bool isRow) const
{
    const KXGridRange range = isRow ? panel.obtainVisibleRows() : panel.obtainVisibleColumns();
    const Columns columns = _obtainColumns(panel.getColumnBand());
    Lines lines;
    lines.reserve(range.obtainCount());
    for (std::uint64_t index = range.first; index < range.end; ++index)
        lines.push_back(isRow ? _obtainLine(true, panel.getRowBand(), index)
                              : _obtainLine(false, columns.band, columns.first + index));
    return lines;
}

KXTablePlace KXTableChart::_makePlace(const Line& row, const Line& column) const
{
    return {row.line.path, column.line.path, m_measuresOnRows ? row.measure : column.measure};
}

std::optional<KXTablePlace> KXTableChart::obtainPlace(std::uint64_t row, std::uint64_t column) const
{
    if (row >= obtainRowCount() || column >= obtainColumnCount())
        return std::nullopt;
    return _makePlace(_obtainLineAt(true, row), _obtainLineAt(false, column));
}

/** @return whether a line stands for several members */
bool KXTableChart::_isTotal(bool isRow, const Line& line) const
{
    return line.line.path.size() < getDimensions(isRow).size();
}

std::optional<KXGridHit> KXTableChart::_findHit(const KXChartItem& item) const
{
    if (item.kind < cellKind || item.kind > columnKind || item.group >= obtainRowCount() ||
        item.index >= obtainColumnCount())
        return std::nullopt;
    KXGridHit hit;
    const std::uint64_t rows = _obtainContentCount(true), columns = _obtainContentCount(false);
    const std::uint64_t frozen = _obtainFrozenCount();
    hit.rowBand = item.group < rows ? KXGridBand::Content : KXGridBand::Totals;
    hit.columnBand = item.index < frozen    ? KXGridBand::Frozen
                     : item.index < columns ? KXGridBand::Content
                                            : KXGridBand::Totals;
    hit.cell = {item.group < rows ? item.group : item.group - rows, item.index < frozen ? item.index
                                                                    : item.index < columns
                                                                        ? item.index - frozen
                                                                        : item.index - columns};
    if (item.kind == rowKind) {
        hit.columnBand = KXGridBand::Header;
        hit.cell.column = 0;
    } else if (item.kind == columnKind) {
        hit.rowBand = KXGridBand::Header;
        hit.cell.row = _obtainColumnHeaderCount() - 1;
    }
    return hit;
}

KXChartItem KXTableChart::_makeItem(KXGridBand rowBand, KXGridBand columnBand, std::uint64_t row,
                                    std::uint64_t column) const
{
    if (rowBand == KXGridBand::Totals)
        row += _obtainContentCount(true);
    if (columnBand == KXGridBand::Totals)
        column += _obtainContentCount(false);
    if (columnBand == KXGridBand::Header)
        return {rowKind, row, 0};
    return rowBand == KXGridBand::Header ? KXChartItem{columnKind, 0, column}
                                         : KXChartItem{cellKind, row, column};
}

KXIndexPath KXTableChart::_makeValuePath(const KXTablePlace& place) const
{
    KXIndexPath path{place.measure};
    for (const bool isRow : {true, false}) {
        const KXIndexPath& positions = isRow ? place.row : place.column;
        path.insert(path.end(), positions.begin(), positions.end());
        path.resize(path.size() + getDimensions(isRow).size() - positions.size(), allMembers);
    }
    return path;
}

// What is written

KXTableShowValuesAs KXTableChart::_obtainShown(std::uint64_t measure) const
{
    return measure < m_showValuesAs.size() ? m_showValuesAs[measure] : KXTableShowValuesAs::Value;
}

/** Numbers of one measure have as many decimals as each other. */
const KXChartDataFormat& KXTableChart::_obtainFormat(std::uint64_t measure)
{
    if (m_shownFormats.size() == getMeasures().size())
        return m_shownFormats[measure];
    m_shownFormats.clear();
    m_shownFormats.reserve(getMeasures().size());
    for (std::uint64_t i = 0; i < getMeasures().size(); ++i) {
        KXChartDataFormat format;
        format.copyFrom(&kxFindMeasureFormat(m_dataFormats, i, *m_dataFormat));
        if (format.getDecimals() < 0 && getExtent(i).hasFractions)
            format.setDecimals(usualDecimals);
        m_shownFormats.push_back(std::move(format));
    }
    return m_shownFormats[measure];
}

std::string KXTableChart::_formatCell(const KXTablePlace& place, const KXTableCell& cell)
{
    const Measure& measure = getMeasures()[place.measure];
    switch (cell.state) {
    case KXTableCellState::Null:
        return m_nullText;
    case KXTableCellState::Empty:
        return {};
    case KXTableCellState::Error:
        return m_errorText;
    case KXTableCellState::Value:
        break;
    }
    if (measure.isNumber()) {
        const double number = obtainShownNumber(place, _obtainShown(place.measure));
        if (!std::isfinite(number))
            return {};
        return kxIsPercentage(_obtainShown(place.measure))
                   ? kxFormatPartOfWhole(std::round(number * tenths) / tenths, number, 1)
                   : _obtainFormat(place.measure).formatNumber(number);
    }
    return measure.type == KXChartDataType::String
               ? cell.text
               : _obtainFormat(place.measure).formatDateTime(cell.text, measure.type, measure.level);
}

std::string KXTableChart::obtainCellText(std::uint64_t row, std::uint64_t column)
{
    const std::optional<KXTablePlace> place = obtainPlace(row, column);
    if (!place)
        return {};
    const UXObjectWatcher self(this);
    std::string text;
    for (const bool mayAsk : {true, false}) { // what it is worked out of may be missing, too
        const KXTableCell* cell = findCell(*place);
        text = cell ? _formatCell(*place, *cell) : KXDataRequests::placeholder;
        if (!mayAsk || !_fetchMissing())
            break;
        if (!self.isAlive() || place != obtainPlace(row, column))
            return {};
        m_shownFormats.clear(); // there may be fractions among what has come
    }
    return text;
}

std::string KXTableChart::obtainHeaderText(bool isRow, std::uint64_t index)
{
    if (index >= (isRow ? obtainRowCount() : obtainColumnCount()))
        return {};
    const Line line = _obtainLineAt(isRow, index);
    std::string text = _describeLine(isRow, line);
    if (isRow == m_measuresOnRows && (getMeasures().size() > 1 || text.empty()))
        text += (text.empty() ? "" : ", ") + getMeasures()[line.measure].label;
    return text;
}

std::string KXTableChart::_obtainMemberText(bool isRow, const KXIndexPath& path)
{
    const KXTableHeader* header = findHeader(isRow, path);
    if (!header)
        return KXDataRequests::placeholder;
    const Dimension& dimension = getDimensions(isRow)[path.size() - 1];
    return header->shouldFormat ? m_dataFormat->formatDateTime(header->text, dimension.type, dimension.level)
                                : header->text;
}

/** @return what the line itself is called, without what is above it */
std::string KXTableChart::_obtainHeaderText(bool isRow, const Line& line)
{
    const KXIndexPath& path = line.line.path;
    if (line.line.kind != KXTableLine::Kind::Total)
        return path.empty() ? std::string() : _obtainMemberText(isRow, path);
    return path.empty() ? m_totalWord : m_totalWord + " " + _obtainMemberText(isRow, path);
}

/** @return the line and all above it */
std::string KXTableChart::_describeLine(bool isRow, const Line& line)
{
    std::string text;
    KXIndexPath path;
    for (const std::uint64_t position : line.line.path) {
        path.push_back(position);
        text += (text.empty() ? "" : ", ") + _obtainMemberText(isRow, path);
    }
    if (line.line.kind == KXTableLine::Kind::Total)
        text += (text.empty() ? "" : ", ") + m_totalWord;
    return text;
}

/** @return what documents know a column of the content by; empty where its members are not there yet */
std::string KXTableChart::_obtainColumnIdentity(std::uint64_t column)
{
    const Line line = _obtainLine(false, KXGridBand::Content, column);
    const std::string members = obtainIdentity(false, line.line.path);
    if (members.empty() && !line.line.path.empty())
        return {};
    const bool isTotal = line.line.kind == KXTableLine::Kind::Total;
    const std::string id = m_measuresOnRows ? std::string() : getMeasures()[line.measure].id;
    return members + (isTotal ? "//" : "/") + id;
}

const KXTableDatabarInfo* KXTableChart::_findDatabar(std::uint64_t measure) const
{
    for (const KXTableDatabarInfo& databar : m_databars)
        if (databar.getMeasureID().empty() || databar.getMeasureID() == getMeasures()[measure].id)
            return &databar;
    return nullptr;
}
