#include "kx_legend.h"

#include "kx_chart_data_user.h"
#include "kx_key_type.h"
#include "kx_legend_cell.h"
#include "kx_legend_delegate.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

// type and member, which is its JSON key, in the document's order after m_scrollView
#define KX_LEGEND_KEYS(KEY)                          \
    KEY(double, m_calculatedTextHeight)              \
    KEY(double, m_calculatedCellHeight)              \
    KEY(double, m_calculatedSymbolTop)               \
    KEY(std::vector<double>, m_calculatedCellWidths) \
    KEY(double, m_calculatedMaxCellWidth)            \
    KEY(int, m_cellCount)                            \
    KEY(std::vector<bool>, m_cellVisibles)           \
    KEY(std::vector<int>, m_cellIndexList)           \
    KEY(std::vector<UXColor>, m_colorSeries)         \
    KEY(UXTextProperty, m_textProperty)              \
    KEY(UXArrangement, m_arrangement)                \
    KEY(UXPosition, m_horizontalAlign)               \
    KEY(UXPosition, m_verticalAlign)                 \
    KEY(double, m_columnSpacing)                     \
    KEY(double, m_rowSpacing)                        \
    KEY(double, m_symbolWidth)                       \
    KEY(double, m_symbolHeight)                      \
    KEY(UXSymbolStyle, m_symbolStyle)                \
    KEY(double, m_labelIndent)                       \
    KEY(bool, m_showHint)

namespace {

/** The sample that stands for the height of any label: an ascender and a descender. */
constexpr const char* heightSample = "Wp";
/** A cell is this much higher than its text. */
constexpr double lineSpread = 1.2;

} // namespace

KXLegend::KXLegend() : KXInteraction(this), m_scrollView(new UXVirtualScrollView)
{
    m_textProperty.font.size = 13;
    m_textProperty.textColor = UXColor(120, 120, 120, 1.0);
    m_scrollView->setDelegate(this);
    addChild(m_scrollView);
    setShowsFocus(true);
}

KXLegend::~KXLegend()
{
    // What goes with the legend must not call it any more.
    const std::vector<UXObject*>& children = getChildren();
    if (std::find(children.begin(), children.end(), m_scrollView) != children.end())
        m_scrollView->setDelegate(nullptr);
}

void KXLegend::setDelegate(KXLegendDelegate* delegate)
{
    if (m_delegate == delegate)
        return;
    const UXObjectWatcher self(this);
    endCellHover(); // the delegate before goes on without this legend's pointer
    if (!self.isAlive())
        return;
    m_delegate = delegate;
    ++m_generation;
    // The cells ask the data user of the delegate before.
    for (KXLegendCell* cell : _obtainCells())
        delete cell;
    markDataUpdated();
    markCellVisibleUpdated();
}

void KXLegend::setColorSeries(const std::vector<UXColor>& colors)
{
    if (m_colorSeries == colors)
        return;
    m_colorSeries = colors;
    invalidate();
}

void KXLegend::setArrangement(UXArrangement arrangement)
{
    if (m_arrangement == arrangement)
        return;
    m_arrangement = arrangement;
    requireLayout();
}

UXArrangement KXLegend::getArrangement() const { return m_arrangement; }

void KXLegend::setHorizontalAlign(UXPosition align)
{
    if (m_horizontalAlign == align)
        return;
    m_horizontalAlign = align;
    requireLayout();
}

void KXLegend::setVerticalAlign(UXPosition align)
{
    if (m_verticalAlign == align)
        return;
    m_verticalAlign = align;
    requireLayout();
}

void KXLegend::setTextProperty(const UXTextProperty& property)
{
    if (!(m_textProperty != property))
        return;
    m_textProperty = property;
    markDataUpdated();
    markCellVisibleUpdated();
}

UXTextProperty KXLegend::getTextProperty() const { return m_textProperty; }

