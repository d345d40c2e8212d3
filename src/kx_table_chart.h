#pragma once

#include "kx_chart_data_action.h"
#include "kx_chart_data_format_key.h"
#include "kx_grid_band.h"
#include "kx_grid_hit.h"
#include "kx_grid_lines.h"
#include "kx_key_table.h"
#include "kx_panel_chart.h"
#include "kx_table_chart_data_user.h"
#include "kx_table_chart_options.h"
#include "kx_table_clip.h"
#include "kx_table_color_rule.h"
#include "kx_table_databar_info.h"
#include "kx_table_panel.h"
#include "kx_table_panel_delegate.h"
#include "kx_table_sort.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_property.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class KXNoDataLabel;
class KXTableGrid;

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TABLE_CHART_KEYS(KEY)                                                                             \
    KEY(KXTableRowLayout, RowLayout, m_rowLayout, KXTableRowLayout::Tree, Any(Table), Reload,                \
        "whether the levels of the rows stand in one column, each further in, or in one each")               \
    KEY(bool, MeasuresOnRows, m_measuresOnRows, false, Any(Table), Layout,                                   \
        "several measures stand below each other, not beside")                                               \
    KEY(KXTableTotals, RowTotals, m_rowTotals, KXTableTotals::After, Any(Table), Reload,                     \
        "where totals of rows stand")                                                                        \
    KEY(KXTableTotals, ColumnTotals, m_columnTotals, KXTableTotals::After, Any(Table), Reload,               \
        "where totals of columns stand")                                                                     \
    KEY(bool, ExpandsGroups, m_expandsGroups, true, Any(Table), Reload, "groups are open at first")          \
    KEY(std::vector<std::string>, ToggledRows, m_toggledRows, {}, Any(Table), Reload,                        \
        "groups of rows that the user has opened or closed, by identity")                                    \
    KEY(std::vector<std::string>, ToggledColumns, m_toggledColumns, {}, Any(Table), Reload,                  \
        "the same of columns")                                                                               \
    KEY(std::vector<KXTableShowValuesAs>, ShowValuesAs, m_showValuesAs, {}, Any(Table), Layout,              \
        "what the cells of each measure tell of their values")                                               \
    KEY(std::vector<KXChartDataFormat>, DataFormats, m_dataFormats, {}, Any(DataFormat), Layout,             \
        "how the values of each measure are written; of those past the last one m_dataFormat")               \
    KEY(std::vector<KXTableColorRule>, ColorRules, m_colorRules, {}, Any(Table), Layout,                     \
        "colours of cells by their values; the first rule that holds counts")                                \
    KEY(std::vector<KXTableDatabarInfo>, Databars, m_databars, {}, Any(Table), Layout, "bars in cells")      \
    KEY(std::vector<std::string>, SortOrder, m_sortOrder, {}, Any(Table), None,                              \
        "what the user sorted by, the first one counts the most: + or -, then the identity of a column")     \
    KEY(std::vector<std::string>, SizedColumns, m_sizedColumns, {}, Any(Table), None,                        \
        "columns that the user has given a width, by identity")                                              \
    KEY(std::vector<double>, ColumnWidths, m_columnWidths, {}, Any(Table), Layout,                           \
        "their widths in logical units")                                                                     \
    KEY(bool, RepeatHeaders, m_repeatHeaders, false, Any(Table), Layout,                                     \
        "in columns of their own, a group's name is written in each of its rows")                            \
    KEY(std::vector<std::string>, ColumnOrder, m_columnOrder, {}, Any(Table), Reload,                        \
        "members of the columns, and measures, that the user has put before the others, by identity")        \
    KEY(int, FrozenColumns, m_frozenColumns, 0, Any(Table), Layout,                                          \
        "so many of the first columns of cells stay in sight as well")                                       \
    KEY(bool, HideEmptyRows, m_hideEmptyRows, false, Any(Table), Reload,                                     \
        "rows without a value in any cell are left out")                                                     \
    KEY(bool, HideEmptyColumns, m_hideEmptyColumns, false, Any(Table), Reload, "the same of columns")        \
    KEY(int, RowHeight, m_rowHeight, 0, Any(Table), Layout,                                                  \
        "in logical units, a line of text at least; 0: that and a margin")                                   \
    KEY(std::string, NullText, m_nullText, std::string("--"), Any(Table), Layout, "in a cell without value") \
    KEY(std::string, ErrorText, m_errorText, std::string("#"), Any(Table), Layout,                           \
        "in a cell whose value cannot be told")                                                              \
    KEY(bool, ShowColumnLines, m_showColumnLines, false, Any(Table), Recolor, "lines between columns, too")  \
    KEY(UXColor, GridLineColor, m_gridLineColor, UXColor(230, 230, 235), Any(Table), Recolor,                \
        "lines between rows")                                                                                \
    KEY(UXColor, HeaderColor, m_headerColor, UXColor(243, 244, 247), Any(Table), Recolor, "below headers")   \
    KEY(UXColor, TotalColor, m_totalColor, UXColor(248, 249, 251), Any(Table), Recolor, "below totals")      \
    KEY(bool, ShowBands, m_showBands, false, Any(Table), Recolor, "every second row has a ground")           \
    KEY(UXColor, BandColor, m_bandColor, UXColor(250, 250, 252), Any(Table), Recolor, "of these rows")       \
    KEY(UXColor, QuietColor, m_quietColor, UXColor(110, 110, 118), Any(Table), Recolor,                      \
        "of texts that stand for no value")                                                                  \
    KEY(UXColor, ErrorColor, m_errorColor, UXColor(190, 40, 40), Any(Table), Recolor, "of texts of errors")  \
    KEY(UXTextProperty, HeaderProperty, m_headerProperty, _makeTextProperty(UXColor(70, 70, 78)),            \
        Any(Table), Layout, "text of headers")                                                               \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(UXColor(51, 51, 51)),              \
        Any(DataLabel), Layout, "text of cells; that of totals is bold")                                     \
    KEY(bool, CanSelect, m_canSelect, true, Any(Table), Layout, "cells can be chosen, and copied")           \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Table), None, "how hints look")

