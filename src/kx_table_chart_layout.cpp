#include "kx_chart_data_format.h"
#include "kx_chart_items.h"
#include "kx_highlighted_parts.h"
#include "kx_no_data_label.h"
#include "kx_readable_color.h"
#include "kx_table_chart.h"
#include "kx_table_grid.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace {

/** Between a cell's edges and its text. */
constexpr double paddingAcross = 7, paddingDown = 5;
/** How much further in the next level of a tree stands, and what a mark takes. */
constexpr double indent = 14, markWidth = 14;
constexpr double leastHeight = 8, greatestHeight = 1000;
/** Columns that grow move others out of sight, so that more rounds than a few are not needed. */
constexpr int greatestRoundCount = 6;
constexpr double barGap = 3;
constexpr UXColor highlightColor(33, 105, 199, 0.12);
const std::vector<double> noPercentiles;
const std::string cutNumber = "\u2026";

void makeOneLine(std::string& text)
{
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
}

KXIndexPath obtainStart(const KXIndexPath& path, std::size_t length)
{
    return {path.begin(), path.begin() + static_cast<std::ptrdiff_t>(std::min(length, path.size()))};
}

} // namespace

void KXTableChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    if (effect == UXPropertyEffect::Recolor) {
        const UXFlagScope asksNobody(this, m_asksNobody);
        for (KXTablePanel* panel : m_panels)
            panel->placeCells();
    }
    if (self.isAlive())
        KXPanelChart::_applyKeyEffect(effect);
}

void KXTableChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    const bool hasCells = preparedAndReloadedData() && obtainRowCount() > 0 && obtainColumnCount() > 0;
    m_noDataLabel->update(plotArea, hasCells);
    if (!self.isAlive())
        return;
    if (!std::exchange(m_keepsWidths, false)) { // what columns need goes by what is in sight now
        m_headerWidths.clear();
        m_measureWidths.clear();
    }
    m_shownFormats.clear();
    m_grid->setVisible(hasCells);
    m_grid->setRect(plotArea);
    if (m_grid->getSelects() != (m_canSelect && isInteractionEnabled()))
        m_grid->setSelects(!m_grid->getSelects());
    _layoutGrid();
    if (!self.isAlive())
        return;
    UXLayoutRounds::postAction([this, self] {
        if (self.isAlive() && m_isStale && reloadedData())
            reloadData();
        if (self.isAlive())
            registerRightClickMenu(this, KXTriggerCondition());
    });
}

/** Texts that do not fit make their columns wider, which then are laid out anew. */
void KXTableChart::_layoutGrid()
{
    const UXFlagScope lays(this, m_isLayingOut);
    for (int round = 0; round < greatestRoundCount; ++round) {
        m_isGrowing = false;
        _updateLines();
        for (KXTablePanel* panel : m_panels)
            panel->setRequireToVerifyLayout(true);
        m_grid->setRequireToVerifyLayout(true);
        m_grid->layout();
        if (!m_isGrowing)
            break;
    }
    m_isSettled = !_hasMissing();
}

void KXTableChart::_updateLines()
{
    const auto obtainTextHeight = [](const UXTextProperty& property) {
        return std::min(std::ceil(uxMeasureText("Xg", property).height), greatestHeight);
    };
    const double headerHeight = obtainTextHeight(m_headerProperty);
    const double textHeight = std::max(obtainTextHeight(m_labelProperty), headerHeight);
    const double given = std::clamp<double>(m_rowHeight, leastHeight, greatestHeight);
    const double height = m_rowHeight > 0 ? std::max(given, textHeight) : textHeight + 2 * paddingDown;
    m_grid->setTotalsBeforeContent(m_rowTotals == KXTableTotals::Before,
                                   m_columnTotals == KXTableTotals::Before);
    m_grid->setRows(KXGridBand::Header,
                    KXGridLines::makeEqual(_obtainColumnHeaderCount(), headerHeight + 2 * paddingDown));
    m_grid->setRows(KXGridBand::Content, KXGridLines::makeEqual(_obtainContentCount(true), height));
    m_grid->setRows(KXGridBand::Totals,
                    KXGridLines::makeEqual(obtainRowCount() - _obtainContentCount(true), height));
    _updateColumns();
}