void KXLegend::setLabelColor(const UXColor& color)
{
    // A colour changes no measure, so the cells keep theirs.
    if (m_textProperty.textColor == color)
        return;
    m_textProperty.textColor = color;
    invalidate();
}

void KXLegend::setScrollBarColor(const UXColor& color) { m_scrollView->setScrollBarColor(color); }
void KXLegend::setScrollBarSliderColor(const UXColor& color) { m_scrollView->setScrollBarSliderColor(color); }
void KXLegend::setShowHint(bool show) { m_showHint = show; }
bool KXLegend::getShowHint() const { return m_showHint; }
void KXLegend::enableCellClick() { m_cellClickEnabled = true; }
void KXLegend::disableCellClick() { m_cellClickEnabled = false; }

void KXLegend::markDataUpdated()
{
    m_dataUpdated = true;
    requireLayout();
}

void KXLegend::markCellVisibleUpdated()
{
    m_cellVisibleUpdated = true;
    requireLayout();
}

void KXLegend::updateLegendColor() { invalidate(); }

void KXLegend::setSymbolStyle(UXSymbolStyle style)
{
    if (m_symbolStyle == style)
        return;
    m_symbolStyle = style;
    requireLayout(); // the cells take the style with their label
}

UXSymbolStyle KXLegend::getSymbolStyle() const { return m_symbolStyle; }

void KXLegend::endCellHover()
{
    // The chart hears of it, and cells may go meanwhile.
    const std::vector<KXLegendCell*> cells = _obtainCells();
    for (const UXObjectWatcher& watcher : std::vector<UXObjectWatcher>(cells.begin(), cells.end()))
        if (auto* cell = dynamic_cast<KXLegendCell*>(watcher.getObject()))
            cell->endHover();
}

double KXLegend::obtainLegendHeight()
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const double textHeight = helper->getTextSize(heightSample, m_textProperty).height;
    return std::max(m_symbolHeight, lineSpread * textHeight) + m_rowSpacing +
           UXVirtualScrollView::extraExtent;
}

double KXLegend::obtainLegendWidth()
{
    const UXObjectWatcher self(this);
    _updateCellCache();
    if (!self.isAlive())
        return 0;
    return m_calculatedMaxCellWidth + UXVirtualScrollView::extraExtent + 2 * m_margin;
}

UXColor KXLegend::obtainLegendCellColor(std::uint64_t index) const
{
    UXColor color;
    if (m_delegate && m_delegate->obtainLegendSymbolColor(index, color))
        return color;
    return m_colorSeries.empty() ? UXColor() : m_colorSeries[index % m_colorSeries.size()];
}

void KXLegend::_updateCellCache()
{
    if (!m_delegate) {
        m_calculatedMaxCellWidth = 0;
        return;
    }
    const UXObjectWatcher self(this);
    if (m_dataUpdated)
        _measureCells();
    if (self.isAlive() && m_delegate && m_cellVisibleUpdated)
        _collectShownCells();
}

