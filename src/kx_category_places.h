#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/**
 * The order of categories along a continuous axis. Each category that has a number has a place, by growing
 * number, equal ones as the provider has them; one without a number has none. Empty: the categories are
 * slots.
 */
class KX_EXPORT KXCategoryPlaces {
public:
    /** The place of a category that has none. */
    static constexpr std::uint64_t none = (std::numeric_limits<std::uint64_t>::max)();

    void clear();
    /** @param numbers one a category, NaN for none
     *  @param isLogarithmic numbers that are not above zero have no place, and distances are those of
     * exponents */
    void take(std::span<const double> numbers, bool isLogarithmic);

    bool isEmpty() const { return m_numbers.empty(); }
    std::size_t getCount() const { return m_numbers.size(); }
    /** @return the numbers of the places, which never fall */
    const std::vector<double>& getNumbers() const { return m_numbers; }
    /** @return the categories of the places; empty where place i is that of category i */
    std::span<const std::uint64_t> getCategories() const { return m_categories; }
    /** @return the places of the categories; empty likewise */
    std::span<const std::uint64_t> getPlaces() const { return m_places; }
    std::uint64_t obtainCategory(std::uint64_t place) const;
    /** @return none for a category without a number */
    std::uint64_t obtainPlace(std::uint64_t category) const;
    /** @return the least distance of two places that differ, in what the axis counts; 1 where all are one */
    double getLeastDistance() const { return m_leastDistance; }

    /** @return the first place from first on, and the one after the last up to last */
    std::pair<std::uint64_t, std::uint64_t> findInside(double first, double last) const;
    /** @return the place whose number is next to number, the lower one of two as near */
    std::optional<std::uint64_t> findNearest(double number) const;

private:
    std::vector<double> m_numbers;
    std::vector<std::uint64_t> m_categories, m_places;
    double m_leastDistance = 1;
};
