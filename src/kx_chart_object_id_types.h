#pragma once

/** A property of a piece of any chart. */
enum class KXChartObjectIDProperty : int {};

/** A kind of piece of a bar chart. */
enum class KXBarChartObjectIDPath : int {};

/** A property of a piece of a bar chart. */
enum class KXBarChartObjectIDProperty : int {};

/** A kind of piece of a line chart. */
enum class KXLineChartObjectIDPath : int {};

/** A property of a piece of a line chart. */
enum class KXLineChartObjectIDProperty : int {};

/** A kind of piece of a pie chart. */
enum class KXPieChartObjectIDPath : int {};

/** A kind of piece of a heat map. */
enum class KXHeatMapChartObjectIDPath : int {};

/** A property of a piece of a heat map. */
enum class KXHeatMapChartObjectIDProperty : int {};