std::string KXLegend::_obtainLabel(std::uint64_t index)
{
    std::string label = m_delegate->obtainLegendLabel(index);
    // A cell has one line.
    std::replace_if(
        label.begin(), label.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return label;
}

void KXLegend::_measureCells()
{
    // The delegate may destroy the chart, and this with it, or part from it in any of its answers.
    const UXObjectWatcher self(this);
    KXLegendDelegate* const delegate = m_delegate;
    const std::uint64_t cellCount = delegate->obtainLegendCellSize();
    if (!self.isAlive() || m_delegate != delegate)
        return;
    ++m_generation;
    m_cellCount = uxSaturateToInt(cellCount);
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    m_calculatedTextHeight = helper->getTextSize(heightSample, m_textProperty).height;
    m_calculatedCellHeight = std::max(m_symbolHeight, lineSpread * m_calculatedTextHeight);
    // The symbol is centred on the text itself, not on the spread cell.
    m_calculatedSymbolTop = std::floor((std::max(m_symbolHeight, m_calculatedTextHeight) - m_symbolHeight) /
                                       2);

    m_calculatedCellWidths.clear();
    m_cellObjectIDs.clear();
    for (int i = 0; i < m_cellCount; ++i) {
        const auto index = static_cast<std::uint64_t>(i);
        const std::string label = _obtainLabel(index);
        if (!self.isAlive() || m_delegate != delegate)
            return;
        const double labelWidth = helper->getTextSize(label, m_textProperty).width;
        m_calculatedCellWidths.push_back(
            std::min(m_symbolWidth + m_labelIndent + labelWidth, m_maxCellWidth));
        std::vector<KXObjectID> objectIDs = delegate->obtainLegendCellObjectID(index);
        if (!self.isAlive() || m_delegate != delegate)
            return;
        m_cellObjectIDs.push_back(std::move(objectIDs));
    }
    m_dataUpdated = false;
}

void KXLegend::_collectShownCells()
{
    const UXObjectWatcher self(this);
    KXLegendDelegate* const delegate = m_delegate;
    ++m_generation;
    m_calculatedMaxCellWidth = 0;
    m_cellVisibles.clear();
    m_cellIndexList.clear();
    for (int i = 0; i < m_cellCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const bool isShown = delegate->obtainLegendShouldShowCell(index);
        if (!self.isAlive() || m_delegate != delegate)
            return;
        m_cellVisibles.push_back(isShown);
        if (!isShown || index >= m_calculatedCellWidths.size())
            continue;
        m_cellIndexList.push_back(i);
        m_calculatedMaxCellWidth = std::max(m_calculatedMaxCellWidth, m_calculatedCellWidths[index]);
    }
    m_cellVisibleUpdated = false;
}

std::span<const int> KXLegend::_obtainShownCells() const
{
    const auto end = std::ranges::lower_bound(m_cellIndexList,
                                              uxSaturateToInt(m_calculatedCellWidths.size()));
    return {m_cellIndexList.begin(), end};
}

void KXLegend::customLayout()
{
    if (!m_delegate)
        return;
    const UXObjectWatcher self(this);
    _updateCellCache();
    if (!self.isAlive())
        return;
    // On the way the view's sizes do not belong together yet: cells are placed once, at the end.
    m_arranging = true;
    const bool isRow = m_arrangement == UXArrangement::Row;
    m_scrollView->setEnableHorizontalScrollBar(isRow, false);
    m_scrollView->setEnableVerticalScrollBar(!isRow, false);
    const UXRect area = getContentRect();
    m_scrollView->setRect(isRow ? _arrangeRow(area) : _arrangeColumn(area));
    m_arranging = false;
    for (UXObject* child : getChildren())
        child->layout();
    if (!self.isAlive())
        return;
    m_contentChanged = true;
    virtualScrollViewContentOffsetChanged(m_scrollView, UXEvent());
    if (self.isAlive())
        m_contentChanged = false;
}

UXRect KXLegend::_arrangeRow(UXRect area)
{
    double rowWidth = 2 * m_margin;
    m_cellLefts.clear();
    for (const int index : _obtainShownCells()) {
        m_cellLefts.push_back(rowWidth - m_margin);
        rowWidth += m_calculatedCellWidths[static_cast<std::size_t>(index)] + m_columnSpacing;
    }
    if (!m_cellLefts.empty())
        rowWidth -= m_columnSpacing;

    const double room = area.width - rowWidth;
    const int width = uxSaturateToInt(std::floor(rowWidth));
    if (room > 0) {
        if (m_horizontalAlign == UXPosition::Right)
            area.x = uxSaturateToInt(area.x + std::floor(room));
        else if (m_horizontalAlign == UXPosition::Center)
            area.x = uxSaturateToInt(area.x + std::floor(room / 2));
        area.width = width;
    }
    m_scrollView->setContentWidth(width);
    m_scrollView->setContentHeight(area.height);
    return area;
}

int KXLegend::_obtainRowPitch() const
{
    return uxSaturateToInt(std::floor(m_rowSpacing + m_calculatedCellHeight));
}

UXRect KXLegend::_arrangeColumn(UXRect area)
{
    const auto shown = std::ssize(_obtainShownCells());
    std::int64_t height = _obtainRowPitch() * shown + std::int64_t{2} * m_margin;
    if (shown > 0)
        height -= uxSaturateToInt(std::floor(m_rowSpacing));

    const std::int64_t room = area.height - height;
    if (room > 0) {
        if (m_verticalAlign == UXPosition::Center)
            area.y = uxSaturateToInt(area.y + room / 2);
        else if (m_verticalAlign == UXPosition::Bottom)
            area.y = uxSaturateToInt(area.y + room);
        area.height = uxSaturateToInt(height);
    }
    m_scrollView->setContentWidth(area.width);
    m_scrollView->setContentHeight(height);
    return area;
}

bool KXLegend::shouldClipInScrollArea(UXVirtualScrollView*, UXObject* object)
{
    return dynamic_cast<KXLegendCell*>(object) != nullptr;
}

void KXLegend::virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent&)
{
    // What is marked is placed by the layout to come; until then the cells' indexes may be those of old data.
    const bool isMarked = m_dataUpdated || m_cellVisibleUpdated;
    if (view == m_scrollView && !m_arranging && (m_contentChanged || !isMarked))
        _placeCells(std::exchange(m_contentChanged, false));
}

