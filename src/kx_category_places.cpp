#include "kx_category_places.h"

#include <algorithm>
#include <cmath>
#include <limits>

constexpr std::uint64_t KXCategoryPlaces::none;

void KXCategoryPlaces::clear() { *this = KXCategoryPlaces(); }

void KXCategoryPlaces::take(std::span<const double> numbers, bool isLogarithmic)
{
    clear();
    const auto hasPlace = [&](double number) {
        return std::isfinite(number) && (!isLogarithmic || number > 0);
    };
    if (std::ranges::all_of(numbers, hasPlace) && std::ranges::is_sorted(numbers)) {
        m_numbers.assign(numbers.begin(), numbers.end());
    } else {
        for (std::uint64_t category = 0; category < numbers.size(); ++category)
            if (hasPlace(numbers[category]))
                m_categories.push_back(category);
        std::ranges::stable_sort(m_categories, {}, [&](std::uint64_t category) { return numbers[category]; });
        m_places.assign(numbers.size(), none);
        for (std::uint64_t place = 0; place < m_categories.size(); ++place) {
            m_numbers.push_back(numbers[m_categories[place]]);
            m_places[m_categories[place]] = place;
        }
    }
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < m_numbers.size(); ++i) {
        const double distance = isLogarithmic ? std::log10(m_numbers[i]) - std::log10(m_numbers[i - 1])
                                              : m_numbers[i] - m_numbers[i - 1];
        if (distance > 0)
            least = std::min(least, distance);
    }
    m_leastDistance = std::isfinite(least) ? least : 1;
}

std::uint64_t KXCategoryPlaces::obtainCategory(std::uint64_t place) const
{
    return place < m_categories.size() ? m_categories[place] : place;
}

std::uint64_t KXCategoryPlaces::obtainPlace(std::uint64_t category) const
{
    if (m_categories.empty() && m_places.empty())
        return category;
    return category < m_places.size() ? m_places[category] : none;
}

std::pair<std::uint64_t, std::uint64_t> KXCategoryPlaces::findInside(double first, double last) const
{
    const auto from = std::ranges::lower_bound(m_numbers, first);
    const auto to = std::upper_bound(from, m_numbers.end(), last);
    return {static_cast<std::uint64_t>(from - m_numbers.begin()),
            static_cast<std::uint64_t>(to - m_numbers.begin())};
}

std::optional<std::uint64_t> KXCategoryPlaces::findNearest(double number) const
{
    if (m_numbers.empty())
        return std::nullopt;
    auto nearest = std::ranges::lower_bound(m_numbers, number);
    if (nearest == m_numbers.end() ||
        (nearest != m_numbers.begin() && number - *(nearest - 1) <= *nearest - number))
        --nearest;
    return static_cast<std::uint64_t>(nearest - m_numbers.begin());
}
