#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"
#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

/** The steps along which a trend runs. */
struct KX_EXPORT KXTrendSteps {
    std::span<const double> numbers; /**< by step: seconds since 1970, or years; empty where there are none */
    std::size_t count = 0;           /**< only the first steps count */
    KXChartDataType type = KXChartDataType::String;          /**< of the steps */
    KXChartAggregateType level = KXChartAggregateType::None; /**< what the host grouped them by */

    /** @return the step so many before one, none before the first one */
    std::optional<std::size_t> findBack(std::size_t step, std::int64_t distance) const;
    /** @return the step of the same month, quarter or date a year before, of weeks that 52 weeks before: of
     * February 29 the 28th. Steps that all end a month are those of months. None where the data lack it,
     * however near a neighbour is. */
    std::optional<std::size_t> findYearBefore(std::size_t step) const;

private:
    /** Where the number of a step is looked for: from here on, and before there. */
    struct Span {
        double from, to;
    };

    std::optional<Span> _obtainYearBefore(double number) const;
    bool _areMonths() const;
};
