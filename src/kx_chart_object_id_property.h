#pragma once

/** A property of a piece of any chart. */
enum class KXChartObjectIDProperty : int {};
