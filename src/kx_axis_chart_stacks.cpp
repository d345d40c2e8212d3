#include "kx_axis_chart_stacks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

constexpr double greatest = (std::numeric_limits<double>::max)();
constexpr double whole = 100;

double add(double a, double b) { return std::clamp(a + b, -greatest, greatest); }

double obtainLength(const KXAxisChartStackSegment& piece) { return std::abs(piece.to - piece.from); }

void stack(std::vector<KXAxisChartStackSegment>& pieces)
{
    double above = 0, below = 0;
    for (KXAxisChartStackSegment& piece : pieces) {
        double& reached = piece.value < 0 ? below : above;
        piece.from = reached;
        piece.to = reached = add(reached, piece.value);
    }
}

void divideWhole(std::vector<KXAxisChartStackSegment>& pieces)
{
    // Divided by the largest first, no sum of magnitudes is beyond a double.
    double largest = 0, sum = 0, reached = 0;
    for (const KXAxisChartStackSegment& piece : pieces)
        largest = std::max(largest, std::abs(piece.value));
    if (largest == 0) {
        for (KXAxisChartStackSegment& piece : pieces)
            piece.from = piece.to = 0;
        return;
    }
    for (const KXAxisChartStackSegment& piece : pieces)
        sum += std::abs(piece.value) / largest;
    for (KXAxisChartStackSegment& piece : pieces) {
        piece.from = whole * (reached / sum);
        reached += std::abs(piece.value) / largest;
        piece.to = whole * (reached / sum);
    }
}

} // namespace

std::uint64_t KXAxisChartStacks::obtainCategory(std::uint64_t place) const
{
    return place < categories.size() ? categories[place] : place;
}

double KXAxisChartStacks::obtainCategoryValue(std::uint64_t place) const
{
    return place < categoryNumbers.size() ? categoryNumbers[place] : static_cast<double>(place);
}

double KXAxisChartStacks::obtainValue(std::size_t position, std::uint64_t category) const
{
    const std::span<const double> values = series[position].values;
    return category < values.size() ? values[category] : std::numeric_limits<double>::quiet_NaN();
}

void KXAxisChartStacks::obtainPieces(std::uint64_t category,
                                     std::vector<KXAxisChartStackSegment>& pieces) const
{
    pieces.clear();
    for (std::size_t position = 0; position < series.size(); ++position) {
        const double value = obtainValue(position, category);
        if (std::isnan(value))
            continue;
        const bool floats = form == KXAxisChartStacking::Floating && category < series[position].spans.size();
        const KXAxisChartSpan span = floats ? series[position].spans[category] : KXAxisChartSpan{0, value};
        pieces.push_back({position, value, span.from, span.to});
    }
    if (form == KXAxisChartStacking::Floating) // none lies hidden behind a longer one
        std::ranges::stable_sort(pieces, std::ranges::greater(), obtainLength);
    else if (form == KXAxisChartStacking::Stacked)
        stack(pieces);
    else if (form == KXAxisChartStacking::Percentage)
        divideWhole(pieces);
}

double KXAxisChartStacks::obtainTotal(std::uint64_t category) const
{
    double total = 0;
    for (std::size_t position = 0; position < series.size(); ++position)
        if (const double value = obtainValue(position, category); !std::isnan(value))
            total = add(total, value);
    return total;
}
