#include "kx_table_chart_data_provider.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

// Hosts may refer to it, on Windows too
constexpr std::uint64_t KXTableChartDataProvider::allMembers;

namespace {

/** So many values are asked for to know what they reach from and to. */
constexpr std::uint64_t greatestFewCells = 65'536;

} // namespace

KXTableChartDataProvider::~KXTableChartDataProvider() = default;

std::uint64_t KXTableChartDataProvider::obtainRowDimensionCount(KXChartDataUser* user)
{
    return obtainDimensionDataCount(user, 0) > 0 ? 1 : 0;
}

std::uint64_t KXTableChartDataProvider::obtainColumnDimensionCount(KXChartDataUser* user)
{
    return obtainDimensionDataCount(user, 0) > 0 && obtainDimensionDataCount(user, 1) > 0 ? 1 : 0;
}

std::uint64_t KXTableChartDataProvider::obtainHeaderCount(KXChartDataUser* user, bool isRow,
                                                          const KXIndexPath& path)
{
    return path.empty() ? obtainDimensionDataCount(user, isRow ? 0 : 1) : 0;
}

bool KXTableChartDataProvider::obtainHeaders(KXChartDataUser* user, bool isRow, const KXIndexPath&,
                                             std::uint64_t first, std::span<KXTableHeader> headers)
{
    const std::uint64_t dimension = isRow ? 0 : 1;
    const KXChartDataType type = obtainDimensionDataType(user, dimension);
    const bool isTime = type == KXChartDataType::Date || type == KXChartDataType::Time ||
                        type == KXChartDataType::DateTime;
    for (std::size_t i = 0; i < headers.size(); ++i) {
        headers[i].text = obtainDimensionData(user, {dimension, first + i});
        headers[i].shouldFormat = isTime && shouldFormatDimenionData(user, {dimension, first + i});
    }
    return true;
}

bool KXTableChartDataProvider::obtainCells(KXChartDataUser* user, const KXIndexPath& rowParent,
                                           std::uint64_t firstRow, const KXIndexPath& columnParent,
                                           std::uint64_t firstColumn, std::uint64_t measure,
                                           const KXTableCellSpan& cells)
{
    if (firstRow == allMembers || firstColumn == allMembers || !rowParent.empty() || !columnParent.empty())
        return true;
    const bool hasColumns = obtainColumnDimensionCount(user) > 0;
    for (std::uint64_t row = 0; row < cells.obtainRowCount(); ++row)
        for (std::uint64_t column = 0; column < cells.columnCount; ++column) {
            KXIndexPath path{measure, firstRow + row};
            if (hasColumns)
                path.push_back(firstColumn + column);
            KXTableCell& cell = cells.at(row, column);
            if (obtainValueDataIsNull(user, path))
                cell.state = KXTableCellState::Null;
            else if (obtainValueDataIsEmpty(user, path))
                cell.state = KXTableCellState::Empty;
            else if (!validateValueData(user, path))
                cell.state = KXTableCellState::Error;
            else {
                const KXChartDataType type = obtainValueDataType(user, path);
                cell.state = KXTableCellState::Value;
                if (type == KXChartDataType::Integer || type == KXChartDataType::Float)
                    cell.number = obtainValueData(user, path);
                else
                    cell.text = obtainValueDataString(user, path);
            }
        }
    _obtainParts(user, firstRow, firstColumn, measure, cells);
    return true;
}

/** Row by row, or all at once where there are no columns; a host for whom nothing is chosen is asked once. */
void KXTableChartDataProvider::_obtainParts(KXChartDataUser* user, std::uint64_t firstRow,
                                            std::uint64_t firstColumn, std::uint64_t measure,
                                            const KXTableCellSpan& cells)
{
    const bool hasColumns = obtainColumnDimensionCount(user) > 0;
    std::vector<double> parts(hasColumns ? cells.columnCount : cells.cells.size());
    KXIndexPath path{measure, firstRow};
    if (hasColumns)
        path.push_back(firstColumn);
    for (std::size_t first = 0; first < cells.cells.size(); first += parts.size(), ++path[1]) {
        if (!obtainHighlightedValues(user, path, path.size() - 1, parts))
            return;
        for (std::size_t i = 0; i < parts.size(); ++i)
            if (KXTableCell& cell = cells.cells[first + i]; cell.state == KXTableCellState::Value)
                cell.part = parts[i];
    }
}

