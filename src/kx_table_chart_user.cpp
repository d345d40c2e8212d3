#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_hint_text.h"
#include "kx_table_chart.h"
#include "kx_table_chart_data_provider.h"
#include "kx_table_grid.h"
#include "ux/ux_cursor.h"
#include "ux/ux_event.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_key_code.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

/** So near to an edge the pointer takes it. */
constexpr double edgeReach = 4;
/** Of what documents sorted by, columns up to this one are looked through. */
constexpr std::uint64_t greatestSortedColumn = 4096;
constexpr int copyKey = 'C', allKey = 'A';

} // namespace

void KXTableChart::setGroupExpanded(bool isRow, const KXIndexPath& path, bool isExpanded)
{
    const UXObjectWatcher self(this);
    if (getTree(isRow).isExpanded(path) == isExpanded)
        return;
    const std::string identity = obtainIdentity(isRow, path);
    std::vector<std::string>& toggled = isRow ? m_toggledRows : m_toggledColumns;
    if (!identity.empty()) {
        std::erase(toggled, identity);
        if (isExpanded != m_expandsGroups)
            toggled.push_back(identity);
    }
    _setGroupOpen(isRow, path, isExpanded);
    if (!self.isAlive())
        return;
    getItems()->forgetPointer();
    if (self.isAlive())
        setRequireToVerifyLayout(true, true);
}

// Sorting

std::vector<KXTableSort> KXTableChart::_obtainSorts()
{
    std::vector<KXTableSort> sorts;
    const std::uint64_t count = std::min(_obtainContentCount(false), greatestSortedColumn);
    for (const std::string& sorted : m_sortOrder)
        for (std::uint64_t column = 0; column < count; ++column)
            if (!sorted.empty() && _obtainColumnIdentity(column) == sorted.substr(1)) {
                const Line line = _obtainLine(false, KXGridBand::Content, column);
                sorts.push_back({m_measuresOnRows ? 0 : line.measure, line.line.path, sorted[0] == '-'});
                break;
            }
    return sorts;
}

void KXTableChart::sortByColumn(std::uint64_t column, bool adds, const UXEvent& event)
{
    const std::string identity = column < _obtainContentCount(false) ? _obtainColumnIdentity(column) : "";
    if (identity.empty())
        return;
    const bool wasDown = std::ranges::count(m_sortOrder, "-" + identity) > 0;
    const bool wasUp = std::ranges::count(m_sortOrder, "+" + identity) > 0;
    if (!adds)
        m_sortOrder.clear();
    const auto isThis = [&](const std::string& sorted) { return sorted.substr(1) == identity; };
    const auto found = std::ranges::find_if(m_sortOrder, isThis);
    if (wasUp && found != m_sortOrder.end())
        m_sortOrder.erase(found);
    else if (wasDown && found != m_sortOrder.end())
        *found = "+" + identity;
    else if (!wasUp)
        m_sortOrder.push_back((wasDown ? "+" : "-") + identity);
    const std::vector<KXTableSort> sorts = _obtainSorts();
    event.postAction([this, self = UXObjectWatcher(this), sorts] {
        if (!self.isAlive())
            return;
        const KXChartDataProviderUse use(*this);
        if (auto* provider = use.as<KXTableChartDataProvider>())
            provider->sortRequested(this, sorts);
    });
    setRequireToVerifyLayout(true, true);
}

// The pointer

std::optional<std::uint64_t> KXTableChart::_findEdge(KXTablePanel& panel, const UXEvent& event) const
{
    if (panel.getRowBand() != KXGridBand::Header)
        return std::nullopt;
    const UXPoint point = panel.getTranslatedPointFromEvent(event, &panel);
    const KXGridRange columns = panel.obtainVisibleColumns();
    // The name of several columns has no edges between them.
    const auto isWithinName = [&](double edge) {
        return std::ranges::any_of(panel.getCells(), [&](const KXTableDrawnCell& cell) {
            return uxPointInDoubleRect(UXDoublePoint(point.x, point.y), cell.rect) &&
                   edge > cell.rect.x + 1 && edge < uxMaxDoubleX(cell.rect) - 1;
        });
    };
    for (std::uint64_t column = columns.first; column < columns.end; ++column) {
        const double edge = uxMaxDoubleX(panel.obtainCellRect({0, column}));
        if (std::abs(edge - point.x) <= edgeReach && !isWithinName(edge))
            return column;
    }
    return std::nullopt;
}

