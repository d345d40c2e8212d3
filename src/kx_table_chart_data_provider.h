#pragma once

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_hint_data.h"
#include "kx_table_cell.h"
#include "kx_table_extent.h"
#include "kx_table_header.h"
#include "kx_table_place.h"
#include "kx_table_sort.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/**
 * The data of tables. Dimensions name the rows, further ones the columns, and every crossing has a cell for
 * each measure. The members of a dimension stand below those of the one before: a path names one by its
 * positions below each parent. Headers and cells are asked for in blocks, and only those that are in sight,
 * so that a host may have many more than memory holds.
 *
 * By default the rows are the members of dimension 0, the columns those of dimension 1 if there is one, and
 * values stand at (measure, row, column); there are no totals. A host with deeper headers or with totals
 * answers what follows itself.
 */
class KX_EXPORT KXTableChartDataProvider : public virtual KXChartDataProvider {
public:
    /** A position that stands for all members: the cell is their total. */
    static constexpr std::uint64_t allMembers = ~std::uint64_t{0};

    ~KXTableChartDataProvider() override;

    /** The dimensions of the rows are the first ones, those of the columns follow. */
    virtual std::uint64_t obtainRowDimensionCount(KXChartDataUser* user);
    virtual std::uint64_t obtainColumnDimensionCount(KXChartDataUser* user);
    /** @return how many members there are below a path, the empty one for the first dimension */
    virtual std::uint64_t obtainHeaderCount(KXChartDataUser* user, bool isRow, const KXIndexPath& path);
    /** Sets headers[i] to member first + i below a path.
     *  @return false for "not yet": the host has them later and calls the user's dataArrived; so with cells
     */
    virtual bool obtainHeaders(KXChartDataUser* user, bool isRow, const KXIndexPath& path,
                               std::uint64_t first, std::span<KXTableHeader> headers);
    /**
     * Sets the cells of a measure at rows firstRow and on below a parent and columns firstColumn and on below
     * another. A first position of allMembers is the one total of what is below the parent; so are subtotals
     * and grand totals asked for, where obtainHasTotals says that there are any. A cell tells its part of
     * what is chosen elsewhere, too; by default obtainHighlightedValues is asked for it.
     */
    virtual bool obtainCells(KXChartDataUser* user, const KXIndexPath& rowParent, std::uint64_t firstRow,
                             const KXIndexPath& columnParent, std::uint64_t firstColumn,
                             std::uint64_t measure, const KXTableCellSpan& cells);
    /** @param level 0 for the members of the first dimension
     *  @return whether there are totals over members of that level of the rows, or of the columns */
    virtual bool obtainHasTotals(KXChartDataUser* user, bool isRow, std::uint64_t level);
    /** @return what the values of a measure reach from and to, for what is the same in all of its cells:
     * bars, colours, decimals. By default the host is asked for the values where there are few; of others
     * nothing is known before they have been in sight. */
    virtual KXTableExtent obtainExtent(KXChartDataUser* user, std::uint64_t measure);
    /** Sets values to those of the measure at equal steps from the least to the greatest: of 101 the one in
     * the middle is the median. Totals are not among them. By default as obtainExtent.
     *  @return false where the host cannot tell, or not yet: rules about them hold nowhere */
    virtual bool obtainPercentiles(KXChartDataUser* user, std::uint64_t measure, std::span<double> values);
    /** @return of members below a path, from one on, which have no value in any cell. By default those whose
     * totals have none; without totals the host is asked for the cells where there are few. */
    virtual std::vector<bool> obtainEmptyHeaders(KXChartDataUser* user, bool isRow, const KXIndexPath& path,
                                                 std::uint64_t first, std::uint64_t count);
    /** The user wants another order of the rows. Called after the event; the host sorts, and has the chart
     * prepare and reload. @param order the first one counts the most; empty for the host's own */
    virtual void sortRequested(KXChartDataUser* user, const std::vector<KXTableSort>& order);
    /** @return the next cell whose row, column or value has the text, none where there is none or the host
     * cannot search */
    virtual std::optional<KXTablePlace> findNext(KXChartDataUser* user, const std::string& text,
                                                 const KXTablePlace& from, bool forwards);
    /** The user copied cells: what goes to the clipboard. Called after the event. */
    virtual void cellsCopied(KXChartDataUser* user, const std::string& text, const std::string& html);
    /** @return the hint of the value at (measure, row positions, column positions); an empty one leaves it to
     * the chart */
    virtual KXChartDataProviderHintData obtainHintData(KXChartDataUser* user, const KXIndexPath& path);

private:
    void _obtainParts(KXChartDataUser* user, std::uint64_t firstRow, std::uint64_t firstColumn,
                      std::uint64_t measure, const KXTableCellSpan& cells);
    std::vector<KXTableCell> _obtainFewCells(KXChartDataUser* user, std::uint64_t measure);
};
