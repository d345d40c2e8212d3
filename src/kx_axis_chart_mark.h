#pragma once

#include <compare>
#include <cstdint>

/** Names one mark of an axis chart: a bar, a point. */
struct KXAxisChartMark {
    std::uint64_t series = 0;
    std::uint64_t category = 0;

    friend auto operator<=>(const KXAxisChartMark&, const KXAxisChartMark&) = default;
};
