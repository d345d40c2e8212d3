#include "kx_legend.h"

#include "kx_accessible_cells.h"
#include "kx_chart_data_user.h"
#include "kx_key_type.h"
#include "kx_legend_cell.h"
#include "kx_legend_delegate.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_localize.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_symbol_shape.h"
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
    m_cells.setView(m_scrollView);
    setShowsFocus(true);
}

KXLegend::~KXLegend()
{
    setParent(nullptr);
    // What goes with the legend must not call it any more.
    const std::vector<UXObject*>& children = getChildren();
    if (std::find(children.begin(), children.end(), m_scrollView) != children.end())
        m_scrollView->setDelegate(nullptr);
}

void KXLegend::setDelegate(KXLegendDelegate* delegate)
{
    const UXNotificationScope scope;
    if (m_delegate == delegate)
        return;
    const UXObjectWatcher self(this);
    endCellHover(); // the delegate before goes on without this legend's pointer
    if (!self.isAlive())
        return;
    m_delegate = delegate;
    m_cells.clear(); // they ask the data user of the delegate before
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
    const UXNotificationScope scope;
    m_cells.endHover();
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
    m_cells.interrupt();
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
    m_cellVisibleUpdated = true; // the widest of those that are shown may be another one
}

void KXLegend::_collectShownCells()
{
    const UXObjectWatcher self(this);
    KXLegendDelegate* const delegate = m_delegate;
    m_cells.interrupt();
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

std::span<const int> KXLegend::obtainListedCells() const
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
    UXFlagScope arranging(this, m_arranging);
    const bool isRow = m_arrangement == UXArrangement::Row;
    m_scrollView->setEnableHorizontalScrollBar(isRow, false);
    m_scrollView->setEnableVerticalScrollBar(!isRow, false);
    const UXRect area = getContentRect();
    m_scrollView->setRect(isRow ? _arrangeRow(area) : _arrangeColumn(area));
    arranging.end();
    for (UXObject* child : getChildren())
        child->layout();
    if (!self.isAlive())
        return;
    const UXFlagScope contentChanged(this, m_contentChanged);
    virtualScrollViewContentOffsetChanged(m_scrollView, UXEvent());
}

UXRect KXLegend::_arrangeRow(UXRect area)
{
    double rowWidth = 2 * m_margin;
    KXCellArrangement arrangement{true, m_margin, m_calculatedCellHeight, 1, {}};
    for (std::size_t place = 0; place < obtainListedCells().size(); ++place) {
        arrangement.lefts.push_back(rowWidth - m_margin);
        rowWidth += obtainCellWidth(place) + m_columnSpacing;
    }
    if (!arrangement.lefts.empty())
        rowWidth -= m_columnSpacing;
    m_cells.setArrangement(std::move(arrangement));

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
    const auto shown = std::ssize(obtainListedCells());
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
    m_cells.setArrangement({false, m_margin, m_calculatedCellHeight, _obtainRowPitch(), {}});
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

void KXLegend::_placeCells(bool contentChanged)
{
    if (m_delegate)
        m_cells.placeCells(contentChanged);
}

double KXLegend::obtainCellWidth(std::size_t place) const
{
    return m_calculatedCellWidths[static_cast<std::size_t>(obtainListedCells()[place])];
}

/** @return a cell that hears clicks for the delegate's data user */
std::unique_ptr<KXListCell> KXLegend::makeCell()
{
    const UXObjectWatcher self(this);
    auto cell = std::make_unique<KXLegendCell>(this);
    if (m_delegate)
        updateCellInteraction(cell.get(), 0);
    return self.isAlive() ? std::move(cell) : nullptr;
}

void KXLegend::fillCell(KXListCell& cell, std::uint64_t index)
{
    const UXObjectWatcher self(this), filled(&cell);
    KXLegendDelegate* const delegate = m_delegate;
    const auto isCurrent = [&] { return self.isAlive() && filled.isAlive() && m_delegate == delegate; };
    if (!delegate)
        return;
    const std::string label = _obtainLabel(index);
    if (!isCurrent())
        return;
    const UXSymbolStyle style = delegate->obtainLegendSymbolStyle(index);
    if (isCurrent())
        static_cast<KXLegendCell&>(cell).showCell(index, label, style);
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

bool KXLegend::walk(const UXEvent& event) { return _canWalk() && m_cells.walk(event); }

std::optional<std::uint64_t> KXLegend::getWalkedCell() const { return m_cells.getWalkedCell(); }

bool KXLegend::isWalkedTo(std::uint64_t index) const { return m_cells.isWalkedTo(index); }

bool KXLegend::takeKeys()
{
    const UXNotificationScope scope;
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || !getVisible() || uxIsEmptyRect(getRect()) || !_canWalk())
        return false;
    diagram->setFocusedObject(this);
    m_cells.beginWalk();
    return true;
}

/** @return whether there are cells, these those of the present data, and placed as they are arranged now */
bool KXLegend::_canWalk() const
{
    return m_delegate && !obtainListedCells().empty() && !m_dataUpdated && !m_cellVisibleUpdated &&
           !getRequireToVerifyLayout();
}

void KXLegend::takeFocus(const std::optional<std::uint64_t>& index)
{
    const UXNotificationScope scope;
    m_cells.press(index);
    if (UXDiagram* diagram = uxObtainDiagram(this))
        diagram->setFocusedObject(this);
}

/** As a click of the pointer on the middle of the cell. */
void KXLegend::clickCell(KXListCell& cell, const UXEvent& event)
{
    UXEvent click = event;
    click.setEventType(UXEventType::LeftClick);
    click.addEventKey(UXEventKey::LeftButton);
    const UXRect rect = cell.getRect();
    click.setMousePoint(cell.translatePointToParent(UXPoint(rect.width / 2, rect.height / 2), nullptr));
    cell.triggerEventHandler(click);
}

void KXLegend::switchCell(std::uint64_t index, const UXEvent& event) { cellClicked(index, event); }

UXAccessibleInfo KXLegend::obtainCellInfo(std::uint64_t index)
{
    UXAccessibleInfo info;
    const UXObjectWatcher self(this);
    info.role = m_cellClickEnabled ? UXAccessibleRole::CheckBox : UXAccessibleRole::ListItem;
    info.name = m_delegate ? _obtainLabel(index) : std::string();
    if (self.isAlive() && m_cellClickEnabled)
        info.checked = isCellOn(index) ? UXAccessibleToggle::On : UXAccessibleToggle::Off;
    return info;
}

std::unique_ptr<UXAccessibleNode> KXLegend::createAccessibleNode()
{
    const UXAccessibleRole role = m_cellClickEnabled ? UXAccessibleRole::Group : UXAccessibleRole::List;
    return std::make_unique<KXAccessibleCells>(m_cells, role, uxLocalizeString("Legend"));
}

bool KXLegend::isAccessible() const
{
    return m_delegate && !uxIsEmptyRect(getRect()) && m_cells.obtainCount() > 0;
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

void KXLegend::paintSymbol(std::uint64_t index, UXPainter& painter, UXSymbolStyle style,
                           const UXDoubleRect& bounds, const UXColor& color) const
{
    if (!m_delegate || !m_delegate->paintLegendSymbol(index, painter, bounds, color))
        uxDrawSymbol(painter, style, bounds, color);
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
                                                m_cells.setView(m_scrollView = view);
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
