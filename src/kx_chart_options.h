#pragma once

/** How much a reset takes from its source: everything, or the look without texts and settings. */
enum class KXChartResetType : int { All = 0, Style = 1 };

/** An operation on the values of a chart. */
enum class KXChartValueOperation : int {};
