#pragma once

#include "kx_export.h"

#include <string>
#include <string_view>

/** @param typeID what a document calls the kind
 *  @return what people call it, in the host's language: "Bar chart"; just "Chart" for a kind of the host's
 *  own. Asking for the word may destroy any chart. */
[[nodiscard]] KX_EXPORT std::string kxObtainChartKindName(std::string_view typeID);
