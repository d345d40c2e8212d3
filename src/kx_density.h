#pragma once

#include "kx_export.h"

#include <optional>
#include <utility>
#include <vector>

/** How many values lie from one number up to another one. */
struct KXDensityBin {
    double from = 0, to = 0; /**< finite, the second above the first */
    double count = 0;        /**< or their weight; above zero */

    double obtainMiddle() const { return from + (to - from) / 2; }
    double obtainHeight() const { return count / (to - from); }

    friend bool operator==(const KXDensityBin&, const KXDensityBin&) = default;
};

/** A bin as a host tells of it. */
struct KXDensityBinData {
    double edge = 0;  /**< its lower end; one that is not finite has no place */
    double width = 0; /**< what is not above zero takes its neighbour's */
    double count = 0; /**< NaN for a null */
};

/** How the values of one group are spread, as far as the numbers of values in bins tell. */
class KX_EXPORT KXDensity {
public:
    /** Between what a curve does not reach beyond; none for no such end. */
    struct Bounds {
        std::optional<double> lower, upper;
    };

    /** Of no values. */
    KXDensity() = default;
    /** @param bins in any order; one ends where the next one begins, and those without values are left out */
    explicit KXDensity(std::vector<KXDensityBinData> bins);

    /** @return ascending, none over another */
    const std::vector<KXDensityBin>& getBins() const { return m_bins; }
    bool isEmpty() const { return m_bins.empty(); }
    /** @return the sum of the counts */
    double getTotal() const { return m_total; }
    /** @return the mean, as if all values of a bin lay in its middle; NaN for none */
    double obtainMean() const;
    /** @return the value that a share of all lies below, as if the values of a bin were spread evenly; NaN
     * for none */
    double obtainQuantile(double share) const;
    /** @return 0.9 min(s, IQR / 1.34) N^(-1/5), s and IQR those of the bins' middles (Silverman, "Density
     * Estimation", 1986, 3.31); half a bin where all values lie in one. Of weights, N is the square of their
     * sum over the sum of their squares. */
    double obtainKernelWidth() const;
    /** @param kernelWidth 0 for the heights of the bins themselves
     *  @return where curves of that kernel begin and end: four of its widths beyond the bins, or the bound */
    std::pair<double, double> obtainRange(double kernelWidth, const Bounds& bounds) const;
    /** @param kernelWidth 0 for the heights of the bins themselves; else the standard deviation of the
     * kernel, whose integral over a bin is taken, and what falls beyond a bound is thrown back
     *  @return values for each unit, at place */
    double obtainHeight(double place, double kernelWidth, const Bounds& bounds) const;

private:
    double _obtainMiddleQuantile(double share) const;
    double _obtainSmoothHeight(double place, double kernelWidth) const;

    std::vector<KXDensityBin> m_bins;
    double m_total = 0;
};
