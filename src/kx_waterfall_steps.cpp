#include "kx_waterfall_steps.h"

#include "kx_others.h"
#include "kx_running_sum.h"
#include "kx_value_statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

using Order = KXWaterfallChartGroupValueSortOrder;

constexpr double largest = (std::numeric_limits<double>::max)();
constexpr double none = std::numeric_limits<double>::quiet_NaN();

/** A total that follows its steps. Sums are kept in a unit of a power of two, in which they are finite. */
class RunningTotal {
public:
    explicit RunningTotal(double unit) : m_unit(unit) {}

    void set(double value)
    {
        m_sum = {};
        m_sum.add(value / m_unit);
    }
    void add(double value) { m_sum.add(value / m_unit); }
    double obtainValue() const { return std::clamp(m_sum.obtainSum() * m_unit, -largest, largest); }

private:
    KXRunningSum m_sum;
    double m_unit;
};

/** @return what no sum of so many values leaves, without a change of any digit */
double obtainUnit(const KXWaterfallSource& source)
{
    constexpr double harmless = 1e290;
    for (const std::span<const double>& part : source.parts)
        for (const double value : part)
            if (std::abs(value) > harmless)
                return std::ldexp(1.0, 60);
    return 1;
}

double obtainValue(std::span<const double> values, std::uint64_t member)
{
    return member < values.size() ? values[static_cast<std::size_t>(member)] : none;
}

/** Makes the bars of a list of changes. */
class Steps {
public:
    Steps(const KXWaterfallSource& source, const KXWaterfallRule& rule)
        : m_source(source), m_rule(rule), m_total(obtainUnit(source))
    {
    }

    KXWaterfallSteps makeChanges();
    KXWaterfallSteps makeBreakdown();

private:
    using Kind = KXWaterfallStep::Kind;

    void _addChange(Kind kind, double value, std::uint64_t member, std::uint64_t part = 0);
    void _addTotal(Kind kind, double value, std::uint64_t member);
    double _obtainSum(std::uint64_t member);
    void _addBreakdown(std::uint64_t member);
    void _sort(std::vector<std::uint64_t>& parts, const std::vector<double>& changes) const;

    const KXWaterfallSource& m_source;
    const KXWaterfallRule& m_rule;
    RunningTotal m_total;
    double m_start = 0;
    std::vector<double> m_values; // of one member of dimension 0
    KXWaterfallSteps m_made;
};

void Steps::_addChange(Kind kind, double value, std::uint64_t member, std::uint64_t part)
{
    const double from = m_total.obtainValue();
    if (!std::isnan(value))
        m_total.add(value);
    m_made.steps.push_back({kind, value, from, m_total.obtainValue(), m_start, member, part});
}

void Steps::_addTotal(Kind kind, double value, std::uint64_t member)
{
    if (std::isnan(value))
        value = m_total.obtainValue();
    else
        m_total.set(value);
    m_start = value;
    m_made.steps.push_back({kind, value, 0, value, value, member, 0});
}

KXWaterfallSteps Steps::makeChanges()
{
    const std::span<const double> values = m_source.parts.empty() ? std::span<const double>()
                                                                  : m_source.parts.front();
    m_made.steps.reserve(static_cast<std::size_t>(m_source.count) + 1);
    for (std::uint64_t member = 0; member < m_source.count; ++member) {
        const bool isStart = member == 0 && m_rule.firstIsStart;
        if (isStart || (member < m_source.areTotals.size() && m_source.areTotals[member]))
            _addTotal(Kind::Total, obtainValue(values, member), member);
        else
            _addChange(Kind::Change, obtainValue(values, member), member);
    }
    if (m_rule.hasEnd && !m_made.steps.empty() && m_made.steps.back().kind != Kind::Total) {
        const double start = m_start;
        m_made.steps.push_back({Kind::End, m_total.obtainValue(), 0, m_total.obtainValue(), start, 0, 0});
    }
    return std::move(m_made);
}

double Steps::_obtainSum(std::uint64_t member)
{
    m_values.clear();
    for (const std::span<const double>& part : m_source.parts)
        m_values.push_back(obtainValue(part, member));
    return kxObtainSum(m_values);
}

KXWaterfallSteps Steps::makeBreakdown()
{
    m_made.isDivided = true;
    m_made.gathered.resize(static_cast<std::size_t>(m_source.count));
    for (std::uint64_t member = 0; member < m_source.count; ++member) {
        if (member > 0)
            _addBreakdown(member);
        _addTotal(Kind::Total, _obtainSum(member), member);
    }
    return std::move(m_made);
}

void Steps::_addBreakdown(std::uint64_t member)
{
    // 1. What each part changes by.
    std::vector<double> changes;
    changes.reserve(m_source.parts.size());
    for (const std::span<const double>& part : m_source.parts) {
        const double before = obtainValue(part, member - 1), after = obtainValue(part, member);
        const bool isNull = std::isnan(before) && std::isnan(after);
        const double change = (std::isnan(after) ? 0 : after) - (std::isnan(before) ? 0 : before);
        changes.push_back(isNull ? none : std::clamp(change, -largest, largest));
    }

    // 2. The smallest are gathered, the others stand in their order.
    KXOthersRule rule;
    rule.greatestCount = m_rule.greatestStepCount;
    rule.hostOthers = m_source.hostOthers;
    KXOthers others = kxGatherOthers(changes, rule);
    _sort(others.kept, changes);
    for (const std::uint64_t part : others.kept)
        _addChange(Kind::Change, changes[static_cast<std::size_t>(part)], member, part);
    if (others.gathered.empty())
        return;
    std::vector<double> left;
    left.reserve(others.gathered.size());
    for (const std::uint64_t part : others.gathered)
        left.push_back(changes[static_cast<std::size_t>(part)]);
    _addChange(Kind::Others, kxObtainSum(left), member);
    m_made.gathered[static_cast<std::size_t>(member)] = std::move(others.gathered);
}

/** What has no change comes last. */
void Steps::_sort(std::vector<std::uint64_t>& parts, const std::vector<double>& changes) const
{
    if (m_rule.order == Order::None)
        return;
    const bool largestFirst = m_rule.order == Order::IncreaseToDecrease;
    std::ranges::stable_sort(parts, {}, [&](std::uint64_t part) {
        const double change = changes[static_cast<std::size_t>(part)];
        return std::pair(std::isnan(change), std::isnan(change) ? 0 : largestFirst ? -change : change);
    });
}

} // namespace

KXWaterfallSteps kxMakeWaterfallSteps(const KXWaterfallSource& source, const KXWaterfallRule& rule)
{
    Steps steps(source, rule);
    return source.isDivided ? steps.makeBreakdown() : steps.makeChanges();
}
