#include "kx_control_chart_list.h"

#include "kx_accessible_cells.h"
#include "kx_control_button.h"
#include "kx_control_chart.h"
#include "kx_control_chart_row.h"
#include "kx_control_words.h"
#include "kx_member_search.h"
#include "kx_text_line.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_key_code.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <numeric>
#include <utility>

namespace {

constexpr std::int64_t typingPause = 1000; // milliseconds after which what is typed begins anew
constexpr int headerGap = 6;               // between the header's parts, and below it; in logical units
constexpr double rowSpread = 10;           // a row is this much higher than its text
/** With fewer rows than these below what is seen, more are looked for. */
constexpr std::size_t rowsAhead = 64;
/** A header that leaves the rows less height than this is left out. */
constexpr int leastRowsHeight = 64;

} // namespace

KXControlChartList::KXControlChartList(KXControlChart& chart)
    : m_chart(chart), m_searchLine(new KXTextLine), m_clearButton(new KXControlButton),
      m_scrollView(new UXVirtualScrollView)
{
    addChild(m_scrollView);
    addChild(m_searchLine);
    addChild(m_clearButton);
    m_scrollView->setDelegate(this);
    m_scrollView->setEnableHorizontalScrollBar(false, false);
    m_cells.setView(m_scrollView);
    m_searchLine->setForSearch(true);
    m_searchLine->setChangedHandler([this] { _search(); });
    m_searchLine->setFinishedHandler([this](const UXEvent&) { takeKeys(); });
    m_clearButton->setQuiet(true);
    m_clearButton->setVisible(false);
    m_clearButton->setAction([this](const UXEvent& event) { m_chart.clearChoice(event); });
    setShowsFocus(true);
}

KXControlChartList::~KXControlChartList()
{
    setParent(nullptr);
    m_scrollView->setDelegate(nullptr);
}

std::string KXControlChartList::customSerializeTypeID() { return "KXControlChartList"; }

void KXControlChartList::membersChanged()
{
    m_listsAnew = true;
    contentChanged();
}

void KXControlChartList::contentChanged()
{
    m_fillsAnew = true;
    m_cells.interrupt();
    requireLayout();
    invalidate();
}

void KXControlChartList::choiceChanged()
{
    _updateAllState();
    if (m_clearButton->getVisible() != m_chart.hasChoice())
        requireLayout();
    invalidate();
}

void KXControlChartList::colorsChanged()
{
    m_searchLine->setAccentColor(m_chart.getAccentColor());
    m_clearButton->setAccentColor(m_chart.getAccentColor());
    invalidate();
}

int KXControlChartList::obtainWantedHeight() const
{
    const std::uint64_t rows = m_chart.getMemberCount(0) + (_showsAllRow() ? 1 : 0);
    const int header = m_chart.getShowSearch() ? m_searchLine->getRect().height + headerGap : 0;
    return uxSaturateToInt(static_cast<double>(rows) * _obtainRowHeight() + header);
}

bool KXControlChartList::_showsAllRow() const
{
    const KXMemberSearch& search = m_chart.getSearch();
    const bool isAllFound = search.isComplete() && !search.getFound().empty() &&
                            m_chart.getMultipleSelection();
    return m_chart.getShowAll() && (!search.isActive() || isAllFound);
}

/** Of what was found the state is worked out once, and not whenever the row is drawn. */
void KXControlChartList::_updateAllState()
{
    using enum KXToggleSwitchState;
    const KXControlChoice& choice = m_chart.getChoice();
    if (!m_chart.getMultipleSelection()) {
        m_allState = choice.isAll() ? On : Off; // one mark alone is on, be it that of all
        return;
    }
    if (!m_chart.getSearch().isActive()) {
        m_allState = choice.obtainState(m_chart.getMemberCount(0));
        return;
    }
    const auto count = std::ranges::count_if(
        m_order, [&choice](std::uint64_t member) { return choice.contains(member); });
    m_allState = count == 0 ? Off : count == std::ssize(m_order) ? On : Mixed;
}

int KXControlChartList::_obtainRowHeight() const
{
    const double height = std::max(uxMeasureText("Wp", m_chart.getLabelProperty()).height,
                                   uxMeasureText("Wp", m_chart.getValueProperty()).height);
    return uxSaturateToInt(std::ceil(height + rowSpread));
}