const KXTableDrawnCell* KXTableChart::_findMark(KXTablePanel& panel, const UXEvent& event) const
{
    const UXPoint point = panel.getTranslatedPointFromEvent(event, &panel);
    const auto found = std::ranges::find_if(panel.getCells(), [&](const KXTableDrawnCell& cell) {
        return cell.mark != KXTableDrawnCell::Mark::None && cell.mark != KXTableDrawnCell::Mark::Awaited &&
               uxPointInDoubleRect(UXDoublePoint(point.x, point.y), cell.markRect);
    });
    return found == panel.getCells().end() ? nullptr : &*found;
}

void KXTableChart::_setWidth(const std::string& identity, std::optional<double> width)
{
    if (identity.empty())
        return;
    m_columnWidths.resize(m_sizedColumns.size());
    const auto found = std::ranges::find(m_sizedColumns, identity);
    const auto place = found - m_sizedColumns.begin();
    if (width && found != m_sizedColumns.end()) {
        m_columnWidths[static_cast<std::size_t>(place)] = *width;
    } else if (width) {
        m_sizedColumns.push_back(identity);
        m_columnWidths.push_back(*width);
    } else if (found != m_sizedColumns.end()) {
        m_sizedColumns.erase(found);
        m_columnWidths.erase(m_columnWidths.begin() + place);
    }
    setRequireToVerifyLayout(true, true);
}

bool KXTableChart::tablePanelPressed(KXTablePanel& panel, const UXEvent& event)
{
    // The release of a press before may have gone elsewhere.
    _endColumnDrag();
    m_edgeDrag.reset();
    if (!isInteractionEnabled() || !event.containsEventKey(UXEventKey::LeftButton))
        return false;
    if (const std::optional<std::uint64_t> edge = _findEdge(panel, event)) {
        const double width = panel.obtainCellRect({0, *edge}).width;
        const bool isStretched = panel.getColumnBand() != KXGridBand::Header;
        const Columns columns = _obtainColumns(panel.getColumnBand());
        m_edgeDrag = EdgeDrag{_obtainSizeIdentity(columns.band, columns.first + *edge),
                              width - (isStretched ? m_stretch : 0),
                              panel.getTranslatedPointFromEvent(event, &panel).x};
        return true;
    }
    const KXTableDrawnCell* mark = _findMark(panel, event);
    if (!mark) {
        _takeColumn(panel, event);
        return false;
    }
    const bool isRow = panel.getColumnBand() == KXGridBand::Header;
    if (!mark->group.empty())
        setGroupExpanded(isRow, KXIndexPath(mark->group), mark->mark == KXTableDrawnCell::Mark::Closed);
    else if (mark->item)
        sortByColumn(mark->item->index, event.containsEventKey(UXEventKey::Shift), event);
    return true;
}

bool KXTableChart::tablePanelDragged(KXTablePanel& panel, const UXEvent& event)
{
    if (m_columnDrag)
        _dragColumn(panel, event);
    if (!m_edgeDrag)
        return m_columnDrag.has_value() && m_columnDrag->hasMoved;
    const int x = panel.getTranslatedPointFromEvent(event, &panel).x;
    _setWidth(m_edgeDrag->identity, m_edgeDrag->width + x - m_edgeDrag->startX);
    return true;
}

bool KXTableChart::tablePanelReleased(KXTablePanel&, const UXEvent& event)
{
    _dropColumn(event);
    return std::exchange(m_edgeDrag, std::nullopt).has_value();
}

