#include "kx_chart_data_provider_watcher.h"

#include "kx_chart_data_user.h"

KXChartDataProviderWatcher::KXChartDataProviderWatcher(KXChartDataUser* user)
    : m_user(user), m_hasUser(user), m_generation(user ? user->m_providerGeneration : 0)
{
}

bool KXChartDataProviderWatcher::isCurrent() const
{
    const KXChartDataUser* user = m_user.get();
    return user ? user->m_providerGeneration == m_generation : !m_hasUser;
}
