#include "kx_value_label_choice.h"

#include "kx_category_places.h"

#include <cmath>
#include <limits>

namespace {

/** @return NaN past the end */
double obtainValue(std::span<const double> values, std::uint64_t category)
{
    return category < values.size() ? values[category] : std::numeric_limits<double>::quiet_NaN();
}

/** @return how many places values lie at */
std::uint64_t obtainPlaceCount(std::span<const double> values, const KXCategoryPlaces& places)
{
    return places.isEmpty() ? values.size() : places.getCount();
}

/** @return whether the values turn at category: it is above both neighbours, or below; of a plateau the first
 * value counts */
bool isTurningPoint(std::span<const double> values, const KXCategoryPlaces& places, std::uint64_t category)
{
    const std::uint64_t place = places.isEmpty() ? category : places.obtainPlace(category);
    if (place == 0 || place >= obtainPlaceCount(values, places) - 1)
        return false;
    const double before = obtainValue(values, places.obtainCategory(place - 1)),
                 value = obtainValue(values, category),
                 after = obtainValue(values, places.obtainCategory(place + 1));
    return (value > before && value >= after) || (value < before && value <= after);
}

} // namespace

KXSeriesFacts kxObtainSeriesFacts(std::span<const double> values, const KXCategoryPlaces& places)
{
    KXSeriesFacts facts;
    bool isFirst = true;
    const std::uint64_t count = obtainPlaceCount(values, places);
    for (std::uint64_t place = 0; place < count; ++place) {
        const std::uint64_t category = places.obtainCategory(place);
        const double value = obtainValue(values, category);
        if (std::isnan(value))
            continue;
        if (isFirst)
            facts.first = facts.least = facts.greatest = category;
        isFirst = false;
        facts.last = category;
        if (value < values[facts.least])
            facts.least = category;
        if (value > values[facts.greatest])
            facts.greatest = category;
    }
    return facts;
}

bool kxIsValueLabelled(KXAxisChartValueOption option, const KXSeriesFacts& facts,
                       std::span<const double> values, const KXCategoryPlaces& places, std::uint64_t category)
{
    if (category >= values.size() || std::isnan(values[category]))
        return false;
    switch (option) {
    case KXAxisChartValueOption::All:
        break;
    case KXAxisChartValueOption::LineEnds:
        return category == facts.first || category == facts.last;
    case KXAxisChartValueOption::MinOnly:
        return category == facts.least;
    case KXAxisChartValueOption::MaxOnly:
        return category == facts.greatest;
    case KXAxisChartValueOption::MinMax:
        return category == facts.least || category == facts.greatest;
    case KXAxisChartValueOption::PositiveOnly:
        return values[category] > 0;
    case KXAxisChartValueOption::NegativeOnly:
        return values[category] < 0;
    case KXAxisChartValueOption::TurningPoint:
        return isTurningPoint(values, places, category);
    }
    return true;
}
