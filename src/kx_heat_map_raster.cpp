#include "kx_heat_map_raster.h"

#include "kx_highlighted_parts.h"
#include "ux/ux_color.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

std::vector<KXPixelLine> kxObtainPixelLines(const KXGridLines& lines, double start, double pixel, int count,
                                            double gap)
{
    std::vector<KXPixelLine> made(static_cast<std::size_t>(std::max(count, 0)));
    const double least = lines.getCount() > 0 ? lines.obtainTotal() / static_cast<double>(lines.getCount())
                                              : 0;
    std::uint64_t begun = lines.obtainRange(0, start).end;
    for (std::size_t i = 0; i < made.size(); ++i) {
        const double from = start + static_cast<double>(i) * pixel;
        if (least < pixel) {
            const std::uint64_t end = from + pixel >= lines.obtainTotal()
                                          ? lines.getCount()
                                          : lines.obtainRange(0, from + pixel).end;
            made[i].lines = {begun, std::max(begun, end)};
            begun = made[i].lines.end;
            continue;
        }
        const double middle = from + pixel / 2;
        const std::optional<std::uint64_t> line = lines.findAt(middle);
        if (!line)
            continue;
        made[i].lines = {*line, *line + 1};
        made[i].isGap = lines.obtainStart(*line + 1) - middle < gap;
    }
    return made;
}

UXImage kxDrawHeatMapRaster(const KXHeatMapCells& cells, const KXHeatMapColors& colors,
                            const std::vector<KXPixelLine>& rows, const std::vector<KXPixelLine>& columns,
                            const KXHeatMapHatch& hatch)
{
    const std::size_t width = columns.size();
    std::vector<std::uint32_t> pixels(width * rows.size());
    std::vector<double> strongest(width);
    std::vector<KXGridCell> strongestCells(cells.parts.empty() ? 0 : width);
    bool hasNulls = false;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        std::uint32_t* const line = pixels.data() + y * width;
        // 1. Many pixels show the same cells as those above them.
        if (y > 0 && rows[y] == rows[y - 1] && (!hasNulls || hatch.pixel == 0)) {
            std::copy(line - width, line, line);
            continue;
        }
        hasNulls = false;
        if (rows[y].isGap)
            continue;

        // 2. The strongest value of each pixel.
        std::ranges::fill(strongest, noNumber);
        const std::uint64_t end = std::min(rows[y].lines.end, cells.rowCount);
        for (std::uint64_t row = rows[y].lines.first; row < end; ++row) {
            const double* const values = cells.values.data() + row * cells.columnCount;
            for (std::size_t x = 0; x < width; ++x)
                for (std::uint64_t column = columns[x].lines.first; column < columns[x].lines.end; ++column)
                    if (cells.isStronger(values[column], strongest[x])) {
                        strongest[x] = values[column];
                        if (!strongestCells.empty())
                            strongestCells[x] = {row, column};
                    }
        }

        // 3. Its colour.
        for (std::size_t x = 0; x < width; ++x) {
            if (columns[x].isGap || columns[x].lines.isEmpty() || rows[y].lines.isEmpty())
                continue;
            const bool isNull = std::isnan(strongest[x]);
            hasNulls = hasNulls || isNull;
            const double share = isNull || strongestCells.empty() ? 1
                                                                  : cells.obtainFullShare(strongestCells[x]);
            if (share < 1)
                line[x] = kxObtainPixel(KXHighlightedParts::obtainLightColor(
                    colors.obtainColor(strongest[x]), std::lerp(cells.lightOpacity, 1.0, share)));
            else if (!isNull)
                line[x] = colors.obtainPixel(strongest[x]);
            else if ((x + y) % static_cast<std::size_t>(std::max(hatch.period, 1)) == 0)
                line[x] = hatch.pixel;
        }
    }
    return {static_cast<int>(width), static_cast<int>(rows.size()), std::move(pixels)};
}
