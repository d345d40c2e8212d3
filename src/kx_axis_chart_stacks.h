#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/** How the values of one category stand to each other: each from zero on, on each other, on each other as
 * parts of 100 percent, or each where its series says, whatever else is there. */
enum class KXAxisChartStacking : int { Plain, Stacked, Percentage, Floating };

/** @return whether the values of one category are parts of a whole */
[[nodiscard]] constexpr bool kxIsStack(KXAxisChartStacking form)
{
    return form == KXAxisChartStacking::Stacked || form == KXAxisChartStacking::Percentage;
}

/** Between which values of its axis a floating mark lies. */
struct KXAxisChartSpan {
    double from = 0, to = 0;

    friend bool operator==(const KXAxisChartSpan&, const KXAxisChartSpan&) = default;
};

/** What one value is before it has a place: it reaches from one value of the axis to another. */
struct KXAxisChartStackSegment {
    std::size_t position = 0; /**< of the series among those that are shown */
    double value = 0;
    double from = 0, to = 0;

    friend bool operator==(const KXAxisChartStackSegment&, const KXAxisChartStackSegment&) = default;
};

/** The values that marks are made of and how they add up, lent by whoever has them. */
struct KX_EXPORT KXAxisChartStacks {
    /** One series of values, lent. */
    struct Series {
        std::uint64_t index = 0;                     /**< by which the chart knows it */
        std::span<const double> values;              /**< one a category, finite; NaN, or none, for a null */
        std::span<const KXAxisChartSpan> spans = {}; /**< of floating marks one a category, finite */
        std::span<const double> parts = {}; /**< of the values what is drawn in full; empty for all of it */
    };

    std::vector<Series> series; /**< those that are shown, the first one next to zero */
    KXAxisChartStacking form = KXAxisChartStacking::Plain;
    // Places are the categories in the order in which they lie along their axis
    std::span<const double> categoryNumbers;   /**< where on a continuous axis, by places; empty for slots */
    std::span<const std::uint64_t> categories; /**< of the places; empty where these are the same */
    std::uint64_t first = 0, end = 0;          /**< the places that can be seen */

    /** @return the category at a place */
    std::uint64_t obtainCategory(std::uint64_t place) const;
    /** @return where a place lies on its axis */
    double obtainCategoryValue(std::uint64_t place) const;
    /** @return NaN for a null and past the data */
    double obtainValue(std::size_t position, std::uint64_t category) const;
    /**
     * Sets pieces to those of category in the order of the series; a null has none. Stacked, positive
     * values pile up from zero and negative ones down. Of 100 percent each takes the part of its magnitude,
     * one above the other, and the last ends at 100 exactly.
     */
    void obtainPieces(std::uint64_t category, std::vector<KXAxisChartStackSegment>& pieces) const;
    /** @return the sum of all values of category, saturated */
    double obtainTotal(std::uint64_t category) const;
};
