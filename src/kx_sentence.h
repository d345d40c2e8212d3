#pragma once

#include "kx_export.h"

#include <string>
#include <vector>

/** @param pattern a sentence with %1, %2 ... for what it tells of
 *  @return the host's translation of the pattern, filled in. Asking for it may destroy any chart. */
[[nodiscard]] KX_EXPORT std::string kxWriteSentence(const std::string& pattern,
                                                    const std::vector<std::string>& values);
