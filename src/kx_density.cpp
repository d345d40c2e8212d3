#include "kx_density.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <utility>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
/** In widths of a kernel: what lies further away adds nothing that one could see. */
constexpr double reach = 4;
/** More than this, the ends of a curve are not worth telling apart. */
constexpr double greatestExtent = 1e300;
constexpr double silvermanFactor = 0.9, quartilesOfNormal = 1.34;

/** @return the share of a normal distribution below place */
double obtainNormalShare(double place) { return 0.5 * std::erfc(-place / std::numbers::sqrt2); }

} // namespace

KXDensity::KXDensity(std::vector<KXDensityBinData> bins)
{
    // 1. Those that have a place, in its order; of two at one place the first.
    std::erase_if(bins, [](const KXDensityBinData& bin) { return !(std::abs(bin.edge) < greatestExtent); });
    std::ranges::stable_sort(bins, {}, &KXDensityBinData::edge);
    const auto twice = std::ranges::unique(bins, {}, &KXDensityBinData::edge);
    bins.erase(twice.begin(), twice.end());

    // 2. A width that says nothing is the neighbour's: that before, else that behind. Where none says
    // anything, bins reach to the next one.
    const auto isWidth = [](double width) { return width > 0 && width < greatestExtent; };
    const bool haveWidths = std::ranges::any_of(bins, isWidth, &KXDensityBinData::width);
    for (std::size_t i = 0; i + 1 < bins.size() && !haveWidths; ++i)
        bins[i].width = bins[i + 1].edge - bins[i].edge;
    if (!haveWidths && bins.size() == 1)
        bins.front().width = 1;
    for (std::size_t i = 1; i < bins.size(); ++i)
        if (!isWidth(bins[i].width))
            bins[i].width = bins[i - 1].width;
    for (std::size_t i = bins.size(); i-- > 1;)
        if (!isWidth(bins[i - 1].width))
            bins[i - 1].width = bins[i].width;

    // 3. An overlap ends at the next edge.
    m_bins.reserve(bins.size());
    for (std::size_t i = 0; i < bins.size(); ++i) {
        double to = bins[i].edge + bins[i].width;
        if (i + 1 < bins.size())
            to = std::min(to, bins[i + 1].edge);
        const bool hasCount = bins[i].count > 0 && bins[i].count < greatestExtent;
        if (hasCount && to > bins[i].edge && m_total + bins[i].count < greatestExtent) {
            m_bins.push_back({bins[i].edge, to, bins[i].count});
            m_total += bins[i].count;
        }
    }
}

double KXDensity::obtainMean() const
{
    double mean = m_bins.empty() ? noNumber : 0;
    for (const KXDensityBin& bin : m_bins)
        mean += bin.obtainMiddle() * (bin.count / m_total);
    return mean;
}

double KXDensity::obtainQuantile(double share) const
{
    double below = 0;
    const double wanted = std::clamp(share, 0.0, 1.0) * m_total;
    for (const KXDensityBin& bin : m_bins) {
        if (below + bin.count >= wanted)
            return bin.from + (bin.to - bin.from) * ((wanted - below) / bin.count);
        below += bin.count;
    }
    return m_bins.empty() ? noNumber : m_bins.back().to;
}

double KXDensity::_obtainMiddleQuantile(double share) const
{
    double below = 0;
    for (const KXDensityBin& bin : m_bins) {
        below += bin.count;
        if (below >= share * m_total)
            return bin.obtainMiddle();
    }
    return m_bins.back().obtainMiddle();
}

double KXDensity::obtainKernelWidth() const
{
    if (m_bins.empty())
        return 0;
    const double mean = obtainMean();
    double squares = 0, squaredShares = 0;
    bool areCounts = true;
    for (const KXDensityBin& bin : m_bins) {
        const double share = bin.count / m_total, distance = bin.obtainMiddle() - mean;
        squares += share * distance * distance;
        squaredShares += share * share;
        areCounts = areCounts && std::floor(bin.count) == bin.count;
    }
    const double count = areCounts ? m_total : 1 / squaredShares;
    const double deviation = std::sqrt(count > 1 ? squares * count / (count - 1) : squares);
    const double quartiles = (_obtainMiddleQuantile(0.75) - _obtainMiddleQuantile(0.25)) / quartilesOfNormal;
    const double spread = quartiles > 0 ? std::min(deviation, quartiles) : deviation;
    if (!(spread > 0))
        return (m_bins.front().to - m_bins.front().from) / 2;
    return silvermanFactor * spread * std::pow(count, -0.2);
}

std::pair<double, double> KXDensity::obtainRange(double kernelWidth, const Bounds& bounds) const
{
    if (m_bins.empty())
        return {0, 0};
    double from = m_bins.front().from - reach * kernelWidth, to = m_bins.back().to + reach * kernelWidth;
    if (kernelWidth > 0 && bounds.lower && *bounds.lower <= m_bins.front().from)
        from = std::max(from, *bounds.lower);
    if (kernelWidth > 0 && bounds.upper && *bounds.upper >= m_bins.back().to)
        to = std::min(to, *bounds.upper);
    return {from, to};
}

double KXDensity::_obtainSmoothHeight(double place, double kernelWidth) const
{
    // The normal kernel is nothing beyond twice the reach of the curve.
    const double nothing = 2 * reach * kernelWidth;
    const auto first = std::ranges::lower_bound(m_bins, place - nothing, {}, &KXDensityBin::to);
    double height = 0;
    for (auto bin = first; bin != m_bins.end() && bin->from <= place + nothing; ++bin)
        height += bin->obtainHeight() * (obtainNormalShare((place - bin->from) / kernelWidth) -
                                         obtainNormalShare((place - bin->to) / kernelWidth));
    return height;
}

double KXDensity::obtainHeight(double place, double kernelWidth, const Bounds& bounds) const
{
    if (m_bins.empty())
        return 0;
    if (!(kernelWidth > 0)) {
        const auto bin = std::ranges::upper_bound(m_bins, place, {}, &KXDensityBin::to);
        return bin != m_bins.end() && place >= bin->from ? bin->obtainHeight() : 0;
    }
    const auto [from, to] = obtainRange(kernelWidth, bounds);
    if (place < from || place > to)
        return 0;
    double height = _obtainSmoothHeight(place, kernelWidth);
    if (bounds.lower && from == *bounds.lower)
        height += _obtainSmoothHeight(2 * from - place, kernelWidth);
    if (bounds.upper && to == *bounds.upper)
        height += _obtainSmoothHeight(2 * to - place, kernelWidth);
    return height;
}
