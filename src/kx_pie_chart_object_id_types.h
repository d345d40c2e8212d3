#pragma once

/** A kind of piece of a pie chart. */
enum class KXPieChartObjectIDPath : int {};
