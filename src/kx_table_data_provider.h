#pragma once

#include "kx_control_chart_data_provider.h"
#include "kx_data_column.h"
#include "kx_density_chart_data_provider.h"
#include "kx_export.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_heat_map_chart_data_provider.h"
#include "kx_kpi_chart_data_provider.h"
#include "kx_pie_chart_data_provider.h"
#include "kx_scatter_chart_data_provider.h"
#include "kx_table_chart_data_provider.h"
#include "kx_tree_map_chart_data_provider.h"
#include "kx_value_chart_data_provider.h"
#include "kx_value_list_chart_data_provider.h"
#include "ux/ux_color.h"
#include "ux/ux_object_watcher.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

class KXTableRows;

/**
 * The data of charts, for a host that has it in columns: dimensions name the rows, measures are what a row
 * has. It serves any number of charts of every kind, and lets them take up what changes. It groups and sums
 * nothing.
 *
 * With one dimension each row is one category, in the rows' order; a measure is a series. With more, the
 * members of a dimension are its different texts in the order of their first rows, a value is that of the
 * row with those members, the last one of several, and a combination without a row is a null. Columns may
 * differ in length: what one lacks is null.
 *
 * A value chart shows the first row of one measure, a gauge that of up to four: value, target, minimum and
 * maximum. A host that wants more, such as clicks, derives and answers that.
 */
class KX_EXPORT KXTableDataProvider : public KXScatterChartDataProvider,
                                      public KXPieChartDataProvider,
                                      public KXDensityChartDataProvider,
                                      public KXHeatMapChartDataProvider,
                                      public KXKpiChartDataProvider,
                                      public KXTableChartDataProvider,
                                      public KXTreeMapChartDataProvider,
                                      public KXValueListChartDataProvider,
                                      public KXValueChartDataProvider,
                                      public KXGaugeChartDataProvider,
                                      public KXControlChartDataProvider {
public:
    KXTableDataProvider();
    /** Charts that it still serves show what they have and ask no more. */
    ~KXTableDataProvider() override;
    KXTableDataProvider(const KXTableDataProvider&) = delete;
    KXTableDataProvider& operator=(const KXTableDataProvider&) = delete;

    /** Becomes the provider of a chart, which shows the data at once; the chart may also be given the
     * provider, prepare and reload by itself.
     *  @param user the chart; not owned, and may go at any time */
    void serve(KXChartDataUser& user);

    // The columns. Each change reaches the charts at once, or with the outermost endUpdate().
    /** @param type of texts that are dates or times: these have numbers too, for a continuous axis
     *  @param level what the host grouped dates and times by
     *  @return its index */
    std::size_t addDimension(std::string label, KXDataColumn column,
                             KXChartDataType type = KXChartDataType::String, KXChartAggregateType level = {});
    /** @param type of numbers: whole ones are written without decimals */
    std::size_t addMeasure(std::string label, KXDataColumn column,
                           KXChartDataType type = KXChartDataType::Float);
    /** Does nothing past the last one; so does replaceMeasure. */
    void replaceDimension(std::size_t dimension, KXDataColumn column);
    void replaceMeasure(std::size_t measure, KXDataColumn column);
    void clear();
    /** Tells that what columns borrow has changed. */
    void dataChanged();
    /** Gives a series, as the charts count them, a colour in place of the charts' own. */
    void setSeriesColor(std::uint64_t series, const UXColor& color);
    /** Has a measure colour the lines of the others where the user wants colours by value; -1 for none. */
    void setColorMeasure(std::int64_t measure);
    /** Has two measures be the ends of the band of another one. */
    void setBand(std::uint64_t measure, std::uint64_t low, std::uint64_t high);
    /** Says what a measure is of the points of scatter charts. Roles that are not given are those of the
     * other measures in their order, the ends of bands left out.
     *  @param measure -1 for none: points do not have that role */
    void setRole(KXScatterChartRole role, std::int64_t measure);
    void beginUpdate();
    void endUpdate();

    // From KXChartDataProvider
    void beginPrepareData(KXChartDataUser* user) override;
    void endPrepareData(KXChartDataUser* user) override;
    bool obtainDataIsEmpty(KXChartDataUser* user) override;
    std::string obtainDimensionName(KXChartDataUser* user, std::uint64_t dimension) override;
    std::string obtainDimensionLabel(KXChartDataUser* user, std::uint64_t dimension) override;
    KXChartDataType obtainDimensionDataType(KXChartDataUser* user, std::uint64_t dimension) override;
    KXChartAggregateType obtainDimensionAggregateType(KXChartDataUser* user,
                                                      std::uint64_t dimension) override;
    std::uint64_t obtainDimensionDataCount(KXChartDataUser* user, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser* user, const KXIndexPath& path) override;
    /** @return a number of the column; of a date or time the seconds since 1970, or since midnight; else NaN
     */
    double obtainDimensionDataAsNumber(KXChartDataUser* user, const KXIndexPath& path) override;
    std::uint64_t obtainValueCount(KXChartDataUser* user) override;
    std::string obtainValueLabel(KXChartDataUser* user, std::uint64_t value) override;
    KXChartDataType obtainValueDataType(KXChartDataUser* user, const KXIndexPath& path) override;
    bool obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path) override;
    double obtainValueData(KXChartDataUser* user, const KXIndexPath& path) override;
    std::string obtainValueDataString(KXChartDataUser* user, const KXIndexPath& path) override;
    using KXChartDataProvider::obtainValueDataColorForGroup;
    bool obtainValueDataColorForGroup(KXChartDataUser* user, std::uint64_t group, UXColor& color) override;

    // From KXAxisChartDataProvider
    std::int64_t obtainColorMeasure(KXChartDataUser* user) override;
    bool obtainBandMeasures(KXChartDataUser* user, std::uint64_t measure, std::uint64_t& low,
                            std::uint64_t& high) override;
    void obtainSeriesValues(KXChartDataUser* user, std::uint64_t series, std::uint64_t firstCategory,
                            std::span<double> values) override;

    // From KXScatterChartDataProvider
    std::int64_t obtainRoleMeasure(KXChartDataUser* user, KXScatterChartRole role) override;

    // From KXPanelChartDataProvider
    void obtainValues(KXChartDataUser* user, const KXIndexPath& first, std::span<double> values) override;

