#pragma once

#include "kx_export.h"

class KXChart;
struct KXChartDescription;

/** Adds what the items of a chart tell, where it does not say itself what it shows: how the values of each
 * series run, or few things one by one. Looks at every item. The host may be asked, which may destroy the
 * chart. */
KX_EXPORT void kxDescribeItems(KXChart& chart, KXChartDescription& description);
