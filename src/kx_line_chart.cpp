#include "kx_line_chart.h"

#include "kx_key_definitions.h"
#include "kx_line_chart_property.h"
#include "ux/ux_object_watcher.h"

namespace {

KXObjectID makeSeriesID(std::uint64_t series)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(KXLineChartObjectIDPath::Series)).index(series);
}

} // namespace

KXLineChart::KXLineChart() : KXLineChart(KXAxisChartType::Line) {}

KXLineChart::KXLineChart(KXAxisChartType type)
    : m_dataView(_addView(std::make_unique<KXLineChartDataView>(type)))
{
    getLineChartProperty()->registerUpdatedEvents([this](const std::string& key) {
        _applyKeyEffect(KXLineChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXLineChart::~KXLineChart() { getLineChartProperty()->unregisterAllUpdatedEvents(); }

KXLineChartProperty* KXLineChart::getLineChartProperty() const { return m_dataView.getLineChartProperty(); }

bool KXLineChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty();
}

std::vector<KXObjectID> KXLineChart::obtainLegendCellObjectID(std::uint64_t index)
{
    return {makeSeriesID(index)};
}

std::vector<KXObjectID> KXLineChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    const KXObjectIDPath category = kxCreateObjectIDPath(KXLineChartObjectIDPath::Category);
    return {makeSeriesID(mark.series).path(category).index(mark.category)};
}

double KXLineChart::_obtainMinCategorySpacing() const { return -1; }

void KXLineChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const auto* other = self.isAlive() ? dynamic_cast<KXLineChart*>(source) : nullptr;
    if (other)
        getLineChartProperty()->customResetProperties(type, other->getLineChartProperty(), groups);
}

const UXPropertyTable& KXLineChart::obtainPropertyTable()
{
    using Self = KXLineChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_lineChartProperty", uxObtainNestedObjectType, getLineChartProperty(), "the lines")};
    static const UXPropertyTable table("KXLineChart", &KXXYAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

KX_DEFINE_DOCUMENT(KXLineChart, KXXYAxisChart)