bool KXTableChartDataProvider::obtainHasTotals(KXChartDataUser*, bool, std::uint64_t) { return false; }

/** @return the cells of a measure that are no totals where they are few; nothing where they are not, or not
 * there yet */
std::vector<KXTableCell> KXTableChartDataProvider::_obtainFewCells(KXChartDataUser* user,
                                                                   std::uint64_t measure)
{
    if (obtainRowDimensionCount(user) > 1 || obtainColumnDimensionCount(user) > 1)
        return {};
    const std::uint64_t rows = std::max<std::uint64_t>(obtainDimensionDataCount(user, 0), 1);
    const std::uint64_t columns = std::max<std::uint64_t>(obtainDimensionDataCount(user, 1), 1);
    if (rows > greatestFewCells || columns > greatestFewCells / rows)
        return {};
    std::vector<KXTableCell> cells(rows * columns);
    if (!obtainCells(user, {}, 0, {}, 0, measure, {cells, columns}))
        cells.clear();
    return cells;
}

KXTableExtent KXTableChartDataProvider::obtainExtent(KXChartDataUser* user, std::uint64_t measure)
{
    KXTableExtent extent;
    for (const KXTableCell& cell : _obtainFewCells(user, measure))
        if (cell.state == KXTableCellState::Value)
            kxExtendTableExtent(extent, cell.number, false);
    return extent;
}

bool KXTableChartDataProvider::obtainPercentiles(KXChartDataUser* user, std::uint64_t measure,
                                                 std::span<double> values)
{
    std::vector<double> sorted;
    for (const KXTableCell& cell : _obtainFewCells(user, measure))
        if (cell.state == KXTableCellState::Value && std::isfinite(cell.number))
            sorted.push_back(cell.number);
    if (sorted.empty())
        return false;
    std::ranges::sort(sorted);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double place = static_cast<double>(i) * static_cast<double>(sorted.size() - 1) /
                             static_cast<double>(std::max<std::size_t>(values.size() - 1, 1));
        const auto before = static_cast<std::size_t>(place);
        const std::size_t after = std::min(before + 1, sorted.size() - 1);
        values[i] = std::lerp(sorted[before], sorted[after], place - static_cast<double>(before));
    }
    return true;
}

std::vector<bool> KXTableChartDataProvider::obtainEmptyHeaders(KXChartDataUser* user, bool isRow,
                                                               const KXIndexPath& path, std::uint64_t first,
                                                               std::uint64_t count)
{
    // 1. What stands for all of the other side: its total, or its members where these are few.
    const bool hasTotal = obtainHasTotals(user, !isRow, 0);
    const std::uint64_t levels = isRow ? obtainColumnDimensionCount(user) : obtainRowDimensionCount(user);
    const bool hasOne = hasTotal || levels == 0;
    const std::uint64_t across = hasOne ? 1 : obtainHeaderCount(user, !isRow, {});
    if (count == 0 || (!hasOne && levels > 1) || across == 0 || across > greatestFewCells / count)
        return std::vector<bool>(count, false);

    // 2. A line with one value in it is not empty.
    std::vector<bool> areEmpty(count, true);
    std::vector<KXTableCell> cells;
    for (std::uint64_t measure = 0; measure < obtainValueCount(user); ++measure) {
        cells.assign(count * across, {});
        const std::uint64_t other = hasTotal ? allMembers : 0;
        const bool isThere = isRow ? obtainCells(user, path, first, {}, other, measure, {cells, across})
                                   : obtainCells(user, {}, other, path, first, measure, {cells, count});
        for (std::uint64_t i = 0; i < cells.size(); ++i)
            if (!isThere || cells[i].state == KXTableCellState::Value ||
                cells[i].state == KXTableCellState::Error)
                areEmpty[isRow ? i / across : i % count] = false;
    }
    return areEmpty;
}

void KXTableChartDataProvider::sortRequested(KXChartDataUser*, const std::vector<KXTableSort>&) {}

std::optional<KXTablePlace> KXTableChartDataProvider::findNext(KXChartDataUser*, const std::string&,
                                                               const KXTablePlace&, bool)
{
    return std::nullopt;
}

void KXTableChartDataProvider::cellsCopied(KXChartDataUser*, const std::string&, const std::string&) {}

KXChartDataProviderHintData KXTableChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
