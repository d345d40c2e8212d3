#include "kx_table_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_data_requests.h"
#include "kx_highlighted_parts.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
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
constexpr KXGridBand bands[] = {KXGridBand::Header, KXGridBand::Content, KXGridBand::Totals};

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
        KXTablePanelType::LeftTop,    KXTablePanelType::Top,     KXTablePanelType::RightTop,
        KXTablePanelType::Left,       KXTablePanelType::Content, KXTablePanelType::Right,
        KXTablePanelType::LeftBottom, KXTablePanelType::Bottom,  KXTablePanelType::RightBottom};
    for (const KXGridBand rowBand : bands)
        for (const KXGridBand columnBand : bands) {
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

void KXTableChart::resetData()
{
    KXTableChartDataUser::resetData();
    m_headerWidths.clear();
    m_measureWidths.clear();
    m_isSettled = false;
    m_shownFormats.clear();
}

void KXTableChart::customReloadData()
{
    const UXObjectWatcher self(this);
    KXTableChartDataUser::customReloadData();
    if (!self.isAlive())
        return;
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

KXTableChart::Line KXTableChart::_obtainLine(bool isRow, KXGridBand band, std::uint64_t index) const
{
    if (band == KXGridBand::Header)
        return {true, index, {}, 0};
    const std::uint64_t along = _obtainMeasuresAlong(isRow);
    if (band == KXGridBand::Totals)
        return {false, 0, {{}, KXTableLine::Kind::Total, false}, index % along};
    return {false, 0, getTree(isRow).obtainLine(index / along), index % along};
}

KXTableChart::Lines KXTableChart::_obtainLines(const KXGridPanel& panel, bool isRow) const
{
    const KXGridRange range = isRow ? panel.obtainVisibleRows() : panel.obtainVisibleColumns();
    const KXGridBand band = isRow ? panel.getRowBand() : panel.getColumnBand();
    Lines lines;
    lines.reserve(range.obtainCount());
    for (std::uint64_t index = range.first; index < range.end; ++index)
        lines.push_back(_obtainLine(isRow, band, index));
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
    const auto obtain = [this](bool isRow, std::uint64_t index) {
        const std::uint64_t count = _obtainContentCount(isRow);
        return index < count ? _obtainLine(isRow, KXGridBand::Content, index)
                             : _obtainLine(isRow, KXGridBand::Totals, index - count);
    };
    return _makePlace(obtain(true, row), obtain(false, column));
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
    hit.rowBand = item.group < rows ? KXGridBand::Content : KXGridBand::Totals;
    hit.columnBand = item.index < columns ? KXGridBand::Content : KXGridBand::Totals;
    hit.cell = {item.group < rows ? item.group : item.group - rows,
                item.index < columns ? item.index : item.index - columns};
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
        format.copyFrom(i < m_dataFormats.size() ? &m_dataFormats[i] : m_dataFormat.get());
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
    const std::uint64_t count = _obtainContentCount(isRow);
    if (index >= (isRow ? obtainRowCount() : obtainColumnCount()))
        return {};
    const Line line = index < count ? _obtainLine(isRow, KXGridBand::Content, index)
                                    : _obtainLine(isRow, KXGridBand::Totals, index - count);
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

// Items

std::optional<KXChartItem> KXTableChart::obtainItemAt(UXPoint point) const
{
    const UXRect area = m_grid->getRect();
    if (!m_grid->getVisible() || !uxPointInRect(point, area))
        return std::nullopt;
    const std::optional<KXGridHit> hit = m_grid->findCell({point.x - area.x, point.y - area.y});
    if (!hit || (hit->rowBand == KXGridBand::Header && hit->columnBand == KXGridBand::Header))
        return std::nullopt;
    return _makeItem(hit->rowBand, hit->columnBand, hit->cell.row, hit->cell.column);
}

bool KXTableChart::hasItem(const KXChartItem& item) const { return _findHit(item).has_value(); }

std::vector<KXChartItem> KXTableChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    for (const KXTablePanel* panel : m_panels)
        for (const KXTableDrawnCell& cell : panel->getCells())
            if (m_grid->getVisible() && cell.item && cell.item->kind == cellKind && hasItem(*cell.item))
                items.push_back(*cell.item);
    std::ranges::sort(items);
    return items;
}

std::uint64_t KXTableChart::obtainItemRowCount() const
{
    return obtainRowCount() == 0 ? 0 : 1 + obtainRowCount();
}

std::uint64_t KXTableChart::obtainItemRowLength(std::uint64_t row) const
{
    return obtainColumnCount() + (row > 0 ? 1 : 0);
}

KXChartItem KXTableChart::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    if (row == 0)
        return {columnKind, 0, place};
    return place == 0 ? KXChartItem{rowKind, row - 1, 0} : KXChartItem{cellKind, row - 1, place - 1};
}

UXAccessibleRole KXTableChart::obtainItemRole(const KXChartItem& item) const
{
    return item.kind == rowKind      ? UXAccessibleRole::RowHeader
           : item.kind == columnKind ? UXAccessibleRole::ColumnHeader
                                     : UXAccessibleRole::Cell;
}

UXRect KXTableChart::obtainItemRect(const KXChartItem& item) const
{
    const std::optional<KXGridHit> hit = m_grid->getVisible() ? _findHit(item) : std::nullopt;
    if (!hit)
        return {};
    UXRect rect = m_grid->obtainSeenRect(*hit);
    if (uxIsEmptyRect(rect))
        return {};
    rect.x += m_grid->getRect().x;
    rect.y += m_grid->getRect().y;
    return uxIntersectionRect(rect, getBoundingRect());
}

std::optional<KXChartItem> KXTableChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                          KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::uint64_t rows = obtainRowCount(), columns = obtainColumnCount();
    if (rows == 0 || columns == 0)
        return std::nullopt;
    if (step == First)
        return KXChartItem{cellKind, 0, 0};
    if (step == Last)
        return KXChartItem{cellKind, rows - 1, columns - 1};
    if (!from)
        return std::nullopt;
    KXChartItem item = *from;
    item.kind = cellKind;
    const auto moveBack = [this](std::uint64_t& place) {
        const std::uint64_t before = place;
        place -= std::min(place, m_stepLength);
        return place != before;
    };
    const auto moveOn = [this](std::uint64_t& place, std::uint64_t count) {
        const std::uint64_t before = place;
        place += std::min(count - 1 - place, m_stepLength);
        return place != before;
    };
    switch (step) {
    case Left:
        return moveBack(item.index) ? std::optional(item) : std::nullopt;
    case Right:
        return moveOn(item.index, columns) ? std::optional(item) : std::nullopt;
    case Up:
        return moveBack(item.group) ? std::optional(item) : std::nullopt;
    case Down:
        return moveOn(item.group, rows) ? std::optional(item) : std::nullopt;
    case Previous:
        if (item.index > 0)
            return KXChartItem{cellKind, item.group, item.index - 1};
        return item.group > 0 ? std::optional(KXChartItem{cellKind, item.group - 1, columns - 1})
                              : std::nullopt;
    default: // Next
        if (item.index + 1 < columns)
            return KXChartItem{cellKind, item.group, item.index + 1};
        return item.group + 1 < rows ? std::optional(KXChartItem{cellKind, item.group + 1, 0}) : std::nullopt;
    }
}

