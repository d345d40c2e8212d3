#include "kx_chart_data_provider_use.h"

#include "kx_chart_data_user.h"

KXChartDataProviderUse::KXChartDataProviderUse(KXChartDataUser& user)
    : m_user(user), m_watcher(&user), m_provider(user.beginUseDataProvider())
{
}

KXChartDataProviderUse::~KXChartDataProviderUse()
{
    if (isAlive())
        m_user.endUseDataProvider();
}
