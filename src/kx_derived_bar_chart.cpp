#include "kx_derived_bar_chart.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_property_table.h"

#include <utility>

KXDerivedBarChart::KXDerivedBarChart(std::unique_ptr<KXBarChartDataView> view) : KXBarChart(std::move(view))
{
}

KXDerivedBarChart::~KXDerivedBarChart() = default;

void KXDerivedBarChart::customReloadData()
{
    _drawInstead(_deriveData());
    KXBarChart::customReloadData();
}

std::string KXDerivedBarChart::customSerializeVersion() { return KXXYAxisChart::customSerializeVersion(); }

void KXDerivedBarChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    KXBarChart::_customResetProperties(type, source, groups);
    if (!self.isAlive() || !sourceWatcher.isAlive())
        return;
    const UXPropertyTable* own = UXPropertyTable::obtainTable(*this);
    if (own && own == UXPropertyTable::obtainTable(*source))
        _resetKeys(*own, type, *source, groups);
}
