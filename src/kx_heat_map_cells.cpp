#include "kx_heat_map_cells.h"

#include "kx_highlighted_parts.h"

#include <cmath>
#include <limits>

double KXHeatMapCells::obtainValue(const KXGridCell& cell) const
{
    if (cell.row >= rowCount || cell.column >= columnCount)
        return std::numeric_limits<double>::quiet_NaN();
    return values[cell.row * columnCount + cell.column];
}

double KXHeatMapCells::obtainFullShare(const KXGridCell& cell) const
{
    const std::uint64_t index = cell.row * columnCount + cell.column;
    return cell.column < columnCount && index < parts.size()
               ? KXHighlightedParts::obtainShare(parts[index], obtainValue(cell))
               : 1;
}

bool KXHeatMapCells::isStronger(double value, double other) const
{
    if (std::isnan(other))
        return !std::isnan(value);
    return middle ? std::abs(value - *middle) > std::abs(other - *middle) : value > other;
}

std::optional<KXGridCell> KXHeatMapCells::findStrongest(const KXGridBlock& block) const
{
    std::optional<KXGridCell> found;
    double strongest = std::numeric_limits<double>::quiet_NaN();
    for (std::uint64_t row = block.rows.first; row < block.rows.end; ++row)
        for (std::uint64_t column = block.columns.first; column < block.columns.end; ++column) {
            const double value = obtainValue({row, column});
            if (!isStronger(value, strongest))
                continue;
            strongest = value;
            found = KXGridCell{row, column};
        }
    return found;
}
