#pragma once

#include "ux/ux_export.h"

#include <string_view>

// No picture shows more than these, and they keep hostile texts from taking time and room without end.

/** @return the part of a text that painters draw: 16 KiB at most, less in letters above 64 units, whole
 * characters */
[[nodiscard]] UX_EXPORT std::string_view uxBoundDrawnText(std::string_view text, int fontSize);

/** @return the part of a font family's name that counts, 256 bytes at most */
[[nodiscard]] UX_EXPORT std::string_view uxBoundFamilyName(std::string_view name);
