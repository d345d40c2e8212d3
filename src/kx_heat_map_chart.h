#pragma once

#include "kx_chart_data_action.h"
#include "kx_chart_data_provider_hint_data.h"
#include "kx_gradient_scale.h"
#include "kx_grid_block.h"
#include "kx_heat_map_cells.h"
#include "kx_heat_map_content_panel.h"
#include "kx_key_table.h"
#include "kx_panel_chart.h"
#include "kx_panel_chart_data_user.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_property.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class KXHeatMapLegend;
class KXHeatMapPanel;
class KXNoDataLabel;

// type, name, member and JSON key, default, reset, effect, meaning; the data format stands before
#define KX_HEAT_MAP_CHART_KEYS(KEY)                                                                        \
    KEY(UXColor, MinColor, m_minColor, UXColor(253, 240, 196), Any(ColorSeries), Recolor,                  \
        "the colour of the least value")                                                                   \
    KEY(UXColor, MiddleColor, m_middleColor, UXColor(84, 174, 173), Any(ColorSeries), Recolor,             \
        "the colour of the middle value")                                                                  \
    KEY(UXColor, MaxColor, m_maxColor, UXColor(22, 56, 116), Any(ColorSeries), Recolor,                    \
        "the colour of the greatest value")                                                                \
    KEY(bool, IsDiverging, m_isDiverging, false, Any(HeatMap), Layout,                                     \
        "colours tell both sides of the middle value apart; else the middle colour is halfway")            \
    KEY(double, MiddleValue, m_middleValue, 0, Any(HeatMap), Layout,                                       \
        "where diverging: has the middle colour, if it lies inside of the range")                          \
    KEY(int, ClassCount, m_classCount, 0, Any(ColorSeries), Layout,                                        \
        "above 0: as many classes of values, each in one colour")                                          \
    KEY(bool, HasLowerBound, m_hasLowerBound, false, Any(HeatMap), Layout,                                 \
        "the range of the colours begins at the lower bound; else as the percentile says")                 \
    KEY(double, LowerBound, m_lowerBound, 0, Any(HeatMap), Layout, "where it begins then")                 \
    KEY(bool, HasUpperBound, m_hasUpperBound, false, Any(HeatMap), Layout,                                 \
        "the range of the colours ends at the upper bound; else as the percentile says")                   \
    KEY(double, UpperBound, m_upperBound, 0, Any(HeatMap), Layout, "where it ends then")                   \
    KEY(double, LowPercentile, m_lowPercentile, 0, Any(HeatMap), Layout,                                   \
        "so many percent of the values lie below the range of the colours")                                \
    KEY(double, HighPercentile, m_highPercentile, 100, Any(HeatMap), Layout,                               \
        "so many percent of the values lie below the end of the range")                                    \
    KEY(double, MinCellSize, m_minCellSize, 0, Any(HeatMap), Layout,                                       \
        "of a cell, in logical units, before it scrolls; 0: two pixels of the device, with labels a line " \
        "of text")                                                                                         \
    KEY(bool, Fit, m_fit, false, Any(HeatMap), Layout,                                                     \
        "never scrolls: of cells that share a pixel the one farthest from the middle shows, or without a " \
        "middle the greatest")                                                                             \
    KEY(double, CellGap, m_cellGap, 1, Any(HeatMap), Layout,                                               \
        "room inside the right and lower edge of a cell that is much larger, in logical units")            \
    KEY(bool, ShowNullPattern, m_showNullPattern, false, Any(HeatMap), Layout,                             \
        "slanted lines in cells without a value; else they are left blank")                                \
    KEY(bool, ShowLabels, m_showLabels, false, Any(DataLabel), Layout,                                     \
        "the values in the cells, of the second measure where there is one")                               \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(11, UXColor(40, 40, 40)),        \
        Any(DataLabel), Layout, "text of the labels")                                                      \
    KEY(bool, AutoLabelColor, m_autoLabelColor, true, Any(DataLabel), Layout,                              \
        "labels are dark or white, whichever can be read on the cell")                                     \
    KEY(UXTextProperty, CaptionProperty, m_captionProperty, _makeTextProperty(12, UXColor(80, 80, 80)),    \
        Any(HeatMap), Layout, "text of the names of rows and columns")                                     \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(HeatMap), None, "how hints look")

/**
 * Shows a measure over two dimensions as a grid of colours: the members of dimension 0 are the rows, those of
 * dimension 1 the columns. Names and totals stay in sight while the cells scroll.
 *
 * A cell is KXChartItem{cellKind, row, column}, a name KXChartItem{rowKind, row, 0} or {columnKind, 0,
 * column}, and a total the same of its own kind.
 */
