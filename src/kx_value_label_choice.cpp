#include "kx_value_label_choice.h"

#include <algorithm>
#include <cmath>

namespace {

/** @return whether the values turn at category: it is above both neighbours, or below; of a plateau the first
 * value counts */
bool isTurningPoint(std::span<const double> values, std::uint64_t category)
{
    if (category == 0 || category + 1 >= values.size())
        return false;
    const double before = values[category - 1], value = values[category], after = values[category + 1];
    return (value > before && value >= after) || (value < before && value <= after);
}

} // namespace

KXSeriesFacts kxObtainSeriesFacts(std::span<const double> values)
{
    KXSeriesFacts facts;
    bool isFirst = true;
    for (std::uint64_t i = 0; i < values.size(); ++i) {
        if (std::isnan(values[i]))
            continue;
        if (isFirst)
            facts.first = facts.least = facts.greatest = i;
        isFirst = false;
        facts.last = i;
        if (values[i] < values[facts.least])
            facts.least = i;
        if (values[i] > values[facts.greatest])
            facts.greatest = i;
    }
    return facts;
}

bool kxIsValueLabelled(KXAxisChartValueOption option, const KXSeriesFacts& facts,
                       std::span<const double> values, std::uint64_t category)
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
        return isTurningPoint(values, category);
    }
    return true;
}