/** @param contentChanged off: only cells that come into view ask for their label */
void KXLegend::_placeCells(bool contentChanged)
{
    const UXObjectWatcher self(this);
    if (!m_delegate || !_endLostHover() || !m_delegate)
        return;
    ++m_generation;
    const auto [first, end] = _obtainVisiblePlaces();
    const std::vector<UXObjectWatcher> cells = _takeCells(first, end);
    for (std::size_t place = first; place < end; ++place)
        if (!_fillPlace(place, cells[place - first], contentChanged))
            return;
    // Whatever came and went meanwhile, cells are painted in their order.
    std::vector<KXLegendCell*> placed = _obtainCells();
    if (!std::ranges::is_sorted(placed, {}, &KXLegendCell::getIndex)) {
        std::ranges::sort(placed, {}, &KXLegendCell::getIndex);
        for (KXLegendCell* cell : placed)
            m_scrollView->bringChildToFront(cell);
    }
    if (contentChanged)
        m_scrollView->invalidate();
}

/** @param taken the object that is to serve for the place; of none, or of one that has gone, a new one does
 *  @return false where an answer of the delegate had the cells placed anew, or ended the legend */
bool KXLegend::_fillPlace(std::size_t place, const UXObjectWatcher& taken, bool contentChanged)
{
    const UXObjectWatcher self(this);
    const auto isCurrent = [this, &self, generation = m_generation] {
        return self.isAlive() && m_generation == generation;
    };
    const auto index = static_cast<std::uint64_t>(_obtainShownCells()[place]);
    auto* known = static_cast<KXLegendCell*>(taken.getObject());
    if (known && !contentChanged && known->getIndex() == index) {
        _placeCell(known, _obtainCellRect(place));
        return true;
    }

    // 1. What is to be seen.
    const std::string label = _obtainLabel(index);
    if (!isCurrent())
        return false;
    const UXSymbolStyle style = m_delegate->obtainLegendSymbolStyle(index);
    if (!isCurrent())
        return false;

    // 2. Where: the object hears clicks for the delegate's data user, and a hover of another cell ends.
    std::unique_ptr<KXLegendCell> made(taken.isAlive() ? nullptr : new KXLegendCell(this));
    if (made)
        updateCellInteraction(made.get(), index);
    if (!isCurrent())
        return false;
    const UXObjectWatcher cell(made ? made.get() : taken.getObject());
    static_cast<KXLegendCell*>(cell.getObject())->showCell(index, label, style);
    if (!isCurrent())
        return false;
    if (cell.isAlive())
        _placeCell(static_cast<KXLegendCell*>(cell.getObject()), _obtainCellRect(place));
    made.release(); // the scroll view's now
    return true;
}

