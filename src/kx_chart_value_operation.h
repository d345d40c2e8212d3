#pragma once

/** An operation on the values of a chart. */
enum class KXChartValueOperation : int {};
