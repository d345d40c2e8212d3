#pragma once

#include "ux/ux_export.h"

/** The cosine and sine of an angle in degrees: exact at quarter turns, 0 for an angle that is not finite. */
[[nodiscard]] UX_EXPORT double uxCosDegrees(double degrees);
[[nodiscard]] UX_EXPORT double uxSinDegrees(double degrees);