/** A cell under the pointer that is not seen any more serves for another one or goes, and its chart must not
 * take it for pointed at. @return whether this is still here */
bool KXLegend::_endLostHover()
{
    const UXObjectWatcher self(this);
    const auto [first, end] = _obtainVisiblePlaces();
    const std::span<const int> seen = _obtainShownCells().subspan(first, end - first);
    std::vector<UXObjectWatcher> lost;
    for (KXLegendCell* cell : _obtainCells())
        if (cell->isHovered() && !std::ranges::binary_search(seen, uxSaturateToInt(cell->getIndex())))
            lost.emplace_back(cell);
    for (const UXObjectWatcher& watcher : lost)
        if (auto* cell = dynamic_cast<KXLegendCell*>(watcher.getObject()))
            cell->endHover();
    return self.isAlive();
}

/** A child that changes its size has the whole chart laid out; cells change theirs outside of the tree, so
 * that scrolling lays out nothing. */
void KXLegend::_placeCell(KXLegendCell* cell, const UXRect& rect)
{
    const UXRect old = cell->getRect();
    const bool isMoved = old.width == rect.width && old.height == rect.height;
    if (cell->getParent() && !isMoved)
        m_scrollView->removeChild(cell);
    cell->setRect(rect);
    if (!cell->getParent())
        m_scrollView->addChild(cell);
}

/** A cell that stays in view stays the same object, those that have left serve for others, and what nobody
 * needs goes. @return one entry a place, null where there is no object for it */
std::vector<UXObjectWatcher> KXLegend::_takeCells(std::size_t first, std::size_t end)
{
    std::vector<KXLegendCell*> cells(end - first);
    std::vector<KXLegendCell*> free;
    const std::span<const int> seen = _obtainShownCells().subspan(first, end - first);
    for (KXLegendCell* cell : _obtainCells()) {
        const int index = uxSaturateToInt(cell->getIndex());
        const auto found = std::ranges::lower_bound(seen, index);
        KXLegendCell** entry = found != seen.end() && *found == index
                                   ? &cells[static_cast<std::size_t>(found - seen.begin())]
                                   : nullptr;
        if (entry && !*entry)
            *entry = cell;
        else
            free.push_back(cell);
    }
    for (KXLegendCell*& cell : cells) {
        if (cell || free.empty())
            continue;
        cell = free.back();
        free.pop_back();
    }
    for (KXLegendCell* cell : free)
        delete cell;
    return {cells.begin(), cells.end()};
}

/** Clicks on a cell ask the delegate's provider about what the cell stands for at that time. */
void KXLegend::updateCellInteraction(KXLegendCell* cell, std::uint64_t)
{
    KXChartDataUser* user = m_delegate->obtainLegendDataUser();
    if (!user)
        return;
    cell->registerInteraction(user, {KXInteractionEventType::LeftClick, KXInteractionEventType::RightClick},
                              [this, cell](const UXEvent&) {
                                  const std::uint64_t index = cell->getIndex();
                                  return index < m_cellObjectIDs.size() ? m_cellObjectIDs[index]
                                                                        : std::vector<KXObjectID>();
                              });
}

bool KXLegend::customMouseDown(const UXEvent& event, bool& stop)
{
    takeFocus(std::nullopt);
    return UXObject::customMouseDown(event, stop);
}

bool KXLegend::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return walk(event) || (self.isAlive() && UXObject::customKeyDown(event, stop));
}

bool KXLegend::takeKeys()
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || !getVisible() || uxIsEmptyRect(getRect()) || !_canWalk())
        return false;
    diagram->setFocusedObject(this);
    _walkTo(_obtainWalkedPlace().value_or(_obtainVisiblePlaces().first));
    return true;
}

