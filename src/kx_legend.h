#pragma once

#include "kx_cell_list.h"
#include "kx_cell_list_delegate.h"
#include "kx_export.h"
#include "kx_interaction.h"
#include "ux/ux_accessible_source.h"
#include "ux/ux_arrangement.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"
#include "ux/ux_position.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_property.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class KXInteractionEffect;
class KXLegendCell;
class KXLegendDelegate;
class UXPainter;
class UXVirtualScrollView;

/** Lists a chart's series: a symbol and a label each, in one row or one column that scrolls. Cells are
 * measured once per change of data; which of them are shown is looked up once per change of visibility. */
class KX_EXPORT KXLegend : public UXObject,
                           public UXVirtualScrollViewDelegate,
                           public KXInteraction,
                           public KXCellListDelegate,
                           public UXAccessibleSource {
public:
    KXLegend();
    ~KXLegend() override;

    /** @param delegate the chart that knows the cells, not owned; may be null */
    void setDelegate(KXLegendDelegate* delegate);

    // Properties; each setter lays out or draws anew what it changes
    void setColorSeries(const std::vector<UXColor>& colors);
    void setArrangement(UXArrangement arrangement);
    UXArrangement getArrangement() const;
    void setHorizontalAlign(UXPosition align);
    void setVerticalAlign(UXPosition align);
    void setTextProperty(const UXTextProperty& property);
    UXTextProperty getTextProperty() const;
    void setLabelColor(const UXColor& color);
    /** Without a call the scroll bar shows colours of its own. */
    void setScrollBarColor(const UXColor& color);
    void setScrollBarSliderColor(const UXColor& color);
    void setShowHint(bool show);
    bool getShowHint() const;
    /** Cells take the press of a button for themselves, so that it goes on to nothing behind them. */
    void enableCellClick();
    void disableCellClick();
    bool isCellClickEnabled() const { return m_cellClickEnabled; }

    /** The delegate's cells or labels changed: everything is measured again. */
    void markDataUpdated();
    /** The delegate shows other cells. */
    void markCellVisibleUpdated();
    void updateLegendColor();
    /** The shape of the symbols of a delegate that has none of its own to give. */
    void setSymbolStyle(UXSymbolStyle style);
    UXSymbolStyle getSymbolStyle() const;
    /** No cell looks any more as if the pointer were on it. */
    void endCellHover();

    // Queries
    /** @return the height of one row of cells with the scroll bar's room, in logical units */
    double obtainLegendHeight();
    /** @return the width of the widest shown cell with margins and the scroll bar's room, in logical units */
    double obtainLegendWidth();
    /** @return the symbol's colour: the delegate's, else the series', else the framework's default */
    UXColor obtainLegendCellColor(std::uint64_t index) const;

    // The keyboard: arrows, Home, End and the page keys walk from cell to cell, Enter clicks one as the
    // pointer does, and Space tells the chart alone, which switches the series off and on where it takes
    // clicks. A press on the legend gives it the focus.
    /** Acts on a key. @return whether it is one of the legend's */
    bool walk(const UXEvent& event);
    /** @return the cell that the walk has come to, none before it began */
    std::optional<std::uint64_t> getWalkedCell() const;
    /** @return whether the walk shows that it has come to the cell: with the focus, and not after a press */
    bool isWalkedTo(std::uint64_t index) const;
    /** The keyboard comes to the legend: the keys are its, from the cell on to which the walk had come.
     *  @return whether there is a cell to come to */
    bool takeKeys();
    /** The pointer pressed a cell, none for the legend beside them: keys go on from there. */
    void takeFocus(const std::optional<std::uint64_t>& index);

    // What a cell asks, in its own space
    UXDoubleRect obtainSymbolRect() const;
    /** @param cellWidth in logical units @return the label's place, without width where there is no room */
    UXDoubleRect obtainLabelRect(int cellWidth) const;
    /** @return whether a cell of that width shows less than all of the label */
    bool isLabelCut(const std::string& label, int cellWidth) const;
    /** @return what the provider answers for the cell now, the caller's to delete */
    std::vector<KXInteractionEffect*> obtainCellEffects(std::uint64_t index) const;
    bool isCellOn(std::uint64_t index) const;
    bool obtainShouldShowPointingHand(std::uint64_t index, const UXEvent& event) const;
    /** @param style of a symbol that the chart does not paint itself */
    void paintSymbol(std::uint64_t index, UXPainter& painter, UXSymbolStyle style, const UXDoubleRect& bounds,
                     const UXColor& color) const;

    // What a cell tells, for the delegate
    void cellClicked(std::uint64_t index, const UXEvent& event);
    void cellHovered(std::uint64_t index, bool hovered);

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

    // From KXCellListDelegate: the cells are those that the chart shows. Until it is known anew which these
    // are, those past a smaller count are skipped.
    std::span<const int> obtainListedCells() const override;
    double obtainCellWidth(std::size_t place) const override;
    std::unique_ptr<KXListCell> makeCell() override;
    void fillCell(KXListCell& cell, std::uint64_t index) override;
    void clickCell(KXListCell& cell, const UXEvent& event) override;
    void switchCell(std::uint64_t index, const UXEvent& event) override;
    UXAccessibleInfo obtainCellInfo(std::uint64_t index) override;

    // From UXAccessibleSource: where there are cells
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;
    bool isAccessible() const override;

    // From UXObject and UXVirtualScrollViewDelegate
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;
    using UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged;
    bool shouldClipInScrollArea(UXVirtualScrollView* view, UXObject* object) override;
    /** Gives every shown cell inside the view's visible part an object at its place, and no other cell one.
     */
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event) override;

protected:
    void customLayout() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    void _updateCellCache();
    std::string _obtainLabel(std::uint64_t index);
    void _measureCells();
    void _collectShownCells();
    void _placeCells(bool contentChanged);
    void updateCellInteraction(KXLegendCell* cell, std::uint64_t index);
    bool _canWalk() const;
    int _obtainRowPitch() const;
    UXRect _arrangeRow(UXRect area);
    UXRect _arrangeColumn(UXRect area);

    UXVirtualScrollView* m_scrollView; // a child
    double m_calculatedTextHeight = 0;
    double m_calculatedCellHeight = 0;
    double m_calculatedSymbolTop = 0;
    std::vector<double> m_calculatedCellWidths;
    double m_calculatedMaxCellWidth = 0;
    int m_cellCount = 0;
    std::vector<bool> m_cellVisibles;
    std::vector<int> m_cellIndexList;
    std::vector<UXColor> m_colorSeries;
    UXTextProperty m_textProperty;
    UXArrangement m_arrangement = UXArrangement::Column;
    UXPosition m_horizontalAlign = UXPosition::Left;
    UXPosition m_verticalAlign = UXPosition::Top;
    double m_columnSpacing = 20;
    double m_rowSpacing = 13;
    double m_symbolWidth = 17;
    double m_symbolHeight = 14;
    UXSymbolStyle m_symbolStyle = UXSymbolStyle::Rectangle;
    double m_labelIndent = 6;
    bool m_showHint = false;

    int m_margin = 1;
    double m_maxCellWidth = 200;
    bool m_cellClickEnabled = false;
    KXLegendDelegate* m_delegate = nullptr; // the chart
    bool m_dataUpdated = true;
    bool m_cellVisibleUpdated = true;
    std::vector<std::vector<KXObjectID>> m_cellObjectIDs; // by cell index
    bool m_arranging = false;
    bool m_contentChanged = false; // the cells ask for everything anew
    KXCellList m_cells{*this, *this};
};