/** @return whether the grid has the lines of the present data: other data may wait for their layout */
bool KXTableChart::_isLaidOut() const
{
    return m_grid->getRows(KXGridBand::Content).getCount() == _obtainContentCount(true) &&
           m_grid->getColumns(KXGridBand::Frozen).getCount() == _obtainFrozenCount() &&
           m_grid->getColumns(KXGridBand::Content).getCount() + _obtainFrozenCount() ==
               _obtainContentCount(false) &&
           m_grid->getRows(KXGridBand::Header).getCount() == _obtainColumnHeaderCount() &&
           m_grid->getColumns(KXGridBand::Header).getCount() == _obtainRowHeaderCount() &&
           m_headerWidths.size() == _obtainRowHeaderCount();
}

void KXTableChart::layoutTablePanel(KXTablePanel& panel)
{
    if (!_isLaidOut()) {
        panel.setCells(_makeLook(panel), {});
        return;
    }
    const bool isAbove = panel.getRowBand() == KXGridBand::Header;
    const bool isBeside = panel.getColumnBand() == KXGridBand::Header;
    std::vector<KXTableDrawnCell> cells = isAbove
                                              ? (isBeside ? _layoutCorner(panel)
                                                          : _layoutColumnHeaders(panel))
                                              : (isBeside ? _layoutRowHeaders(panel) : _layoutValues(panel));
    _leaveOutCutTexts(panel, cells);
    panel.setCells(_makeLook(panel), std::move(cells));
    panel.highlightCells([this](const KXChartItem& item) { return _isHighlighted(item); });
    if (!m_asksNobody)
        _requestMissing();
}

KXTablePanel::Look KXTableChart::_makeLook(const KXTablePanel& panel) const
{
    const bool isHeader = panel.getRowBand() == KXGridBand::Header ||
                          panel.getColumnBand() == KXGridBand::Header;
    const bool isTotal = panel.getRowBand() == KXGridBand::Totals ||
                         panel.getColumnBand() == KXGridBand::Totals;
    KXTablePanel::Look look;
    look.font = (isHeader ? m_headerProperty : m_labelProperty).font;
    if (isHeader || isTotal)
        look.ground = isHeader ? m_headerColor : m_totalColor;
    look.lineColor = m_gridLineColor;
    look.highlightColor = highlightColor;
    look.hasColumnLines = m_showColumnLines;
    if (panel.getColumnBand() == KXGridBand::Frozen)
        look.edgeColor = m_quietColor;
    return look;
}

KXTableDrawnCell KXTableChart::_makeCell(const UXDoubleRect& rect, const std::string& text,
                                         const UXTextProperty& property) const
{
    KXTableDrawnCell cell;
    cell.rect = rect;
    cell.textRect = {rect.x + paddingAcross, rect.y, std::max(rect.width - 2 * paddingAcross, 0.0),
                     rect.height};
    cell.text = text;
    makeOneLine(cell.text);
    cell.textColor = property.textColor;
    return cell;
}