/** @return whether there are cells, and these those of the present data */
bool KXLegend::_canWalk() const
{
    return m_delegate && !_obtainShownCells().empty() && !m_dataUpdated && !m_cellVisibleUpdated;
}

void KXLegend::takeFocus(const std::optional<std::uint64_t>& index)
{
    if (index)
        m_walkedCell = index;
    m_showsWalk = false;
    if (UXDiagram* diagram = uxObtainDiagram(this))
        diagram->setFocusedObject(this);
}

std::optional<std::uint64_t> KXLegend::getWalkedCell() const
{
    const std::optional<std::size_t> place = _obtainWalkedPlace();
    return place ? m_walkedCell : std::nullopt;
}

bool KXLegend::isWalkedTo(std::uint64_t index) const
{
    if (!m_showsWalk || m_walkedCell != index)
        return false;
    const UXDiagram* diagram = uxObtainDiagram(m_scrollView);
    return !diagram || diagram->getFocusedObject() == this;
}

/** @return where the walked cell stands among the shown ones; none when it is not shown any more */
std::optional<std::size_t> KXLegend::_obtainWalkedPlace() const
{
    if (!m_walkedCell)
        return std::nullopt;
    const std::span<const int> shown = _obtainShownCells();
    const auto found = std::ranges::lower_bound(shown, uxSaturateToInt(*m_walkedCell));
    if (found == shown.end() || !std::cmp_equal(*found, *m_walkedCell))
        return std::nullopt;
    return static_cast<std::size_t>(found - shown.begin());
}

bool KXLegend::walk(const UXEvent& event)
{
    if (!_canWalk())
        return false;
    const auto last = std::ssize(_obtainShownCells()) - 1;
    const std::optional<std::size_t> walked = _obtainWalkedPlace();
    const auto place = walked ? static_cast<std::ptrdiff_t>(*walked) : -1;
    const auto [first, end] = _obtainVisiblePlaces();
    // A page keeps one cell, so that the eye finds its place.
    const auto page = std::max<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(end - first) - 2, 1);
    const auto walkTo = [&](std::ptrdiff_t wanted) {
        _walkTo(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last)));
        return true;
    };
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Left:
    case UXKeyCode::Up:
        return walkTo(place - 1);
    case UXKeyCode::Right:
    case UXKeyCode::Down:
        return walkTo(place + 1);
    case UXKeyCode::PageUp:
        return walkTo(place - page);
    case UXKeyCode::PageDown:
        return walkTo(place + page);
    case UXKeyCode::Home:
        return walkTo(0);
    case UXKeyCode::End:
        return walkTo(last);
    case UXKeyCode::Enter:
        if (walked)
            _clickCell(_findCell(*m_walkedCell), event);
        return walked.has_value();
    case UXKeyCode::Space:
        if (walked)
            cellClicked(*m_walkedCell, event);
        return walked.has_value();
    default:
        return false;
    }
}

void KXLegend::_walkTo(std::size_t place)
{
    if (KXLegendCell* left = m_walkedCell ? _findCell(*m_walkedCell) : nullptr)
        left->hideHint();
    m_walkedCell = static_cast<std::uint64_t>(_obtainShownCells()[place]);
    m_showsWalk = true;
    const UXObjectWatcher self(this);
    _showPlace(place);
    if (!self.isAlive())
        return;
    m_scrollView->invalidate();
    if (KXLegendCell* cell = _findCell(*m_walkedCell))
        cell->explain(UXPoint(0, cell->getRect().height), nullptr);
}

