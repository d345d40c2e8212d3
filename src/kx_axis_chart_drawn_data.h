#pragma once

#include <cstdint>
#include <string>
#include <vector>

/** What an axis chart draws in place of what it has pulled: series and categories that it makes of those. */
struct KXAxisChartDrawnData {
    /** One list of values, one a category. */
    struct Series {
        std::string label;
        std::string id;
        std::vector<double> values; /**< one a category; NaN for none, else finite */
        std::vector<double>
            parts; /**< of these what belongs to what is chosen elsewhere; empty for nothing */
    };

    std::vector<Series> series;
    /** The categories, each by the one that was pulled whose text it has; past the count of these the texts
     * of the chart itself are counted. */
    std::vector<std::uint64_t> categories;
    std::vector<std::string> ownTexts;
};
