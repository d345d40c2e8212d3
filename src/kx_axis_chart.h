#pragma once

#include "kx_axis_chart_base.h"
#include "kx_axis_chart_data_user.h"
#include "kx_axis_chart_edge_tab.h"
#include "kx_axis_chart_host_looks.h"
#include "kx_axis_chart_mark.h"
#include "kx_chart_data_action.h"
#include "kx_chart_groups.h"
#include "kx_chart_item_look.h"
#include "kx_chart_items_delegate.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_property_accessor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXAxisChartDataView;
class KXNoDataLabel;

/**
 * What charts of series against axes share: the series with their colours, legend and visibility; the views
 * that draw them, and their steps; and what becomes of the pointer over a mark: hint, highlight, click, menu,
 * linked highlight.
 *
 * The marks are those of the chart's views, in the order in which they are painted. A chart type derives from
 * KXXYAxisChart, adds its views, says which of them shows a series where there are several
 * (obtainViewOfSeries), and leaves the rest to them. A view draws each mark in obtainMarkColor, which dims
 * what is beside a highlight.
 */
class KX_EXPORT KXAxisChart : public KXAxisChartBase,
                              public KXChartItemsDelegate,
                              public KXAxisChartDataUser,
                              public UXPropertyAccessor,
                              public UXHintDelegate,
                              public KXChartDataAction {
public:
    KXAxisChart();
    ~KXAxisChart() override;

    // Views, which the chart makes and destroys
    /** @return in the order in which they are painted */
    const std::vector<std::unique_ptr<KXAxisChartDataView>>& getDataViews() const { return m_views; }
    /** @return the view that shows a series, the chart's; by default the first one that can, null for none */
    virtual KXAxisChartDataView* obtainViewOfSeries(std::uint64_t series) const;

    // Series
    /** @return the colour of a series: the host's, else the user's, else the chart's, which is the default
     * colour for a single series and one of the ten in turn for several */
    UXColor obtainSeriesColor(std::uint64_t series) const;
    /** @return the colour that the host has given a mark, none where it gave none or was not asked */
    std::optional<UXColor> obtainHostColor(const KXAxisChartMark& mark) const;
    /** Takes the text and the style that the host gives a mark's label. It is asked once between two reloads
     * of the data, after the layout, which then places the labels anew. */
    void customizeMarkLabel(const KXAxisChartMark& mark, std::string& text, UXTextProperty& property);
    /** @return the series that are drawn, in their order */
    const std::vector<std::uint64_t>& getShownSeries() const { return m_groups.getShown(); }
    bool isSeriesShown(std::uint64_t series) const;
    /** Draws a series or leaves it out; the ranges of the axes follow. A series is known by its identifier,
     * so that it stays hidden when the data are replaced. */
    void setSeriesShown(std::uint64_t series, bool shown);
    /** @return how many categories are drawn: all, or the first ones where the user wants no more */
    virtual std::uint64_t obtainShownCategoryCount() const;

    // Texts
    /** @return the category's text, formatted as the date or time that it is */
    virtual std::string obtainCategoryLabel(std::uint64_t category);
    /** @return a value of the series as it stands in hints and labels; empty for NaN */
    virtual std::string obtainValueText(std::uint64_t series, double value) const = 0;
    std::string formatPercentage(double value) const;

    // Highlight
    /** @return what the pointer is over */
    std::optional<KXAxisChartMark> getHoveredMark() const;
    /** @return whether some marks are highlighted, so that the others are dimmed */
    bool isHighlighting() const;
    /** @return whether a mark of the series is highlighted */
    bool isSeriesHighlighted(std::uint64_t series) const;
    /** @return the marks that are chosen, that a linked chart highlights, and the one that the pointer is
     * over, in this order */
    std::vector<KXAxisChartMark> obtainMarksStandingOut() const;
    /** @return color as the mark is drawn in it just now */
    UXColor obtainMarkColor(const KXAxisChartMark& mark, const UXColor& color) const;
    /** @return how a mark of that colour is drawn just now */
    KXChartItemLook obtainMarkLook(const KXAxisChartMark& mark, const UXColor& color) const;
    /** @return color as a text of the mark, or of none in particular, is drawn in it just now */
    UXColor obtainTextColor(const std::optional<KXAxisChartMark>& mark, const UXColor& color) const;

    // From KXLegendDelegate: one cell per series where there are several
    std::uint64_t obtainLegendCellSize() override;
    bool obtainLegendShouldShowCell(std::uint64_t index) override;
    std::string obtainLegendLabel(std::uint64_t index) override;
    bool obtainLegendSymbolColor(std::uint64_t index, UXColor& color) override;
    UXSymbolStyle obtainLegendSymbolStyle(std::uint64_t series) override;
    bool paintLegendSymbol(std::uint64_t series, UXPainter& painter, const UXDoubleRect& bounds,
                           const UXColor& color) const override;
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;
    bool obtainLegendCellIsOn(std::uint64_t index) override;
    void legendCellClicked(std::uint64_t index, const UXEvent& event) override;
    void legendCellHovered(std::uint64_t index, bool hovered) override;

    // From KXChart, KXChartDataUser, UXHintDelegate and KXChartDataAction
    void afterReloadData() override;
    void reloadChartColors() override;
    void customReloadData() override;
    void customReloadColors() override;
    void resetData() override;
    UXRect obtainHintArea(UXPoint point) override;
    /** @return the path of the mark under the pointer, null where there is none */
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate: the marks are the items; beside them, the place of a category is explained
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    std::optional<KXChartItem> obtainExplainedAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    UXPoint obtainItemHintPoint(const KXChartItem& item) override;
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    void showItem(const KXChartItem& item) override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    /** @return the mark of the path's value, else every shown mark of its category */
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    KXChartItem obtainExplained(const std::vector<KXChartItem>& items) const override;
    // A row is a shown series, with all of its categories
    std::uint64_t obtainItemRowCount() const override;
    std::string obtainItemRowName(std::uint64_t row) override;
    std::uint64_t obtainItemRowLength(std::uint64_t row) const override;
    KXChartItem obtainItemInRow(std::uint64_t row, std::uint64_t place) const override;
    double obtainItemValue(const KXChartItem& item) const override;
    std::string obtainItemValueText(const KXChartItem& item) const override;
    double obtainDimmedOpacity() const override;
    void itemLookChanged(const KXChartItem& item) override;
    void itemLooksChanged() override;
    void itemExplained(const std::optional<KXChartItem>& item) override;

protected:
    // What a chart type answers
    /** Gives each view its series and drops what was made of the data: they changed, or other series are
     * shown. A layout follows. */
    virtual void _customReloadMarks();
    /** @return the place of the plot's space at which the hint of a mark stands, in sight or out of it */
    virtual UXPoint _obtainHintPoint(const KXAxisChartMark& mark) = 0;
    /** @return the category that is explained at a point of the plot's space beside the marks */
    virtual std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const = 0;
    /** @return the next category along their axis, none after the last */
    virtual std::optional<std::uint64_t> _obtainCategoryBeside(std::uint64_t category, bool forwards) const;
    /** @return the next category along their axis that is drawn at another pixel, or, for a page, the one a
     * tenth of what is seen away or the last; none after that */
    virtual std::optional<std::uint64_t> _obtainCategoryBeyond(std::uint64_t category, bool forwards,
                                                               bool isPage) const = 0;
    /** Brings the data's ranges into the axes: the data changed, or other series are shown. */
    virtual void _updateDataRanges() = 0;
    /** @return the path of a mark's value by which the host knows it; by default that of its series and
     * category. Empty for a mark that the chart has made itself: nobody is asked about that. */
    virtual KXIndexPath _obtainValuePath(KXAxisChartDataProvider& provider, const KXAxisChartMark& mark);
    /** @return whether the host is asked for the colours of the series; by default, as they are its own */
    virtual bool _areSeriesOfHost() const;
    /** @return the colours that series take in turn */
    virtual std::vector<UXColor> _obtainUsualColors() const;
    /** @return the series' identifiers for interactions with one mark */
    virtual std::vector<KXObjectID> _obtainMarkObjectIDs(const KXAxisChartMark& mark) const;
    /** Fills in what a hint tells of a category that the host says nothing of: by default each shown series
     * that has a value there.
     *  @param first the mark that the hint is about, none for the category as a whole */
    virtual void _fillHint(UXHintInfo& info, std::uint64_t category,
                           const std::optional<KXAxisChartMark>& first);
    /** Places the labels of the marks, whose texts may be others now. */
    virtual void _layoutMarkLabels();

    // What a chart type calls
    /** Puts a view in front of those before that place. */
    void _keepView(std::size_t place, std::unique_ptr<KXAxisChartDataView> view);
    /** Decides all colours anew, of series, legend and marks, and has them painted. The host is asked only
     * about what it has not answered since colours were reloaded, and may destroy the chart. */
    void _updateLooks();
    /** @return the value of a mark as hints tell it, NaN where it has none */
    double _obtainMarkValue(const KXAxisChartMark& mark) const;
    /** @return between which values that of a mark is thought to lie, empty where nobody knows */
    std::string _obtainBandText(const KXAxisChartMark& mark) const;

    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    void _categoryTextsArrived(bool areFirst) override;
    void _visibleCategoriesChanged() override;
    void _layoutMarks() override;
    void _paintMarks(UXPainter& painter, const UXRect& dirtyRect) override;
    void _paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect) override;
    void _paintOverMarks(UXPainter& painter) override;
    void _customLayout(UXRect plotArea) override;