/**
 * A table of measures over the members of row dimensions, and of column dimensions if there are any, with
 * subtotals and totals. Headers and totals stay in sight while the content scrolls; a frame costs what is in
 * sight, and what is not is neither asked for nor laid out.
 *
 * KXChartItem{cellKind, row, column} is a cell, counted as the selection does: totals of all come after the
 * content. {rowKind, row, 0} and {columnKind, 0, column} are the headers of a row and of a column.
 */
class KX_EXPORT KXTableChart : public KXPanelChart,
                               public KXTableChartDataUser,
                               public UXPropertyAccessor,
                               public UXHintDelegate,
                               public KXChartDataAction,
                               public KXTablePanelDelegate {
    KX_DECLARE_CHART_KEYS(KX_TABLE_CHART_KEYS)
public:
    static constexpr int cellKind = 0, rowKind = 1, columnKind = 2;

    KXTableChart();
    ~KXTableChart() override;

    // What is shown
    /** @return the rows and columns, a child, never null */
    KXTableGrid* getGrid() const { return m_grid; }
    /** @return the panel that draws a part; null for Background */
    KXTablePanel* getPanel(KXTablePanelType type) const;
    /** @return how many rows and columns of cells there are, the totals of all included */
    std::uint64_t obtainRowCount() const;
    std::uint64_t obtainColumnCount() const;
    /** @return where a cell stands in the host's data; nothing past the counts */
    std::optional<KXTablePlace> obtainPlace(std::uint64_t row, std::uint64_t column) const;
    /** @return what a cell shows; an ellipsis where it is not there yet, which is asked for */
    std::string obtainCellText(std::uint64_t row, std::uint64_t column);

    /** @return what a row or a column is called, with all above it; of a column without members its measure
     */
    std::string obtainHeaderText(bool isRow, std::uint64_t index);

    // What the user does
    /** Opens or closes a group. The host is asked, which may destroy the chart. */
    void setGroupExpanded(bool isRow, const KXIndexPath& path, bool isExpanded);
    /** Sorts by a column of the content, upwards after downwards, and then not any more. The host is told
     * after the event. @param adds what is sorted by already counts more */
    void sortByColumn(std::uint64_t column, bool adds, const UXEvent& event);
    /** Copies what is chosen. The host is asked for what is not there, which may destroy the chart.
     *  @param withHeaders the headers of its rows and columns, too
     *  @return what would go to the clipboard; too large, or empty, where there is too much or nothing */
    KXTableClip copySelection(bool withHeaders);
    /** Has the host look for a text, and goes to where it is. The host may destroy the chart.
     *  @return whether it is there */
    bool findNext(const std::string& text, bool forwards);

    // From UXJsonObject, KXChartDataUser and KXChart
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void customReloadData() override;
    void afterReloadData() override;
    void resetData() override;

    // From KXChartItemsDelegate, UXHintDelegate and KXChartDataAction
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    /** @return the cells that are in sight: there may be more than anyone can list */
    std::vector<KXChartItem> obtainItems() const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    void showItem(const KXChartItem& item) override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    // The first row is that of the columns' names; each other one begins with its own
    std::uint64_t obtainItemRowCount() const override;
    std::uint64_t obtainItemRowLength(std::uint64_t row) const override;
    KXChartItem obtainItemInRow(std::uint64_t row, std::uint64_t place) const override;
    UXAccessibleRole obtainItemRole(const KXChartItem& item) const override;
    void itemLooksChanged() override;
    UXRect obtainHintArea(UXPoint point) override;
    KXChartDataPath* createDataPath() override;

    // From KXTablePanelDelegate
    void layoutTablePanel(KXTablePanel& panel) override;
    bool tablePanelPressed(KXTablePanel& panel, const UXEvent& event) override;
    bool tablePanelDragged(KXTablePanel& panel, const UXEvent& event) override;
    bool tablePanelReleased(KXTablePanel& panel, const UXEvent& event) override;
    bool tablePanelDoubleClicked(KXTablePanel& panel, const UXEvent& event) override;
    void tablePanelPointed(KXTablePanel& panel, const UXEvent& event) override;

protected:
    // From KXTableChartDataUser
    KXTableHeaderTree::Style _obtainTreeStyle(bool isRow) const override;
    bool _isGroupOpen(bool isRow, const std::string& identity) const override;
    bool _hidesEmptyMembers(bool isRow) const override;
    const std::vector<std::string>& _obtainMemberOrder(bool isRow) const override;
    void _blocksArrived() override;

    // From KXChart
    void _customLayout(UXRect plotArea) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    /** A row or a column of a band: a line of headers, or of cells. */
    struct Line {
        bool isHeader = false;
        std::uint64_t header = 0; // which line of headers
        KXTableLine line;
        std::uint64_t measure = 0; // where measures stand along this side
    };
    using Lines = std::vector<Line>;
    /** Which columns a panel shows: those of a band, frozen ones being the first of the content. */
    struct Columns {
        KXGridBand band = KXGridBand::Content;
        std::uint64_t first = 0; // that of the panel's first one
    };
    /** What a header that is dragged to another place is the name of: a member, or a measure. */
    struct ColumnDrag {
        bool isMeasure = false;
        KXIndexPath path;          // of the member
        std::uint64_t measure = 0; // of the measure
        int startX = 0;
        bool hasMoved = false;
        std::optional<std::uint64_t> place; // among its siblings
    };
    /** The edge of a column that is dragged. */
    struct EdgeDrag {
        std::string identity;
        double width = 0; // as it was
        int startX = 0;
    };

    static UXTextProperty _makeTextProperty(const UXColor& color);

    // What stands where
    std::uint64_t _obtainMeasuresAlong(bool isRow) const;
    bool _hasGrandTotal(bool isRow) const;
    bool _hasMeasureHeaders() const;
    std::uint64_t _obtainRowHeaderCount() const;
    std::uint64_t _obtainColumnHeaderCount() const;
    std::uint64_t _obtainContentCount(bool isRow) const;
    std::uint64_t _obtainFrozenCount() const;
    Columns _obtainColumns(KXGridBand band) const;
    std::uint64_t _obtainMeasureAt(bool isRow, std::uint64_t place) const;
    Line _obtainLine(bool isRow, KXGridBand band, std::uint64_t index) const;
    Line _obtainLineAt(bool isRow, std::uint64_t index) const;
    Lines _obtainLines(const KXGridPanel& panel, bool isRow) const;
    KXTablePlace _makePlace(const Line& row, const Line& column) const;
    bool _isTotal(bool isRow, const Line& line) const;
    std::optional<KXGridHit> _findHit(const KXChartItem& item) const;
    KXChartItem _makeItem(KXGridBand rowBand, KXGridBand columnBand, std::uint64_t row,
                          std::uint64_t column) const;
    std::optional<std::uint64_t> _findLine(bool isRow, KXIndexPath positions) const;
    std::optional<KXChartItem> _findCell(const KXTablePlace& place) const;
    bool _isHighlighted(const KXChartItem& item) const;
    KXIndexPath _makeValuePath(const KXTablePlace& place) const;

    // What is written
    std::string _formatCell(const KXTablePlace& place, const KXTableCell& cell);
    const KXChartDataFormat& _obtainFormat(std::uint64_t measure);
    KXTableShowValuesAs _obtainShown(std::uint64_t measure) const;
    std::string _obtainHeaderText(bool isRow, const Line& line);
    std::string _obtainMemberText(bool isRow, const KXIndexPath& path);
    std::string _obtainColumnIdentity(std::uint64_t column);
    std::string _describeLine(bool isRow, const Line& line);
    const KXTableDatabarInfo* _findDatabar(std::uint64_t measure) const;

    // Layout
    void _layoutGrid();
    void _updateLines();
    bool _isLaidOut() const;
    void _updateColumns();
    std::string _obtainSizeIdentity(KXGridBand band, std::uint64_t column);
    double& _obtainNaturalWidth(KXGridBand band, std::uint64_t column);
    std::optional<double> _findGivenWidth(KXGridBand band, std::uint64_t column);
    void _growColumn(KXGridBand band, std::uint64_t column, double width);
    KXTablePanel::Look _makeLook(const KXTablePanel& panel) const;
    KXTableDrawnCell _makeCell(const UXDoubleRect& rect, const std::string& text,
                               const UXTextProperty& property) const;
    void _fitText(KXTableDrawnCell& cell, const UXTextProperty& property, KXGridBand band,
                  std::uint64_t column, bool isNumber, bool mayGrow = true);
    void _leaveOutCutTexts(const KXTablePanel& panel, std::vector<KXTableDrawnCell>& cells) const;
    std::vector<KXTableDrawnCell> _layoutCorner(const KXTablePanel& panel);
    std::vector<KXTableDrawnCell> _layoutRowHeaders(const KXTablePanel& panel);
    KXTableDrawnCell _layoutTreeHeader(const UXDoubleRect& rect, const Line& row);
    KXTableDrawnCell _layoutLevelHeader(const UXDoubleRect& rect, const Line& row, const Line* before,
                                        std::uint64_t level);
    std::vector<KXTableDrawnCell> _layoutColumnHeaders(const KXTablePanel& panel);
    void _layoutColumnLevel(const KXTablePanel& panel, const Lines& columns, std::uint64_t level,
                            std::vector<KXTableDrawnCell>& cells);
    KXTableDrawnCell _layoutMeasureHeader(const UXDoubleRect& rect, std::uint64_t measure);
    void _markSorting(KXTableDrawnCell& cell, KXGridBand band, std::uint64_t column);
    std::vector<KXTableDrawnCell> _layoutValues(const KXTablePanel& panel);
    KXTableDrawnCell _layoutValue(const UXDoubleRect& rect, const KXTablePlace& place, bool isTotal);
    void _addColor(KXTableDrawnCell& cell, const KXTablePlace& place, double number);
    void _addBar(KXTableDrawnCell& cell, const KXTablePlace& place, double number) const;
    void _addPart(KXTableDrawnCell& cell, double share) const;

    // The user
    std::optional<std::uint64_t> _findEdge(KXTablePanel& panel, const UXEvent& event) const;
    const KXTableDrawnCell* _findMark(KXTablePanel& panel, const UXEvent& event) const;
    void _setWidth(const std::string& identity, std::optional<double> width);
    std::vector<KXTableSort> _obtainSorts();
    bool _copy(const UXEvent& event);
    void _extendSelection(const std::optional<KXChartItem>& from, const UXEvent& event);
    bool _addClipRow(KXTableClip& clip, std::uint64_t row, const KXGridRange& columns, bool withHeaders);
    void _takeColumn(KXTablePanel& panel, const UXEvent& event);
    void _dragColumn(KXTablePanel& panel, const UXEvent& event);
    std::optional<ColumnDrag> _endColumnDrag();
    void _dropColumn(const UXEvent& event);
    std::optional<std::uint64_t> _findSibling(const ColumnDrag& drag, const Line& column) const;
    std::vector<std::uint64_t> _obtainSiblings(const ColumnDrag& drag) const;
    void _moveColumn(const ColumnDrag& drag);
    void _orderMeasures();

    KXTableGrid* m_grid;          // a child
    KXNoDataLabel* m_noDataLabel; // a child
    // Children of the grid; no rows are frozen.
    std::array<KXTablePanel*, std::size_t{3} * kxGridBandCount> m_panels{};
    std::string m_totalWord;                             // in the host's language
    std::vector<double> m_headerWidths, m_measureWidths; // what texts that were in sight need
    std::vector<KXChartDataFormat> m_shownFormats; // by measure, with their decimals; empty until needed
    double m_stretch = 0;                          // what each column of cells has beyond that
    std::optional<EdgeDrag> m_edgeDrag;
    std::optional<ColumnDrag> m_columnDrag;
    std::vector<std::uint64_t> m_measureOrder; // which measure stands at each place
    std::uint64_t m_stepLength = 1;            // how many rows or columns a key goes
    bool m_isStale = false;                    // another document was read since members were arranged
    bool m_isGrowing = false;                  // some column needs more than it has
    bool m_keepsWidths = false;                // through the next layout, as more was scrolled into sight
    bool m_isSettled = false;                  // all that was in sight was there
    bool m_isLayingOut = false;
    bool m_asksNobody = false; // what is missing stays so, as colours alone change
};
