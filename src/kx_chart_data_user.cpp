#include "kx_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_property.h"
#include "ux/ux_assert.h"
#include "ux/ux_object_watcher.h"

KXChartDataUser::KXChartDataUser(KXChart* chart) : m_chart(chart) { uxAssert(chart); }

KXChartDataUser::~KXChartDataUser() = default;

void KXChartDataUser::customReloadColors() {}

void KXChartDataUser::setDataProvider(KXChartDataProvider* provider)
{
    m_dataProvider = provider;
    setInteractionProvider(provider);
}

KXChartDataProvider* KXChartDataUser::beginUseDataProvider() { return m_dataProvider; }

void KXChartDataUser::endUseDataProvider() {}

void KXChartDataUser::resetData()
{
    m_prepared = false;
    m_reloaded = false;
}

void KXChartDataUser::prepareData()
{
    // The provider may destroy the chart, and with it this object, or exchange the provider: after each of
    // its answers the watcher and the pointer are read again.
    if (!m_chart)
        return;
    const UXObjectWatcher chart(m_chart);
    m_chart->init();
    m_chart->beforePrepareData();
    if (!chart.isAlive())
        return;
    if (m_dataProvider)
        m_dataProvider->beginPrepareData(this);
    if (!chart.isAlive())
        return;
    resetData();
    if (m_dataProvider) {
        m_prepared = false;
        bool prepared = false;
        customPrepareData(m_dataProvider, prepared);
        if (!chart.isAlive())
            return;
        m_prepared = prepared;
    }
    if (m_dataProvider)
        m_dataProvider->endPrepareData(this);
    if (chart.isAlive())
        requestToReloadData();
}

void KXChartDataUser::requestToReloadData() { m_reloaded = false; }

void KXChartDataUser::reloadData()
{
    if (!m_chart)
        return;
    // A step that asks the provider may end with the chart, and with it this object, gone.
    const UXObjectWatcher chart(m_chart);
    m_reloaded = false;
    m_chart->beforeReloadData();
    if (chart.isAlive())
        customReloadData();
    if (!chart.isAlive())
        return;
    m_reloaded = true;
    m_chart->afterReloadData();
    if (chart.isAlive())
        KXChartDataUser::reloadColors();
    if (chart.isAlive())
        m_chart->setRequireToVerifyLayout(true, true);
}

void KXChartDataUser::reloadColors()
{
    const UXObjectWatcher chart(m_chart);
    customReloadColors();
    if (chart.isAlive())
        m_chart->reloadChartColors();
}

bool KXChartDataUser::preparedData() { return m_prepared; }
bool KXChartDataUser::reloadedData() { return m_reloaded; }
bool KXChartDataUser::preparedAndReloadedData() { return m_prepared && m_reloaded; }
bool KXChartDataUser::obtainSortedIndexPathsByColorOrder(std::vector<KXIndexPath>&) { return false; }
bool KXChartDataUser::obtainFormattedDataWithSortedIndexPath(const KXIndexPath&, std::string&)
{
    return false;
}

bool KXChartDataUser::isInteractionEnabled() const
{
    return m_chart && m_chart->getChartProperty()->getEnableInteraction();
}

std::vector<KXInteractionEffect*> KXChartDataUser::obtainInteractionEffects(
    const std::vector<KXObjectID>& objectIDs)
{
    if (objectIDs.empty() || !isInteractionEnabled())
        return {};
    // The provider may destroy the chart, and with it whoever lent the identifiers.
    const UXObjectWatcher chart(m_chart);
    const std::vector<KXObjectID> asked = objectIDs;
    std::vector<KXInteractionEffect*> effects;
    if (KXInteractionProvider* provider = beginUseInteractionProvider())
        effects = provider->obtainInteractionEffects(asked);
    if (chart.isAlive())
        endUseInteractionProvider();
    return effects;
}
