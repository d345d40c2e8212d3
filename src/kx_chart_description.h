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
        bool isHorizontal = false;     /**< it lies along x */
        std::string name;              /**< empty where it has none */
        std::string first;             /**< the start of its range, or its first member */
        std::string last;              /**< the end of its range, or its last member */
        std::uint64_t memberCount = 0; /**< 0 for an axis of values */
        UXRect place;                  /**< in the chart's own space */
    };
    /** A value and what has it. */
    struct Value {
        double number = 0; /**< as it is compared */
        std::string text;  /**< as it is written */
        std::string name;  /**< of what has it */
    };
    /** The values of a row of items. */
    struct Series {
        std::string name;              /**< empty for that of the only one */
        std::uint64_t count = 0;       /**< of its values */
        std::optional<Value> least;    /**< none without values, as the other three */
        std::optional<Value> greatest; /**< the first of several that are equal */
        std::optional<Value> first;    /**< in the order of the items */
        std::optional<Value> last;     /**< likewise */
        /** How closely the values follow their order, from -1, falling, to 1, rising. */
        double correlation = 0;
    };

    std::string kind;                /**< "Bar chart" */
    std::string title;               /**< empty where it has none */
    std::vector<Axis> axes;          /**< those that are used; none without marks */
    std::vector<Series> series;      /**< all values as one where there are more than anyone wants to hear */
    std::uint64_t seriesCount = 0;   /**< how many series there are, 0 without rows */
    std::vector<std::string> values; /**< what is so little that it is told one by one */
    bool isOrdered = false;          /**< the items stand in the order of numbers, dates or times */
};
