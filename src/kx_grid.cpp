#include "kx_grid.h"

#include "kx_grid_panel.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>
#include <vector>

// Hosts may refer to them, on Windows too
constexpr double KXGrid::greatestHeaderShare;
constexpr double KXGrid::greatestTotalsShare;
constexpr std::size_t KXGrid::panelCount;

namespace {

/** While a drag is beyond an edge. */
constexpr std::int64_t edgeMilliseconds = 30;
/** Of the way that the pointer is beyond the edge: how far each of these scrolls. */
constexpr double edgeShare = 0.5;
constexpr double leastEdgeStep = 4;
/** So far the pointer goes before a press is a drag. */
constexpr int leastDrag = 4;

constexpr KXGridBand allBands[] = {KXGridBand::Header, KXGridBand::Content, KXGridBand::Totals,
                                   KXGridBand::Frozen};

std::int64_t obtainWhole(double extent)
{
    constexpr double most = 1e15;  // beyond which places have no halves
    constexpr double noise = 1e-6; // what a sum of equal parts may be more than the room that was divided
    return static_cast<std::int64_t>(std::ceil(std::min(extent, most) - noise));
}

int obtainCapped(const KXGridLines& lines, int room, double share)
{
    return static_cast<int>(std::min(static_cast<double>(obtainWhole(lines.obtainTotal())),
                                     std::floor(std::max(room, 0) * share)));
}

/** @return the least change of offset that brings start to end into what is shown */
std::int64_t reach(std::int64_t offset, int shown, double start, double end)
{
    const auto first = static_cast<std::int64_t>(std::floor(start));
    return std::min(std::max(offset, static_cast<std::int64_t>(std::ceil(end)) - shown), first);
}

std::optional<KXGridStep> obtainStep(UXKeyCode key, bool toEnds)
{
    using enum KXGridStep;
    switch (key) {
    case UXKeyCode::Left:
        return toEnds ? RowStart : Left;
    case UXKeyCode::Right:
        return toEnds ? RowEnd : Right;
    case UXKeyCode::Up:
        return toEnds ? ColumnStart : Up;
    case UXKeyCode::Down:
        return toEnds ? ColumnEnd : Down;
    case UXKeyCode::PageUp:
        return PageUp;
    case UXKeyCode::PageDown:
        return PageDown;
    case UXKeyCode::Home:
        return toEnds ? First : RowStart;
    case UXKeyCode::End:
        return toEnds ? Last : RowEnd;
    default:
        return std::nullopt;
    }
}

} // namespace

KXGrid::KXGrid() : m_edgeTimer([this] { _scrollAtEdge(); })
{
    setDelegate(this);
    registerEventHandler(UXEventType::LeftClick,
                         [this](const UXEvent&) { return std::exchange(m_ignoresClick, false); });
}

KXGrid::~KXGrid()
{
    setParent(nullptr);
    setDelegate(nullptr);
    for (KXGridPanel* panel : m_panels)
        if (panel)
            panel->m_grid = nullptr;
}

std::string KXGrid::customSerializeTypeID() { return "KXGrid"; }

KXGridPanel* KXGrid::getPanel(KXGridBand rowBand, KXGridBand columnBand) const
{
    return m_panels[_obtainSlot(rowBand, columnBand)];
}

void KXGrid::setPanel(KXGridBand rowBand, KXGridBand columnBand, KXGridPanel* panel)
{
    KXGridPanel*& slot = m_panels[_obtainSlot(rowBand, columnBand)];
    if (slot == panel)
        return;
    delete slot; // which leaves its place
    slot = panel;
    if (panel) {
        panel->m_grid = this;
        panel->m_rowBand = rowBand;
        panel->m_columnBand = columnBand;
        addChild(panel);
    }
    setRequireToVerifyLayout(true, true);
}

void KXGrid::setRows(KXGridBand band, const KXGridLines& rows)
{
    m_rows.lines[_obtainIndex(band)] = rows;
    _updateSelectionExtent();
    _reserveRoom();
}

