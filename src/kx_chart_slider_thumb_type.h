#pragma once

/** One of the handles of a slider. */
enum class KXChartSliderThumbType : int {};
