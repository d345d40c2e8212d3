#include "kx_bar_chart.h"

#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_key_definitions.h"
#include "ux/ux_object_watcher.h"

KXBarChart::KXBarChart() : m_dataView(_addView(std::make_unique<KXBarChartDataView>()))
{
    getBarChartProperty()->registerUpdatedEvents(
        [this](const std::string& key) { _barPropertyUpdated(key); });
}

KXBarChart::~KXBarChart() { getBarChartProperty()->unregisterAllUpdatedEvents(); }

KXBarChartProperty* KXBarChart::getBarChartProperty() const { return m_dataView.getBarChartProperty(); }

void KXBarChart::_barPropertyUpdated(const std::string& key)
{
    if (key == "m_colorByItem" || key == "m_itemColors")
        _updateLooks();
    else
        _layoutAnew();
}

void KXBarChart::updateBarForm(KXAxisChartStacking form)
{
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
    static const UXPropertyTable table(
        &KXXYAxisChart::obtainPropertyTable(),
        {UXProperty::makeObject<KXBarChart>("m_barChartProperty", [](KXBarChart& chart) {
            return static_cast<UXJsonObject*>(chart.getBarChartProperty());
        })});
    return table;
}

void KXBarChart::customSerialize()
{
    KXXYAxisChart::customSerialize();
    serializeObject("m_barChartProperty", getBarChartProperty());
}

std::string KXBarChart::customSerializeTypeID() { return "KXBarChart"; }

bool KXBarChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool complete = KXXYAxisChart::customDeserialize();
    return self.isAlive() && deserializeExistingObject("m_barChartProperty", getBarChartProperty()) &&
           complete;
}
