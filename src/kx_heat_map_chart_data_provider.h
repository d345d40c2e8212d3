#pragma once

#include "kx_panel_chart_data_provider.h"

#include <cstdint>
#include <span>

/**
 * The data of heat maps: the members of dimension 0 are the rows and those of dimension 1 the columns, and
 * the first measure gives the cells their colours. Of a second measure the labels show the values. With one
 * dimension alone there is a single column.
 *
 * Totals are not worked out by the chart, as averages cannot be added up: a host that has them answers the
 * three questions about them.
 */
class KX_EXPORT KXHeatMapChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXHeatMapChartDataProvider() override;

    /** @param ofRows whether it is about a total for each row, which stand in a column of their own, or one
     * for each column
     *  @return by default none of them */
    virtual bool obtainHasTotals(KXChartDataUser* user, bool ofRows);
    /** Sets totals[i] to that of row, or column, first + i, NaN for a null; by default all are. */
    virtual void obtainTotals(KXChartDataUser* user, bool ofRows, std::uint64_t first,
                              std::span<double> totals);
    /** @return the total of all cells, shown where rows and columns have totals; by default NaN */
    virtual double obtainGrandTotal(KXChartDataUser* user);
};