std::optional<std::uint64_t> KXControlChartList::obtainMember(std::uint64_t row) const
{
    if (m_hasAllRow && row == 0)
        return std::nullopt;
    const std::uint64_t place = row - (m_hasAllRow ? 1 : 0);
    return place < m_order.size() ? m_order[place] : place;
}

std::optional<std::uint64_t> KXControlChartList::findRow(std::uint64_t member) const
{
    const std::uint64_t first = m_hasAllRow ? 1 : 0;
    if (m_order.empty())
        return member < m_memberCount ? std::optional(first + member) : std::nullopt;
    const auto found = std::ranges::find(m_order, member);
    if (found == m_order.end())
        return std::nullopt;
    return first + static_cast<std::uint64_t>(found - m_order.begin());
}

std::vector<std::uint64_t> KXControlChartList::obtainMembersInSight() const
{
    std::vector<std::uint64_t> members;
    for (const UXObject* child : m_scrollView->getChildren()) {
        const auto* row = dynamic_cast<const KXControlChartRow*>(child);
        const std::optional<std::uint64_t> member = row && row->getIndex() < m_rows.size()
                                                        ? obtainMember(row->getIndex())
                                                        : std::nullopt;
        if (member)
            members.push_back(*member);
    }
    return members;
}

std::optional<std::uint64_t> KXControlChartList::obtainMemberAt(UXPoint point) const
{
    const UXPoint inside = translatePointToChild(point, m_scrollView);
    const UXRect area = m_scrollView->obtainScrollContentRect();
    if (!getVisible() || !uxPointInRect(inside, area))
        return std::nullopt;
    const std::int64_t row = (inside.y - area.y + m_scrollView->getContentOffsetY()) / _obtainRowHeight();
    return row >= 0 && row < std::ssize(m_rows) ? obtainMember(static_cast<std::uint64_t>(row))
                                                : std::nullopt;
}

UXRect KXControlChartList::obtainMemberRect(std::uint64_t member) const
{
    const std::optional<std::uint64_t> row = findRow(member);
    if (!row || !getVisible())
        return {};
    UXRect area = m_scrollView->obtainScrollContentRect();
    area.x += m_scrollView->getRect().x;
    area.y += m_scrollView->getRect().y;
    const std::int64_t top = static_cast<std::int64_t>(*row) * _obtainRowHeight() -
                             m_scrollView->getContentOffsetY() + area.y;
    return uxIntersectionRect({area.x, uxSaturateToInt(top), area.width, _obtainRowHeight()}, area);
}

KXToggleSwitchState KXControlChartList::obtainRowState(std::uint64_t row) const
{
    const KXControlChoice& choice = m_chart.getChoice();
    const std::optional<std::uint64_t> member = obtainMember(row);
    if (!member)
        return m_allState;
    const bool isOn = choice.contains(*member) && (m_chart.getMultipleSelection() || !choice.isAll());
    return isOn ? KXToggleSwitchState::On : KXToggleSwitchState::Off;
}

bool KXControlChartList::isRowHighlighted(std::uint64_t row) const
{
    const std::optional<std::uint64_t> member = obtainMember(row);
    return member && m_chart.isMemberHighlighted(*member);
}

bool KXControlChartList::isRowCut(std::uint64_t member) const
{
    for (const UXObject* child : m_scrollView->getChildren()) {
        const auto* row = dynamic_cast<const KXControlChartRow*>(child);
        if (row && row->getIndex() < m_rows.size() && obtainMember(row->getIndex()) == member)
            return row->isCut();
    }
    return false;
}

void KXControlChartList::rowClicked(std::uint64_t row, const UXEvent& event)
{
    if (row >= m_rows.size())
        return;
    const std::optional<std::uint64_t> member = obtainMember(row);
    if (!member) {
        m_chosenRow.reset();
        if (m_chart.getSearch().isActive())
            m_chart.chooseFound(event);
        else
            m_chart.chooseAll(event);
        return;
    }
    if (!m_chart.getMultipleSelection())
        m_chart.chooseOnly(*member, event);
    else if (event.containsEventKey(UXEventKey::Shift) && m_chosenRow && *m_chosenRow < m_rows.size())
        _chooseUpTo(row, event);
    else
        m_chart.chooseMembers({*member}, !m_chart.getChoice().contains(*member), event);
    m_chosenRow = row;
}