/** A number that is cut would look like another one, so that it is left out. */
void KXTableChart::_fitText(KXTableDrawnCell& cell, const UXTextProperty& property, KXGridBand band,
                            std::uint64_t column, bool isNumber, bool mayGrow)
{
    if (cell.text.empty())
        return;
    UXFont font = property.font;
    font.bold = font.bold || cell.isBold;
    const auto obtainWidth = [&font](const std::string& text) {
        return uxMeasureText(text, font, UXTextOption::Default, 2).width;
    };
    cell.textWidth = obtainWidth(cell.text);
    if (cell.textWidth <= cell.textRect.width)
        return;
    if (mayGrow)
        _growColumn(band, column, cell.textWidth + cell.rect.width - cell.textRect.width);
    cell.isCut = true;
    cell.wholeText = cell.text;
    if (isNumber)
        cell.text = cutNumber;
    else
        cell.text = uxShortenText(cell.text, UXTextOption::EllipsisEnd, cell.textRect.width,
                                  [&](std::string_view part) { return obtainWidth(std::string(part)); });
    cell.textWidth = obtainWidth(cell.text);
    if (cell.textWidth > cell.textRect.width)
        cell.text.clear();
}

/** Leaves out what the panel's edge would cut: of a number any part, of a text most of it. */
void KXTableChart::_leaveOutCutTexts(const KXTablePanel& panel, std::vector<KXTableDrawnCell>& cells) const
{
    const UXDoubleRect seen(panel.getBoundingRect());
    for (KXTableDrawnCell& cell : cells) {
        if (cell.text.empty())
            continue;
        UXDoubleRect text = cell.textRect;
        text.width = std::min(cell.textWidth, text.width);
        if (cell.align == UXTextAlign::Right)
            text.x = uxMaxDoubleX(cell.textRect) - text.width;
        const UXDoubleRect shown = uxIntersectionDoubleRect(text, seen);
        const bool isWhole = shown.width >= text.width;
        const std::string whole = cell.wholeText.empty() ? cell.text : cell.wholeText;
        if (cell.align == UXTextAlign::Right ? !isWhole : 2 * shown.width < text.width) {
            cell.text.clear();
            cell.isCut = true;
        } else if (2 * shown.height < text.height) {
            cell.text.clear();
        }
        if (cell.text.empty())
            cell.wholeText = whole;
    }
}

// Headers

/** The names of the dimensions stand beside and above their members. */
std::vector<KXTableDrawnCell> KXTableChart::_layoutCorner(const KXTablePanel& panel)
{
    std::vector<KXTableDrawnCell> cells;
    const KXGridRange rows = panel.obtainVisibleRows(), columns = panel.obtainVisibleColumns();
    const std::vector<Dimension>& down = getDimensions(true);
    const std::vector<Dimension>& across = getDimensions(false);
    const std::uint64_t lastRow = _obtainColumnHeaderCount() - 1;
    for (std::uint64_t row = rows.first; row < rows.end; ++row)
        for (std::uint64_t column = columns.first; column < columns.end; ++column) {
            std::string text;
            const bool isMeasures = m_measuresOnRows && column + 1 == _obtainRowHeaderCount();
            if (row == lastRow && !isMeasures && m_rowLayout == KXTableRowLayout::Columns)
                text = down[column].label;
            else if (row == lastRow && !isMeasures)
                for (const Dimension& dimension : down)
                    text += (text.empty() ? "" : " / ") + dimension.label;
            const bool namesColumns = row != lastRow && row < across.size() &&
                                      column + 1 == _obtainRowHeaderCount();
            if (namesColumns)
                text = across[row].label;
            KXTableDrawnCell cell = _makeCell(panel.obtainCellRect({row, column}), text, m_headerProperty);
            cell.align = namesColumns ? UXTextAlign::Right : UXTextAlign::Left;
            cell.isBold = !namesColumns;
            if (namesColumns)
                cell.textColor = m_quietColor;
            _fitText(cell, m_headerProperty, KXGridBand::Header, column, false);
            cells.push_back(std::move(cell));
        }
    return cells;
}

