#pragma once

#include "ux/ux_export.h"
#include "ux/ux_text_lines.h"
#include "ux/ux_text_option.h"

#include <string>
#include <string_view>

/**
 * Cuts a line that is wider than limit at its end, middle or start, as option says, and puts an ellipsis
 * there.
 * @param line UTF-8 without line feeds
 * @return as many of its characters as fit beside the ellipsis, none and the ellipsis alone where it is the
 * widest that fits; line as it is where it fits or option does not cut
 */
[[nodiscard]] UX_EXPORT std::string uxShortenText(std::string_view line, UXTextOption option, double limit,
                                                  const UXTextWidthFunction& widthOf);
