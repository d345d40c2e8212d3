#pragma once

#include "kx_figure_line.h"
#include "kx_key_table.h"
#include "kx_member_panel_chart.h"
#include "kx_text_losses.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class UXVirtualScrollView;

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_FIGURE_CHART_KEYS(KEY)                                                                           \
    KEY(int, ColumnCount, m_columnCount, 0, Any(Figure), Layout, "how many stand side by side; 0: as fits") \
    KEY(double, PanelGap, m_panelGap, 16, Any(Figure), Layout, "between two panels, in logical units")      \
    KEY(double, PanelPadding, m_panelPadding, 12, Any(Figure), Layout,                                      \
        "what a panel with a colour keeps free inside, in logical units")                                   \
    KEY(UXColor, PanelColor, m_panelColor, UXColor(255, 255, 255, 0), Any(Figure), Layout,                  \
        "ground of each panel")                                                                             \
    KEY(UXTextAlign, MainLabelAlign, m_mainLabelAlign, UXTextAlign::Left, Any(Figure), Layout,              \
        "where texts stand in their panel")                                                                 \
    KEY(bool, CentersVertically, m_centersVertically, false, Any(Figure), Layout,                           \
        "texts in the middle of the panel's height instead of at its top")                                  \
    KEY(bool, ShowCaption, m_showCaption, true, Any(Figure), Layout,                                        \
        "what the value is; a single panel's is left out where the chart has a title")                      \
    KEY(UXTextProperty, CaptionProperty, m_captionProperty, _makeTextProperty(14, UXColor(105, 105, 110)),  \
        Any(Figure), Layout, "text of the caption")                                                         \
    KEY(UXTextProperty, ValueProperty, m_valueProperty, _makeTextProperty(36, UXColor(64, 64, 64)),         \
        Any(Figure), Layout, "text of the value; it shrinks until it fits, in all panels alike")            \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(12, UXColor(105, 105, 110)),      \
        Any(Figure), Layout, "text of what stands below the value")                                         \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Figure), None, "how hints look")

/**
 * Figures in panels of one size: each has a caption, a value and a few lines about it, and all panels give
 * them the same places and fonts. The panels stand in a grid in the host's order, as many side by side as
 * lets them be largest; where they would get too small they scroll, and only those in sight are laid out.
 *
 * KXChartItem{0, group, 0} is the panel of a group.
 */
class KX_EXPORT KXFigureChart : public KXMemberPanelChart, public UXVirtualScrollViewDelegate {
    KX_DECLARE_CHART_KEYS(KX_FIGURE_CHART_KEYS)
public:
    KXFigureChart();
    ~KXFigureChart() override;

    /** A text as it is drawn. */
    struct PlacedText {
        KXChartItem item;        /**< the panel */
        std::size_t line = 0;    /**< its index in getLines */
        std::string text;        /**< with an ellipsis where it was too wide */
        UXDoubleRect rect;       /**< in the chart's own space */
        UXTextProperty property; /**< with the colour that it has without a highlight */
        double indent = 0;       /**< free before the text, for what is drawn there */
    };

    /** @return the lines of all panels, as of the last layout */
    const std::vector<KXFigureLine>& getLines() const { return m_lines; }
    /** @return what is in sight, as of the last layout */
    const std::vector<PlacedText>& getPlacedTexts() const { return m_texts; }
    /** @return how many panels stand side by side, as of the last layout */
    std::uint64_t getShownColumnCount() const { return m_grid.columns; }
    /** @return what scrolls the panels: a child, never null */
    UXVirtualScrollView* getScrollView() const { return m_view; }

    // From KXMemberPanelChart, KXLegendDelegate and KXChartItemsDelegate
    std::uint64_t obtainLegendCellSize() override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    void showItem(const KXChartItem& item) override;

    // From UXVirtualScrollViewDelegate
    using UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged;
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event) override;

protected:
    /** Where panels stand; all are of one size. */
    struct Grid {
        std::uint64_t columns = 1;
        UXDoubleSize panel;     /**< one panel */
        UXDoublePoint distance; /**< from a panel's left top corner to the next one's, across and down */
    };
    /** A text of one line of one panel. */
    struct Text {
        std::string text;
        std::optional<UXColor> color{}; /**< none: the line's */
        double indent = 0;
    };

    /** @param view is to scroll the panels */
    explicit KXFigureChart(std::unique_ptr<UXVirtualScrollView> view);

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);

    // What a kind answers
    /** @return the lines of a panel from top to bottom, without their texts; one of them has rank 0 */
    virtual std::vector<KXFigureLine> _makeLines() const = 0;
    /** @return what a line of a panel says; empty for nothing */
    virtual Text _obtainText(std::uint64_t group, std::size_t line) = 0;
    /** @param natural the extent in which a panel shows all in its full size
     *  @param least the extent below which panels scroll */
    virtual Grid _arrangePanels(std::uint64_t count, const UXDoubleSize& natural, const UXDoubleSize& least,
                                const UXDoubleSize& room) const;

    // What a kind calls
    const Grid& _getGrid() const { return m_grid; }
    /** @return whether panels have captions now */
    bool _showsCaptions() const;
    double _obtainGap() const;
    /** @return a grid of that many columns in the width, with panels of that height */
    Grid _makeGrid(std::uint64_t columns, double width, double height) const;
    /** @return the color as an item's text is drawn in it just now */
    UXColor _obtainDrawnColor(const KXChartItem& item, const UXColor& color) const;

    // From KXMemberPanelChart
    KXListedGroups _listIndexes() override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    std::vector<std::uint64_t> _obtainNamedMembers(std::uint64_t dimension) const override;
    UXColor _obtainItemColor(const KXChartItem& item) const override;
    double _obtainFullShare(const KXChartItem& item) const override;
    std::string _obtainItemKind() const override;
    UXHintInfo _obtainHintLook() const override;
    void _paintOverItems(UXPainter& painter) const override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;

private:
    void _paintPartLines(UXPainter& painter) const;
    double _obtainPadding() const;
    Text _obtainOneLine(std::uint64_t group, std::size_t line);
    std::vector<std::uint64_t> _obtainShownGroups() const;
    void _arrange(const std::vector<std::uint64_t>& groups, const UXRect& area);
    void _layoutPanel(std::uint64_t group, const UXDoubleRect& panel);
    void _placeText(const KXFigureLine& line, const Text& said, const UXDoubleRect& room, PlacedText placed);

    UXVirtualScrollView* m_view; // a child
    std::vector<KXFigureLine> m_lines;
    double m_figureHeight = 0; // of the lines
    Grid m_grid;
    UXRect m_area; // in which panels are seen
    std::vector<PlacedText> m_texts;
    KXTextLosses m_textLosses;
    bool m_layingOut = false;
};
