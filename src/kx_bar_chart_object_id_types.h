#pragma once

/** A kind of piece of a bar chart. */
enum class KXBarChartObjectIDPath : int {};

/** A property of a piece of a bar chart. */
enum class KXBarChartObjectIDProperty : int {};
