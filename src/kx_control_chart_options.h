#pragma once

#include "ux/ux_named_enum.h"

/** The kind of control a filter shows. */
UX_NAMED_ENUM(KXControlChartStyle, Default, List, Range, Combo)

/** What a slider lets the user choose: one value, a limit, or both limits. */
UX_NAMED_ENUM(KXChartSliderType, Val, Min, Max, Range)

/** One of the handles of a slider. */
enum class KXChartSliderThumbType : int {};

/** The state of a toggle switch. */
enum class KXToggleSwitchState : int {};

/** The look of one item of a value list. */
enum class KXValueListBaseItemStyle : int {};
