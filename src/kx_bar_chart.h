#pragma once

#include "kx_axis_chart_stacks.h"
#include "kx_bar_chart_data_view.h"
#include "kx_xy_axis_chart.h"

#include <memory>
#include <string>

class KXBarChartProperty;

/** Draws each value as a bar from zero on: the series of a category side by side, or stacked, where the value
 * axis's property says so. Its one data view has the bars. */
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

    // Policy
    bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property) override;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject
    std::string customSerializeTypeID() override;
    std::string customSerializeVersion() override;

    // From KXLegendDelegate
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;

protected:
    /** @param view draws the bars of a kind that places them in its own way */
    explicit KXBarChart(std::unique_ptr<KXBarChartDataView> view);

    std::vector<KXObjectID> _obtainMarkObjectIDs(const KXAxisChartMark& mark) const override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    KXBarChartDataView& m_dataView; // the chart's
    UXPropertyTableBinding m_barPropertyBinding{*this, obtainPropertyTable()};
};