/** At an edge: the column is as wide as what is in sight of it needs. In the header of a column: sorts. */
bool KXTableChart::tablePanelDoubleClicked(KXTablePanel& panel, const UXEvent& event)
{
    if (!isInteractionEnabled() || panel.getRowBand() != KXGridBand::Header)
        return false;
    const Columns columns = _obtainColumns(panel.getColumnBand());
    if (const std::optional<std::uint64_t> edge = _findEdge(panel, event)) {
        _setWidth(_obtainSizeIdentity(columns.band, columns.first + *edge), std::nullopt);
        return true;
    }
    const UXPoint point = panel.getTranslatedPointFromEvent(event, &panel);
    const std::optional<KXGridCell> cell = panel.findCell(UXDoublePoint(point.x, point.y));
    if (!cell || columns.band != KXGridBand::Content || cell->row + 1 != _obtainColumnHeaderCount())
        return false;
    sortByColumn(columns.first + cell->column, event.containsEventKey(UXEventKey::Shift), event);
    return true;
}

void KXTableChart::tablePanelPointed(KXTablePanel& panel, const UXEvent& event)
{
    const bool isActive = isInteractionEnabled();
    panel.setCursor(isActive && _findEdge(panel, event)   ? UXCursor::ResizeHorizontally
                    : isActive && _findMark(panel, event) ? UXCursor::PointingHand
                                                          : UXCursor::AsParent);
}

// The keys

/** Beyond what every chart's keys do: Page, Home and End along the row, with Ctrl to the first and the last
 * cell, plus and minus open and close the group of the row, Shift chooses, Ctrl and A choose all, Ctrl and C
 * copy, with Shift the headers as well. */
bool KXTableChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const std::optional<KXChartItem> from = getItems()->getFocused();
    const bool hasCtrl = event.containsEventKey(UXEventKey::Ctrl);
    if (hasCtrl && event.getKeyCode() == copyKey)
        return _copy(event);
    if (hasCtrl && event.getKeyCode() == allKey && m_grid->getSelects()) {
        m_grid->getSelection().press({}, KXGridSelectionUnit::All, false, false);
        m_grid->invalidate();
        return true;
    }
    if (from && (event.getKeyText() == "+" || event.getKeyText() == "-")) {
        const std::optional<KXTablePlace> place = obtainPlace(from->group, from->index);
        if (!place)
            return false;
        setGroupExpanded(true, place->row, event.getKeyText() == "+");
        return true;
    }
    UXEvent step = event;
    m_stepLength = 1;
    const auto turnInto = [&](UXKeyCode key, std::uint64_t length) {
        step.setKeyCode(static_cast<int>(key));
        m_stepLength = length;
    };
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if (key == UXKeyCode::PageUp || key == UXKeyCode::PageDown)
        turnInto(key == UXKeyCode::PageUp ? UXKeyCode::Up : UXKeyCode::Down, m_grid->obtainPageRows());
    else if (from && !hasCtrl && (key == UXKeyCode::Home || key == UXKeyCode::End))
        turnInto(key == UXKeyCode::Home ? UXKeyCode::Left : UXKeyCode::Right, obtainColumnCount());
    const UXObjectWatcher self(this);
    const bool isHandled = KXPanelChart::customKeyDown(step, stop);
    if (!self.isAlive())
        return isHandled;
    m_stepLength = 1;
    if (isHandled)
        _extendSelection(from, event);
    return isHandled;
}

void KXTableChart::_extendSelection(const std::optional<KXChartItem>& from, const UXEvent& event)
{
    const std::optional<KXChartItem>& focused = getItems()->getFocused();
    KXGridSelection& selection = m_grid->getSelection();
    if (!m_grid->getSelects() || focused == from)
        return;
    if (!focused || !event.containsEventKey(UXEventKey::Shift)) {
        selection.clear();
    } else {
        if (selection.isEmpty() && from)
            selection.press({from->group, from->index}, KXGridSelectionUnit::Cells, false, false);
        selection.press({focused->group, focused->index}, KXGridSelectionUnit::Cells, true, false);
    }
    m_grid->invalidate();
}

// Copying and finding

