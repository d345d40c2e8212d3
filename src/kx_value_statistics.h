#pragma once

#include "kx_export.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

/**
 * What is said of a list of values as a whole. NaN among them stands for a null and counts nowhere; every
 * other value is finite, and a result beyond the largest double is that double.
 */

/** @return the sum, compensated (Neumaier), so that it does not depend on cancelled magnitudes; 0 for none */
[[nodiscard]] KX_EXPORT double kxObtainSum(std::span<const double> values);
/** @return the arithmetic mean, NaN without a value */
[[nodiscard]] KX_EXPORT double kxObtainMean(std::span<const double> values);
/** @return the standard deviation of a sample (n - 1), NaN with fewer than two values */
[[nodiscard]] KX_EXPORT double kxObtainSampleDeviation(std::span<const double> values);
/** @param share 0 to 1, cut to that; 0.5 is the median
 *  @return the value at rank 1 + share * (n - 1) of the sorted ones, linear between two ranks; NaN without a
 * value */
[[nodiscard]] KX_EXPORT double kxObtainPercentile(std::span<const double> values, double share);
/** @return as many as there are values: the mean of each and those before it, count in all, nulls among them
 * left out; NaN before there are count places, and where all are null. A count below 1 is 1. */
[[nodiscard]] KX_EXPORT std::vector<double> kxObtainMovingAverage(std::span<const double> values,
                                                                  std::size_t count);

/** The straight line of least squares through points. */
struct KXTrendLine {
    double meanX = 0, meanY = 0;
    double slope = 0;
    double spreadX = 0;       /**< the sum of squared distances from meanX */
    double standardError = 0; /**< of one residual, NaN with fewer than three points */
    double studentFactor = 0; /**< of the band's confidence, NaN without a band */
    std::size_t count = 0;

    /** @return the height of the line at x */
    [[nodiscard]] double obtainValue(double x) const { return meanY + slope * (x - meanX); }
    /** @return how far the band of the mean reaches above and below the line at x, NaN without a band */
    [[nodiscard]] KX_EXPORT double obtainHalfBand(double x) const;
};

/** @param x, y as many of each; a point without either counts nowhere
 *  @param confidence of the band, between 0 and 1; outside of that there is none
 *  @return nothing with fewer than two points, or with all of them at one x */
[[nodiscard]] KX_EXPORT std::optional<KXTrendLine> kxFitTrendLine(std::span<const double> x,
                                                                  std::span<const double> y,
                                                                  double confidence);

/** @param probability above 0 and below 1
 *  @param freedom degrees of freedom, above 0
 *  @return where the distribution function of Student's t reaches probability; NaN for other arguments. Found
 * by halving on the regularised incomplete beta function, whose continued fraction is that of Lentz's method
 * (Press et al., Numerical Recipes, 6.4). */
[[nodiscard]] KX_EXPORT double kxObtainStudentQuantile(double probability, double freedom);
