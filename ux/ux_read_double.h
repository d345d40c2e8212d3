#pragma once

#include "ux/ux_export.h"

#include <charconv>

/**
 * Reads a decimal number from the start of a text as std::from_chars does, in every library: without blanks
 * or a plus sign in front, and the same in every locale.
 * @return where the number ends, and std::errc{} where there is one; value is as it was otherwise
 */
UX_EXPORT std::from_chars_result uxReadDouble(const char* first, const char* last, double& value);
