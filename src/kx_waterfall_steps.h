#pragma once

#include "kx_export.h"
#include "kx_waterfall_chart_options.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/** One bar of a waterfall: a change of the running total, or a total, which stands on zero. */
struct KXWaterfallStep {
    enum class Kind : int {
        Change, /**< of a member of dimension 0, or of one of dimension 1 between two of dimension 0 */
        Others, /**< the changes of several members of dimension 1 */
        Total,  /**< a member of dimension 0 */
        End     /**< the running total after the last step */
    };

    Kind kind = Kind::Change;
    double value = 0;         /**< the change or the total, NaN for a null */
    double from = 0, to = 0;  /**< the running total before and after; of a total from zero on */
    double start = 0;         /**< the total of which the change is a part, 0 where none stands before it */
    std::uint64_t member = 0; /**< of dimension 0; of a change between two totals the second one's */
    std::uint64_t part = 0;   /**< of dimension 1, where there is one */
};

/** The bars of a waterfall, in their order. */
struct KXWaterfallSteps {
    std::vector<KXWaterfallStep> steps;
    bool isDivided = false; /**< by dimension 1 */
    /** Which members of dimension 1 each Others holds, by the member of dimension 0 that follows it. */
    std::vector<std::vector<std::uint64_t>> gathered;
};

/** What a waterfall is made of, lent for the call. */
struct KXWaterfallSource {
    /** One list over the members of dimension 0 for each member of dimension 1, or one list where there is no
     * dimension 1; NaN for a null, else finite. */
    std::vector<std::span<const double>> parts;
    bool isDivided = false;
    std::uint64_t count = 0;     /**< the members of dimension 0 that are shown */
    std::vector<bool> areTotals; /**< by these members; may be shorter */
    std::optional<std::uint64_t>
        hostOthers; /**< a member of dimension 1 that the host has gathered already */
};

/** What the user wants of it. */
struct KXWaterfallRule {
    bool firstIsStart = false;
    bool hasEnd = true;
    std::uint64_t greatestStepCount = 8; /**< between two totals, beside Others */
    KXWaterfallChartGroupValueSortOrder order = KXWaterfallChartGroupValueSortOrder::None;
};

/**
 * Without dimension 1 each member is a change, and the running total after the last one follows as a bar of
 * its own unless it is a total anyway. A member that is a total sets the running total to its value; one
 * without a value stands for what the running total is.
 *
 * With dimension 1 each member of dimension 0 is a total, and between two of them stand the changes of the
 * members of dimension 1, the smallest ones gathered. What one of the two lacks counts as zero; what both
 * lack is a null.
 *
 * Running totals are compensated sums. A sum beyond the largest double is that double.
 */
[[nodiscard]] KX_EXPORT KXWaterfallSteps kxMakeWaterfallSteps(const KXWaterfallSource& source,
                                                              const KXWaterfallRule& rule);