std::vector<KXTableDrawnCell> KXTableChart::_layoutRowHeaders(const KXTablePanel& panel)
{
    std::vector<KXTableDrawnCell> cells;
    const KXGridRange range = panel.obtainVisibleRows(), columns = panel.obtainVisibleColumns();
    const Lines rows = _obtainLines(panel, true);
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::uint64_t column = columns.first; column < columns.end; ++column) {
            const UXDoubleRect rect = panel.obtainCellRect({range.first + i, column});
            const Line* before = i > 0 ? &rows[i - 1] : nullptr;
            KXTableDrawnCell cell;
            if (m_measuresOnRows && column + 1 == _obtainRowHeaderCount())
                cell = _layoutMeasureHeader(rect, rows[i].measure);
            else if (m_rowLayout == KXTableRowLayout::Columns)
                cell = _layoutLevelHeader(rect, rows[i], before, column);
            else if (before && rows[i].measure > 0)
                cell = _makeCell(rect, "", m_headerProperty);
            else
                cell = _layoutTreeHeader(rect, rows[i]);
            cell.item = _makeItem(panel.getRowBand(), KXGridBand::Header, range.first + i, column);
            cell.align = UXTextAlign::Left;
            _fitText(cell, m_headerProperty, KXGridBand::Header, column, false);
            cells.push_back(std::move(cell));
        }
    return cells;
}

KXTableDrawnCell KXTableChart::_layoutTreeHeader(const UXDoubleRect& rect, const Line& row)
{
    KXTableDrawnCell cell = _makeCell(rect, _obtainHeaderText(true, row), m_headerProperty);
    const KXIndexPath& path = row.line.path;
    const bool isTotal = row.line.kind == KXTableLine::Kind::Total;
    const std::size_t level = isTotal || path.empty() ? path.size() : path.size() - 1;
    const double inset = static_cast<double>(level) * indent +
                         (getDimensions(true).size() > 1 && !path.empty() ? markWidth : 0);
    cell.textRect.x += inset;
    cell.textRect.width = std::max(cell.textRect.width - inset, 0.0);
    cell.isBold = row.line.kind != KXTableLine::Kind::Member;
    if (row.line.kind == KXTableLine::Kind::Group) {
        cell.mark = row.line.isExpanded ? KXTableDrawnCell::Mark::Open : KXTableDrawnCell::Mark::Closed;
        cell.markRect = {cell.textRect.x - markWidth, rect.y, markWidth, rect.height};
        cell.group = path;
    }
    return cell;
}

/** A group's name stands in the first of its rows, the others are left blank. */
KXTableDrawnCell KXTableChart::_layoutLevelHeader(const UXDoubleRect& rect, const Line& row,
                                                  const Line* before, std::uint64_t level)
{
    using Kind = KXTableLine::Kind;
    const KXIndexPath& path = row.line.path;
    const bool isTotal = row.line.kind == Kind::Total;
    const bool namesTotal = isTotal && level + 1 == std::max<std::size_t>(path.size(), 1);
    std::string text;
    KXIndexPath group;
    if (namesTotal) {
        text = _obtainHeaderText(true, row);
    } else if (level < path.size() && !isTotal) {
        const KXIndexPath start = obtainStart(path, level + 1);
        const bool goesOn = before && before->line.kind != Kind::Total &&
                            obtainStart(before->line.path, level + 1) == start;
        if (!goesOn || m_repeatHeaders)
            text = _obtainMemberText(true, start);
        if (!goesOn && level + 1 < getDimensions(true).size() &&
            (level + 1 < path.size() || row.line.kind == Kind::Group))
            group = start;
    }
    KXTableDrawnCell cell = _makeCell(rect, text, m_headerProperty);
    cell.isBold = isTotal || row.line.kind == Kind::Group;
    if (level + 1 < getDimensions(true).size() && !namesTotal) {
        cell.textRect.x += markWidth;
        cell.textRect.width = std::max(cell.textRect.width - markWidth, 0.0);
    }
    if (!group.empty()) {
        cell.mark = level + 1 < path.size() ? KXTableDrawnCell::Mark::Open : KXTableDrawnCell::Mark::Closed;
        cell.markRect = {cell.textRect.x - markWidth, rect.y, markWidth, rect.height};
        cell.group = std::move(group);
    }
    return cell;
}

