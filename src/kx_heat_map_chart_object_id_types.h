#pragma once

/** A kind of piece of a heat map. */
enum class KXHeatMapChartObjectIDPath : int {};

/** A property of a piece of a heat map. */
enum class KXHeatMapChartObjectIDProperty : int {};
