#include "kx_gauge_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_value.h"
#include "kx_gauge_chart_data_provider.h"
#include "ux/ux_assert.h"

// Hosts may refer to it, on Windows too
constexpr double KXGaugeChartDataUser::noValue;

namespace {

enum Measure : std::uint64_t { value, target, minimum, maximum, measureCount };

} // namespace

KXGaugeChartDataUser::KXGaugeChartDataUser(KXChart* chart) : KXChartDataUser(chart) {}

KXGaugeChartDataUser::~KXGaugeChartDataUser() = default;

void KXGaugeChartDataUser::resetData()
{
    KXChartDataUser::resetData();
    m_value = m_target = m_min = m_max = noValue;
}

void KXGaugeChartDataUser::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    auto* measures = dynamic_cast<KXGaugeChartDataProvider*>(provider);
    const KXChartDataProviderWatcher watcher(this);
    if (!uxAssert(measures) || measures->obtainDataIsEmpty(this) || !watcher.isCurrent())
        return;

    // The answers are gathered aside: the provider may destroy the chart, and this with it, in any of them.
    const std::uint64_t count = measures->obtainValueCount(this);
    std::array<double, measureCount> numbers;
    numbers.fill(noValue);
    for (std::uint64_t measure = 0; measure < measureCount && measure < count && watcher.isCurrent();
         ++measure) {
        const KXIndexPath cell{measure, 0};
        numbers[measure] = kxObtainValueNumber(*measures, this, cell, watcher).value_or(noValue);
    }
    if (!watcher.isCurrent())
        return;
    m_value = numbers[value];
    m_target = numbers[target];
    m_min = numbers[minimum];
    m_max = numbers[maximum];
    prepared = m_value != noValue;
}

void KXGaugeChartDataUser::customReloadData() {}
