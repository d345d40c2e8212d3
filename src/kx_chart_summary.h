#pragma once

#include "kx_export.h"

#include <string>

struct KXChartDescription;

/** @return a description in sentences of the host's language. Asking for them may destroy any chart. */
[[nodiscard]] KX_EXPORT std::string kxWriteSummary(const KXChartDescription& description);
