#pragma once

#include "kx_export.h"

#include <string>
#include <string_view>

/** @return text as searches compare it: without case and accents in Latin, without case in Greek and
 *  Cyrillic; every other character stays as it is. UTF-8. */
[[nodiscard]] KX_EXPORT std::string kxFoldText(std::string_view text);
/** Appends the same to folded. */
KX_EXPORT void kxAppendFoldedText(std::string& folded, std::string_view text);
