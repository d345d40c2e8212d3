#pragma once

/** How much a reset takes from its source: everything, or the look without texts and settings. */
enum class KXChartResetType : int { All = 0, Style = 1 };