void KXGrid::setColumns(KXGridBand band, const KXGridLines& columns)
{
    m_columns.lines[_obtainIndex(band)] = columns;
    _updateSelectionExtent();
    _reserveRoom();
}

void KXGrid::setTotalsBeforeContent(bool rows, bool columns)
{
    m_rows.totalsFirst = rows;
    m_columns.totalsFirst = columns;
    _reserveRoom();
}

void KXGrid::_updateSelectionExtent()
{
    const auto count = [](const Bands& bands) {
        return _countBefore(bands, KXGridBand::Totals) + bands.lines[2].getCount();
    };
    m_selection.setExtent(count(m_rows), count(m_columns));
}

/** @return how many lines the selection counts before those of a band */
std::uint64_t KXGrid::_countBefore(const Bands& bands, KXGridBand band)
{
    const std::uint64_t frozen = bands.lines[3].getCount();
    switch (band) {
    case KXGridBand::Content:
        return frozen;
    case KXGridBand::Totals:
        return frozen + bands.lines[1].getCount();
    default:
        return 0;
    }
}

void KXGrid::setRect(UXRect rect)
{
    const UXObjectWatcher self(this);
    UXVirtualScrollView::setRect(rect);
    if (self.isAlive())
        _reserveRoom();
}

/** The bars stand beside what scrolls, and beside totals after it: for the view these are the content's end,
 * which is always in sight. */
void KXGrid::_reserveRoom()
{
    const UXRect own = getContentRect();
    const auto reserve = [](Bands& bands, int room) {
        auto& extents = bands.extents;
        extents[0] = obtainCapped(bands.lines[0], room, greatestHeaderShare);
        extents[2] = obtainCapped(bands.lines[2], room, greatestTotalsShare);
        extents[3] = obtainCapped(bands.lines[3],
                                  static_cast<int>(std::max(room, 0) * greatestHeaderShare) - extents[0], 1);
        return extents[0] + extents[3] + (bands.totalsFirst ? extents[2] : 0);
    };
    const UXObjectWatcher self(this);
    UXPadding padding;
    padding.left = reserve(m_columns, own.width);
    padding.top = reserve(m_rows, own.height);
    const auto obtainExtent = [](const Bands& bands) {
        return obtainWhole(bands.lines[1].obtainTotal()) + (bands.totalsFirst ? 0 : bands.extents[2]);
    };
    setScrollPadding(padding);
    if (self.isAlive())
        setContentWidth(obtainExtent(m_columns));
    if (self.isAlive())
        setContentHeight(obtainExtent(m_rows));
    if (self.isAlive())
        setRequireToVerifyLayout(true, true);
}

/** @param start of what the view scrolls
 *  @param shown its extent */
void KXGrid::_placeBands(Bands& bands, int start, int shown, int bandsBefore) const
{
    const int totals = bands.extents[2], after = bands.totalsFirst ? 0 : totals;
    const std::int64_t content = obtainWhole(bands.lines[1].obtainTotal());
    bands.starts[0] = bandsBefore;
    bands.starts[1] = start;
    bands.extents[1] = static_cast<int>(std::min<std::int64_t>(content, std::max(shown - after, 0)));
    bands.starts[3] = start - bands.extents[3];
    bands.starts[2] = bands.totalsFirst ? bands.starts[3] - totals : start + bands.extents[1];
}

void KXGrid::_layoutPanels()
{
    const UXRect own = getContentRect(), area = obtainScrollContentRect();
    _placeBands(m_columns, area.x, area.width, own.x);
    _placeBands(m_rows, area.y, area.height, own.y);
    const UXObjectWatcher self(this);
    for (const KXGridBand rowBand : allBands)
        for (const KXGridBand columnBand : allBands) {
            KXGridPanel* panel = self.isAlive() ? getPanel(rowBand, columnBand) : nullptr;
            if (!panel)
                continue;
            const std::size_t row = _obtainIndex(rowBand), column = _obtainIndex(columnBand);
            panel->m_rows = m_rows.lines[row];
            panel->m_columns = m_columns.lines[column];
            panel->m_offset = {columnBand == KXGridBand::Content ? static_cast<double>(getContentOffsetX())
                                                                 : 0,
                               rowBand == KXGridBand::Content ? static_cast<double>(getContentOffsetY()) : 0};
            panel->setRect({m_columns.starts[column], m_rows.starts[row], m_columns.extents[column],
                            m_rows.extents[row]});
            panel->setRequireToVerifyLayout(true);
        }
}