KXTableDrawnCell KXTableChart::_layoutMeasureHeader(const UXDoubleRect& rect, std::uint64_t measure)
{
    const Measure& shown = getMeasures()[measure % getMeasures().size()];
    KXTableDrawnCell cell = _makeCell(rect, shown.label, m_headerProperty);
    cell.align = shown.isNumber() ? UXTextAlign::Right : UXTextAlign::Left;
    return cell;
}

std::vector<KXTableDrawnCell> KXTableChart::_layoutColumnHeaders(const KXTablePanel& panel)
{
    std::vector<KXTableDrawnCell> cells;
    const KXGridRange rows = panel.obtainVisibleRows(), range = panel.obtainVisibleColumns();
    const Lines columns = _obtainLines(panel, false);
    const auto [band, start] = _obtainColumns(panel.getColumnBand());
    const std::uint64_t lastRow = _obtainColumnHeaderCount() - 1;
    for (std::uint64_t row = rows.first; row < rows.end; ++row) {
        if (row != lastRow || !_hasMeasureHeaders()) {
            _layoutColumnLevel(panel, columns, row, cells);
            continue;
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::uint64_t column = start + range.first + i;
            KXTableDrawnCell cell = _layoutMeasureHeader(panel.obtainCellRect({row, range.first + i}),
                                                         columns[i].measure);
            cell.item = _makeItem(KXGridBand::Header, band, row, column);
            _markSorting(cell, band, column);
            _fitText(cell, m_headerProperty, band, column, false);
            cells.push_back(std::move(cell));
        }
    }
    return cells;
}

/** Columns below one parent have one header for it, whose text stays in sight with any of them. */
void KXTableChart::_layoutColumnLevel(const KXTablePanel& panel, const Lines& columns, std::uint64_t level,
                                      std::vector<KXTableDrawnCell>& cells)
{
    const std::uint64_t first = panel.obtainVisibleColumns().first;
    const auto [band, start] = _obtainColumns(panel.getColumnBand());
    const std::size_t levels = getDimensions(false).size();
    const auto isSame = [level](const Line& a, const Line& b) {
        const bool isBelow = a.line.path.size() > level;
        return obtainStart(a.line.path, level + 1) == obtainStart(b.line.path, level + 1) &&
               (isBelow || a.line.kind == b.line.kind);
    };
    for (std::size_t i = 0, end = 0; i < columns.size(); i = end) {
        for (end = i + 1; end < columns.size() && isSame(columns[i], columns[end]);)
            ++end;
        const KXTableLine& line = columns[i].line;
        UXDoubleRect rect = panel.obtainCellRect({level, first + i});
        rect.width = uxMaxDoubleX(panel.obtainCellRect({level, first + end - 1})) - rect.x;
        const bool isMember = line.path.size() > level;
        const bool namesTotal = line.kind == KXTableLine::Kind::Total && line.path.size() == level;
        const std::string text = isMember     ? _obtainMemberText(false, obtainStart(line.path, level + 1))
                                 : namesTotal ? m_totalWord
                                              : std::string();
        KXTableDrawnCell cell = _makeCell(rect, text, m_headerProperty);
        const double right = std::min(uxMaxDoubleX(cell.textRect), panel.getRect().width - paddingAcross);
        cell.textRect.x = std::max(cell.textRect.x, paddingAcross);
        cell.textRect.width = std::max(right - cell.textRect.x, 0.0);
        cell.isBold = namesTotal;
        const bool isSingle = end == i + 1;
        const bool isNumber = getMeasures()[columns[i].measure].isNumber();
        if (isSingle && isNumber && (level + 1 == levels || namesTotal))
            cell.align = UXTextAlign::Right;
        if (isMember && level + 1 < levels) {
            const bool isOpen = line.path.size() > level + 1 || line.kind == KXTableLine::Kind::Total;
            cell.mark = isOpen ? KXTableDrawnCell::Mark::Open : KXTableDrawnCell::Mark::Closed;
            cell.markRect = {cell.textRect.x, rect.y, markWidth, rect.height};
            cell.textRect.x += markWidth;
            cell.textRect.width = std::max(cell.textRect.width - markWidth, 0.0);
            cell.group = obtainStart(line.path, level + 1);
        }
        if (isSingle && (level + 1 == levels || levels == 0)) {
            cell.item = _makeItem(KXGridBand::Header, band, level, start + first + i);
            if (!_hasMeasureHeaders())
                _markSorting(cell, band, start + first + i);
        }
        // What the panel's edge alone leaves too little room for needs no wider column.
        const double whole = cell.rect.width - 2 * paddingAcross -
                             (cell.mark == KXTableDrawnCell::Mark::None ? 0 : markWidth);
        _fitText(cell, m_headerProperty, band, start + first + i, false, cell.textRect.width >= whole);
        cells.push_back(std::move(cell));
    }
}

