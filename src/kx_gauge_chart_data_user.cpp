#include "kx_gauge_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_value.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_gauge_measures.h"
#include "ux/ux_assert.h"

// Hosts may refer to it, on Windows too
constexpr double KXGaugeChartDataUser::noValue;

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
    std::array<double, kxGaugeMeasureCount> numbers;
    numbers.fill(noValue);
    for (std::uint64_t measure = 0; measure < kxGaugeMeasureCount && measure < count && watcher.isCurrent();
         ++measure) {
        const KXIndexPath cell{measure, 0};
        numbers[measure] = kxObtainValueNumber(*measures, this, cell, watcher).value_or(noValue);
    }
    if (!watcher.isCurrent())
        return;
    m_value = numbers[kxGaugeValue];
    m_target = numbers[kxGaugeTarget];
    m_min = numbers[kxGaugeMinimum];
    m_max = numbers[kxGaugeMaximum];
    prepared = m_value != noValue;
}

void KXGaugeChartDataUser::customReloadData() {}
