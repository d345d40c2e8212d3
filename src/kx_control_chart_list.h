#pragma once

#include "kx_cell_list.h"
#include "kx_cell_list_delegate.h"
#include "kx_control_chart_options.h"
#include "kx_export.h"
#include "ux/ux_accessible_source.h"
#include "ux/ux_object.h"
#include "ux/ux_timer.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXControlButton;
class KXControlChart;
class KXControlChartRow;
class KXTextLine;
class UXVirtualScrollView;

/**
 * The members of a filter control as rows that scroll, below a line for searching and a button that clears
 * the choice. The first row stands for all members, or for all that were found.
 *
 * A click on a row, Space or Enter chooses, with Shift all rows from the one before as that one; what is
 * typed is looked for, or, where no line for searching is shown, goes to the first row that begins so. There
 * are objects for the rows in sight only, and what else the rows need is a number each.
 */
class KX_EXPORT KXControlChartList : public UXObject,
                                     public UXVirtualScrollViewDelegate,
                                     public KXCellListDelegate,
                                     public UXAccessibleSource {
public:
    /** @param chart whose members these are; destroys this, or has it destroyed */
    explicit KXControlChartList(KXControlChart& chart);
    ~KXControlChartList() override;

    KXControlChart& getChart() const { return m_chart; }
    KXTextLine& getSearchLine() const { return *m_searchLine; }
    KXControlButton& getClearButton() const { return *m_clearButton; }
    UXVirtualScrollView& getScrollView() const { return *m_scrollView; }

    // What the chart tells
    /** There are other members, or other ones are to be shown. */
    void membersChanged();
    /** The rows say something else: what was missing has arrived. */
    void contentChanged();
    /** Other members are chosen. */
    void choiceChanged();
    /** Other colours; nothing else is different. */
    void colorsChanged();
    /** @return the height that shows all rows, in logical units */
    int obtainWantedHeight() const;

    // Rows
    /** @return the row's member, none for the row of all */
    std::optional<std::uint64_t> obtainMember(std::uint64_t row) const;
    /** @return the row of a member that is listed */
    std::optional<std::uint64_t> findRow(std::uint64_t member) const;
    /** @return the members of the rows in sight */
    std::vector<std::uint64_t> obtainMembersInSight() const;
    /** @param point in the own space */
    std::optional<std::uint64_t> obtainMemberAt(UXPoint point) const;
    /** @return what can be seen of the member's row, in the own space; empty for nothing */
    UXRect obtainMemberRect(std::uint64_t member) const;
    KXToggleSwitchState obtainRowState(std::uint64_t row) const;
    bool isRowHighlighted(std::uint64_t row) const;
    /** @return whether the row of a member is in sight and has no room for all that it says */
    bool isRowCut(std::uint64_t member) const;
    bool isWalkedTo(std::uint64_t row) const { return m_cells.isWalkedTo(row); }

    // What the rows and the chart hand on
    void rowClicked(std::uint64_t row, const UXEvent& event);
    void openRowMenu(std::uint64_t row, const UXEvent& event);
    void pressRow(std::uint64_t row);
    void explainRow(KXControlChartRow& row);
    void endExplanation();
    /** Acts on a key. @return whether it is one of the list's */
    bool walk(const UXEvent& event);
    /** Goes from part to part. @return false at an end */
    bool walkParts(bool forwards);
    /** Has the keys come to the rows. @return false where there are none */
    bool takeKeys();

    // From UXVirtualScrollViewDelegate, KXCellListDelegate, UXJsonObject and UXObject
    bool shouldClipInScrollArea(UXVirtualScrollView* view, UXObject* object) override;
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event) override;
    std::span<const int> obtainListedCells() const override;
    double obtainCellWidth(std::size_t place) const override;
    std::unique_ptr<KXListCell> makeCell() override;
    void fillCell(KXListCell& cell, std::uint64_t index) override;
    void clickCell(KXListCell& cell, const UXEvent& event) override;
    void switchCell(std::uint64_t index, const UXEvent& event) override;
    UXAccessibleInfo obtainCellInfo(std::uint64_t index) override;
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;

private:
    bool _isSearching() const;
    bool _showsAllRow() const;
    void _listRows();
    void _updateAllState();
    void _chooseUpTo(std::uint64_t row, const UXEvent& event);
    void _search();
    void _findMoreWhenNeeded();
    int _layoutHeader();
    int _obtainRowHeight() const;
    bool _typeAhead(const UXEvent& event);
    void _walkToText(const UXEvent& event);
    void _styleParts();

    KXControlChart& m_chart;
    KXTextLine* m_searchLine;       // a child
    KXControlButton* m_clearButton; // a child
    UXVirtualScrollView* m_scrollView;
    KXCellList m_cells{*this, *this};
    std::vector<int> m_rows;                  // 0, 1, 2 ... as the cells are listed
    std::vector<std::uint64_t> m_order;       // the members where they are not listed in their order
    std::uint64_t m_memberCount = 0;          // of those in their order
    std::optional<std::uint64_t> m_chosenRow; // by the last click or key
    KXToggleSwitchState m_allState = KXToggleSwitchState::On;
    std::string m_typed; // in one go, where there is no line to search in
    UXTimer m_typing{{}};
    bool m_hasAllRow = false;
    bool m_listsAnew = true;
    bool m_fillsAnew = true;
};