void KXTableChart::_markSorting(KXTableDrawnCell& cell, KXGridBand band, std::uint64_t column)
{
    if (m_sortOrder.empty() || band != KXGridBand::Content)
        return;
    const std::string identity = _obtainColumnIdentity(column);
    const bool isUp = std::ranges::count(m_sortOrder, "+" + identity) > 0;
    if (identity.empty() || (!isUp && std::ranges::count(m_sortOrder, "-" + identity) == 0))
        return;
    cell.mark = isUp ? KXTableDrawnCell::Mark::Ascending : KXTableDrawnCell::Mark::Descending;
    cell.markRect = {cell.textRect.x, cell.rect.y, markWidth, cell.rect.height};
    cell.textRect.x += markWidth;
    cell.textRect.width = std::max(cell.textRect.width - markWidth, 0.0);
}

// Cells

std::vector<KXTableDrawnCell> KXTableChart::_layoutValues(const KXTablePanel& panel)
{
    std::vector<KXTableDrawnCell> cells;
    const Lines rows = _obtainLines(panel, true), columns = _obtainLines(panel, false);
    const std::uint64_t firstRow = panel.obtainVisibleRows().first;
    const std::uint64_t firstColumn = panel.obtainVisibleColumns().first;
    const auto [band, start] = _obtainColumns(panel.getColumnBand());
    cells.reserve(rows.size() * columns.size());
    for (std::size_t j = 0; j < columns.size(); ++j) // down each column, so that running totals go on
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::uint64_t row = firstRow + i, column = firstColumn + j;
            const bool isOpenGroup = rows[i].line.kind == KXTableLine::Kind::Group && rows[i].line.isExpanded;
            const bool isTotal = _isTotal(true, rows[i]) || _isTotal(false, columns[j]);
            const KXTablePlace place = _makePlace(rows[i], columns[j]);
            const UXDoubleRect rect = panel.obtainCellRect({row, column});
            KXTableDrawnCell cell = isOpenGroup && m_rowTotals != KXTableTotals::Before
                                        ? _makeCell(rect, "", m_labelProperty)
                                        : _layoutValue(rect, place, isTotal);
            if (isTotal)
                cell.ground = m_totalColor;
            else if (m_showBands && row % 2 == 1 && !(cell.ground.alpha > 0))
                cell.ground = m_bandColor;
            cell.item = _makeItem(panel.getRowBand(), band, row, start + column);
            _fitText(cell, m_labelProperty, band, start + column, getMeasures()[place.measure].isNumber());
            cells.push_back(std::move(cell));
        }
    return cells;
}

