#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"
#include "kx_chart_data_user.h"
#include "kx_table_blocks.h"
#include "kx_table_cell.h"
#include "kx_table_chart_options.h"
#include "kx_table_extent.h"
#include "kx_table_header.h"
#include "kx_table_header_tree.h"
#include "kx_table_place.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

class KXTableChartDataProvider;

/**
 * Pulls what a table shows: how many members there are below open parents, and the headers and cells that a
 * layout looked for and missed, in blocks, when that layout has ended. What is kept takes a bounded amount of
 * memory, however much the host has.
 */
class KX_EXPORT KXTableChartDataUser : public KXChartDataUser {
public:
    static constexpr std::uint64_t greatestLevelCount = 16;
    static constexpr std::uint64_t greatestMeasureCount = 1024;
    /** Not more bytes of cells are kept. */
    static constexpr std::size_t greatestCellSize = std::size_t{64} << 20;
    /** Where more groups than these would have to be looked at to open some, all are closed at first. */
    static constexpr std::uint64_t greatestOpenCount = 4096;

    /** A dimension of the rows or of the columns. */
    struct Dimension {
        std::string label;
        std::string name; /**< what documents know it by */
        KXChartDataType type = KXChartDataType::String;
        KXChartAggregateType level{};
    };
    /** A measure of the table. */
    struct Measure {
        std::string label;
        std::string id; /**< what documents know it by */
        KXChartDataType type = KXChartDataType::Float;
        KXChartAggregateType level{};

        bool isNumber() const { return type == KXChartDataType::Integer || type == KXChartDataType::Float; }
    };
    explicit KXTableChartDataUser(KXChart* chart);
    ~KXTableChartDataUser() override;

    // What was pulled, empty until then
    const std::vector<Dimension>& getDimensions(bool isRow) const { return _side(isRow).dimensions; }
    const std::vector<Measure>& getMeasures() const { return m_data.measures; }
    const KXTableExtent& getExtent(std::uint64_t measure) const;
    /** @return values of a measure in steps of one percent of its cells; empty where the host cannot tell, or
     * where they are not there, which is asked for when the layout has ended */
    const std::vector<double>& findPercentiles(std::uint64_t measure);
    /** @return whether members of a level have totals; level 0: whether there are grand totals */
    bool hasTotals(bool isRow, std::uint64_t level) const;
    const KXTableHeaderTree& getTree(bool isRow) const { return isRow ? m_rows : m_columns; }
    /** @return null where it is not there, which is asked for when the layout has ended */
    const KXTableHeader* findHeader(bool isRow, const KXIndexPath& path);
    const KXTableCell* findCell(const KXTablePlace& place);
    /** @return the number of a cell as it is shown: NaN where it has none, or where what it takes is not
     * there yet, which is asked for */
    double obtainShownNumber(const KXTablePlace& place, KXTableShowValuesAs shown);
    /** @return what documents know a member by: the identities along its path; empty where one is not there
     */
    std::string obtainIdentity(bool isRow, const KXIndexPath& path);
    /** @return the bytes that kept headers and cells take */
    std::size_t obtainKeptSize() const { return m_headers.getSize() + m_cells.getSize(); }

    // From KXChartDataUser
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;
    void dataArrived(std::uint64_t first, std::uint64_t count) override;

protected:
    /** @return how lines come of the members of a side */
    virtual KXTableHeaderTree::Style _obtainTreeStyle(bool isRow) const = 0;
    /** @return whether a group is open, by what documents know it by */
    virtual bool _isGroupOpen(bool isRow, const std::string& identity) const = 0;
    /** @return whether members without any value are left out */
    virtual bool _hidesEmptyMembers(bool isRow) const = 0;
    /** @return what documents know members by that stand before the others, in this order */
    virtual const std::vector<std::string>& _obtainMemberOrder(bool isRow) const = 0;
    /** Headers or cells that were missed are there. */
    virtual void _blocksArrived() = 0;

    /** @return whether something that a layout looked for is not there and will be asked for */
    bool _hasMissing() const
    {
        return m_headers.hasWanted() || m_cells.hasWanted() || !m_wantedPercentiles.empty();
    }
    /** Has what was missed be asked for: after a layout when that has ended, else at once. The host may
     * destroy the chart. */
    void _requestMissing();
    /** Opens or closes a group. The host is asked, which may destroy the chart. */
    void _setGroupOpen(bool isRow, const KXIndexPath& path, bool isOpen);
    /** Asks for a header now. The host may destroy the chart. @return null where there is none yet */
    const KXTableHeader* _fetchHeader(bool isRow, const KXIndexPath& path);
    /** Asks for a cell, and for all that it is worked out of, now; the same. @return whether it is there */
    bool _fetchMissing();

private:
    struct Side {
        std::vector<Dimension> dimensions;
        std::vector<bool> hasTotals; // by level
        std::uint64_t count = 0;     // of the members of the first dimension
    };
    struct Data {
        Side rows, columns;
        std::vector<Measure> measures;
        std::vector<KXTableExtent> extents; // of the measures, as the host knows them
    };

    Side& _side(bool isRow) { return isRow ? m_data.rows : m_data.columns; }
    const Side& _side(bool isRow) const { return isRow ? m_data.rows : m_data.columns; }
    bool _pullSide(KXTableChartDataProvider& provider, bool isRow, Side& side, std::uint64_t firstDimension);
    bool _pullMeasures(KXTableChartDataProvider& provider, Data& data);
    void _openGroups(bool isRow, const KXIndexPath& parent, std::uint64_t& room);
    void _arrangeMembers(bool isRow, const KXIndexPath& parent);
    bool _pullPercentiles(std::uint64_t measure);
    bool _pullHeaders(const KXIndexPath& key);
    bool _pullCells(const KXIndexPath& key);
    void _noteCells(std::uint64_t measure, const std::vector<KXTableCell>& cells, bool areTotals);
    bool _requestAll();
    double _findNumber(const KXTablePlace& place);
    double _obtainRunningTotal(const KXTablePlace& place);
    bool _isAnswered(const KXTablePlace& place) const;

    Data m_data;
    std::vector<KXTableExtent> m_extents;                       // of the host, or of what has been there
    std::map<std::uint64_t, std::vector<double>> m_percentiles; // of measures that were asked for
    std::set<std::uint64_t> m_wantedPercentiles;
    KXTableHeaderTree m_rows, m_columns;
    KXTableBlocks<KXTableHeader> m_headers;
    KXTableBlocks<KXTableCell> m_cells;
    KXTablePlace m_runPlace; // of the running total that was worked out last, which the next one goes on from
    double m_runSum = 0;
    bool m_hasRun = false;
    unsigned m_generation = 0; // changes with the data
    bool m_isPosted = false;
};
