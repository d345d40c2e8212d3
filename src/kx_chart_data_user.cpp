#include "kx_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_property.h"
#include "kx_interaction_provider_use.h"
#include "ux/ux_assert.h"
#include "ux/ux_exceptions.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"

#include <utility>

KXChartDataUser::KXChartDataUser(KXChart* chart) : m_chart(chart) { uxAssert(chart); }

KXChartDataUser::~KXChartDataUser() = default;

void KXChartDataUser::customReloadColors() {}

void KXChartDataUser::setDataProvider(KXChartDataProvider* provider)
{
    m_dataProvider = provider;
    ++m_providerGeneration;
    setInteractionProvider(provider);
}

KXChartDataProvider* KXChartDataUser::beginUseDataProvider() { return m_dataProvider; }

void KXChartDataUser::endUseDataProvider() {}

void KXChartDataUser::resetData()
{
    m_prepared = false;
    m_reloaded = false;
}

/** From the provider's beginPrepareData to its endPrepareData. */
class KXChartDataUser::Preparation {
public:
    explicit Preparation(KXChartDataUser& user)
        : m_user(user), m_watcher(&user), m_provider(user.m_dataProvider)
    {
        if (m_provider)
            m_provider->beginPrepareData(&user);
    }
    ~Preparation()
    {
        UX_TRY { end(); }
        UX_CATCH_ALL
        {
            // An answer has thrown already, and that is what the caller is to hear of.
        }
    }
    Preparation(const Preparation&) = delete;
    Preparation& operator=(const Preparation&) = delete;

    /** Has the provider end what it began, unless that one has gone meanwhile. */
    void end()
    {
        KXChartDataProvider* provider = std::exchange(m_provider, nullptr);
        if (provider && m_watcher.isCurrent())
            provider->endPrepareData(&m_user);
    }

private:
    KXChartDataUser& m_user;
    KXChartDataProviderWatcher m_watcher;
    KXChartDataProvider* m_provider; // the host's
};

void KXChartDataUser::prepareData()
{
    const UXNotificationScope scope;
    if (!m_chart)
        return;
    // The provider may destroy the chart, and with it this object, or exchange itself, in each of its
    // answers.
    const UXObjectWatcher chart(m_chart);
    m_chart->init();
    if (chart.isAlive())
        m_chart->beforePrepareData();
    if (!chart.isAlive())
        return;
    Preparation preparation(*this);
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
    preparation.end();
    if (chart.isAlive())
        requestToReloadData();
}

void KXChartDataUser::requestToReloadData() { m_reloaded = false; }

void KXChartDataUser::reloadData()
{
    const UXNotificationScope scope;
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
    const UXNotificationScope scope;
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

void KXChartDataUser::dataArrived(std::uint64_t, std::uint64_t) {}

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
    const std::vector<KXObjectID> asked = objectIDs;
    const KXInteractionProviderUse use(*this, m_chart);
    return use.get() ? use.get()->obtainInteractionEffects(asked) : std::vector<KXInteractionEffect*>();
}