/** Totals stay in sight, so that of a place among them the other direction alone scrolls. */
void KXTableChart::showItem(const KXChartItem& item)
{
    const std::uint64_t rows = _obtainContentCount(true), columns = _obtainContentCount(false);
    if (rows == 0 || columns == 0 || !hasItem(item))
        return;
    const UXPoint offset(uxSaturateToInt(m_grid->getContentOffsetX()),
                         uxSaturateToInt(m_grid->getContentOffsetY()));
    const UXObjectWatcher self(this);
    m_grid->showCell({std::min(item.group, rows - 1), std::min(item.index, columns - 1)});
    if (self.isAlive() && item.group >= rows)
        m_grid->setContentOffsetY(offset.y);
    if (self.isAlive() && item.index >= columns)
        m_grid->setContentOffsetX(offset.x);
    if (self.isAlive())
        m_grid->layout(); // so that what is explained of the cell stands where it is
}

KXChartDataPath* KXTableChart::createItemPath(const KXChartItem& item)
{
    auto* path = new KXChartDataPath;
    static constexpr const char* identifiers[] = {"Cell", "Row", "Column"};
    const std::optional<KXTablePlace> place = obtainPlace(item.group, item.index);
    if (!place || item.kind < cellKind || item.kind > columnKind)
        return path;
    path->identifier = identifiers[item.kind];
    if (item.kind == cellKind) {
        path->valueIndexPath = _makeValuePath(*place);
        return path;
    }
    const bool isRow = item.kind == rowKind;
    const KXIndexPath& positions = isRow ? place->row : place->column;
    if (positions.empty())
        return path; // a total of all, or the name of a measure
    path->dimensionIndexPath = {(isRow ? 0 : getDimensions(true).size()) + positions.size() - 1};
    path->dimensionIndexPath.insert(path->dimensionIndexPath.end(), positions.begin(), positions.end());
    return path;
}

/** @param positions of a total with allMembers at their end, or shorter
 *  @return the first row or column that stands for them, none where it is not shown */
std::optional<std::uint64_t> KXTableChart::_findLine(bool isRow, KXIndexPath positions) const
{
    while (!positions.empty() && positions.back() == allMembers)
        positions.pop_back();
    if (positions.empty() && !getDimensions(isRow).empty())
        return _hasGrandTotal(isRow) ? std::optional(_obtainContentCount(isRow)) : std::nullopt;
    std::optional<std::uint64_t> line = getTree(isRow).findLine(positions);
    if (!line)
        line = getTree(isRow).findLine(positions, true);
    return line ? std::optional(*line * _obtainMeasuresAlong(isRow)) : std::nullopt;
}

std::optional<KXChartItem> KXTableChart::_findCell(const KXTablePlace& place) const
{
    const std::optional<std::uint64_t> row = _findLine(true, place.row);
    const std::optional<std::uint64_t> column = _findLine(false, place.column);
    if (!row || !column || place.measure >= getMeasures().size())
        return std::nullopt;
    return m_measuresOnRows ? KXChartItem{cellKind, *row + place.measure, *column}
                            : KXChartItem{cellKind, *row, *column + place.measure};
}