/** All rows from the one chosen before become as that one is. */
void KXControlChartList::_chooseUpTo(std::uint64_t row, const UXEvent& event)
{
    const std::optional<std::uint64_t> before = obtainMember(*m_chosenRow);
    std::vector<std::uint64_t> members;
    for (std::uint64_t between = std::min(row, *m_chosenRow); between <= std::max(row, *m_chosenRow);
         ++between)
        if (const std::optional<std::uint64_t> member = obtainMember(between))
            members.push_back(*member);
    m_chart.chooseMembers(members, before && m_chart.getChoice().contains(*before), event);
}

void KXControlChartList::openRowMenu(std::uint64_t row, const UXEvent& event)
{
    const std::optional<std::uint64_t> member = row < m_rows.size() ? obtainMember(row) : std::nullopt;
    if (member)
        m_chart.openMemberMenu(*member, event);
}

void KXControlChartList::pressRow(std::uint64_t row)
{
    const UXNotificationScope scope;
    m_cells.press(row);
    if (UXDiagram* diagram = uxObtainDiagram(this))
        diagram->setFocusedObject(this);
}

void KXControlChartList::explainRow(KXControlChartRow& row)
{
    if (const std::optional<std::uint64_t> member = obtainMember(row.getIndex()))
        m_chart.explainMember(*member, row);
}

void KXControlChartList::endExplanation() { m_chart.hideHint(); }

bool KXControlChartList::walk(const UXEvent& event)
{
    if (m_listsAnew || getRequireToVerifyLayout() || m_rows.empty())
        return false;
    if (event.getKeyCode() == static_cast<int>(UXKeyCode::Up) && m_cells.getWalkedCell() == 0 &&
        m_searchLine->takeKeys())
        return true;
    return m_cells.walk(event);
}

bool KXControlChartList::takeKeys()
{
    const UXNotificationScope scope;
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || !getVisible() || m_listsAnew || m_rows.empty())
        return false;
    diagram->setFocusedObject(this);
    m_cells.beginWalk();
    return true;
}

bool KXControlChartList::walkParts(bool forwards)
{
    const UXDiagram* diagram = uxObtainDiagram(this);
    const UXObject* focused = diagram ? diagram->getFocusedObject() : nullptr;
    const bool isInside = focused && (focused == this || focused->hasParent(this));
    // From before the first part to behind the last one
    const int place = focused == m_searchLine    ? 1
                      : focused == m_clearButton ? 3
                      : isInside                 ? 2
                                                 : (forwards ? 0 : 4);
    for (int next = place + (forwards ? 1 : -1); next > 0 && next < 4; next += forwards ? 1 : -1) {
        const bool isTaken = next == 1   ? m_searchLine->takeKeys()
                             : next == 2 ? takeKeys()
                                         : m_clearButton->takeKeys();
        if (isTaken)
            return true;
    }
    return false;
}

void KXControlChartList::_search() { m_chart.search(m_searchLine->getInputText()); }

bool KXControlChartList::shouldClipInScrollArea(UXVirtualScrollView*, UXObject* object)
{
    return dynamic_cast<KXControlChartRow*>(object) != nullptr;
}

/** Rows that come into sight are filled by a layout, so that what they lack is asked for in blocks. */
void KXControlChartList::virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, const UXEvent&)
{
    requireLayout();
}

std::span<const int> KXControlChartList::obtainListedCells() const { return m_rows; }

double KXControlChartList::obtainCellWidth(std::size_t) const
{
    return m_scrollView->obtainDisplayArea().width;
}

std::unique_ptr<KXListCell> KXControlChartList::makeCell()
{
    return std::make_unique<KXControlChartRow>(this);
}

void KXControlChartList::fillCell(KXListCell& cell, std::uint64_t index)
{
    const UXObjectWatcher self(this), filled(&cell);
    const std::optional<std::uint64_t> member = obtainMember(index);
    KXControlChartRowContent content;
    if (member)
        content = m_chart.obtainRowContent(*member);
    else
        content.text = m_chart.obtainAllText();
    if (self.isAlive() && filled.isAlive())
        static_cast<KXControlChartRow&>(cell).showRow(index, std::move(content));
}

