#pragma once

#include "ux/ux_rect.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/** What a chart shows, for the sentences of its summary. Texts are in the host's language, and numbers are
 *  written as on the chart. */
struct KXChartDescription {
    /** What stands along one side. */
    struct Axis {
        bool isHorizontal = false;
        std::string name;              /**< empty where it has none */
        std::string first, last;       /**< the ends of its range, or of its members */
        std::uint64_t memberCount = 0; /**< 0 for an axis of values */
        UXRect place;                  /**< in the chart's own space */
    };
    /** A value and what has it. */
    struct Value {
        double number = 0;
        std::string text, name;
    };
    /** The values of a row of items. */
    struct Series {
        std::string name;        /**< empty for that of the only one */
        std::uint64_t count = 0; /**< of its values */
        std::optional<Value> least, greatest, first, last;
        /** How closely the values follow their order, from -1, falling, to 1, rising. */
        double correlation = 0;
    };

    std::string kind;  /**< "Bar chart" */
    std::string title; /**< empty where it has none */
    std::vector<Axis> axes;
    std::vector<Series> series; /**< all values as one where there are more than anyone wants to hear */
    std::uint64_t seriesCount = 0;
    std::vector<std::string> values; /**< what is so little that it is told one by one */
    bool isOrdered = false;          /**< the items stand in the order of numbers, dates or times */
};
