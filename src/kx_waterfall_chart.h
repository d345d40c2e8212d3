#pragma once

#include "kx_derived_bar_chart.h"
#include "kx_key_table.h"
#include "kx_waterfall_chart_data_view.h"
#include "kx_waterfall_chart_options.h"
#include "ux/ux_color.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_WATERFALL_CHART_KEYS(KEY)                                                                         \
    KEY(bool, FirstIsStart, m_firstIsStart, false, Any(Waterfall), Reload,                                   \
        "the first member is the value to start from")                                                       \
    KEY(KXWaterfallChartGroupValueSortOrder, GroupValueSortOrder, m_groupValueSortOrder,                     \
        KXWaterfallChartGroupValueSortOrder::None, Any(Waterfall), Reload,                                   \
        "order of the steps between two totals; None: the provider's")                                       \
    KEY(int, MaxSteps, m_maxSteps, 8, Any(Waterfall), Reload,                                                \
        "how many steps between two totals keep a bar of their own; smaller ones are gathered in Others")    \
    KEY(bool, ShowTotal, m_showTotal, true, Any(Waterfall), Reload, "the running total after the last step") \
    KEY(bool, StartAtZero, m_startAtZero, true, Any(Waterfall), Reload,                                      \
        "off: the axis shows the range of the changes, and totals have a torn foot")                         \
    KEY(bool, ShowConnectors, m_showConnectors, true, Any(Waterfall), Repaint, "lines from bar to bar")      \
    KEY(UXColor, IncreaseColor, m_increaseColor, UXColor(64, 153, 108), Any(ColorSeries), Recolor,           \
        "colour of the steps up")                                                                            \
    KEY(UXColor, DecreaseColor, m_decreaseColor, UXColor(207, 83, 76), Any(ColorSeries), Recolor,            \
        "colour of the steps down")                                                                          \
    KEY(UXColor, TotalColor, m_totalColor, UXColor(98, 112, 133), Any(ColorSeries), Recolor,                 \
        "colour of the totals")

/**
 * Shows how a total comes about: each value of the first measure is a step from the running total to the
 * next. With a second dimension the members of the first one are totals, and between two of them stands what
 * each member of the second one has changed by. The legend tells steps up, steps down and totals apart.
 *
 * Totals that the host names (KXAxisChartDataProvider::obtainStepIsTotal) stand on zero. What the chart has
 * added itself, the last total and Others, takes no clicks.
 */
class KX_EXPORT KXWaterfallChart : public KXDerivedBarChart {
    KX_DECLARE_CHART_KEYS(KX_WATERFALL_CHART_KEYS)
public:
    KXWaterfallChart();
    ~KXWaterfallChart() override;

    // Queries
    /** @return the bars in their order, as of the last reload */
    const KXWaterfallSteps& getSteps() const;
    const KXWaterfallChartDataView& getDataView() const { return m_waterfallView; }

    // From KXAxisChart: the categories are the steps
    std::uint64_t obtainShownCategoryCount() const override;
    std::string obtainValueText(std::uint64_t series, double value) const override;
    bool obtainLegendShouldShowCell(std::uint64_t index) override;
    void legendCellClicked(std::uint64_t index, const UXEvent& event) override;

    // From KXChartDataUser, KXChart and UXJsonObject
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void resetData() override;
    void afterReloadData() override;
    std::string customSerializeTypeID() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;

protected:
    KXAxisChartDrawnData _deriveData() override;
    KXIndexPath _obtainValuePath(KXAxisChartDataProvider& provider, const KXAxisChartMark& mark) override;
    bool _areSeriesOfHost() const override;
    std::vector<UXColor> _obtainUsualColors() const override;
    void _applyKeyEffect(UXPropertyEffect effect) override;

private:
    explicit KXWaterfallChart(std::unique_ptr<KXWaterfallChartDataView> view);
    std::vector<double> _deriveParts() const;
    const KXWaterfallStep* _findStep(std::uint64_t category) const;
    bool _isStepOf(const KXWaterfallStep& step, const KXChartDataPath& path) const;
    bool _holdsPart(const KXWaterfallStep& step, std::uint64_t part) const;

    KXWaterfallChartDataView& m_waterfallView; // the chart's
    std::vector<bool> m_areTotals;             // by members, as the host said
    std::optional<std::uint64_t> m_hostOthers;
    std::vector<std::uint64_t> m_partSeries; // the pulled series of the first measure
};
