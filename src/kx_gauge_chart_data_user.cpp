#include "kx_gauge_chart_data_user.h"

#include "kx_chart.h"
#include "kx_gauge_chart_data_provider.h"
#include "ux/ux_object_watcher.h"

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
    const UXObjectWatcher chart(getChart());
    if (!measures || measures->obtainDataIsEmpty(this) || !chart.isAlive())
        return;

    // The answers are gathered aside: the provider may destroy the chart, and this with it, in any of them.
    const std::uint64_t count = measures->obtainValueCount(this);
    std::array<double, measureCount> numbers;
    numbers.fill(noValue);
    for (std::uint64_t measure = 0; measure < measureCount && measure < count && chart.isAlive(); ++measure) {
        const KXIndexPath cell{measure, 0};
        const bool isNull = measures->obtainValueDataIsNull(this, cell);
        if (!isNull && chart.isAlive())
            numbers[measure] = measures->obtainValueData(this, cell);
    }
    if (!chart.isAlive())
        return;
    m_value = numbers[value];
    m_target = numbers[target];
    m_min = numbers[minimum];
    m_max = numbers[maximum];
    prepared = m_value != noValue;
}

void KXGaugeChartDataUser::customReloadData() {}
