#pragma once

/** The grouping level that the host applied to a column, as the host's own number; any number is valid by
 *  cast. */
enum class KXChartAggregateType : int {};