/** A path of another chart may name fewer dimensions: then it is about a row or a column. */
std::vector<KXChartItem> KXTableChart::findItems(const KXChartDataPath& path)
{
    const std::size_t rowLevels = getDimensions(true).size(), columnLevels = getDimensions(false).size();
    const KXIndexPath &value = path.valueIndexPath, &member = path.dimensionIndexPath;
    if (value.size() == 1 + rowLevels + columnLevels && value[0] < getMeasures().size()) {
        const auto middle = value.begin() + 1 + static_cast<std::ptrdiff_t>(rowLevels);
        const std::optional<KXChartItem> item = _findCell(
            {{value.begin() + 1, middle}, {middle, value.end()}, value[0]});
        return item ? std::vector{*item} : std::vector<KXChartItem>();
    }
    // The member of a dimension, or the value of a chart that has the first of them alone
    KXIndexPath positions(member.begin() + (member.empty() ? 0 : 1), member.end());
    std::uint64_t dimension = member.empty() ? 0 : member[0];
    if (member.empty() && value.size() == 2)
        positions = {value[1]};
    if (positions.empty() || rowLevels + columnLevels == 0)
        return {};
    const bool isRow = dimension < rowLevels;
    dimension -= isRow ? 0 : rowLevels;
    if (dimension + 1 != positions.size())
        return {};
    const std::optional<std::uint64_t> line = _findLine(isRow, positions);
    const KXChartItem item = isRow ? KXChartItem{rowKind, line.value_or(0), 0}
                                   : KXChartItem{columnKind, 0, line.value_or(0)};
    return line && hasItem(item) ? std::vector{item} : std::vector<KXChartItem>();
}

std::vector<KXObjectID> KXTableChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const auto make = [](const char* kind, std::uint64_t index) {
        return KXObjectID::instance().path(kxCreateObjectIDPath(std::string(kind))).index(index);
    };
    if (item.kind == rowKind)
        return {make("Row", item.group)};
    if (item.kind == columnKind)
        return {make("Column", item.index)};
    return {make("Row", item.group).path(kxCreateObjectIDPath(std::string("Column"))).index(item.index)};
}

/** @return what the provider says about a cell, or else its row, its column and what it shows */
UXHintInfo KXTableChart::obtainItemHint(const KXChartItem& item)
{
    const std::optional<KXTablePlace> place = obtainPlace(item.group, item.index);
    const std::optional<KXGridHit> hit = _findHit(item);
    if (!place || !hit)
        return UXHintInfo(false);
    const KXChartDataProviderUse use(*this);
    KXChartDataProviderHintData data;
    auto* provider = use.as<KXTableChartDataProvider>();
    if (provider && item.kind == cellKind)
        data = provider->obtainHintData(this, _makeValuePath(*place));
    if (!use.isAlive() || obtainPlace(item.group, item.index) != place)
        return UXHintInfo(false);
    if (!data.isEmpty())
        return kxMakeHintInfo(data, m_hintInfo);

    const bool hasRow = item.kind != columnKind, hasColumn = item.kind != rowKind;
    std::string title = hasRow ? _describeLine(true, _obtainLine(true, hit->rowBand, hit->cell.row)) : "";
    std::string column = hasColumn
                             ? _describeLine(false, _obtainLine(false, hit->columnBand, hit->cell.column))
                             : "";
    title += (title.empty() || column.empty() ? "" : ", ") + column;
    if (item.kind != cellKind)
        return kxMakeHintInfo({title, ""}, m_hintInfo);
    const std::string label = getMeasures()[place->measure].label;
    const KXTableCell* cell = findCell(*place);
    std::string text = cell && cell->state == KXTableCellState::Error ? cell->text : std::string();
    if (text.empty())
        text = obtainCellText(item.group, item.index);
    if (!use.isAlive() || obtainPlace(item.group, item.index) != place)
        return UXHintInfo(false);
    const KXTableCell* told = findCell(*place);
    if (told && told->part && _obtainShown(place->measure) == KXTableShowValuesAs::Value)
        text = KXHighlightedParts::tellPart(_obtainFormat(place->measure).formatNumber(*told->part), text);
    return kxMakeHintInfo({title, label, text}, m_hintInfo);
}

UXRect KXTableChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXTableChart::createDataPath() { return getItems()->createActionPath(); }

/** A row or a column that stands out does so in all of its cells. */
bool KXTableChart::_isHighlighted(const KXChartItem& item) const
{
    const KXChartItems& items = *getItems();
    return items.isHighlighted(item) ||
           (item.kind == cellKind && (items.isHighlighted({rowKind, item.group, 0}) ||
                                      items.isHighlighted({columnKind, 0, item.index})));
}

void KXTableChart::itemLooksChanged()
{
    for (KXTablePanel* panel : m_panels)
        if (panel->highlightCells([this](const KXChartItem& item) { return _isHighlighted(item); }))
            panel->invalidate();
}
