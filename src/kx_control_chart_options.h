#pragma once

#include "ux/ux_named_enum.h"

/** The kind of control a filter shows. */
UX_NAMED_ENUM(KXControlChartStyle, Default, List, Range, Combo)

/** What a slider lets the user choose: one value, a limit, or both limits. */
UX_NAMED_ENUM(KXChartSliderType, Val, Min, Max, Range)

/** One of the handles of a slider: that of a single value, or of a lower or an upper limit. */
enum class KXChartSliderThumbType : int { Single, Lower, Upper };

/** The state of a switch or a check box. */
enum class KXToggleSwitchState : int { Off, On, Mixed };

/** A range of dates that moves with the host's clock; the last steps are days, or what the dates are grouped
 * by. */
enum class KXControlChartPeriod : int {
    None,
    Today,
    LastSteps,
    ThisMonth,
    LastMonth,
    ThisQuarter,
    LastQuarter,
    ThisYear,
    LastYear,
    MonthToDate,
    QuarterToDate,
    YearToDate
};

/** Where the caption of an item of a value list stands, seen from its value. Documents hold its number. */
enum class KXValueListBaseItemStyle : int { Left, Above, Below, Right };
