#pragma once

#include "kx_density.h"
#include "kx_density_chart_options.h"
#include "kx_key_table.h"
#include "kx_member_panel_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_text_property.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_DENSITY_CHART_KEYS(KEY)                                                                           \
    KEY(KXDensityStyle, Style, m_style, KXDensityStyle::Ridge, Any(Density), Reload,                         \
        "how the values of a group are shown")                                                               \
    KEY(double, Overlap, m_overlap, 0.3, Any(Density), Layout,                                               \
        "of a row's height in a ridge: what may lie over the row above, 0 to 0.9")                           \
    KEY(KXDensitySmoothing, Smoothing, m_smoothing, KXDensitySmoothing::Gaussian, Any(Density), Layout,      \
        "how curves and shades go from bin to bin")                                                          \
    KEY(double, KernelWidth, m_kernelWidth, 0, Any(Density), Layout,                                         \
        "standard deviation of the kernel in units of the values; 0: of each group by Silverman's rule")     \
    KEY(bool, HasLowerBound, m_hasLowerBound, false, Any(Density), Layout, "curves end at the lower bound")  \
    KEY(double, LowerBound, m_lowerBound, 0, Any(Density), Layout, "what no value can lie below")            \
    KEY(bool, HasUpperBound, m_hasUpperBound, false, Any(Density), Layout, "curves end at the upper bound")  \
    KEY(double, UpperBound, m_upperBound, 0, Any(Density), Layout, "what no value can lie above")            \
    KEY(KXDensityHeightScale, HeightScale, m_heightScale, KXDensityHeightScale::Share, Any(Density), Layout, \
        "what the heights of several groups have in common: area, count or greatest height")                 \
    KEY(double, Whisker, m_whisker, 0.05, Any(Density), Reload,                                              \
        "share of the values that lie beyond each whisker of a box, 0 to 0.25")                              \
    KEY(bool, ShowQuartiles, m_showQuartiles, true, Any(Density), Repaint,                                   \
        "median and quartiles as lines in curves")                                                           \
    KEY(bool, ShowMean, m_showMean, false, Any(Density), Reload, "the mean as a point, and in hints")        \
    KEY(bool, ShowScale, m_showScale, true, Any(Density), Layout, "the scale of values below")               \
    KEY(UXColor, GridLineColor, m_gridLineColor, UXColor(230, 230, 235), Any(Density), Repaint,              \
        "lines at the scale's numbers, and below the rows")                                                  \
    KEY(UXTextProperty, ScaleProperty, m_scaleProperty, _makeTextProperty(12, UXColor(120, 120, 120)),       \
        Any(Density), Layout, "text of the scale")                                                           \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(12, UXColor(80, 80, 80)),          \
        Any(DataLabel), Layout, "text of the groups' names")                                                 \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}, Any(Density), Recolor,                       \
        "colours that the groups take in turn; none: the palette")                                           \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Density), None, "how hints look")

/**
 * Shows how values are spread, one row for each group over a common scale: as curves, shades, bars or boxes.
 * The values come in bins, of one width or of several. In a histogram the bins are the items, else the rows.
 *
 * Counts that are below zero have no place, and are told below.
 */
class KX_EXPORT KXDensityChart : public KXMemberPanelChart {
    KX_DECLARE_CHART_KEYS(KX_DENSITY_CHART_KEYS)
public:
    KXDensityChart();
    ~KXDensityChart() override;

    /** The kind of items that are whole rows; bins are of kind 0. */
    static constexpr int rowKind = 1;

    /** A row as it is laid out. */
    struct Row {
        std::uint64_t group = 0;
        double top = 0, baseline = 0; /**< in the chart's own space; of a violin the middle line */
        double kernelWidth = 0;       /**< 0 without smoothing */
        double unitHeight = 0;        /**< of one value for each unit of the scale */
        double greatestHeight = 0;    /**< of its curve, in these */
        /** Where the curve runs: x a value on the scale, y how many values there are for each unit there. */
        std::vector<UXDoublePoint> curve{};
    };

