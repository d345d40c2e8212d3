#pragma once

#include "ux/ux_export.h"

#include <cstddef>
#include <string_view>

/**
 * Reads the character that begins at position, which must be inside text, and moves position behind it.
 * @return its code point; U+FFFD, for one byte, where the bytes are not well-formed UTF-8
 */
[[nodiscard]] UX_EXPORT char32_t uxDecodeUtf8(std::string_view text, std::size_t& position);
