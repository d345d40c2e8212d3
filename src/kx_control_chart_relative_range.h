#pragma once

#include "kx_control_chart_options.h"

#include <cstdint>

/** Dates relative to now: a period, and of the last steps how many. */
struct KXControlChartRelativeRange {
    KXControlChartPeriod period = KXControlChartPeriod::None;
    std::uint64_t steps = 0; /**< of LastSteps */

    friend bool operator==(const KXControlChartRelativeRange&, const KXControlChartRelativeRange&) = default;
};