private:
    enum class Change { None, Colors, Data };
    struct Dimension {
        std::string label;
        KXDataColumn column;
        KXChartDataType type;
        KXChartAggregateType level;
    };
    struct Measure {
        std::string label;
        KXDataColumn column;
        KXChartDataType type;
    };
    struct User {
        UXObjectWatcher chart;
        KXChartDataUser* user; // gone with its chart
    };

    void _change(Change change);
    static void _tell(const std::vector<User>& users, const KXChartDataProvider* self, Change change);
    static bool _serves(const KXChartDataProvider* self, const User& user);
    void _remember(KXChartDataUser& user);
    bool _hasRole(std::uint64_t measure) const;
    /** @return by member where there are several dimensions, made anew after a change */
    const KXTableRows& _obtainRows();
    /** Sets values[i] to the value at the path with i added to one of its indexes, that of a dimension. */
    void _obtainNumbers(KXIndexPath path, std::size_t counted, std::span<double> values);
    /** @param path (measure, member of each dimension); a member that is not said is the first */
    std::size_t _findRow(const KXIndexPath& path);
    /** @return the first row with a member; KXTableRows::noRow past the last one */
    std::size_t _findMemberRow(const KXIndexPath& path);

    std::vector<Dimension> m_dimensions;
    std::vector<Measure> m_measures;
    std::map<std::uint64_t, UXColor> m_seriesColors;
    std::int64_t m_colorMeasure = -1;
    std::map<std::uint64_t, std::pair<std::uint64_t, std::uint64_t>> m_bands; // low and high by measures
    std::map<KXScatterChartRole, std::int64_t> m_roles;                       // those that are given
    std::unique_ptr<const KXTableRows> m_rows; // null until it is needed after a change
    std::vector<User> m_users;
    int m_updateDepth = 0;
    Change m_pending = Change::None;
};