KXTableClip KXTableChart::copySelection(bool withHeaders)
{
    const UXObjectWatcher self(this);
    KXTableClip clip;
    std::vector<KXGridBlock> blocks = m_grid->getSelection().getBlocks();
    if (const std::optional<KXChartItem>& item = getItems()->getFocused(); blocks.empty() && item)
        blocks.push_back({{item->group, item->group + 1}, {item->index, item->index + 1}});
    double count = 0;
    for (const KXGridBlock& block : blocks)
        count += static_cast<double>(block.rows.obtainCount()) *
                 static_cast<double>(block.columns.obtainCount());
    if (count > static_cast<double>(KXTableClip::greatestCellCount)) {
        clip.refuse();
        return clip;
    }
    for (const KXGridBlock& block : blocks) {
        if (withHeaders) {
            clip.addCell("", KXTableClip::Cell::Header);
            for (std::uint64_t column = block.columns.first; column < block.columns.end; ++column)
                clip.addCell(obtainHeaderText(false, column), KXTableClip::Cell::Header);
            clip.endRow();
        }
        for (std::uint64_t row = block.rows.first; row < block.rows.end && !clip.isTooLarge(); ++row)
            if (!_addClipRow(clip, row, block.columns, withHeaders))
                return KXTableClip();
    }
    return clip;
}

/** @return false where the host destroyed the chart, or has other data now */
bool KXTableChart::_addClipRow(KXTableClip& clip, std::uint64_t row, const KXGridRange& columns,
                               bool withHeaders)
{
    const UXObjectWatcher self(this);
    if (withHeaders)
        clip.addCell(obtainHeaderText(true, row), KXTableClip::Cell::Header);
    for (std::uint64_t column = columns.first; column < columns.end; ++column) {
        const std::string text = obtainCellText(row, column);
        const std::optional<KXTablePlace> place = self.isAlive() ? obtainPlace(row, column) : std::nullopt;
        if (!place)
            return false;
        const KXTableCell* cell = findCell(*place);
        const bool isNumber = getMeasures()[place->measure].isNumber() && cell &&
                              cell->state == KXTableCellState::Value;
        clip.addCell(text, isNumber ? KXTableClip::Cell::Number : KXTableClip::Cell::Text);
    }
    clip.endRow();
    return true;
}

bool KXTableChart::_copy(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    const KXTableClip clip = copySelection(event.containsEventKey(UXEventKey::Shift));
    if (!self.isAlive())
        return true;
    if (clip.isTooLarge()) {
        const std::string words = uxLocalizeString("There is too much to copy");
        if (!self.isAlive())
            return true;
        UXHintInfo hint = kxMakeHintInfo({words, ""}, m_hintInfo);
        showHint({uxMidX(m_grid->getRect()), uxMidY(m_grid->getRect())}, nullptr, &hint);
        return true;
    }
    const std::string text = clip.obtainText(), html = clip.obtainHtml();
    event.postAction([this, self, text, html] {
        if (!self.isAlive() || text.empty())
            return;
        const KXChartDataProviderUse use(*this);
        if (auto* provider = use.as<KXTableChartDataProvider>())
            provider->cellsCopied(this, text, html);
    });
    return true;
}

bool KXTableChart::findNext(const std::string& text, bool forwards)
{
    const KXChartDataProviderUse use(*this);
    const std::optional<KXGridCell>& focus = m_grid->getSelection().getFocus();
    const std::optional<KXTablePlace> from = focus ? obtainPlace(focus->row, focus->column)
                                                   : obtainPlace(0, 0);
    auto* provider = use.as<KXTableChartDataProvider>();
    const std::optional<KXTablePlace> found = provider && from
                                                  ? provider->findNext(this, text, *from, forwards)
                                                  : std::nullopt;
    if (!use.isAlive() || !found)
        return false;
    // What lies in closed groups is opened.
    for (std::size_t length = 1; length < found->row.size(); ++length) {
        const KXIndexPath group(found->row.begin(), found->row.begin() + static_cast<std::ptrdiff_t>(length));
        setGroupExpanded(true, group, true);
        if (!use.isAlive())
            return false;
    }
    const std::optional<KXChartItem> item = _findCell(*found);
    if (!item)
        return false;
    m_grid->getSelection().press({item->group, item->index}, KXGridSelectionUnit::Cells, false, false);
    setRequireToVerifyLayout(true, true);
    if (use.isAlive())
        showItem(*item);
    return true;
}
