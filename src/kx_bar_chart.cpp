#include "kx_bar_chart.h"

#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_key_definitions.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"

#include <utility>

namespace {

KXObjectID makeSeriesID(std::uint64_t series)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(KXBarChartObjectIDPath::Series)).index(series);
}

} // namespace

KXBarChart::KXBarChart() : KXBarChart(std::make_unique<KXBarChartDataView>()) {}

KXBarChart::KXBarChart(std::unique_ptr<KXBarChartDataView> view) : m_dataView(_addView(std::move(view)))
{
    getBarChartProperty()->registerUpdatedEvents([this](const std::string& key) {
        _applyKeyEffect(KXBarChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXBarChart::~KXBarChart() { getBarChartProperty()->unregisterAllUpdatedEvents(); }

KXBarChartProperty* KXBarChart::getBarChartProperty() const { return m_dataView.getBarChartProperty(); }

void KXBarChart::updateBarForm(KXAxisChartStacking form)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    getYAxisProperty()->updateIsStacked(form != KXAxisChartStacking::Plain);
    if (self.isAlive())
        getYAxisProperty()->updateIs100PercentStacked(form == KXAxisChartStacking::Percentage);
}

KXAxisChartStacking KXBarChart::obtainBarForm() const { return m_dataView.obtainStacking(); }

bool KXBarChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty();
}

std::vector<KXObjectID> KXBarChart::obtainLegendCellObjectID(std::uint64_t index)
{
    if (_isAssistantLineCell(index))
        return KXXYAxisChart::obtainLegendCellObjectID(index);
    return {makeSeriesID(index)};
}

std::vector<KXObjectID> KXBarChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    const KXObjectIDPath category = kxCreateObjectIDPath(KXBarChartObjectIDPath::Category);
    return {makeSeriesID(mark.series).path(category).index(_obtainPulledCategory(mark.category))};
}

void KXBarChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const auto* other = self.isAlive() ? dynamic_cast<KXBarChart*>(source) : nullptr;
    if (other)
        getBarChartProperty()->customResetProperties(type, other->getBarChartProperty(), groups);
}

const UXPropertyTable& KXBarChart::obtainPropertyTable()
{
    using Self = KXBarChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_barChartProperty", uxObtainNestedObjectType, getBarChartProperty(), "the bars")};
    static const UXPropertyTable table("KXBarChart", &KXXYAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXBarChart::customSerializeTypeID() { return "KXBarChart"; }

std::string KXBarChart::customSerializeVersion() { return "1.0"; }
