#pragma once

#include "kx_derived_bar_chart.h"
#include "kx_tornado_chart_data_view.h"
#include "kx_tornado_rows.h"

#include <cstdint>
#include <memory>
#include <string>

class KXTornadoChartProperty;

/**
 * Compares two sides row by row: two measures, or the first member of the second dimension and all others,
 * stacked outwards from the middle on one scale. The longest row comes first. Instead of both sides a row can
 * show by how much they differ, or how far values lie on either side of one value.
 */
class KX_EXPORT KXTornadoChart : public KXDerivedBarChart {
public:
    KXTornadoChart();
    ~KXTornadoChart() override;

    // Properties
    /** @return the property object that the chart made and destroys, never null */
    KXTornadoChartProperty* getTornadoChartProperty() const { return m_tornadoProperty.get(); }

    // Queries
    KXTornadoForm obtainForm() const;
    const KXTornadoChartDataView& getDataView() const { return m_tornadoView; }

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From KXAxisChart, KXChartDataUser and UXJsonObject
    std::string obtainValueText(std::uint64_t series, double value) const override;
    void resetData() override;
    std::string customSerializeTypeID() override;

protected:
    KXAxisChartDrawnData _deriveData() override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    explicit KXTornadoChart(std::unique_ptr<KXTornadoChartDataView> view);

    std::unique_ptr<KXTornadoChartProperty> m_tornadoProperty;
    KXTornadoChartDataView& m_tornadoView; // the chart's
    UXPropertyTableBinding m_tornadoPropertyBinding{*this, obtainPropertyTable()};
};
