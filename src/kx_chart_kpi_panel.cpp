#include "kx_chart_kpi_panel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double whole = 100; // percent

} // namespace

KXChartKpiPanel::KXChartKpiPanel() : KXChartKpiPanel(0, noNumber, noNumber) {}

KXChartKpiPanel::KXChartKpiPanel(std::uint64_t group, double actual, double comparison, double lower,
                                 double upper)
    : m_group(static_cast<std::int64_t>(group)), m_actual(actual), m_comparison(comparison), m_lower(lower),
      m_upper(upper)
{
}

KXChartKpiPanel::~KXChartKpiPanel() = default;

double KXChartKpiPanel::obtainRatio() const
{
    const double ratio = m_comparison != 0 ? m_actual / m_comparison * whole : noNumber;
    return std::isfinite(ratio) ? ratio : noNumber;
}

double KXChartKpiPanel::obtainProgress() const { return m_comparison > 0 ? obtainRatio() : noNumber; }

std::optional<KXChartKpiPanel::Limits> KXChartKpiPanel::_obtainLimits(std::span<const double> thresholds,
                                                                      bool higherIsBetter) const
{
    if (!std::isnan(m_lower) || !std::isnan(m_upper)) {
        const double lower = std::isnan(m_lower) ? m_upper : m_lower;
        const double upper = std::isnan(m_upper) ? m_lower : m_upper;
        return higherIsBetter ? Limits{lower, upper} : Limits{upper, lower};
    }
    if (thresholds.empty() || m_comparison == 0 || std::isnan(m_comparison))
        return std::nullopt;
    const auto obtainLimit = [&](double threshold) {
        double share = (threshold - whole) / whole;
        if (!higherIsBetter && thresholds.front() < thresholds.back())
            share = -share;
        return m_comparison + share * std::abs(m_comparison);
    };
    return Limits{obtainLimit(thresholds.front()), obtainLimit(thresholds.back())};
}

KXKpiStatus KXChartKpiPanel::obtainStatus(std::span<const double> thresholds, bool higherIsBetter) const
{
    const std::optional<Limits> limits = _obtainLimits(
        thresholds.first(std::min<std::size_t>(thresholds.size(), 2)), higherIsBetter);
    if (!limits || std::isnan(m_actual))
        return KXKpiStatus::None;
    const auto reaches = [&](double limit) { return higherIsBetter ? m_actual >= limit : m_actual <= limit; };
    if (reaches(limits->good))
        return KXKpiStatus::Good;
    return reaches(limits->fair) ? KXKpiStatus::Fair : KXKpiStatus::Poor;
}

void KXChartKpiPanel::customSerialize()
{
    const auto write = [this](const char* key, double value) {
        if (!std::isnan(value))
            serializeDouble(key, value);
    };
    serializeInt64("m_group", m_group);
    write("m_actual", m_actual);
    write("m_comparison", m_comparison);
    write("m_lower", m_lower);
    write("m_upper", m_upper);
}

std::string KXChartKpiPanel::customSerializeTypeID() { return "KXChartKpiPanel"; }

bool KXChartKpiPanel::customDeserialize()
{
    const auto read = [this](const char* key, double& value) {
        if (!deserializeDouble(key, value))
            value = noNumber;
    };
    read("m_actual", m_actual);
    read("m_comparison", m_comparison);
    read("m_lower", m_lower);
    read("m_upper", m_upper);
    return deserializeInt64("m_group", m_group);
}
