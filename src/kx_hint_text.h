#pragma once

#include "kx_chart_data_provider_hint_data.h"
#include "kx_export.h"
#include "ux/ux_hint_info.h"

/** Writes what a provider says about an item into a hint: the title above, the subtitle or else the value as
 *  its text, and a value beside a subtitle as a row.
 *  @param look how the hint looks; what it says is replaced
 *  @return a hint that is not enabled where the provider says nothing */
[[nodiscard]] KX_EXPORT UXHintInfo kxMakeHintInfo(const KXChartDataProviderHintData& data,
                                                  const UXHintInfo& look);
