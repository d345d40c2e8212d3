#pragma once

#include <cstdint>
#include <optional>

/** Numbers that are put together: bins of equal width, each with its lower end, side by side from an origin
 * on both ways. */
struct NumberBins {
    std::optional<std::uint64_t> count; // about so many over all of the data, of a round width
    double width = 0;                   // otherwise
    double origin = 0;

    friend bool operator==(const NumberBins&, const NumberBins&) = default;
};

/** @return a round width with which about count bins reach from least to greatest, 1 where these are no range
 */
double obtainRoundBinWidth(double least, double greatest, std::uint64_t count);