    /** @return how the values of a group are spread; empty for a group that there is not */
    const KXDensity& obtainDensity(std::uint64_t group) const;
    /** @return the rows of the last layout, from top to bottom */
    const std::vector<Row>& getRows() const { return m_rows; }
    /** @return where a value lies across, as of the last layout */
    double obtainPlace(double value) const;

    // From UXJsonObject, KXChartDataUser, KXLegendDelegate and KXChartItemsDelegate
    std::string customSerializeTypeID() override;
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;
    std::uint64_t obtainLegendCellSize() override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;

protected:
    // From KXMemberPanelChart
    KXListedGroups _listGroups() override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    void _requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const override;
    std::vector<std::uint64_t> _obtainNamedMembers(std::uint64_t dimension) const override;
    UXColor _obtainItemColor(const KXChartItem& item) const override;
    double _obtainFullShare(const KXChartItem& item) const override;
    std::vector<UXColor> _obtainUsualColors() const override;
    std::string _obtainItemKind() const override;
    KXObjectID _obtainGroupObjectID(std::uint64_t group) const override;
    KXChartDataProviderHintData _describeItem(const KXChartItem& item) override;
    UXHintInfo _obtainHintLook() const override;
    void _paintUnderItems(UXPainter& painter) const override;
    void _paintOverItems(UXPainter& painter) const override;

private:
    /** Numbers that stand for all values of a group. */
    struct Summary {
        std::array<double, 5> quantiles{}; // low whisker, quartile, median, quartile, high whisker
        double mean = 0;
        bool isEstimated = false; // from the bins, by the chart
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    bool _hasGroups() const { return getDimensionCount() > 1; }
    bool _showsBins() const { return m_style == KXDensityStyle::Histogram; }
    std::uint64_t _obtainRowCount() const { return _hasGroups() ? getMemberCount(0) : 1; }
    std::uint64_t _obtainBinCount() const { return getMemberCount(_hasGroups() ? 1 : 0); }
    /** @return the group of an item's row, 0 where there is one row */
    std::uint64_t _obtainRow(const KXChartItem& item) const { return _hasGroups() ? item.group : 0; }
    std::uint64_t _obtainBin(const KXChartItem& item) const { return _hasGroups() ? item.index : item.group; }
    bool _isRowShown(std::uint64_t row) const;
    void _loadSummaries();
    KXDensity::Bounds _obtainBounds() const;
    double _obtainKernelWidth(const KXDensity& density) const;
    void _makeRows(const UXDoubleRect& area);
    void _scaleRows(double height);
    void _updateRange();
    std::vector<UXDoublePoint> _obtainCurve(const Row& row) const;
    KXLeftOutCounts _countLeftOut() const;
    void _layoutScale(UXDoubleRect& room);
    void _layoutNames(UXDoubleRect& room);
    void _addItems(const Row& row, std::vector<KXPanelItem>& items) const;
    void _addBars(const Row& row, std::vector<KXPanelItem>& items) const;
    std::vector<UXDoublePoint> _makeOutline(const Row& row) const;
    void _paintSummary(UXPainter& painter, const KXPanelItem& item) const;
    void _paintShades(UXPainter& painter, const KXPanelItem& item) const;
    const Row* _findRow(std::uint64_t group) const;

    std::vector<double> m_edges, m_widths; // by bin, of the host
    std::vector<KXDensity> m_densities;    // by row
    std::vector<Summary> m_summaries;      // by row

    // Made by the layout
    std::vector<Row> m_rows;
    UXDoubleRect m_plot;         // above the scale, beside the names
    double m_from = 0, m_to = 1; // the scale
    double m_rowHeight = 0;
    std::vector<double> m_ticks;
    double m_nameWidth = 0;
};
