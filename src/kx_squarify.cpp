#include "kx_squarify.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace {

/** Which values stand in a row, and how much of what is left of the area it takes. */
struct Row {
    std::size_t end = 0;
    double sum = 0;
};

/** @param side the row's length
 *  @param share what the area has for a value of 1 */
Row fillRow(std::span<const double> values, std::size_t first, double side, double share)
{
    Row row{first, 0};
    double worst = (std::numeric_limits<double>::max)(), least = values[first], greatest = least;
    for (; row.end < values.size(); ++row.end) {
        const double value = values[row.end], sum = row.sum + value;
        least = std::min(least, value);
        greatest = std::max(greatest, value);
        const double thickness = sum * share / side;
        const double ratio = std::max(greatest * share / (thickness * thickness),
                                      thickness * thickness / (least * share));
        if (row.end > first && !(ratio <= worst))
            break;
        worst = ratio;
        row.sum = sum;
    }
    return row;
}

} // namespace

std::vector<KXTileEdges> kxSquarify(std::span<const double> values, const UXDoubleRect& area)
{
    // 1. Shares of the largest add up whatever the values are.
    std::vector<KXTileEdges> places;
    if (values.empty())
        return places;
    places.reserve(values.size());
    const double greatest = *std::ranges::max_element(values);
    std::vector<double> shares(values.size());
    std::ranges::transform(values, shares.begin(), [&](double value) { return value / greatest; });
    double rest = 0;
    for (const double share : shares)
        rest += share;

    // 2. Row by row from what is left; the last one takes it whole, so that sums that lose leave no gap.
    KXTileEdges left{area.x, area.y, area.x + std::max(area.width, 0.0), area.y + std::max(area.height, 0.0)};
    for (std::size_t first = 0; first < shares.size();) {
        const double width = left.right - left.left, height = left.bottom - left.top;
        const bool isAcross = width < height; // the row lies along the top, else along the left
        const double side = std::min(width, height);
        const Row row = side > 0 && rest > 0 ? fillRow(shares, first, side, width * height / rest)
                                             : Row{shares.size(), rest};
        const bool isLast = row.end == shares.size();
        const double thickness = (isAcross ? height : width) * (row.sum / std::max(rest, row.sum));
        const double start = isAcross ? left.left : left.top, end = isAcross ? left.right : left.bottom;
        const double near = isAcross ? left.top : left.left, furthest = isAcross ? left.bottom : left.right;
        const double far = isLast ? furthest : std::min(near + thickness, furthest);
        double from = start, sum = 0;
        for (; first < row.end; ++first) {
            sum += shares[first];
            const double part = row.sum > 0 ? sum / row.sum : 0; // values that are nothing beside the largest
            const double to = first + 1 == row.end ? end : std::min(start + (end - start) * part, end);
            places.push_back(isAcross ? KXTileEdges{from, near, to, far} : KXTileEdges{near, from, far, to});
            from = to;
        }
        rest -= row.sum;
        (isAcross ? left.top : left.left) = far;
    }
    return places;
}