/** Scrolls as little as brings all of a cell into view. */
void KXLegend::_showPlace(std::size_t place)
{
    const UXSize area = m_scrollView->obtainDisplayArea();
    const auto reach = [](std::int64_t offset, std::int64_t shown, std::int64_t start, std::int64_t extent) {
        return std::min(std::max(offset, start + extent - shown), start);
    };
    if (m_arrangement == UXArrangement::Row) {
        const double width = m_calculatedCellWidths[static_cast<std::size_t>(_obtainShownCells()[place])];
        const auto left = static_cast<std::int64_t>(std::floor(m_cellLefts[place])) - m_margin;
        const auto extent = static_cast<std::int64_t>(std::ceil(width)) + std::int64_t{2} * m_margin;
        m_scrollView->setContentOffsetX(reach(m_scrollView->getContentOffsetX(), area.width, left, extent));
        return;
    }
    const std::int64_t top = static_cast<std::int64_t>(place) * std::max(_obtainRowPitch(), 1);
    const std::int64_t extent = uxSaturateToInt(std::ceil(m_calculatedCellHeight)) + 2 * m_margin;
    m_scrollView->setContentOffsetY(reach(m_scrollView->getContentOffsetY(), area.height, top, extent));
}

void KXLegend::_clickCell(KXLegendCell* cell, const UXEvent& event)
{
    if (!cell)
        return;
    UXEvent click = event;
    click.setEventType(UXEventType::LeftClick);
    click.addEventKey(UXEventKey::LeftButton);
    const UXRect rect = cell->getRect();
    click.setMousePoint(cell->translatePointToParent(UXPoint(rect.width / 2, rect.height / 2), nullptr));
    cell->triggerEventHandler(click);
}

KXLegendCell* KXLegend::_findCell(std::uint64_t index) const
{
    for (KXLegendCell* cell : _obtainCells())
        if (cell->getIndex() == index)
            return cell;
    return nullptr;
}

std::vector<KXLegendCell*> KXLegend::_obtainCells() const
{
    std::vector<KXLegendCell*> cells;
    for (UXObject* child : m_scrollView->getChildren())
        if (auto* cell = dynamic_cast<KXLegendCell*>(child))
            cells.push_back(cell);
    return cells;
}

/** @return the first place among the shown cells that the view's visible part meets, and the one after the
 * last */
std::pair<std::size_t, std::size_t> KXLegend::_obtainVisiblePlaces() const
{
    const UXSize area = m_scrollView->obtainDisplayArea();
    const std::size_t count = _obtainShownCells().size();
    if (area.width <= 0 || area.height <= 0 || count == 0)
        return {0, 0};
    if (m_arrangement == UXArrangement::Row) {
        const auto left = static_cast<double>(m_scrollView->getContentOffsetX());
        const auto end = std::lower_bound(m_cellLefts.cbegin(), m_cellLefts.cend(), left + area.width);
        // The last cell that begins at the left edge or before it may reach into view.
        auto first = std::upper_bound(m_cellLefts.cbegin(), end, left);
        if (first != m_cellLefts.cbegin())
            --first;
        const auto bound = [this, count](auto place) {
            return std::min(count, static_cast<std::size_t>(place - m_cellLefts.cbegin()));
        };
        return {bound(first), bound(end)};
    }
    const std::int64_t pitch = std::max(_obtainRowPitch(), 1);
    const std::int64_t top = m_scrollView->getContentOffsetY() - m_margin;
    const auto bound = [count](std::int64_t place) {
        return std::min(count, static_cast<std::size_t>(std::max<std::int64_t>(place, 0)));
    };
    return {bound(top / pitch), bound((top + area.height + pitch - 1) / pitch)};
}

