#pragma once

/** A kind of piece of a line chart. */
enum class KXLineChartObjectIDPath : int {};

/** A property of a piece of a line chart. */
enum class KXLineChartObjectIDProperty : int {};
