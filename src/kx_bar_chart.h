#pragma once

#include "kx_axis_chart_stacks.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_label_choice.h"
#include "kx_bar_labels.h"
#include "kx_xy_axis_chart.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXBarChartProperty;

/**
 * Draws each value as a bar from zero on: the series of a category side by side, or stacked, where the value
 * axis's property says so. A null leaves its place in a group empty; a hidden series takes no room. Where
 * categories are closer together than pixels are, bars are merged without a visible difference, and have no
 * labels.
 */
class KX_EXPORT KXBarChart : public KXXYAxisChart {
public:
    KXBarChart();
    ~KXBarChart() override;

    // Properties
    /** @return the property object that the chart made and destroys, never null */
    KXBarChartProperty* getBarChartProperty() const;
    /** Has the value axis stack the series, or not. */
    void updateBarForm(KXAxisChartStacking form);

    // Queries
    KXAxisChartStacking obtainBarForm() const;
    /** @return the bars that can be seen, as of the last layout */
    const KXBarChartDataView& getDataView() const { return m_dataView; }
    const std::vector<KXBarLabel>& getLabels() const { return m_labels; }
    /** @return the colour of a bar, the host's own one apart: its series', or its category's */
    UXColor obtainBarColor(const KXAxisChartMark& mark) const;

    // Policy
    bool shouldIncludeZero(const KXAxisProperty* property) const override;
    bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property) override;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    // From KXChart, KXAxisChartBase and KXAxisChart
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;
    void _customUpdateAxes() override;
    double _obtainMinCategorySpacing() const override;
    void _layoutMarks() override;
    void _paintMarks(UXPainter& painter) override;
    void _paintMarkLabels(UXPainter& painter) override;
    void _customReloadMarks() override;
    std::optional<KXAxisChartMark> _hitMark(UXPoint point) const override;
    UXRect _obtainMarkArea(UXPoint point) const override;
    std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const override;
    UXPoint _obtainHintPoint(const KXAxisChartMark& mark) override;
    void _fillHint(UXHintInfo& info, std::uint64_t category,
                   const std::optional<KXAxisChartMark>& hovered) override;

private:
    /** What the labels say, in the order in which they choose their places. */
    struct LabelWishes {
        /** The sum of a category, at the end of its stack; slot is the stack's place in the data view. */
        struct Total {
            std::size_t slot;
            double value;
            std::string text;
        };
        /** The text of one bar; bar is its place in the data view. */
        struct Label {
            std::size_t bar;
            KXBarLabelPlacer::Wish wish;
        };
        std::vector<Total> totals;
        std::vector<Label> labels;
    };

    double _obtainShare() const;
    KXAxisChartStacks _makeSource();
    bool _isLent(const KXAxisChartStacks& source) const;
    KXBarPlane _makePlane() const;
    bool _takePixels(const UXPainter& painter);
    void _colorBars();
    void _takeHostColors();

    // Labels
    double _obtainLabelRoom() const;
    void _layoutLabels();
    void _wishTotals(const KXAxisChartStacks& source, LabelWishes& wishes);
    bool _wishBarLabels(const KXAxisChartStacks& source, LabelWishes& wishes, bool extremes);
    bool _wishBarLabel(const KXAxisChartStacks& source, std::size_t bar, std::size_t position, bool isExtreme,
                       LabelWishes& wishes);
    void _placeLabels();
    const KXBarSeriesFacts& _obtainFacts(const KXAxisChartStacks& source, std::size_t position);
    std::string _obtainLabelText(const KXAxisChartStacks& source, const KXBar& bar, std::size_t position);
    bool _tellsPercentages() const;
    double _obtainPercentage(const KXAxisChartStacks& source, const KXAxisChartMark& mark,
                             std::size_t position);

    std::unique_ptr<KXBarChartProperty> m_barChartProperty;
    std::vector<KXBarSeriesFacts> m_facts; // of the shown series, made when they are needed

    // Made by the layout
    KXBarChartDataView m_dataView;
    std::vector<UXColor> m_barColors;  // one a bar
    std::vector<UXColor> m_hostColors; // the same where the host was asked for them, else empty
    LabelWishes m_labelWishes;
    std::vector<KXBarLabel> m_labels;
    double m_pixelScale = 1, m_pixelOffset = 0; // of the device that was painted on last
    UXPropertyTableBinding m_barPropertyBinding{*this, obtainPropertyTable()};
};