KXTableDrawnCell KXTableChart::_layoutValue(const UXDoubleRect& rect, const KXTablePlace& place, bool isTotal)
{
    const KXTableCell* found = findCell(place);
    KXTableDrawnCell cell = _makeCell(rect, found ? _formatCell(place, *found) : std::string(),
                                      m_labelProperty);
    cell.isBold = isTotal;
    if (getMeasures()[place.measure].isNumber())
        cell.align = UXTextAlign::Right;
    if (!found)
        cell.mark = KXTableDrawnCell::Mark::Awaited;
    else if (found->state == KXTableCellState::Null)
        cell.textColor = m_quietColor;
    else if (found->state == KXTableCellState::Error)
        cell.textColor = m_errorColor;
    else if (!isTotal) {
        _addColor(cell, place, found->number);
        _addBar(cell, place, found->number);
    }
    if (found && found->part && found->state == KXTableCellState::Value)
        _addPart(cell, KXHighlightedParts::obtainShare(*found->part, found->number));
    return cell;
}

/** Of a cell's bar the part is drawn in full that belongs to what is chosen elsewhere; without a bar a line
 * below its text tells. */
void KXTableChart::_addPart(KXTableDrawnCell& cell, double share) const
{
    const bool hasBar = cell.bar.width > 0;
    if (!hasBar) {
        cell.bar = {cell.rect.x + barGap,
                    cell.rect.y + cell.rect.height - barGap - KXHighlightedParts::lineHeight,
                    std::max(cell.rect.width - 2 * barGap, 0.0), KXHighlightedParts::lineHeight};
        cell.barColor = cell.textColor;
    }
    cell.fullBar = cell.bar;
    cell.fullBarColor = cell.barColor;
    cell.barColor = KXHighlightedParts::obtainLightColor(cell.barColor, obtainDimmedOpacity());
    cell.fullBar.width *= share;
    // From where the bar begins: that of what is below zero ends there.
    if (hasBar && cell.isBarBackwards)
        cell.fullBar.x += cell.bar.width - cell.fullBar.width;
    if (hasBar)
        cell.textColor = kxObtainReadableColor(
            KXHighlightedParts::obtainTextGround(cell.fullBarColor, share, obtainDimmedOpacity()));
}

void KXTableChart::_addColor(KXTableDrawnCell& cell, const KXTablePlace& place, double number)
{
    for (const KXTableColorRule& rule : m_colorRules) {
        if (!rule.getMeasureID().empty() && rule.getMeasureID() != getMeasures()[place.measure].id)
            continue;
        const bool isOfCells = rule.getKind() == KXTableColorRuleKind::Percentile;
        const std::vector<double>& percentiles = isOfCells ? findPercentiles(place.measure) : noPercentiles;
        if (const std::optional<UXColor> color = rule.obtainColor(number, getExtent(place.measure),
                                                                  percentiles)) {
            cell.ground = *color;
            cell.textColor = kxObtainReadableColor(*color);
            return;
        }
    }
}

void KXTableChart::_addBar(KXTableDrawnCell& cell, const KXTablePlace& place, double number) const
{
    const KXTableDatabarInfo* databar = _findDatabar(place.measure);
    const KXTableExtent& extent = getExtent(place.measure);
    if (!databar || (!extent.hasValues && !databar->getHasRange()))
        return;
    const KXTableDatabarInfo::Bar bar = databar->obtainBar(number, extent.least, extent.greatest);
    const double width = cell.rect.width - 2 * barGap;
    if (!(bar.to > bar.from) || !(width > 0))
        return;
    cell.bar = {cell.rect.x + barGap + bar.from * width, cell.rect.y + barGap, (bar.to - bar.from) * width,
                cell.rect.height - 2 * barGap};
    cell.isBarBackwards = bar.isNegative != (databar->getStyle() == KXTableDatabarStyle::RightToLeft);
    cell.barColor = bar.isNegative ? databar->getNegativeColor() : databar->getPositiveColor();
    cell.textColor = kxObtainReadableColor(cell.barColor);
}
