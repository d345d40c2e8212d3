#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/** How the two sides of a row stand to each other. */
enum class KXTornadoForm : int {
    Mirrored,   /**< each side from zero on outwards, by magnitude */
    FromCenter, /**< every value from one place of the axis on */
    Difference  /**< one bar from zero on: by how much the right side is greater than the left one */
};

/** The values of the two sides, lent for the call. */
struct KXTornadoSource {
    /** One list a series, those of the left side first; NaN for a null, else finite. All are equally long. */
    std::vector<std::span<const double>> series;
    std::size_t leftCount = 0; /**< of the series that are those of the left side */
};

/** The rows of a tornado in their order. */
struct KXTornadoRows {
    std::vector<std::uint64_t> categories; /**< of the source, one a row */
    /** What is drawn of each series, one number a row: to the left below zero, or the value itself where it
     * stands at its place on the axis; NaN for none. */
    std::vector<std::vector<double>> drawn;
    std::size_t leftCount = 0;
};

/**
 * @param sorts the largest row first, by the sum of all magnitudes, by the difference, or by how far the
 * values lie apart; rows of one size keep their order, those without a value come last
 */
[[nodiscard]] KX_EXPORT KXTornadoRows kxMakeTornadoRows(const KXTornadoSource& source, KXTornadoForm form,
                                                        bool sorts);