void KXGrid::customLayout() { _layoutPanels(); }

void KXGrid::contentOffsetChanged(const UXEvent& event, UXScrollBar* scrollBar)
{
    const UXObjectWatcher self(this);
    setRequireToVerifyLayout(true, true);
    if (self.isAlive())
        UXVirtualScrollView::contentOffsetChanged(event, scrollBar);
    const std::function<void()> handler = self.isAlive() ? m_scrolled : nullptr;
    if (handler)
        handler();
}

/** Panels clip themselves: headers stand beside the area that scrolls. */
bool KXGrid::shouldClipInScrollArea(UXVirtualScrollView*, UXObject*) { return false; }

std::optional<KXGridHit> KXGrid::findCell(const UXPoint& point) const
{
    for (const KXGridPanel* panel : m_panels) {
        if (!panel || !uxPointInRect(point, panel->getRect()))
            continue;
        const UXDoublePoint own(double{1} * point.x - panel->getRect().x,
                                double{1} * point.y - panel->getRect().y);
        const std::optional<KXGridCell> cell = panel->findCell(own);
        return cell ? std::optional(KXGridHit{panel->getRowBand(), panel->getColumnBand(), *cell})
                    : std::nullopt;
    }
    return std::nullopt;
}

UXRect KXGrid::obtainSeenRect(const KXGridHit& hit) const
{
    const KXGridPanel* panel = getPanel(hit.rowBand, hit.columnBand);
    if (!panel || hit.cell.row >= getRows(hit.rowBand).getCount() ||
        hit.cell.column >= getColumns(hit.columnBand).getCount())
        return {};
    UXDoubleRect rect = panel->obtainCellRect(hit.cell);
    rect.x += panel->getRect().x;
    rect.y += panel->getRect().y;
    return uxIntersectionRect(uxSurroundingRect(rect), panel->getRect());
}

void KXGrid::showCell(const KXGridCell& cell)
{
    const auto obtainOffset = [](const Bands& bands, std::uint64_t line, std::int64_t offset, int shown) {
        const KXGridLines& content = bands.lines[1];
        const std::uint64_t before = _countBefore(bands, KXGridBand::Content);
        if (line < before || line - before >= content.getCount())
            return offset; // it stays in sight
        const double start = content.obtainStart(line - before);
        return reach(offset, shown - (bands.totalsFirst ? 0 : bands.extents[2]), start,
                     start + content.obtainExtent(line - before));
    };
    const UXSize shown = obtainDisplayArea();
    const std::int64_t x = obtainOffset(m_columns, cell.column, getContentOffsetX(), shown.width);
    const std::int64_t y = obtainOffset(m_rows, cell.row, getContentOffsetY(), shown.height);
    const UXObjectWatcher self(this);
    setContentOffsetX(x);
    if (self.isAlive())
        setContentOffsetY(y);
}

UXRect KXGrid::_obtainContentRect() const
{
    return {m_columns.starts[1], m_rows.starts[1], m_columns.extents[1], m_rows.extents[1]};
}

std::uint64_t KXGrid::obtainPageRows() const
{
    const auto top = static_cast<double>(getContentOffsetY());
    const KXGridRange rows = getRows(KXGridBand::Content).obtainRange(top, top + m_rows.extents[1]);
    return std::max<std::uint64_t>(rows.obtainCount(), 2) - 1; // so that the eye finds its place
}

// What is chosen

void KXGrid::setSelects(bool selects)
{
    m_selects = selects;
    if (!selects)
        m_selection.clear();
    invalidate();
}

