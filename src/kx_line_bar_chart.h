#pragma once

#include "kx_axis_chart_options.h"
#include "kx_gradient_scale.h"
#include "kx_xy_axis_chart.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXBarChartDataView;
class KXBarChartProperty;
class KXLineChartDataView;
class KXLineChartProperty;
class KXLineGradientLegend;

/**
 * Bars, areas, lines and points in one plot: each measure is drawn as m_seriesTypes of the lines' property
 * says. Bars stack with bars and areas with areas where the value axis is stacked; lines and points stand
 * alone. What is drawn on the second axis has its values told there.
 */
class KX_EXPORT KXLineBarChart : public KXXYAxisChart {
public:
    KXLineBarChart();
    ~KXLineBarChart() override;

    // Properties: objects that the chart made and destroys, never null
    KXBarChartProperty* getBarChartProperty() const;
    KXLineChartProperty* getLineChartProperty() const;
    /** @return the legend of the colours of lines that stand for values, beside the usual one, which names
     * the series; a child of the chart, never null
     *  @param isSecondary that of lines on the second axis, which shows where their colours stand for others
     */
    KXLineGradientLegend* getGradientLegend(bool isSecondary) const;

    // Queries
    /** @return how a series is drawn, never Unknown. A measure that the user says nothing about is bars if it
     * is the first one, else a line: on the second axis where its values are much larger or smaller than
     * those of the first measure, or where these are parts of 100 percent. */
    KXAxisChartType obtainSeriesType(std::uint64_t series) const;

    // Policy
    KXAxisChartDataView* obtainViewOfSeries(std::uint64_t series) const override;
    bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property) override;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From KXChart and UXJsonObject
    void registerChartPropertyUpdatedEvents() override;
    std::string customSerializeTypeID() override;

protected:
    void _customLayout(UXRect plotArea) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _customReloadMarks() override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    KXLineChartDataView& _addLines(KXAxisChartType type, bool isOnSecondaryAxis);
    bool _loadMeasures();
    std::optional<KXGradientScale> _obtainColorScale(bool isSecondary) const;
    void _updateGradientLegends();
    KXAxisChartDataView& _obtainView(KXAxisChartType type) const;
    KXAxisChartType _guessType(std::uint64_t measure) const;
    double _obtainMagnitude(std::uint64_t measure) const;

    std::shared_ptr<KXLineChartProperty> m_lineProperty; // of all views of lines
    // The chart's, in the order in which they are painted
    KXLineChartDataView& m_areas;
    KXLineChartDataView& m_secondaryAreas;
    KXBarChartDataView& m_bars;
    KXLineChartDataView& m_lines;
    KXLineChartDataView& m_secondaryLines;
    KXLineChartDataView& m_points;
    std::array<KXLineGradientLegend*, 2> m_gradientLegends; // children, by the axis
    // One a series
    std::vector<std::uint64_t> m_measures;
    std::vector<KXAxisChartDataView*> m_seriesViews; // the chart's
    UXPropertyTableBinding m_lineBarPropertyBinding{*this, obtainPropertyTable()};
};
