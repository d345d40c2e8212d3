#include "table_board.h"

#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "kx_table_grid.h"
#include "mixed_number.h"

#include <vector>

namespace {

constexpr int rowHeight = 22, columnWidth = 96, headerWidth = 72;
/** So many rows and columns are in sight at the end. */
constexpr std::uint64_t lastRows = 30, firstColumns = 11;

double obtainNumber(std::uint64_t row, std::uint64_t column)
{
    constexpr std::uint64_t ends[] = {1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
    return static_cast<double>(mixNumber(row * TableRows::columnCount + column) % ends[column % 4]) / 100;
}

std::uint64_t obtainTurnPlace(std::uint64_t turn, std::uint64_t count)
{
    return mixNumber(turn + (std::uint64_t{1} << 41)) % count;
}

std::string writeRowNumber(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3;)
        text.insert(place -= 3, ",");
    return text;
}

} // namespace

bool TableRows::obtainHeaders(KXChartDataUser*, bool isRow, const KXIndexPath&, std::uint64_t first,
                              std::span<KXTableHeader> headers)
{
    for (std::size_t i = 0; i < headers.size(); ++i)
        headers[i].text = isRow ? writeRowNumber(first + i + 1) : "Column " + std::to_string(first + i + 1);
    return true;
}

bool TableRows::obtainCells(KXChartDataUser*, const KXIndexPath&, std::uint64_t firstRow, const KXIndexPath&,
                            std::uint64_t firstColumn, std::uint64_t, const KXTableCellSpan& cells)
{
    for (std::uint64_t row = 0; row < cells.obtainRowCount(); ++row)
        for (std::uint64_t column = 0; column < cells.columnCount; ++column) {
            cells.at(row, column).number = obtainNumber(firstRow + row, firstColumn + column);
            cells.at(row, column).state = KXTableCellState::Value;
        }
    return true;
}

TableBoard::TableBoard(const std::uint64_t& rowCount)
{
    m_provider.rowCount = rowCount;
    m_chart.getChartProperty()->updateShowTitle(false);
    m_chart.getDataFormat()->setDecimals(2);
    m_chart.setRowHeight(rowHeight);
    m_chart.setShowBands(true);
    m_chart.setShowColumnLines(true);
    std::vector<std::string> columns{"//0"};
    std::vector<double> widths{headerWidth};
    for (std::uint64_t column = 1; column <= TableRows::columnCount; ++column) {
        columns.push_back("Column " + std::to_string(column) + "/");
        widths.push_back(columnWidth);
    }
    m_chart.setSizedColumns(columns);
    m_chart.setColumnWidths(widths);
    reload();
}

void TableBoard::update()
{
    ++m_turn;
    KXTableGrid& grid = *m_chart.getGrid();
    const std::uint64_t row = obtainTurnPlace(m_turn, m_provider.rowCount - lastRows);
    const std::uint64_t column = obtainTurnPlace(~m_turn + 1, firstColumns);
    grid.setContentOffsetY(static_cast<std::int64_t>(row * rowHeight));
    grid.setContentOffsetX(static_cast<std::int64_t>(column * columnWidth));
    m_diagram.layout();
}