class KX_EXPORT KXHeatMapChart : public KXPanelChart,
                                 public KXPanelChartDataUser,
                                 public UXPropertyAccessor,
                                 public UXHintDelegate,
                                 public KXChartDataAction {
    KX_DECLARE_CHART_KEYS(KX_HEAT_MAP_CHART_KEYS)
public:
    static constexpr int cellKind = 0, rowKind = 1, columnKind = 2;
    static constexpr int rowTotalKind = 3, columnTotalKind = 4, grandTotalKind = 5;

    KXHeatMapChart();
    ~KXHeatMapChart() override;

    /** @return the grid, a child, never null */
    KXHeatMapPanel* getPanel() const { return m_panel; }
    KXHeatMapLegend* getHeatMapLegend() const { return m_legend; }
    /** @return the number of rows that are shown */
    std::uint64_t obtainRowCount() const;
    std::uint64_t obtainColumnCount() const;
    /** @return NaN for a null, and where there is no such item */
    double obtainItemValue(const KXChartItem& item) const override;
    /** @return the colours of the cells, as of the last layout */
    const KXGradientScale& getScale() const { return m_scale; }
    /** @return what tells of values beyond the range of the colours, empty for none, as of the last layout */
    const std::string& getNote() const { return m_note; }

    // From UXJsonObject, KXChartDataUser, KXChart, UXHintDelegate and KXChartDataAction
    std::string customSerializeTypeID() override;
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;
    void afterReloadData() override;
    void registerChartPropertyUpdatedEvents() override;
    bool customDeserialize() override;
    UXRect obtainHintArea(UXPoint point) override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    void showItem(const KXChartItem& item) override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    double obtainDimmedOpacity() const override;
    // The first row is that of the columns' names; each other one begins with its own
    std::uint64_t obtainItemRowCount() const override;
    std::uint64_t obtainItemRowLength(std::uint64_t row) const override;
    KXChartItem obtainItemInRow(std::uint64_t row, std::uint64_t place) const override;
    UXAccessibleRole obtainItemRole(const KXChartItem& item) const override;
    std::string obtainItemValueText(const KXChartItem& item) const override;
    void itemLooksChanged() override;

    // From UXObject
    bool customKeyDown(const UXEvent& event, bool& stop) override;

protected:
    void _customLayout(UXRect plotArea) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    void _paintUnderChildren(UXPainter& painter) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _memberTextsArrived() override;

private:
    /** The totals of the rows, or of the columns. */
    struct Totals {
        std::vector<double> values; // one each, NaN for a null; empty where the host has none
        KXGradientScale scale;
    };
    /** A place in the grid with names before the cells and totals after them, which have the count. */
    struct Place {
        std::int64_t row = 0, column = 0;
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    std::optional<Place> _obtainPlace(const KXChartItem& item) const;
    KXChartItem _obtainItem(const Place& place) const;
    bool _canChoose();
    void _choose(const KXGridBlock& block, const UXEvent& event);
    bool _hasTotals(bool ofRows) const { return !m_totals[ofRows ? 0 : 1].values.empty(); }
    const Totals& _getTotals(bool ofRows) const { return m_totals[ofRows ? 0 : 1]; }
    std::optional<KXGridBlock> _obtainBlock(const KXChartItem& item) const;
    std::uint64_t _obtainCell(const KXGridCell& cell) const;

    // From data to what is drawn
    void _summarize();
    void _updateScale();
    void _countBeyond();
    std::span<const double> _obtainShownValues() const;
    void _updateColors();
    void _fillPanels();
    void _fillTotals(bool ofRows, const KXHeatMapCellStyle& style);
    void _setNames();
    void _layoutNote(UXRect& area);
    std::string _writeNote() const;
    double _measureWidest(const std::pair<double, double>& range) const;
    double _obtainLeastCellExtent(bool ofRows) const;
    double _obtainTotalExtent(bool ofRows) const;
    std::string _obtainName(std::uint64_t dimension, std::uint64_t member);
    std::string _writeLabel(const KXGridCell& cell) const;
    void _updateLooks();
    void _markValue();

    // Hints
    KXChartDataProviderHintData _describeItem(const KXChartItem& item);
    std::string _writeValue(const KXChartItem& item) const;

    std::optional<KXChartItem> _stepFrom(const Place& from, int rows, int columns) const;
    std::optional<KXChartItem> _findInReadingOrder(std::uint64_t from, bool forwards) const;

    KXHeatMapPanel* m_panel;      // a child
    KXHeatMapLegend* m_legend;    // a child
    KXNoDataLabel* m_noDataLabel; // a child

    std::array<Totals, 2> m_totals;   // of the rows, of the columns
    std::vector<double> m_grandTotal; // the one, or none
    std::vector<double> m_sorted;     // of the values those that percentiles need, in their order
    double m_least = 0, m_greatest = 0;
    std::pair<double, double> m_labelRange; // of what labels write
    KXGradientScale m_scale;
    std::optional<KXGradientScale> m_countedScale; // below and above which these values are
    std::pair<std::uint64_t, std::uint64_t> m_beyond;
    std::array<std::string, 5> m_words; // in the host's language
    std::string m_note;
    UXRect m_noteRect;
    bool m_keepsNames = false; // the layout that comes is for names that a scroll has brought into sight
};
