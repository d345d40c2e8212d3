#include "kx_value_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_value.h"
#include "kx_highlighted_parts.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_assert.h"

namespace {

const KXIndexPath valuePath{0};
const KXIndexPath cellPath{0, 0};

} // namespace

KXValueChartDataUser::KXValueChartDataUser(KXChart* chart) : KXChartDataUser(chart) {}

KXValueChartDataUser::~KXValueChartDataUser() = default;

void KXValueChartDataUser::resetData()
{
    KXChartDataUser::resetData();
    m_data = Data();
}

void KXValueChartDataUser::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    auto* values = dynamic_cast<KXValueChartDataProvider*>(provider);
    const KXChartDataProviderWatcher watcher(this);
    if (!uxAssert(values) || values->obtainDataIsEmpty(this))
        return;

    // The answers are gathered aside: the provider may destroy the chart, and this with it, in any of them.
    Data data;
    data.valueCount = watcher.isCurrent() ? values->obtainValueCount(this) : 0;
    const auto pull = [&](auto& into, auto ask) {
        if (watcher.isCurrent())
            into = ask();
    };
    if (data.valueCount == 1) {
        pull(data.dataType, [&] { return values->obtainValueDataType(this, valuePath); });
        pull(data.aggregateType, [&] { return values->obtainValueAggregateType(this, valuePath); });
        pull(data.isNull, [&] { return kxObtainValueIsMissing(*values, this, cellPath, watcher); });
        const bool isNumber = data.dataType == KXChartDataType::Integer ||
                              data.dataType == KXChartDataType::Float;
        if (isNumber)
            pull(data.number, [&] { return values->obtainValueData(this, cellPath); });
        const bool isUsable = isNumber && !data.isNull;
        if (isUsable)
            pull(data.part, [&] {
                return KXHighlightedParts::pull(*values, this, cellPath, 1, {&data.number, 1}).obtainPart(0);
            });
        if (!isUsable)
            pull(data.text, [&] { return values->obtainValueDataString(this, cellPath); });
        prepared = isUsable && watcher.isCurrent();
    }
    if (watcher.isCurrent())
        m_data = std::move(data);
}

void KXValueChartDataUser::customReloadData() {}