private:
    // What is explained together at one place
    bool _drawsSeriesAsOne() const;
    double _obtainPlaceAlong(const KXAxisChartMark& mark) const;
    std::optional<std::uint64_t> _obtainFirstSeries(UXPoint point, std::uint64_t category) const;
    std::vector<std::uint64_t> _obtainHintSeries(const std::optional<KXAxisChartMark>& first) const;
    std::vector<std::uint64_t> _obtainSeriesStandingOut() const;
    double _obtainGuidePlace();
    void _paintGuide(UXPainter& painter);
    void _repaintGuide();

    void _updateSeriesColors();
    KXChartItem _makeItem(const KXAxisChartMark& mark) const;
    void _shownSeriesChanged();
    void _updateViewLooks();
    void _loadHostColors(const std::vector<KXAxisChartMark>& marks);
    std::optional<KXAxisChartMark> _hitMark(UXPoint point) const;
    UXRect _obtainMarkPlace(const KXAxisChartMark& mark) const;
    void _restoreFirstCategory();
    void _noteFirstCategory();
    void _askForLooksLater();
    void _askForLooks();
    bool _hasData();
    std::optional<KXChartItem> _obtainMarkAlong(const KXAxisChartMark& from, bool forwards,
                                                bool isPage) const;
    std::optional<KXChartItem> _obtainMarkAcross(const KXAxisChartMark& from, bool forwards) const;
    std::optional<KXChartItem> _obtainMarkInOrder(const KXAxisChartMark& from, bool forwards) const;
    void _placeLinkedTab();

    std::vector<std::unique_ptr<KXAxisChartDataView>> m_views;
    KXChartGroups m_groups;                         // the series
    std::vector<std::uint64_t> m_seriesStandingOut; // as they were drawn last
    std::optional<std::uint64_t> m_guidedCategory;  // has the thin line that leads to its axis
    KXAxisChartHostLooks m_hostLooks;
    bool m_asksForLooks = false;  // when the layout has ended
    KXNoDataLabel* m_noDataLabel; // a child of the plot

    KXAxisChartEdgeTab m_linkedTab; // where the marks of a linked highlight are scrolled out of sight

    // What stood first, to be found again among other data
    std::string m_firstCategoryText;
};
