#pragma once

#include "ux/ux_export.h"

#include <string>

struct UXHintInfo;

/** @return what a hint says in one line, for those who do not see it: title, text, rows; empty for one that
 *  is not shown */
[[nodiscard]] UX_EXPORT std::string uxWriteHint(const UXHintInfo& info);
