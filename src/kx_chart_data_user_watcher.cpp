#include "kx_chart_data_user_watcher.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"

KXChartDataUserWatcher::KXChartDataUserWatcher() : KXChartDataUserWatcher(nullptr) {}

KXChartDataUserWatcher::KXChartDataUserWatcher(KXChartDataUser* user)
    : m_user(user), m_chart(user ? user->getChart() : nullptr), m_hasChart(m_chart.isAlive())
{
}