void KXControlChartList::clickCell(KXListCell& cell, const UXEvent& event)
{
    rowClicked(cell.getIndex(), event);
}
UXAccessibleInfo KXControlChartList::obtainCellInfo(std::uint64_t index)
{
    UXAccessibleInfo info;
    const std::optional<std::uint64_t> member = obtainMember(index);
    const KXToggleSwitchState state = obtainRowState(index);
    info.role = UXAccessibleRole::CheckBox;
    info.checked = state == KXToggleSwitchState::On      ? UXAccessibleToggle::On
                   : state == KXToggleSwitchState::Mixed ? UXAccessibleToggle::Mixed
                                                         : UXAccessibleToggle::Off;
    if (!member) {
        info.name = m_chart.obtainAllText();
        return info;
    }
    const KXControlChartRowContent content = m_chart.obtainRowContent(*member); // this may have gone then
    info.name = content.text;
    info.value = content.valueText;
    return info;
}

std::unique_ptr<UXAccessibleNode> KXControlChartList::createAccessibleNode()
{
    return std::make_unique<KXAccessibleCells>(m_cells, UXAccessibleRole::Group, std::string());
}

void KXControlChartList::switchCell(std::uint64_t index, const UXEvent& event) { rowClicked(index, event); }

void KXControlChartList::_listRows()
{
    const KXMemberSearch& search = m_chart.getSearch();
    const KXControlChoice& choice = m_chart.getChoice();
    m_listsAnew = false;
    m_memberCount = m_chart.getMemberCount(0);
    m_hasAllRow = _showsAllRow() && m_memberCount > 0;
    m_order.clear();
    std::uint64_t count = m_memberCount;
    if (search.isActive()) {
        m_order = search.getFound();
        count = m_order.size();
    } else if (m_chart.getSelectedFirst() && !choice.isExcluding() && !choice.getMembers().empty()) {
        m_order.resize(m_memberCount);
        std::iota(m_order.begin(), m_order.end(), std::uint64_t{0});
        std::ranges::stable_partition(m_order, [&](std::uint64_t member) { return choice.contains(member); });
    }
    const std::size_t before = m_rows.size();
    m_rows.resize(std::min<std::uint64_t>(count, INT_MAX - 1) + (m_hasAllRow ? 1 : 0));
    if (m_rows.size() > before)
        std::iota(m_rows.begin() + static_cast<std::ptrdiff_t>(before), m_rows.end(),
                  static_cast<int>(before));
    m_chosenRow.reset();
    _updateAllState();
    m_cells.interrupt();
}

void KXControlChartList::_styleParts()
{
    const KXControlWords& words = m_chart.getWords();
    UXTextProperty property = m_chart.getLabelProperty();
    m_searchLine->setPlaceholder(words.search);
    m_searchLine->setTextProperty(property);
    m_clearButton->setText(words.clear);
    m_clearButton->setTextProperty(property);
    colorsChanged();
}

/** @return where the rows begin */
int KXControlChartList::_layoutHeader()
{
    _styleParts();
    const UXRect area = getBoundingRect();
    m_searchLine->autoResize();
    m_clearButton->autoResize();
    const int height = std::max(m_searchLine->getRect().height, m_clearButton->getRect().height);
    const bool hasRoom = area.height - height - headerGap >= leastRowsHeight;
    const bool showsSearch = m_chart.getShowSearch() && hasRoom;
    const bool showsClear = m_chart.hasChoice() && hasRoom;
    m_searchLine->setVisible(showsSearch);
    m_clearButton->setVisible(showsClear);
    if (!showsSearch && !showsClear)
        return 0;
    const int clearWidth = std::min(m_clearButton->getRect().width, area.width);
    m_clearButton->setRect(uxMakeRect(area.width - clearWidth, 0, clearWidth, height));
    const int left = showsClear ? clearWidth + headerGap : 0;
    m_searchLine->setRect(uxMakeRect(1, 1, std::max(area.width - left - 2, 0), height - 2));
    return height + headerGap;
}

