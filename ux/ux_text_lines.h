#pragma once

#include "ux/ux_export.h"

#include <functional>
#include <string_view>
#include <vector>

/** @return the width of a piece of a line in logical units; never less for a longer piece */
using UXTextWidthFunction = std::function<double(std::string_view)>;

/** @return whether character takes a whole em square and lines may break on both sides of it */
[[nodiscard]] UX_EXPORT bool uxIsWideCharacter(char32_t character);

/**
 * Breaks text at line feeds and, where widthLimit is 0 or more, at the last blank or wide character before
 * the limit; a longer word is broken between two characters. Blanks at a break are left out, but a line of
 * text that is short enough stays as it is.
 * @param text UTF-8; the lines are parts of it
 * @return the lines from top to bottom, one empty line for an empty text
 */
[[nodiscard]] UX_EXPORT std::vector<std::string_view> uxBreakTextLines(std::string_view text,
                                                                       double widthLimit,
                                                                       const UXTextWidthFunction& widthOf);
