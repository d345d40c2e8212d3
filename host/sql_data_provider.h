#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "data_binding.h"
#include "kx_axis_chart_data_provider.h"
#include "kx_control_chart_data_provider.h"
#include "kx_density_chart_data_provider.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_heat_map_chart_data_provider.h"
#include "kx_kpi_chart_data_provider.h"
#include "kx_pie_chart_data_provider.h"
#include "kx_table_chart_data_provider.h"
#include "kx_tree_map_chart_data_provider.h"
#include "kx_value_chart_data_provider.h"
#include "kx_value_list_chart_data_provider.h"
#include "sql_data_set.h"
#include "sql_density.h"
#include "sql_highlight.h"
#include "sql_pivot.h"
#include "sql_totals.h"

class SqlSession;

/** Answers charts from a database table: a binding says which columns are dimensions and measures. Each
 * preparation asks the database once; all questions are answered from what it said then. Members of dates and
 * times have as number the seconds since 1970, or since midnight. */
class SqlDataProvider : public KXValueChartDataProvider,
                        public KXGaugeChartDataProvider,
                        public KXAxisChartDataProvider,
                        public KXPieChartDataProvider,
                        public KXDensityChartDataProvider,
                        public KXHeatMapChartDataProvider,
                        public KXKpiChartDataProvider,
                        public KXTableChartDataProvider,
                        public KXTreeMapChartDataProvider,
                        public KXValueListChartDataProvider,
                        public KXControlChartDataProvider {
public:
    /** @param session outlives this object */
    SqlDataProvider(SqlSession& session, DataBinding binding);

    const DataBinding& getBinding() const { return m_binding; }
    /** Lets those rows alone take part that are chosen elsewhere, from the next preparation on. */
    void setChoices(std::vector<FilterAlternatives> choices) { m_binding.choices = std::move(choices); }
    /** Has the part of each value told that belongs to what is chosen elsewhere; the same. */
    void setHighlights(std::vector<FilterAlternatives> choices) { m_binding.highlights = std::move(choices); }
    /** @return why the last preparation got no data, one line; empty when it did or found no rows */
    const std::string& getError() const { return m_error; }
    /** @return what was last prepared. For a table that is asked for here at the latest: a table shows pages
     * of its pivot, of which there may be more than memory holds. */
    const SqlDataSet& getData() const;

    // From KXChartDataProvider: around one preparation
    void beginPrepareData(KXChartDataUser* user) override;
    void endPrepareData(KXChartDataUser* user) override;
    bool obtainDataIsEmpty(KXChartDataUser* user) override;

    // Dimensions
    std::string obtainDimensionName(KXChartDataUser* user, std::uint64_t dimension) override;
    std::string obtainDimensionLabel(KXChartDataUser* user, std::uint64_t dimension) override;
    KXChartDataType obtainDimensionDataType(KXChartDataUser* user, std::uint64_t dimension) override;
    KXChartAggregateType obtainDimensionAggregateType(KXChartDataUser* user,
                                                      std::uint64_t dimension) override;
    std::uint64_t obtainDimensionDataCount(KXChartDataUser* user, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return of the first dimension */
    std::vector<std::uint64_t> obtainDimensionDataAsIndexRange(KXChartDataUser* user, double from,
                                                               double to) override;
    bool obtainDimensionDataIsNull(KXChartDataUser* user, const KXIndexPath& path) override;
    bool obtainDimensionDataIsEmpty(KXChartDataUser* user, const KXIndexPath& path) override;
    bool obtainDimensionDataIsGenerated(KXChartDataUser* user, const KXIndexPath& path) override;
    double obtainDimensionDataAsNumber(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return how far the next member's number is from this one's, 0 for the last one and for texts */
    double obtainDimensionDataAsRangeDifference(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return YYYY-MM-DD HH:MM:SS of seconds since 1970, empty outside of the years 1 to 9999 */
    std::string obtainDimensionDataAsDateTime(KXChartDataUser* user, double seconds) override;
    /** @return the nearest member that the data itself has, neither null nor empty */
    std::int64_t obtainNextValidDimensionIndex(KXChartDataUser* user, const KXIndexPath& path) override;
    std::int64_t obtainPreviousValidDimensionIndex(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return false for words that stand for a null or for the other members */
    bool shouldFormatDimenionData(KXChartDataUser* user, const KXIndexPath& path) override;

    // Values
    std::uint64_t obtainValueCount(KXChartDataUser* user) override;
    std::string obtainValueLabel(KXChartDataUser* user, std::uint64_t value) override;
    std::string obtainValueID(KXChartDataUser* user, std::uint64_t value) override;
    KXChartDataType obtainValueDataType(KXChartDataUser* user, const KXIndexPath& path) override;
    KXChartAggregateType obtainValueAggregateType(KXChartDataUser* user, const KXIndexPath& path) override;
    bool obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return whether no row of the data is in the cell */
    bool obtainValueDataIsEmpty(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return whether one of the cell's members was made up */
    bool obtainValueDataIsGenerated(KXChartDataUser* user, const KXIndexPath& path) override;
    double obtainValueData(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return words where the value is null, and others where no row takes part */
    std::string obtainValueDataString(KXChartDataUser* user, const KXIndexPath& path) override;

    bool obtainHighlightedValues(KXChartDataUser* user, const KXIndexPath& first, std::size_t along,
                                 std::span<double> parts) override;

    // From KXHeatMapChartDataProvider: where the binding wants them
    bool obtainHasTotals(KXChartDataUser* user, bool ofRows) override;
    void obtainTotals(KXChartDataUser* user, bool ofRows, std::uint64_t first,
                      std::span<double> totals) override;
    double obtainGrandTotal(KXChartDataUser* user) override;

    // From KXDensityChartDataProvider: of the rows behind bins of which the measure is the count
    double obtainQuantile(KXChartDataUser* user, std::uint64_t group, double share) override;
    double obtainMean(KXChartDataUser* user, std::uint64_t group) override;

    // From KXAxisChartDataProvider
    void obtainSeriesValues(KXChartDataUser* user, std::uint64_t series, std::uint64_t firstCategory,
                            std::span<double> values) override;
    void obtainCategoryNumbers(KXChartDataUser* user, std::uint64_t firstCategory,
                               std::span<double> numbers) override;

    // From KXTableChartDataProvider: a pivot over the same binding
    std::uint64_t obtainRowDimensionCount(KXChartDataUser* user) override;
    std::uint64_t obtainColumnDimensionCount(KXChartDataUser* user) override;
    std::uint64_t obtainHeaderCount(KXChartDataUser* user, bool isRow, const KXIndexPath& path) override;
    bool obtainHeaders(KXChartDataUser* user, bool isRow, const KXIndexPath& path, std::uint64_t first,
                       std::span<KXTableHeader> headers) override;
    bool obtainCells(KXChartDataUser* user, const KXIndexPath& rowParent, std::uint64_t firstRow,
                     const KXIndexPath& columnParent, std::uint64_t firstColumn, std::uint64_t measure,
                     const KXTableCellSpan& cells) override;
    bool obtainHasTotals(KXChartDataUser* user, bool isRow, std::uint64_t level) override;
    KXTableExtent obtainExtent(KXChartDataUser* user, std::uint64_t measure) override;
    bool obtainPercentiles(KXChartDataUser* user, std::uint64_t measure, std::span<double> values) override;
    void sortRequested(KXChartDataUser* user, const std::vector<KXTableSort>& order) override;

    // From KXPanelChartDataProvider
    void obtainValues(KXChartDataUser* user, const KXIndexPath& first, std::span<double> values) override;

protected:
    SqlSession& getSession() const { return m_session; }
    /** @return what the database answers to the binding now; throws HostError where it refuses */
    virtual SqlDataSet askForData();

private:
    /** Sets values[i] to the value at the path with i added to one of its indexes. */
    void _obtainNumbers(KXIndexPath path, std::size_t counted, std::span<double> values) const;
    const SqlMember* _findMember(const KXIndexPath& path) const;
    SqlValue _findValue(const KXIndexPath& path) const;
    std::int64_t _findValidMember(const KXIndexPath& path, std::int64_t step) const;
    /** @return the binding as a table, made when it is first asked for; null where the database refuses */
    SqlPivot* _obtainPivot();
    double _obtainQuantile(std::uint64_t group, std::optional<double> share);
    void _makePivot();
    /** @return what a question to the pivot answers, or other where there is none or the database refuses */
    template <class Answer, class Question>
    Answer _askPivot(Answer other, const Question& question);

    SqlSession& m_session;
    DataBinding m_binding;
    mutable SqlDataSet m_data;         // until it is asked for what a table shows, its types alone
    mutable bool m_isDataOpen = false; // it is still to be asked for
    SqlTotals m_totals;
    SqlHighlight m_highlight;
    std::unique_ptr<SqlPivot> m_pivot;
    std::optional<SqlDensity> m_density;
    std::vector<KXTableSort> m_rowOrder; // of the table, as the user wants it
    mutable std::string m_error;
};
