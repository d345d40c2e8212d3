#pragma once

enum class KXChartDataDensity : int;

/** How much room a density gives to the data. */
struct KXDensityRoom {
    double category; /**< in logical units; where categories have less the chart scrolls instead */
    double barShare; /**< the part of a category's room that its bars take */
    double bar;      /**< of a bar beside others, in logical units; the chart scrolls instead of less */
};

/** @return that of Medium for a density without a name */
[[nodiscard]] KXDensityRoom kxObtainDensityRoom(KXChartDataDensity density);
