#pragma once

#include "kx_export.h"

class KXChart;
class KXChartItemsDelegate;
struct KXChartDescription;

/** @return whether the rows of items are those of a table, in which names stand before cells */
[[nodiscard]] KX_EXPORT bool kxHasItemTable(const KXChartItemsDelegate& delegate);

/** Adds what the items of a chart tell, where it does not say itself what it shows: how the values of each
 * series run, or few things one by one. Looks at every item. The host may be asked, which may destroy the
 * chart. */
KX_EXPORT void kxDescribeItems(KXChart& chart, KXChartDescription& description);
