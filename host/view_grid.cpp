#include "view_grid.h"

#include <algorithm>

namespace {

// The shape in which charts look best.
constexpr double bestWidth = 5, bestHeight = 3;

int obtainRow(int index, int rows, int count) { return static_cast<int>(std::int64_t{index} * count / rows); }

/** @return the extent of the widest row's cells for rows that are as even as they can be */
int obtainColumns(int count, int rows) { return (count + rows - 1) / rows; }

int obtainLeastExtent(int cells, int least) { return ViewGrid::gap + cells * (least + ViewGrid::gap); }

/** @return the number of rows whose cells hold the largest chart of the best shape */
int findRows(int count, const UXSize& room)
{
    int best = 1;
    double bestScale = -1;
    for (int rows = 1; rows <= count; ++rows) {
        const double scale = std::min(room.width / (bestWidth * obtainColumns(count, rows)),
                                      room.height / (bestHeight * rows));
        if (scale > bestScale) {
            best = rows;
            bestScale = scale;
        }
    }
    return best;
}

} // namespace

ViewGrid arrangeViewGrid(std::size_t count, const UXSize& room)
{
    const int charts = static_cast<int>(std::min<std::size_t>(count, 10'000));
    if (charts == 0)
        return {room, {}};
    const int rows = findRows(charts, room);
    const int columns = obtainColumns(charts, rows);
    ViewGrid grid;
    grid.size = {std::max(room.width, obtainLeastExtent(columns, ViewGrid::leastCell.width)),
                 std::max(room.height, obtainLeastExtent(rows, ViewGrid::leastCell.height))};

    // Edges are shares of the whole, so that the cells fill it to the last unit.
    const auto place = [](int extent, int index, int cells) {
        return ViewGrid::gap + static_cast<int>(std::int64_t{extent - ViewGrid::gap} * index / cells);
    };
    for (int row = 0; row < rows; ++row) {
        const int first = obtainRow(row, rows, charts), inRow = obtainRow(row + 1, rows, charts) - first;
        const int top = place(grid.size.height, row, rows);
        const int bottom = place(grid.size.height, row + 1, rows) - ViewGrid::gap;
        for (int column = 0; column < inRow; ++column) {
            const int left = place(grid.size.width, column, inRow);
            const int right = place(grid.size.width, column + 1, inRow) - ViewGrid::gap;
            grid.cells.emplace_back(left, top, right - left, bottom - top);
        }
    }
    return grid;
}