void KXControlChartList::customLayout()
{
    const UXObjectWatcher self(this);
    if (m_listsAnew) {
        _listRows();
        m_fillsAnew = true;
    }
    const int top = _layoutHeader(), rowHeight = _obtainRowHeight();
    const UXRect area = getBoundingRect();
    m_cells.setArrangement({false, 0, static_cast<double>(rowHeight), rowHeight, {}});
    // Whole rows: one that is cut tells nobody more than the bar does.
    const int height = std::max(area.height - top, 0) / rowHeight * rowHeight;
    m_scrollView->setRect(uxMakeRect(0, top, area.width, height));
    m_scrollView->setContentHeight(std::int64_t{rowHeight} * std::ssize(m_rows));
    m_scrollView->setContentWidth(0);
    for (UXObject* child : {static_cast<UXObject*>(m_searchLine), static_cast<UXObject*>(m_clearButton),
                            static_cast<UXObject*>(m_scrollView)})
        child->layout();
    if (!self.isAlive())
        return;
    m_cells.placeCells(std::exchange(m_fillsAnew, false));
    if (self.isAlive())
        _findMoreWhenNeeded();
}

/** Further hits are looked for when the user comes near the last one. */
void KXControlChartList::_findMoreWhenNeeded()
{
    const KXMemberSearch& search = m_chart.getSearch();
    if (!search.isActive() || search.isComplete() || search.isWaiting())
        return;
    const std::int64_t bottom = m_scrollView->getContentOffsetY() + m_scrollView->obtainDisplayArea().height;
    if (bottom / _obtainRowHeight() + static_cast<std::int64_t>(rowsAhead) < std::ssize(m_rows))
        return;
    UXLayoutRounds::postAction([self = UXObjectWatcher(this)] {
        if (auto* list = static_cast<KXControlChartList*>(self.getObject()))
            list->m_chart.findMore();
    });
}

void KXControlChartList::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const bool findsNothing = m_rows.empty() && m_chart.getSearch().isActive() &&
                              m_chart.getSearch().isComplete();
    if (UXPainter* painter = findsNothing ? uxCreatePainterWithObject(config, this) : nullptr) {
        UXTextProperty property = m_chart.getValueProperty();
        property.align = UXTextAlign::Center;
        property.option = UXTextOption::EllipsisEnd;
        UXDoubleRect place(m_scrollView->getRect());
        place.height = std::min<double>(place.height, _obtainRowHeight());
        painter->drawText(m_chart.getWords().noMatch, place, property);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

bool KXControlChartList::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    m_cells.press(std::nullopt);
    return self.isAlive() && UXObject::customMouseDown(event, stop);
}

bool KXControlChartList::_typeAhead(const UXEvent& event)
{
    const std::string& text = event.getKeyText();
    const bool isCommand = event.containsEventKey(UXEventKey::Ctrl) ||
                           event.containsEventKey(UXEventKey::Alt);
    if (isCommand || text.empty() || static_cast<unsigned char>(text.front()) <= ' ')
        return false;
    if (m_searchLine->takeKeys())
        m_searchLine->insertInputText(text);
    else
        _walkToText(event);
    return true;
}

/** Neither case nor accents count, as in a search. */
void KXControlChartList::_walkToText(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    if (!m_typing.isRunning())
        m_typed.clear();
    m_typed += event.getKeyText();
    m_typing.start(event.getControl(), typingPause, UXTimer::Mode::Once);
    const std::optional<std::uint64_t> member = m_chart.findBeginning(m_typed, m_order);
    const std::optional<std::uint64_t> row = member && self.isAlive() ? findRow(*member) : std::nullopt;
    if (row)
        m_cells.walkTo(static_cast<std::size_t>(*row));
}

bool KXControlChartList::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    const UXDiagram* diagram = uxObtainDiagram(this);
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool isOnRows = diagram && diagram->getFocusedObject() == this;
    if (isOnRows && walk(event))
        return true;
    if (self.isAlive() && isOnRows && _typeAhead(event))
        return true;
    if (self.isAlive() && !isOnRows && key == UXKeyCode::Down && takeKeys())
        return true;
    return self.isAlive() && UXObject::customKeyDown(event, stop);
}
