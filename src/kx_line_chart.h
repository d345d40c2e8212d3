#pragma once

#include "kx_axis_chart_options.h"
#include "kx_line_chart_data_view.h"
#include "kx_xy_axis_chart.h"

#include <cstdint>
#include <string>
#include <vector>

class KXLineChartProperty;
class KXLineGradientLegend;

/** Draws each series as a line, or, stacked, where the value axis's property says so, as the upper edge of
 * what it adds. All categories are seen at once, however many there are, unless the axis has a length. */
class KX_EXPORT KXLineChart : public KXXYAxisChart {
public:
    KXLineChart();
    ~KXLineChart() override;

    /** @return the property object that the chart made and destroys, never null */
    KXLineChartProperty* getLineChartProperty() const;
    /** @return the legend that takes the place of the usual one where colours stand for values; a child of
     * the chart, never null */
    KXLineGradientLegend* getGradientLegend() const { return m_gradientLegend; }
    /** @return the lines that can be seen, as of the last layout */
    const KXLineChartDataView& getDataView() const { return m_dataView; }

    // Policy
    bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property) override;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject
    std::string customSerializeTypeID() override;

    // From KXChart and KXLegendDelegate
    void registerChartPropertyUpdatedEvents() override;
    std::uint64_t obtainLegendCellSize() override;
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;

protected:
    /** @param type of the one data view */
    explicit KXLineChart(KXAxisChartType type);

    double _obtainMinCategorySpacing() const override;
    std::vector<KXObjectID> _obtainMarkObjectIDs(const KXAxisChartMark& mark) const override;
    void _customLayout(UXRect plotArea) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    void _updateGradientLegend();

    KXLineChartDataView& m_dataView; // the chart's
    KXLineGradientLegend* m_gradientLegend;
    UXPropertyTableBinding m_linePropertyBinding{*this, obtainPropertyTable()};
};