UXRect KXLegend::_obtainCellRect(std::size_t place) const
{
    const UXRect area = m_scrollView->obtainScrollContentRect();
    const double width = m_calculatedCellWidths[static_cast<std::size_t>(_obtainShownCells()[place])];
    // Rounded up, so that a label that was measured to fit is not cut.
    const int wholeWidth = uxSaturateToInt(std::ceil(width));
    const int height = uxSaturateToInt(std::ceil(m_calculatedCellHeight));
    if (m_arrangement == UXArrangement::Row) {
        const double left = m_cellLefts[place] - static_cast<double>(m_scrollView->getContentOffsetX());
        return {uxSaturateToInt(area.x + std::floor(left)),
                uxSaturateToInt(area.y + (std::int64_t{area.height} - height) / 2), wholeWidth, height};
    }
    const std::int64_t top = m_margin + static_cast<std::int64_t>(place) * std::max(_obtainRowPitch(), 1) -
                             m_scrollView->getContentOffsetY();
    const UXRect inside = uxInflateRect(area, -m_margin, 0);
    return {inside.x, uxSaturateToInt(area.y + top), std::clamp(inside.width, 0, wholeWidth), height};
}

UXDoubleRect KXLegend::obtainSymbolRect() const
{
    return {0, m_calculatedSymbolTop, m_symbolWidth, m_symbolHeight};
}

UXDoubleRect KXLegend::obtainLabelRect(int cellWidth) const
{
    const double left = m_symbolWidth + m_labelIndent;
    return {left, 0, std::max(cellWidth - left, 0.0), std::max(m_symbolHeight, m_calculatedTextHeight)};
}

bool KXLegend::isLabelCut(const std::string& label, int cellWidth) const
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    return helper->getTextSize(label, m_textProperty).width > obtainLabelRect(cellWidth).width;
}

std::vector<KXInteractionEffect*> KXLegend::obtainCellEffects(std::uint64_t index) const
{
    KXChartDataUser* user = m_delegate ? m_delegate->obtainLegendDataUser() : nullptr;
    if (!user || index >= m_cellObjectIDs.size())
        return {};
    return user->obtainInteractionEffects(m_cellObjectIDs[index]);
}

bool KXLegend::isCellOn(std::uint64_t index) const
{
    return !m_delegate || m_delegate->obtainLegendCellIsOn(index);
}

void KXLegend::cellClicked(std::uint64_t index, const UXEvent& event)
{
    const KXChartDataUser* user = m_delegate ? m_delegate->obtainLegendDataUser() : nullptr;
    if (m_delegate && m_cellClickEnabled && (!user || user->isInteractionEnabled()))
        m_delegate->legendCellClicked(index, event);
}

void KXLegend::cellHovered(std::uint64_t index, bool hovered)
{
    if (m_delegate)
        m_delegate->legendCellHovered(index, hovered);
}

bool KXLegend::obtainShouldShowPointingHand(std::uint64_t index, const UXEvent& event) const
{
    return m_delegate && m_delegate->shouldShowPointingHandWhenMouseOverLegendCell(index, event);
}

void KXLegend::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (!config)
        return;
    const UXPaintClip clip(*config, UXDoubleRect(translateRectToParent(getBoundingRect(), nullptr)));
    UXObject::paint(config, dirtyRect);
}

void KXLegend::customSerialize()
{
    UXObject::customSerialize();
    serializeObjectWeakRef("m_scrollView", m_scrollView);
#define KX_LEGEND_WRITE(Type, member) kxWriteKey(this, #member, member);
    KX_LEGEND_KEYS(KX_LEGEND_WRITE)
#undef KX_LEGEND_WRITE
}

std::string KXLegend::customSerializeTypeID() { return "KXLegend"; }

bool KXLegend::customDeserialize()
{
    bool complete = UXObject::customDeserialize();
    complete = deserializeObjectWeakRef("m_scrollView",
                                        [this](UXJsonObject* found) {
                                            auto* view = dynamic_cast<UXVirtualScrollView*>(found);
                                            if (view && view->getParent() == this)
                                                m_scrollView = view;
                                            return view != nullptr;
                                        }) &&
               complete;
#define KX_LEGEND_READ(Type, member) complete = kxReadKey(this, #member, member) && complete;
    KX_LEGEND_KEYS(KX_LEGEND_READ)
#undef KX_LEGEND_READ
    // The measures of the document are those of another moment and another machine's fonts.
    markDataUpdated();
    markCellVisibleUpdated();
    return complete;
}