std::optional<KXGridCell> KXGrid::obtainSelectionCell(const KXGridHit& hit) const
{
    if (hit.rowBand == KXGridBand::Header || hit.columnBand == KXGridBand::Header)
        return std::nullopt;
    return KXGridCell{hit.cell.row + _countBefore(m_rows, hit.rowBand),
                      hit.cell.column + _countBefore(m_columns, hit.columnBand)};
}

bool KXGrid::_press(const UXEvent& event)
{
    std::optional<KXGridHit> hit = findCell(getTranslatedPointFromEvent(event, this));
    if (!hit)
        return false;
    const bool isRowHeader = hit->columnBand == KXGridBand::Header;
    const bool isColumnHeader = hit->rowBand == KXGridBand::Header;
    using enum KXGridSelectionUnit;
    const KXGridSelectionUnit unit = isRowHeader ? (isColumnHeader ? All : Rows)
                                                 : (isColumnHeader ? Columns : Cells);
    // A header stands for the cells beside it.
    if (isRowHeader) {
        hit->columnBand = KXGridBand::Content;
        hit->cell.column = 0;
    }
    if (isColumnHeader) {
        hit->rowBand = KXGridBand::Content;
        hit->cell.row = 0;
    }
    m_selection.press(obtainSelectionCell(*hit).value_or(KXGridCell()), unit,
                      event.containsEventKey(UXEventKey::Shift), event.containsEventKey(UXEventKey::Ctrl));
    return true;
}

void KXGrid::_tellSelection(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    invalidate();
    const std::function<void(const UXEvent&)> handler = self.isAlive() ? m_selectionChanged : nullptr;
    if (handler)
        handler(event);
}

void KXGrid::setDragHandler(std::function<bool()> mayBegin,
                            std::function<void(const KXGridBlock&, const UXEvent&)> handler)
{
    m_mayDrag = std::move(mayBegin);
    m_dragged = std::move(handler);
}

/** @return whether the drag that a press may be has begun */
bool KXGrid::_startDrag(const UXEvent& event)
{
    const UXPoint point = getTranslatedPointFromEvent(event, this);
    const bool isNear = std::abs(point.x - m_pressPoint.x) <= leastDrag &&
                        std::abs(point.y - m_pressPoint.y) <= leastDrag;
    if (!m_dragStart || isNear)
        return false;
    m_selection.press(*m_dragStart, KXGridSelectionUnit::Cells, false, false);
    m_dragStart.reset();
    m_drags = true;
    m_ignoresClick = true;
    return true;
}

/** What a drag has chosen is the handler's from now on. */
void KXGrid::_endDrag(const UXEvent& event)
{
    const std::vector<KXGridBlock> blocks = m_selection.getBlocks();
    m_selection.clear();
    const UXObjectWatcher self(this);
    invalidate();
    const auto handler = self.isAlive() ? m_dragged : nullptr;
    if (handler && !blocks.empty())
        handler(blocks.back(), event);
}

bool KXGrid::customMouseDown(const UXEvent& event, bool& stop)
{
    m_ignoresClick = false;
    m_dragStart.reset();
    if (!m_selects && m_dragged && event.containsEventKey(UXEventKey::LeftButton)) {
        const UXObjectWatcher self(this);
        const std::function<bool()> mayBegin = m_mayDrag;
        if (mayBegin && mayBegin() && self.isAlive()) {
            m_pressPoint = getTranslatedPointFromEvent(event, this);
            const std::optional<KXGridHit> hit = findCell(m_pressPoint);
            m_dragStart = hit ? obtainSelectionCell(*hit) : std::nullopt;
        }
        if (!self.isAlive())
            return true;
    }
    if (!m_selects || !event.containsEventKey(UXEventKey::LeftButton) || !_press(event))
        return UXVirtualScrollView::customMouseDown(event, stop);
    m_drags = true;
    m_showsFocus = false;
    _tellSelection(event);
    return true;
}

