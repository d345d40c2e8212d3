#pragma once

#include "kx_chart_data_user_watcher.h"
#include "kx_export.h"

/**
 * Notices what a provider does in the middle of an answer: destroy the chart that it is asked for, and the
 * data user with it, or take itself away from the data user, after which it may be gone.
 */
class KX_EXPORT KXChartDataProviderWatcher {
public:
    /** @param user stays its chart's; null asks for no chart, which goes on */
    explicit KXChartDataProviderWatcher(KXChartDataUser* user);

    /** @return whether the data user is still there */
    bool isAlive() const { return !m_user.isGone(); }
    /** @return whether it is, and has the provider that it had: another question may follow */
    bool isCurrent() const;

private:
    KXChartDataUserWatcher m_user;
    bool m_hasUser;
    unsigned m_generation; // of the user's provider
};
