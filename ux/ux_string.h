#pragma once

#include "ux/ux_export.h"

#include <string>
#include <string_view>

[[nodiscard]] UX_EXPORT std::string uxToString(int value);

/** @return text as a string, empty for null */
[[nodiscard]] UX_EXPORT std::string uxToString(const char* text);

/** @return value in plain digits, rounded to decimals digits after the point (0 to 100), never as a negative
 * zero; "nan", "inf" or "-inf" for what has no digits */
[[nodiscard]] UX_EXPORT std::string uxDoubleToString(double value, int decimals);

/** @return text with every from in it replaced, left to right; an empty from changes nothing */
[[nodiscard]] UX_EXPORT std::string uxReplaceString(std::string_view text, std::string_view from,
                                                    std::string_view to);

/** Without caseSensitive the letters A to Z equal a to z; bytes beyond ASCII are compared as they are. */
[[nodiscard]] UX_EXPORT bool uxEqualStrings(std::string_view a, std::string_view b, bool caseSensitive);

[[nodiscard]] UX_EXPORT bool uxEqualStringsCS(std::string_view a, std::string_view b);

/** @return -1, 0 or 1: the order of a and b, byte by byte */
[[nodiscard]] UX_EXPORT int uxCompareStringsCS(std::string_view a, std::string_view b);

/** @return true for null and for "" */
[[nodiscard]] UX_EXPORT bool uxEmptyString(const char* text);