bool KXGrid::customMouseDragging(const UXEvent& event, bool& stop)
{
    if (!m_drags && !_startDrag(event))
        return UXVirtualScrollView::customMouseDragging(event, stop);
    m_dragPoint = getTranslatedPointFromEvent(event, this);
    const bool isBeyond = !uxPointInRect(m_dragPoint, _obtainContentRect());
    if (isBeyond && !m_edgeTimer.isRunning())
        m_edgeTimer.start(event.getControl(), edgeMilliseconds);
    else if (!isBeyond)
        m_edgeTimer.stop();
    _dragTo(m_dragPoint, event);
    return true;
}

bool KXGrid::customMouseUp(const UXEvent& event, bool& stop)
{
    m_edgeTimer.stop();
    const bool dragged = std::exchange(m_drags, false);
    m_dragStart.reset();
    const UXObjectWatcher self(this);
    if (dragged && !m_selects)
        _endDrag(event);
    if (!self.isAlive())
        return true;
    return UXVirtualScrollView::customMouseUp(event, stop) || dragged;
}

/** @param point beyond the content, where it means the nearest cell in sight */
void KXGrid::_dragTo(const UXPoint& point, const UXEvent& event)
{
    const UXRect content = _obtainContentRect();
    const bool inTotals = findCell(point) && obtainSelectionCell(*findCell(point));
    const UXPoint inside =
        inTotals ? point
                 : UXPoint(std::clamp(point.x, content.x, std::max(uxMaxX(content) - 1, content.x)),
                           std::clamp(point.y, content.y, std::max(uxMaxY(content) - 1, content.y)));
    const std::optional<KXGridHit> hit = findCell(inside);
    const std::optional<KXGridCell> cell = hit ? obtainSelectionCell(*hit) : std::nullopt;
    if (!cell || cell == m_selection.getFocus())
        return;
    m_selection.dragTo(*cell);
    _tellSelection(event);
}

/** The further the pointer is beyond an edge, the faster. */
void KXGrid::_scrollAtEdge()
{
    const UXRect content = _obtainContentRect();
    const auto obtainStep = [](double place, double start, double end) {
        const double beyond = place < start ? place - start : std::max(place - end, 0.0);
        return beyond == 0 ? 0 : beyond * edgeShare + std::copysign(leastEdgeStep, beyond);
    };
    const double across = obtainStep(m_dragPoint.x, content.x, uxMaxX(content));
    const double down = obtainStep(m_dragPoint.y, content.y, uxMaxY(content));
    const UXObjectWatcher self(this);
    linkedScroll(across, true);
    if (self.isAlive())
        linkedScroll(down, false);
    if (!self.isAlive())
        return;
    _layoutPanels(); // the cells are where they will be painted
    if (self.isAlive())
        _dragTo(m_dragPoint, UXEvent());
}

bool KXGrid::customKeyDown(const UXEvent& event, bool&) { return walk(event); }

bool KXGrid::walk(const UXEvent& event)
{
    if (!m_selects || !_act(event))
        return false;
    const UXObjectWatcher self(this);
    m_showsFocus = m_selection.getFocus().has_value();
    if (m_selection.getFocus())
        showCell(*m_selection.getFocus());
    if (self.isAlive())
        _tellSelection(event);
    return true;
}

/** @return whether a key changed what is chosen */
bool KXGrid::_act(const UXEvent& event)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool extends = event.containsEventKey(UXEventKey::Shift);
    const bool toEnds = event.containsEventKey(UXEventKey::Ctrl);
    if (const std::optional<KXGridStep> step = obtainStep(key, toEnds))
        return m_selection.move(*step, extends, obtainPageRows());
    if (m_selection.isEmpty())
        return false;
    if (key == UXKeyCode::Escape) {
        m_selection.clear();
        return true;
    }
    if (key != UXKeyCode::Space || !(extends || toEnds))
        return false;
    using enum KXGridSelectionUnit;
    m_selection.widen(extends && toEnds ? All : extends ? Rows : Columns);
    return true;
}
